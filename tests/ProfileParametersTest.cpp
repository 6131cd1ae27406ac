// The profile-wide parameters and the axial capacity tables of a layer
// (skin friction, tip resistance, undrained shear strength against level),
// checked against hand calculations from the example files.

#include <map>
#include <vector>

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
    EXPECT_EQ(profile.GetDiameterCount(), 2u);                           // 1.524 and 2.134
    EXPECT_EQ(profile.GetModulusOfElasticity().GetValue(), 25e6);        // ESOL0 25000.0 kN/m2
    EXPECT_EQ(profile.GetModulusOfElasticitySlope().GetValue(), 1.8e6);  // ESOL1 1800.0 kN/m3
    EXPECT_EQ(profile.GetAveragePoissonRatio(), 0.35);
    EXPECT_EQ(profile.GetZSeafloor().GetValue(), 0.0);
    EXPECT_EQ(profile.GetDepthOfScour().GetValue(), 1.0);
    EXPECT_EQ(profile.GetDepthOfLocalScour().GetValue(), 1.5);
    EXPECT_EQ(profile.GetSideSlope().GetValue(), 0.5235987755982988);  // 30 x pi / 180
    EXPECT_EQ(profile.GetZoneOfInfluenceTZ(), boost::optional<double>(10.0));
    EXPECT_EQ(profile.GetCurveShapeFactorTZ(), boost::optional<double>(0.9));

    // Version 5 has no ZONINF and RFTZ; the offshore example's SFSU is 1.25.
    const Terrix offshore = ExampleProfile("offshore-v5.terrix");
    EXPECT_EQ(offshore.GetZoneOfInfluenceTZ(), boost::none);
    EXPECT_EQ(offshore.GetCurveShapeFactorTZ(), boost::none);
    EXPECT_EQ(offshore.GetShearStrengthCoeff(), 1.25);
}

TEST(ProfileParameters, LoadsAndTheSideSlopeOfScourHoles) {
    // Every load different, so that no getter can read its neighbour's: the
    // examples have none. The slope is given in degrees.
    Terrix profile(Version::V4);
    LoadsAtSoilSurfaceSection& loads = profile.GetTerrixInputData().loadsAtSoilSurfaceSection;
    loads.SIGSRF = 11.0;
    loads.DPEMB = 12.0;
    loads.AEMB = 13.0;
    loads.BEMB = 14.0;
    loads.DPCIRC = 15.0;
    loads.RADIUS = 16.0;
    profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection.SLOPE = 45.0;

    EXPECT_EQ((std::vector<double>{profile.GetVerticalStressAtSurface().GetValue(),
                                   profile.GetVerticalStressUnderEmbankment().GetValue(),
                                   profile.GetWidthOfEmbankmentSlopingPart().GetValue(),
                                   profile.GetDistancePileToEmbankmentToe().GetValue(),
                                   profile.GetVerticalStressUnderCircularLoadedArea().GetValue(),
                                   profile.GetRadiusOfCircularLoadedArea().GetValue()}),
              (std::vector<double>{11.0, 12.0, 13.0, 14.0, 15.0, 16.0}));
    EXPECT_EQ(profile.GetSideSlope().GetValue(), 0.7853981633974483);  // 45 x pi / 180
    EXPECT_EQ(profile.GetDiameterCount(), 0u);                         // a new profile has no diameters
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

    // No levels: empty tables. Levels 0, 5, 5 and 10 around the middle 5:
    // the two rows at 5 lie inside the range from 0 to 10; the later stands.
    Terrix levels(Version::V4);
    const Layer layer = MakeLayer(1, 1, 1, 0.0, 10.0);
    EXPECT_TRUE(levels.GetSkinCompression(layer).empty());
    EXPECT_TRUE(levels.GetSkinTension(layer).empty());
    EXPECT_TRUE(levels.GetTipResistance(layer).empty());
    for (const Table::value_type& levelAndValue : {Table::value_type{0.0, 1.0}, {5.0, 2.0}, {5.0, 3.0}, {10.0, 4.0}}) {
        SkinFrictionAndTipResistanceSectionV4Record record;
        record.ZLEV = Length(levelAndValue.first);
        record.SKIN_CMP = levelAndValue.second;
        levels.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4.records.push_back(record);
    }
    EXPECT_EQ(Numbers(levels.GetSkinCompression(layer)), (Table{{0.0, 1.0}, {5.0, 3.0}, {10.0, 4.0}}));

    // Rows at levels 20 then 2 do not bracket the middle 6 of a layer from
    // 2 to 10 in file order: no level data at all.
    Terrix outOfOrder(Version::V4);
    for (double level : {20.0, 2.0}) {
        SkinFrictionAndTipResistanceSectionV4Record record;
        record.ZLEV = Length(level);
        record.G0_SOIL = 1000.0;
        record.POIS = 0.3;
        outOfOrder.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4.records.push_back(record);
    }
    const Layer between = MakeLayer(1, 1, 1, 2.0, 10.0);
    EXPECT_TRUE(outOfOrder.GetSkinCompression(between).empty());
    EXPECT_FALSE(outOfOrder.GetInitialSoilShearModulus(between));
    EXPECT_FALSE(outOfOrder.GetPoissonRatio(between));
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
    // its own boundaries; a layer of no thickness keeps the bottom value.
    EXPECT_EQ(Numbers(profile.GetSkinCompression(MakeLayer(3, 7, 1, 22.0, 28.0))), (Table{{22.0, 45.0}, {28.0, 96.0}}));
    EXPECT_EQ(Numbers(profile.GetSkinCompression(MakeLayer(3, 7, 1, 22.0, 22.0))), (Table{{22.0, 96.0}}));
    // A main layer the section does not hold: empty, not an error.
    EXPECT_TRUE(profile.GetSkinCompression(MakeLayer(9, 1, 1, 0.0, 1.0)).empty());
}

TEST(AxialTables, Version4SUzIsTheSoilTypesStrengthAtLevels0And100OfTheFilesLengthUnit) {
    const Terrix metres = ExampleProfile("north-sea-v4.terrix");
    // Soil type 2 (soft clay): SU.Z=0 12.0 and SU.Z=100 172.0 kN/m2; soil
    // type 1 (sand): both zero.
    const Layer softClay = MakeLayer(2, 3, 3, 6.0, 14.0);
    EXPECT_EQ(Numbers(metres.GetSUz(softClay)), (Table{{0.0, 12000.0}, {100.0, 172000.0}}));
    EXPECT_EQ(Numbers(metres.GetSUz(MakeLayer(1, 1, 2, 0.0, 6.0))), (Table{{0.0, 0.0}, {100.0, 0.0}}));
    // The same file read in feet: level 100 is 100 ft = 30.48 m.
    const Terrix::StressByLevel strengths = ExampleProfile("north-sea-v4.terrix", "kN", "ft").GetSUz(softClay);
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
    profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection.ZSURF = 2.0;
    EXPECT_EQ(Numbers(profile.GetSUz(MakeLayer(1, 1, 2, 2.0, 5.0))), (Table{{2.0, 0.0}, {5.0, 0.0}}));
    // A main layer the table does not hold: empty, not an error.
    EXPECT_TRUE(profile.GetSUz(MakeLayer(9, 1, 1, 0.0, 1.0)).empty());
}
