// The computational layers of a profile: version 4 divisions split into
// their numbered layers and joined again where the curve data agree;
// version 5 main layers as they are.

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "QueryTestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

namespace {

using Layers = std::vector<Layer>;

SoilLayerDivisionsAndCodesForPyTzQzSectionRecord Division(int layer1, int layer2, int typ, double zbotm) {
    SoilLayerDivisionsAndCodesForPyTzQzSectionRecord division;
    division.LAYER1 = layer1;
    division.LAYER2 = layer2;
    division.TYP = typ;
    division.ZBOTM = Length(zbotm);
    division.PYCODE = 287;
    division.TZCODE = 293;
    division.QZCODE = 293;
    return division;
}

template <class Record>
Record AllLayersRow() {
    Record row;  // LAY1 = LAY2 = 0 and DIAM 0: every layer and diameter, identity factors
    return row;
}

// A version 4 profile with one pile diameter, generated curves (no manual
// code) and rows "0 0 0.0" with identity factors for P-Y, T-Z and Q-Z: every
// numbered layer has the same curve data.
Terrix GeneratedCurvesProfile(const std::vector<SoilLayerDivisionsAndCodesForPyTzQzSectionRecord>& divisions) {
    Terrix profile(Version::V4);
    TerrixInputData& data = profile.GetTerrixInputData();
    data.pileDiametersAndGroupEffectsSection.diameters = {Length(1.5)};
    data.soilLayerDivisionsAndCodesForPyTzQzSection.records = divisions;
    data.pyLateralResistanceDataModificationSection.records = {
        AllLayersRow<PyLateralResistanceDataModificationSectionRecord>()};
    data.tzSkinFrictionDataModificationSection.records = {AllLayersRow<TzSkinFrictionDataModificationSectionRecord>()};
    data.qzPileTipResistanceDataModificationSection.records = {
        AllLayersRow<QzPileTipResistanceDataModificationSectionRecord>()};
    return profile;
}

}  // namespace

TEST(Layering, Version4ExampleKeepsApartOnlyLayersWithTheirOwnCurves) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");

    // One layer per division, from the seafloor (ZSURF 0.0) down.
    EXPECT_EQ(profile.GetLayers(false), (Layers{MakeLayer(1, 1, 2, 0.0, 6.0), MakeLayer(2, 3, 3, 6.0, 14.0),
                                                MakeLayer(3, 6, 2, 14.0, 30.0), MakeLayer(4, 8, 3, 30.0, 45.0)}));

    // Split and merged:
    // - layers 1 and 2 (0 to 3 and 3 to 6) have the same codes, no manual
    //   curves and the same rows, so they are one layer again;
    // - layers 3, 4 and 5 each have their own manual P-Y curves; their
    //   boundaries are (2/3) 6 + (1/3) 14 and (1/3) 6 + (2/3) 14;
    // - layers 6 and 7 have their own manual T-Z curves;
    // - layers 8, 9 and 10 have their own manual Q-Z curves.
    EXPECT_EQ(
        profile.GetLayers(true),
        (Layers{MakeLayer(1, 1, 2, 0.0, 6.0), MakeLayer(2, 3, 1, 6.0, 8.666666666666666),
                MakeLayer(2, 4, 1, 8.666666666666666, 11.333333333333332), MakeLayer(2, 5, 1, 11.333333333333332, 14.0),
                MakeLayer(3, 6, 1, 14.0, 22.0), MakeLayer(3, 7, 1, 22.0, 30.0), MakeLayer(4, 8, 1, 30.0, 35.0),
                MakeLayer(4, 9, 1, 35.0, 40.0), MakeLayer(4, 10, 1, 40.0, 45.0)}));
}

TEST(Layering, TheFirstLayerStartsAtTheSeafloor) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection.ZSURF = Length(1.5);
    EXPECT_EQ(profile.GetLayers(false).front(), MakeLayer(1, 1, 2, 1.5, 6.0));
    // Layers 1 and 2 now meet at 3.75, the middle of 1.5 and 6, and are
    // merged again.
    EXPECT_EQ(profile.GetLayers(true).front(), MakeLayer(1, 1, 2, 1.5, 6.0));
}

TEST(Layering, LayersWithEqualCurveDataAreJoinedAndOneModificationSetsALayerApart) {
    Terrix profile = GeneratedCurvesProfile({Division(1, 4, 1, 8.0)});
    EXPECT_EQ(profile.GetLayers(true), (Layers{MakeLayer(1, 1, 4, 0.0, 8.0)}));

    // A P-Y row for layer 3 alone, before the row for every layer.
    PyLateralResistanceDataModificationSectionRecord layer3;
    layer3.LAY1 = 3;
    layer3.LAY2 = 3;
    layer3.modification.P_FACT = 0.8;
    std::vector<PyLateralResistanceDataModificationSectionRecord>& rows =
        profile.GetTerrixInputData().pyLateralResistanceDataModificationSection.records;
    rows.insert(rows.begin(), layer3);
    EXPECT_EQ(profile.GetLayers(true),
              (Layers{MakeLayer(1, 1, 2, 0.0, 4.0), MakeLayer(1, 3, 1, 4.0, 6.0), MakeLayer(1, 4, 1, 6.0, 8.0)}));
    // Unsplit, the division stays whole.
    EXPECT_EQ(profile.GetLayers(false), (Layers{MakeLayer(1, 1, 4, 0.0, 8.0)}));
}

TEST(Layering, TwoDivisionsWithTheSameDataStayTwoLayers) {
    const Terrix profile = GeneratedCurvesProfile({Division(1, 2, 1, 4.0), Division(3, 4, 1, 8.0)});
    EXPECT_EQ(profile.GetLayers(true), (Layers{MakeLayer(1, 1, 2, 0.0, 4.0), MakeLayer(1, 3, 2, 4.0, 8.0)}));
}

TEST(Layering, ANaNInTheCurveDataKeepsLayersApart) {
    Terrix profile = GeneratedCurvesProfile({Division(1, 3, 1, 6.0)});
    profile.GetTerrixInputData().tzSkinFrictionDataModificationSection.records.front().modification.Z_RES_FCT =
        std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(profile.GetLayers(true),
              (Layers{MakeLayer(1, 1, 1, 0.0, 2.0), MakeLayer(1, 2, 1, 2.0, 4.0), MakeLayer(1, 3, 1, 4.0, 6.0)}));
}

TEST(Layering, ErrorsOfTheCurveDataPassOut) {
    // Layers 1-2 with P-Y code 000 but no manual curve.
    SoilLayerDivisionsAndCodesForPyTzQzSectionRecord manual = Division(1, 2, 1, 4.0);
    manual.PYCODE = 0;
    Terrix profile = GeneratedCurvesProfile({manual});
    EXPECT_EQ(QueryErrorOf([&] { profile.GetLayers(true); }), "Manual PY curve not defined");
    // The division itself needs no curve data.
    EXPECT_EQ(profile.GetLayers(false), (Layers{MakeLayer(1, 1, 2, 0.0, 4.0)}));

    // Without the row for every layer, the T-Z data of layer 1 fail.
    Terrix noRows = GeneratedCurvesProfile({Division(1, 2, 1, 4.0)});
    noRows.GetTerrixInputData().tzSkinFrictionDataModificationSection.records.clear();
    EXPECT_EQ(QueryErrorOf([&] { noRows.GetLayers(true); }), "Unable to find TZ modifications");

    // A division of one layer is never compared with anything, and so never
    // asks for curve data.
    SoilLayerDivisionsAndCodesForPyTzQzSectionRecord single = Division(1, 1, 1, 4.0);
    single.PYCODE = 0;
    EXPECT_EQ(GeneratedCurvesProfile({single}).GetLayers(true), (Layers{MakeLayer(1, 1, 1, 0.0, 4.0)}));
}

TEST(Layering, Version5GivesTheMainLayersSplitOrNot) {
    const Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Subdivisions 2, 3, 2 and 3: the main layers start at layers 1, 3, 6
    // and 8.
    const Layers mainLayers{MakeLayer(1, 1, 2, 0.0, 5.0), MakeLayer(2, 3, 3, 5.0, 16.0), MakeLayer(3, 6, 2, 16.0, 28.0),
                            MakeLayer(4, 8, 3, 28.0, 42.0)};
    EXPECT_EQ(profile.GetLayers(false), mainLayers);
    EXPECT_EQ(profile.GetLayers(true), mainLayers);
}

TEST(Layering, AProfileWithoutAVersionHasNoLayers) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    profile.SetVersion(Version::Unknown);
    EXPECT_TRUE(profile.GetLayers(true).empty());
    EXPECT_TRUE(profile.GetLayers(false).empty());
}

TEST(Layering, AFileWithWindowsLineEndsAndTabsGivesTheSameLayers) {
    const std::string text = ExampleFileText("north-sea-v4.terrix");
    // Every "\n" as "\r\n", and the first three blanks of every value line
    // as a tab.
    std::string other;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            other += "\r\n";
            if (text.compare(at + 1, 3, "   ") == 0) {
                other += '\t';
                at += 3;
            }
        } else {
            other += text[at];
        }
    }
    ASSERT_NE(other.find("\r\n\t"), std::string::npos);
    const Terrix profile = ImportedText(text);
    const Terrix otherProfile = ImportedText(other);
    EXPECT_EQ(otherProfile.GetLayers(true), profile.GetLayers(true));
    EXPECT_EQ(otherProfile.GetPyData(MakeLayer(2, 3, 3, 6.0, 14.0)), profile.GetPyData(MakeLayer(2, 3, 3, 6.0, 14.0)));
}

TEST(Layering, EachProfileOfAStreamAnswersFromItsOwnSections) {
    std::istringstream stream(ExampleFileText("three-profiles.terrix"));
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    ASSERT_EQ(profiles.GetSoilProfiles().size(), 3u);
    const Terrix& second = *profiles.TryGetSoilProfile("NS-B07");

    const Layers layers = second.GetLayers(true);
    ASSERT_EQ(layers.size(), 4u);
    // Main layer 2 of NS-B07 has the P-Y code 000 and its own curves for
    // layer 3: 0.0 33.8 48.7 ... kN/m2 at 0.0 0.00915 0.02744 ... m.
    const PyData data = second.GetPyData(layers[1]);
    EXPECT_EQ(data.code, 0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points.at(0.00915), 33800.0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points.at(0.02744), 48700.0);
}
