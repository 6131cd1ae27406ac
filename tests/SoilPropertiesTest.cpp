// The soil properties of a layer: from the soil type table and the level
// table in version 4, from the main layer tables in version 5.

#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "QueryTestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

namespace {

using SoilType = Terrix::SoilType;
using Ratios = std::vector<boost::optional<double>>;

// Every getter that needs the layer's record in the table of its version,
// by name, so that a failure names the getter.
std::vector<std::pair<std::string, std::function<void()>>> RecordGetters(const Terrix& profile, const Layer& layer) {
    return {
        {"GetPhi", [&profile, layer] { profile.GetPhi(layer); }},
        {"GetEpsc", [&profile, layer] { profile.GetEpsc(layer); }},
        {"GetAPIJFactor", [&profile, layer] { profile.GetAPIJFactor(layer); }},
        {"GetOpenGap", [&profile, layer] { profile.GetOpenGap(layer); }},
        {"GetRPRatio", [&profile, layer] { profile.GetRPRatio(layer); }},
        {"GetTZCurveZDisplacement", [&profile, layer] { profile.GetTZCurveZDisplacement(layer); }},
        {"GetLayerUnitWeight", [&profile, layer] { profile.GetLayerUnitWeight(layer); }},
    };
}

// PHI (in radians), EPSC, API-J, the residual ratio, the T-Z displacement
// and the unit weight of a layer, as plain numbers.
std::vector<double> SoilValues(const Terrix& profile, const Layer& layer) {
    return {profile.GetPhi(layer).GetValue(), profile.GetEpsc(layer), profile.GetAPIJFactor(layer),
            profile.GetRPRatio(layer), profile.GetTZCurveZDisplacement(layer).GetValue(),
            profile.GetLayerUnitWeight(layer).GetValue()};
}

// The ratios of the version 4 level table: DSPTZ/DIAM, POIS, DSPQZ/DIAM.
Ratios LevelRatios(const Terrix& profile, const Layer& layer) {
    return {profile.GetDSDiameterRatio(layer), profile.GetPoissonRatio(layer), profile.GetDTDiameterRatio(layer)};
}

}  // namespace

TEST(SoilProperties, Version4ExampleGivesTheSoilTypesAndLevelsValues) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");  // kN and m

    // Layers 3-5 are soil type 2, soft clay:
    //   2  17.5  0.0  12.0  172.0  0.02  1.5  0.5  /  0  0.7  0.02
    const Layer softClay = MakeLayer(2, 3, 3, 6.0, 14.0);
    EXPECT_EQ(SoilValues(profile, softClay), (std::vector<double>{0.0, 0.02, 0.5, 0.7, 0.02, 17500.0}));  // kN/m3
    EXPECT_EQ(profile.GetSoilType(softClay), SoilType::Clay);  // SU.Z=0 12.0 is not zero
    EXPECT_EQ(profile.GetOverConsolidationRatio(softClay), boost::optional<double>(1.5));
    EXPECT_FALSE(profile.GetOpenGap(softClay));         // GAP 0
    EXPECT_FALSE(profile.GetInitialModulus(softClay));  // version 4 has no AK
    // Layers 1-2 are soil type 1, sand with PHI 32: 32 x pi / 180; layers
    // 8-10 soil type 4, whose GAP is 1.
    EXPECT_EQ(profile.GetSoilType(MakeLayer(1, 1, 2, 0.0, 6.0)), SoilType::Sand);  // both strengths 0.0
    EXPECT_EQ(profile.GetPhi(MakeLayer(1, 1, 2, 0.0, 6.0)).GetValue(), 0.5585053606381855);
    EXPECT_TRUE(profile.GetOpenGap(MakeLayer(4, 8, 3, 30.0, 45.0)));

    // The level values come from the first level that brackets the layer's
    // middle: 6 and 14 bracket 10, level 6 reads
    // 6.0 14.5 14.5 45000.0 0.01 2900.0 0.3 0.1.
    ASSERT_TRUE(profile.GetInitialSoilShearModulus(softClay));
    EXPECT_EQ(profile.GetInitialSoilShearModulus(softClay)->GetValue(), 45000.0);  // kept as written
    EXPECT_EQ(LevelRatios(profile, softClay), (Ratios{0.01, 0.3, 0.1}));
    // Layers 6-7, middle 22: level 14 comes first, a row of seven numbers
    // without shear modulus, though its other values are there.
    const Layer denseSand = MakeLayer(3, 6, 2, 14.0, 30.0);
    EXPECT_FALSE(profile.GetInitialSoilShearModulus(denseSand));
    EXPECT_EQ(LevelRatios(profile, denseSand), (Ratios{0.01, 0.45, 0.1}));
    // Without level rows there is nothing to give.
    Terrix noLevels = profile;
    noLevels.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4.records.clear();
    EXPECT_FALSE(noLevels.GetInitialSoilShearModulus(softClay));
    EXPECT_EQ(LevelRatios(noLevels, softClay), Ratios(3));

    // Read as kN and ft, TZZRES 0.02 is 0.02 ft; an angle is no length.
    const Terrix feet = ExampleProfile("north-sea-v4.terrix", "kN", "ft");
    EXPECT_EQ(feet.GetTZCurveZDisplacement(softClay).GetValue(), 0.006096);  // 0.02 x 0.3048 m
    EXPECT_EQ(feet.GetPhi(MakeLayer(1, 1, 2, 0.0, 6.0)).GetValue(), 0.5585053606381855);
}

TEST(SoilProperties, Version4EdgeCasesOfTheSoilTypeTable) {
    Terrix profile(Version::V4);
    std::vector<SoilTypeAndPropertySectionRecord>& soils =
        profile.GetTerrixInputData().soilTypeAndPropertySection.records;
    soils.resize(2);
    soils[0].TYP = 5;
    soils[0].PHI = 30.0;
    soils[0].GAP = 2;
    soils[1].TYP = 5;  // a second row of the same type is never read
    soils[1].PHI = 45.0;
    soils[1].GAP = 1;
    const Layer layer = MakeLayer(5, 1, 1, 0.0, 4.0);

    EXPECT_EQ(profile.GetPhi(layer).GetValue(), 0.5235987755982988);  // 30 x pi / 180
    EXPECT_FALSE(profile.GetOpenGap(layer));                          // only 1 opens a gap
    soils[0].GAP = -1;
    EXPECT_FALSE(profile.GetOpenGap(layer));

    // Strengths decide the soil: zero throughout is sand, anything else
    // (a NaN too) clay.
    EXPECT_EQ(profile.GetSoilType(layer), SoilType::Sand);
    soils[0].SU_Z100 = 0.5;
    EXPECT_EQ(profile.GetSoilType(layer), SoilType::Clay);
    soils[0].SU_Z100 = 0.0;
    soils[0].SU_Z0 = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(profile.GetSoilType(layer), SoilType::Clay);

    // A soil type without a row.
    const Layer unknown = MakeLayer(6, 2, 1, 4.0, 8.0);
    for (const auto& getter : RecordGetters(profile, unknown))
        EXPECT_EQ(QueryErrorOf(getter.second), "Unknown layer") << getter.first;
    EXPECT_EQ(QueryErrorOf([&] { profile.GetOverConsolidationRatio(unknown); }), "Unknown layer");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetSoilType(unknown); }), "Unknown layer");
}

TEST(SoilProperties, Version5ExampleGivesTheMainLayersValues) {
    Terrix profile = ExampleProfile("north-sea-v5.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();

    // Main layer 2, soft clay, kept as written:
    //   2  16.0  17.5  0.6  1.4  0.0  0.0  20.0  /  70.0  35  0.02  0.5  0.0
    // skin friction row  2  0  20.0 70.0 20.0 70.0 180.0 630.0 1.0 0.8 0.02
    const Layer softClay = MakeLayer(2, 3, 3, 5.0, 16.0);
    EXPECT_EQ(SoilValues(profile, softClay), (std::vector<double>{0.0, 0.02, 0.5, 0.8, 0.02, 17.5}));  // TRES/TMAX 0.8
    EXPECT_EQ(profile.GetSoilType(softClay), SoilType::Clay);
    EXPECT_EQ(profile.GetOverConsolidationRatio(softClay), boost::none);
    EXPECT_FALSE(profile.GetOpenGap(softClay));  // OPEN HOLE 0
    ASSERT_TRUE(profile.GetInitialModulus(softClay));
    EXPECT_EQ(profile.GetInitialModulus(softClay)->GetValue(), 0.0);
    // The level table of version 4 does not exist here.
    EXPECT_FALSE(profile.GetInitialSoilShearModulus(softClay));
    EXPECT_EQ(LevelRatios(profile, softClay), Ratios(3));
    // Main layer 3, dense sand with PHI 36: 36 x pi / 180; main layer 1 has
    // no strength.
    const Layer denseSand = MakeLayer(3, 6, 2, 16.0, 28.0);
    EXPECT_EQ(profile.GetPhi(denseSand).GetValue(), 0.6283185307179586);
    EXPECT_EQ(profile.GetSoilType(MakeLayer(1, 1, 2, 0.0, 5.0)), SoilType::Sand);

    // The open hole flag is the subdivision table's; only 1 opens it.
    data.mainLayersSubdivisionAndPyTzQzCodesSection.records[2].OPEN_HOLE = 1;
    EXPECT_TRUE(profile.GetOpenGap(denseSand));
    data.mainLayersSubdivisionAndPyTzQzCodesSection.records[2].OPEN_HOLE = 2;
    EXPECT_FALSE(profile.GetOpenGap(denseSand));
    // Without its skin friction row, main layer 3 has no residual ratio and
    // no T-Z displacement, but still its friction angle.
    auto& axialRows = data.skinFrictionAndTipResistanceSectionV5.records;
    axialRows.erase(axialRows.begin() + 2);
    EXPECT_EQ(QueryErrorOf([&] { profile.GetRPRatio(denseSand); }), "Unknown layer");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetTZCurveZDisplacement(denseSand); }), "Unknown layer");
    EXPECT_EQ(profile.GetPhi(denseSand).GetValue(), 0.6283185307179586);
    // A main layer no table holds; only the OCR, which version 5 never has,
    // is no error, and with no strengths the soil is undefined.
    const Layer unknown = MakeLayer(9, 1, 1, 0.0, 1.0);
    for (const auto& getter : RecordGetters(profile, unknown))
        EXPECT_EQ(QueryErrorOf(getter.second), "Unknown layer") << getter.first;
    EXPECT_EQ(profile.GetOverConsolidationRatio(unknown), boost::none);
    EXPECT_EQ(profile.GetSoilType(unknown), SoilType::Undefined);
}

TEST(SoilProperties, Version5InitialModulusFollowsTheLayoutOfTheMainLayerTable) {
    // The example's table has the AK column (layout revision 2); main layer
    // 4 has AK 1.2.
    Terrix profile = ExampleProfile("north-sea-v5.terrix");
    SoilMainLayersAndPropertiesSection& mainLayers = profile.GetTerrixInputData().soilMainLayersAndPropertiesSection;
    ASSERT_EQ(mainLayers.layoutRevision, 2);
    const Layer stiffClay = MakeLayer(4, 8, 3, 28.0, 42.0);
    const Layer unknown = MakeLayer(9, 1, 1, 0.0, 1.0);
    ASSERT_TRUE(profile.GetInitialModulus(stiffClay));
    EXPECT_EQ(profile.GetInitialModulus(stiffClay)->GetValue(), 1.2);
    EXPECT_EQ(QueryErrorOf([&] { profile.GetInitialModulus(unknown); }), "Unknown layer");

    // A table without the AK column gives no modulus, and looks nothing up.
    mainLayers.layoutRevision = 1;
    EXPECT_FALSE(profile.GetInitialModulus(stiffClay));
    EXPECT_FALSE(profile.GetInitialModulus(unknown));
    // A table not yet settled is read as one with the column.
    mainLayers.layoutRevision = 0;
    ASSERT_TRUE(profile.GetInitialModulus(stiffClay));
    EXPECT_EQ(profile.GetInitialModulus(stiffClay)->GetValue(), 1.2);

    // The same file without the AK column imports with layout revision 1:
    // the header loses "  AK", each row the last value of its second line.
    std::string text = ExampleFileText("north-sea-v5.terrix");
    for (const std::string end : {"AK\nLAYER", "0.0\n* Soft", "0.0\n* Dense", "0.0\n* Very", "1.2\n\n"}) {
        ASSERT_NE(text.find(end), std::string::npos) << end;
        const std::size_t lineEnd = text.find('\n', text.find(end));
        const std::size_t width = end[0] == 'A' ? 4 : 10;
        text.erase(lineEnd - width, width);
    }
    const Terrix withoutAK = ImportedText(text);
    EXPECT_EQ(withoutAK.GetTerrixInputData().soilMainLayersAndPropertiesSection.layoutRevision, 1);
    EXPECT_FALSE(withoutAK.GetInitialModulus(stiffClay));
}

TEST(SoilPropertiesAndAxialTables, AnUnknownVersionHasNone) {
    // Tables of both versions filled for main layer (soil type) 1.
    Terrix profile(Version::Unknown);
    TerrixInputData& data = profile.GetTerrixInputData();
    data.soilTypeAndPropertySection.records.resize(1);
    data.soilTypeAndPropertySection.records[0].TYP = 1;
    data.skinFrictionAndTipResistanceSectionV4.records.resize(1);
    data.soilMainLayersAndPropertiesSection.records.resize(1);
    data.soilMainLayersAndPropertiesSection.records[0].MAIN = 1;
    data.skinFrictionAndTipResistanceSectionV5.records.resize(1);
    data.skinFrictionAndTipResistanceSectionV5.records[0].MAIN_LAYER = 1;
    data.mainLayersSubdivisionAndPyTzQzCodesSection.records.resize(1);
    data.mainLayersSubdivisionAndPyTzQzCodesSection.records[0].MAIN_LAYER = 1;

    for (const Layer& layer : {MakeLayer(1, 1, 1, 0.0, 1.0), MakeLayer(9, 1, 1, 0.0, 1.0)}) {
        for (const auto& getter : RecordGetters(profile, layer))
            EXPECT_EQ(QueryErrorOf(getter.second), "Unknown TERRIX version") << getter.first;
        EXPECT_EQ(QueryErrorOf([&profile, layer] { profile.GetOverConsolidationRatio(layer); }),
                  "Unknown TERRIX version");
        EXPECT_EQ(QueryErrorOf([&profile, layer] { profile.GetInitialModulus(layer); }), "Unknown TERRIX version");
        // The others have no table to look in and say so quietly.
        EXPECT_EQ(profile.GetSoilType(layer), SoilType::Undefined);
        EXPECT_FALSE(profile.GetInitialSoilShearModulus(layer));
        EXPECT_EQ(LevelRatios(profile, layer), Ratios(3));
        EXPECT_TRUE(profile.GetSkinCompression(layer).empty());
        EXPECT_TRUE(profile.GetSkinTension(layer).empty());
        EXPECT_TRUE(profile.GetTipResistance(layer).empty());
        EXPECT_TRUE(profile.GetSUz(layer).empty());
    }
    EXPECT_EQ(profile.GetZoneOfInfluenceTZ(), boost::none);
    EXPECT_EQ(profile.GetCurveShapeFactorTZ(), boost::none);
}
