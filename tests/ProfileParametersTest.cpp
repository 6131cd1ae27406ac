// The profile-wide parameters and the axial capacity tables of a layer
// (skin friction, tip resistance, undrained shear strength against level),
// checked against hand calculations from the example files.

#include <map>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "QueryTestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

using Table = std::map<double, double>;

TEST(ProfileParameters, Version4ExampleGivesTheValuesOfItsGeneralSections) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");  // kN and m

    EXPECT_EQ(profile.GetWaterUnitWeight().GetValue(), 10051.8);       // GAMMAW 10.0518 kN/m3
    EXPECT_EQ(profile.GetLowestLevelWithCyclicPY().GetValue(), 20.0);  // ZCYCL 20.0 m
    EXPECT_EQ(profile.GetLowestShearStiff().GetValue(), 96000.0);      // SUSTIF 96.0 kN/m2
    EXPECT_EQ(profile.GetTanPhiCoeff(), 1.0);
    EXPECT_EQ(profile.GetShearStrengthCoeff(), 1.0);
    EXPECT_EQ(profile.GetSkinFrictionCoeff(), 1.0);
    EXPECT_EQ(profile.GetPileTipResistanceCoeff(), 1.0);
    EXPECT_EQ(profile.GetDiameterCount(), 2u);                           // 1.524 and 2.134
    EXPECT_EQ(profile.GetModulusOfElasticity().GetValue(), 25e6);        // ESOL0 25000.0 kN/m2
    EXPECT_EQ(profile.GetModulusOfElasticitySlope().GetValue(), 1.8e6);  // ESOL1 1800.0 kN/m3
    EXPECT_EQ(profile.GetAveragePoissonRatio(), 0.35);
    EXPECT_EQ(profile.GetZSeafloor().GetValue(), 0.0);
    EXPECT_EQ(profile.GetDepthOfScour().GetValue(), 1.0);
    EXPECT_EQ(profile.GetDepthOfLocalScour().GetValue(), 1.5);
    EXPECT_EQ(profile.GetSideSlope().GetValue(), 0.5235987755982988);  // 30 x pi / 180
    EXPECT_EQ(profile.GetVerticalStressAtSurface().GetValue(), 0.0);
    EXPECT_EQ(profile.GetRadiusOfCircularLoadedArea().GetValue(), 0.0);
    EXPECT_EQ(profile.GetZoneOfInfluenceTZ(), boost::optional<double>(10.0));
    EXPECT_EQ(profile.GetCurveShapeFactorTZ(), boost::optional<double>(0.9));
}

TEST(ProfileParameters, Version5HasNoTZParametersOfTheLevelTable) {
    const Terrix profile = ExampleProfile("offshore-v5.terrix");
    EXPECT_EQ(profile.GetShearStrengthCoeff(), 1.25);  // SFSU 1.25
    EXPECT_EQ(profile.GetZoneOfInfluenceTZ(), boost::none);
    EXPECT_EQ(profile.GetCurveShapeFactorTZ(), boost::none);
}

TEST(ProfileParameters, EachGetterReadsItsOwnParameter) {
    Terrix profile(Version::V4);
    SoilSurfaceAndGroundWaterSection& surface = profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection;
    surface.ZSURF = Quantity<LengthPhenomenon>(-3.5);
    surface.SCRGEN = Quantity<LengthPhenomenon>(2.0);
    surface.SCRLOC = Quantity<LengthPhenomenon>(4.0);
    surface.SLOPE = 45.0;
    LoadsAtSoilSurfaceSection& loads = profile.GetTerrixInputData().loadsAtSoilSurfaceSection;
    loads.SIGSRF = Quantity<ForcePerUnitAreaPhenomenon>(11.0);
    loads.DPEMB = Quantity<ForcePerUnitAreaPhenomenon>(12.0);
    loads.AEMB = Quantity<LengthPhenomenon>(13.0);
    loads.BEMB = Quantity<LengthPhenomenon>(14.0);
    loads.DPCIRC = Quantity<ForcePerUnitAreaPhenomenon>(15.0);
    loads.RADIUS = Quantity<LengthPhenomenon>(16.0);
    MaterialCoefficientsSection& coefficients = profile.GetTerrixInputData().materialCoefficientsSection;
    coefficients.SFTPHI = 1.1;
    coefficients.SFSU = 1.2;
    coefficients.SFSKF = 1.3;
    coefficients.SFSIGT = 1.4;

    EXPECT_EQ(profile.GetZSeafloor().GetValue(), -3.5);
    EXPECT_EQ(profile.GetDepthOfScour().GetValue(), 2.0);
    EXPECT_EQ(profile.GetDepthOfLocalScour().GetValue(), 4.0);
    EXPECT_EQ(profile.GetSideSlope().GetValue(), 0.7853981633974483);  // 45 x pi / 180
    EXPECT_EQ(profile.GetVerticalStressAtSurface().GetValue(), 11.0);
    EXPECT_EQ(profile.GetVerticalStressUnderEmbankment().GetValue(), 12.0);
    EXPECT_EQ(profile.GetWidthOfEmbankmentSlopingPart().GetValue(), 13.0);
    EXPECT_EQ(profile.GetDistancePileToEmbankmentToe().GetValue(), 14.0);
    EXPECT_EQ(profile.GetVerticalStressUnderCircularLoadedArea().GetValue(), 15.0);
    EXPECT_EQ(profile.GetRadiusOfCircularLoadedArea().GetValue(), 16.0);
    EXPECT_EQ(profile.GetTanPhiCoeff(), 1.1);
    EXPECT_EQ(profile.GetShearStrengthCoeff(), 1.2);
    EXPECT_EQ(profile.GetSkinFrictionCoeff(), 1.3);
    EXPECT_EQ(profile.GetPileTipResistanceCoeff(), 1.4);
    // A new profile has no diameters.
    EXPECT_EQ(profile.GetDiameterCount(), 0u);
}

TEST(AxialTables, Version4TakesTheLevelsThatBracketTheLayersMiddle) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");
    // Levels of the file: 0, 6, 14, 30, 38, 45. The values are kept as the
    // file gives them; only the levels are lengths.

    // Layers 1-2, from 0 to 6, middle 3: level 0 is the last above, 6 the
    // first below.
    const Layer upperSand = MakeLayer(1, 1, 2, 0.0, 6.0);
    EXPECT_EQ(Numbers(profile.GetSkinCompression(upperSand)), (Table{{0.0, 0.0}, {6.0, 14.5}}));
    EXPECT_EQ(Numbers(profile.GetSkinTension(upperSand)), (Table{{0.0, 0.0}, {6.0, 14.5}}));
    EXPECT_EQ(Numbers(profile.GetTipResistance(upperSand)), (Table{{0.0, 0.0}, {6.0, 2900.0}}));

    // Layers 8-10, from 30 to 45, middle 37.5: levels 30 and 38.
    const Layer till = MakeLayer(4, 8, 3, 30.0, 45.0);
    EXPECT_EQ(Numbers(profile.GetSkinCompression(till)), (Table{{30.0, 67.0}, {38.0, 102.0}}));
    EXPECT_EQ(Numbers(profile.GetTipResistance(till)), (Table{{30.0, 9600.0}, {38.0, 1800.0}}));

    // A layer whose middle is level 14 itself (10 to 18): 14 is neither above
    // nor below, so the range runs from 6 to 30, all three levels.
    EXPECT_EQ(Numbers(profile.GetSkinCompression(MakeLayer(2, 4, 1, 10.0, 18.0))),
              (Table{{6.0, 14.5}, {14.0, 35.0}, {30.0, 67.0}}));

    // Below the last level: the last level alone.
    EXPECT_EQ(Numbers(profile.GetSkinTension(MakeLayer(4, 11, 1, 45.0, 50.0))), (Table{{45.0, 118.0}}));
}

TEST(AxialTables, Version4LevelGivenTwiceKeepsItsLaterRowAndNoLevelsGiveEmptyTables) {
    Terrix profile(Version::V4);
    SkinFrictionAndTipResistanceSectionV4& levels = profile.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4;
    const Layer layer = MakeLayer(1, 1, 1, 0.0, 10.0);
    EXPECT_TRUE(profile.GetSkinCompression(layer).empty());
    EXPECT_TRUE(profile.GetSkinTension(layer).empty());
    EXPECT_TRUE(profile.GetTipResistance(layer).empty());

    // Levels 0, 5, 5 and 10 around the middle 5 of the layer: the two rows
    // at 5 are neither above nor below it and lie inside the range from 0
    // to 10; the later of them stands.
    const double levelsAndValues[][2] = {{0.0, 1.0}, {5.0, 2.0}, {5.0, 3.0}, {10.0, 4.0}};
    for (const auto& levelAndValue : levelsAndValues) {
        SkinFrictionAndTipResistanceSectionV4Record record;
        record.ZLEV = Quantity<LengthPhenomenon>(levelAndValue[0]);
        record.SKIN_CMP = levelAndValue[1];
        levels.records.push_back(record);
    }
    EXPECT_EQ(Numbers(profile.GetSkinCompression(layer)), (Table{{0.0, 1.0}, {5.0, 3.0}, {10.0, 4.0}}));
}

TEST(AxialTables, Version5PutsTheMainLayersValuesAtTheComputationalLayersLevels) {
    const Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Main layer 3 (dense sand, 16 to 28): SKINC 45.0 / 96.0, SKINT 36.0 /
    // 76.8, SIGTIP 9600.0 / 12000.0, as the file gives them.
    const Layer denseSand = MakeLayer(3, 6, 2, 16.0, 28.0);
    EXPECT_EQ(Numbers(profile.GetSkinCompression(denseSand)), (Table{{16.0, 45.0}, {28.0, 96.0}}));
    EXPECT_EQ(Numbers(profile.GetSkinTension(denseSand)), (Table{{16.0, 36.0}, {28.0, 76.8}}));
    EXPECT_EQ(Numbers(profile.GetTipResistance(denseSand)), (Table{{16.0, 9600.0}, {28.0, 12000.0}}));

    // A piece of the main layer reports the same top and bottom values at
    // its own boundaries.
    EXPECT_EQ(Numbers(profile.GetSkinCompression(MakeLayer(3, 7, 1, 22.0, 28.0))), (Table{{22.0, 45.0}, {28.0, 96.0}}));
    // A layer of no thickness keeps the bottom value.
    EXPECT_EQ(Numbers(profile.GetSkinCompression(MakeLayer(3, 7, 1, 22.0, 22.0))), (Table{{22.0, 96.0}}));
    // A main layer the section does not hold: empty, not an error.
    EXPECT_TRUE(profile.GetSkinCompression(MakeLayer(9, 1, 1, 0.0, 1.0)).empty());
}

TEST(AxialTables, Version4SUzIsTheSoilTypesStrengthAtLevels0And100OfTheFilesLengthUnit) {
    const Terrix metres = ExampleProfile("north-sea-v4.terrix");
    // Soil type 2 (soft clay): SU.Z=0 12.0 and SU.Z=100 172.0 kN/m2.
    const Layer softClay = MakeLayer(2, 3, 3, 6.0, 14.0);
    EXPECT_EQ(Numbers(metres.GetSUz(softClay)), (Table{{0.0, 12000.0}, {100.0, 172000.0}}));
    // Soil type 1 (sand): both zero.
    EXPECT_EQ(Numbers(metres.GetSUz(MakeLayer(1, 1, 2, 0.0, 6.0))), (Table{{0.0, 0.0}, {100.0, 0.0}}));

    // The same file read in feet: level 100 is 100 ft = 30.48 m.
    const Terrix feet = ExampleProfile("north-sea-v4.terrix", "kN", "ft");
    const Terrix::StressByLevel strengths = feet.GetSUz(softClay);
    ASSERT_EQ(strengths.size(), 2u);
    EXPECT_EQ(strengths.begin()->first.GetValue(), 0.0);
    EXPECT_EQ(strengths.rbegin()->first.GetValue(), 30.48);

    // A soil type that the table does not hold.
    EXPECT_EQ(QueryErrorOf([&] { metres.GetSUz(MakeLayer(7, 1, 1, 0.0, 6.0)); }), "Unknown layer");
}

TEST(AxialTables, Version5SUzUsesTheMainLayersOwnTopAndBottom) {
    Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Main layer 2 (soft clay, 5 to 16): SUTOP 20.0, SUBOT 70.0, kept as
    // written. Any piece of it gets the main layer's own levels.
    EXPECT_EQ(Numbers(profile.GetSUz(MakeLayer(2, 3, 3, 5.0, 16.0))), (Table{{5.0, 20.0}, {16.0, 70.0}}));
    EXPECT_EQ(Numbers(profile.GetSUz(MakeLayer(2, 4, 1, 8.0, 12.0))), (Table{{5.0, 20.0}, {16.0, 70.0}}));
    // Main layer 4 starts at the bottom of main layer 3 (28).
    EXPECT_EQ(Numbers(profile.GetSUz(MakeLayer(4, 8, 3, 28.0, 42.0))), (Table{{28.0, 150.0}, {42.0, 260.0}}));

    // The first main layer starts at the seafloor.
    profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection.ZSURF = Quantity<LengthPhenomenon>(2.0);
    EXPECT_EQ(Numbers(profile.GetSUz(MakeLayer(1, 1, 2, 2.0, 5.0))), (Table{{2.0, 0.0}, {5.0, 0.0}}));

    // A main layer the table does not hold: empty, not an error.
    EXPECT_TRUE(profile.GetSUz(MakeLayer(9, 1, 1, 0.0, 1.0)).empty());
}

TEST(AxialTables, AnUnknownVersionHasNoTablesAndNoTZParameters) {
    Terrix profile(Version::Unknown);
    TerrixInputData& data = profile.GetTerrixInputData();
    data.soilTypeAndPropertySection.records.resize(1);
    data.soilTypeAndPropertySection.records[0].TYP = 1;
    data.skinFrictionAndTipResistanceSectionV4.records.resize(1);
    data.soilMainLayersAndPropertiesSection.records.resize(1);
    data.soilMainLayersAndPropertiesSection.records[0].MAIN = 1;
    data.skinFrictionAndTipResistanceSectionV5.records.resize(1);
    data.skinFrictionAndTipResistanceSectionV5.records[0].MAIN_LAYER = 1;

    const Layer layer = MakeLayer(1, 1, 1, 0.0, 1.0);
    EXPECT_TRUE(profile.GetSkinCompression(layer).empty());
    EXPECT_TRUE(profile.GetSkinTension(layer).empty());
    EXPECT_TRUE(profile.GetTipResistance(layer).empty());
    EXPECT_TRUE(profile.GetSUz(layer).empty());
    EXPECT_EQ(profile.GetZoneOfInfluenceTZ(), boost::none);
    EXPECT_EQ(profile.GetCurveShapeFactorTZ(), boost::none);
}
