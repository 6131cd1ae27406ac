// The computational layers of a profile: version 4 divisions split into
// their numbered layers and joined again where the curve data agree;
// version 5 main layers as they are.

#include <limits>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "QueryTestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Layers = std::vector<Layer>;

SoilLayerDivisionsAndCodesForPyTzQzSectionRecord Division(int layer1, int layer2, double zbotm, int pyCode = 287) {
    SoilLayerDivisionsAndCodesForPyTzQzSectionRecord division;
    division.LAYER1 = layer1;
    division.LAYER2 = layer2;
    division.TYP = 1;
    division.ZBOTM = Length(zbotm);
    division.PYCODE = pyCode;
    division.TZCODE = 293;
    division.QZCODE = 293;
    return division;
}

// A version 4 profile with one pile diameter, generated curves (no manual
// code) and, for P-Y, T-Z and Q-Z, a default-built row: "0 0 0.0" with
// identity factors. Every numbered layer has the same curve data.
Terrix GeneratedCurvesProfile(const std::vector<SoilLayerDivisionsAndCodesForPyTzQzSectionRecord>& divisions) {
    Terrix profile(Version::V4);
    TerrixInputData& data = profile.GetTerrixInputData();
    data.pileDiametersAndGroupEffectsSection.diameters = {Length(1.5)};
    data.soilLayerDivisionsAndCodesForPyTzQzSection.records = divisions;
    data.pyLateralResistanceDataModificationSection.records.resize(1);
    data.tzSkinFrictionDataModificationSection.records.resize(1);
    data.qzPileTipResistanceDataModificationSection.records.resize(1);
    return profile;
}

}  // namespace

TEST(Layering, Version4ExampleKeepsApartOnlyLayersWithTheirOwnCurves) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");

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

    // The first layer starts at the seafloor: layers 1 and 2 now meet at
    // 3.75, the middle of 1.5 and 6, and are merged again.
    profile.GetTerrixInputData().soilSurfaceAndGroundWaterSection.ZSURF = 1.5;
    EXPECT_EQ(profile.GetLayers(false).front(), MakeLayer(1, 1, 2, 1.5, 6.0));
    EXPECT_EQ(profile.GetLayers(true).front(), MakeLayer(1, 1, 2, 1.5, 6.0));

    // A profile without a version has no layers.
    profile.SetVersion(Version::Unknown);
    EXPECT_TRUE(profile.GetLayers(true).empty());
    EXPECT_TRUE(profile.GetLayers(false).empty());
}

TEST(Layering, LayersWithEqualCurveDataAreJoinedWithinADivisionOnly) {
    Terrix profile = GeneratedCurvesProfile({Division(1, 4, 8.0)});
    EXPECT_EQ(profile.GetLayers(true), (Layers{MakeLayer(1, 1, 4, 0.0, 8.0)}));

    // A P-Y row for layer 3 alone, before the row for every layer, sets it
    // apart; unsplit, the division stays whole.
    PyLateralResistanceDataModificationSectionRecord layer3;
    layer3.LAY1 = 3;
    layer3.LAY2 = 3;
    layer3.modification.P_FACT = 0.8;
    std::vector<PyLateralResistanceDataModificationSectionRecord>& rows =
        profile.GetTerrixInputData().pyLateralResistanceDataModificationSection.records;
    rows.insert(rows.begin(), layer3);
    EXPECT_EQ(profile.GetLayers(true),
              (Layers{MakeLayer(1, 1, 2, 0.0, 4.0), MakeLayer(1, 3, 1, 4.0, 6.0), MakeLayer(1, 4, 1, 6.0, 8.0)}));
    EXPECT_EQ(profile.GetLayers(false), (Layers{MakeLayer(1, 1, 4, 0.0, 8.0)}));

    // Two divisions with the same data stay two layers.
    EXPECT_EQ(GeneratedCurvesProfile({Division(1, 2, 4.0), Division(3, 4, 8.0)}).GetLayers(true),
              (Layers{MakeLayer(1, 1, 2, 0.0, 4.0), MakeLayer(1, 3, 2, 4.0, 8.0)}));

    // A NaN is equal to nothing, so it keeps every layer apart.
    Terrix withNaN = GeneratedCurvesProfile({Division(1, 3, 6.0)});
    withNaN.GetTerrixInputData().tzSkinFrictionDataModificationSection.records.front().modification.Z_RES_FCT =
        std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(withNaN.GetLayers(true),
              (Layers{MakeLayer(1, 1, 1, 0.0, 2.0), MakeLayer(1, 2, 1, 2.0, 4.0), MakeLayer(1, 3, 1, 4.0, 6.0)}));
}

TEST(Layering, ErrorsOfTheCurveDataPassOut) {
    // Layers 1-2 with P-Y code 000 but no manual curve; the division itself
    // needs no curve data.
    const Terrix manual = GeneratedCurvesProfile({Division(1, 2, 4.0, 0)});
    EXPECT_EQ(QueryErrorOf([&] { manual.GetLayers(true); }), "Manual PY curve not defined");
    EXPECT_EQ(manual.GetLayers(false), (Layers{MakeLayer(1, 1, 2, 0.0, 4.0)}));

    // Without the row for every layer, the T-Z data of layer 1 fail.
    Terrix noRows = GeneratedCurvesProfile({Division(1, 2, 4.0)});
    noRows.GetTerrixInputData().tzSkinFrictionDataModificationSection.records.clear();
    EXPECT_EQ(QueryErrorOf([&] { noRows.GetLayers(true); }), "Unable to find TZ modifications");

    // A division of one layer is never compared with anything, and so never
    // asks for curve data.
    EXPECT_EQ(GeneratedCurvesProfile({Division(1, 1, 4.0, 0)}).GetLayers(true), (Layers{MakeLayer(1, 1, 1, 0.0, 4.0)}));
}

TEST(Layering, Version5GivesTheMainLayersSplitOrNot) {
    const Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Subdivisions 2, 3, 2 and 3: the main layers start at layers 1, 3, 6
    // and 8.
    const Layers mainLayers{MakeLayer(1, 1, 2, 0.0, 5.0), MakeLayer(2, 3, 3, 5.0, 16.0), MakeLayer(3, 6, 2, 16.0, 28.0),
                            MakeLayer(4, 8, 3, 28.0, 42.0)};
    EXPECT_EQ(profile.GetLayers(false), mainLayers);
    EXPECT_EQ(profile.GetLayers(true), mainLayers);

    // Each profile of a stream answers from its own sections: main layer 2
    // of NS-B07 has its own P-Y curves for layer 3, 33.8 kN/m2 at 0.00915 m.
    std::istringstream stream(ExampleFileText("three-profiles.terrix"));
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    const Terrix& second = *profiles.TryGetSoilProfile("NS-B07");
    const Layers layers = second.GetLayers(true);
    ASSERT_EQ(layers.size(), 4u);
    const PyData data = second.GetPyData(layers[1]);
    EXPECT_EQ(data.code, 0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points.at(0.00915), 33800.0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points.at(0.02744), 48700.0);
}
