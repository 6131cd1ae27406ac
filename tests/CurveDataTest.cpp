// The curve data of a layer: per pile diameter, the manual curves and the
// modification factors that the file gives for it. The example files are in
// kN and m; curves are held in N and m.

#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "QueryTestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Points = std::map<double, double>;

// The example's pile diameters.
const Length small(1.524);
const Length large(2.134);

// The version 4 example's divisions, as unsplit layers.
const Layer upperSand = MakeLayer(1, 1, 2, 0.0, 6.0);    // codes 287 293 293
const Layer softClay = MakeLayer(2, 3, 3, 6.0, 14.0);    // codes 000 293 293
const Layer denseSand = MakeLayer(3, 6, 2, 14.0, 30.0);  // codes 287 000 293
const Layer till = MakeLayer(4, 8, 3, 30.0, 45.0);       // codes 380 293 000
// Layer 10, the bottom piece of the till: M-theta, BS-Y and BM-theta curves.
const Layer tillBottom = MakeLayer(4, 10, 1, 40.0, 45.0);

// Identity factors but for one.
template <class Modification>
Modification Factor(double Modification::*field, double value) {
    Modification modification;
    modification.*field = value;
    return modification;
}

// The six queries by name, so that a failure names the one that differs.
std::vector<std::pair<std::string, std::function<void()>>> CurveDataGetters(const Terrix& profile, const Layer& layer) {
    return {
        {"GetPyData", [&profile, layer] { profile.GetPyData(layer); }},
        {"GetTzData", [&profile, layer] { profile.GetTzData(layer); }},
        {"GetQzData", [&profile, layer] { profile.GetQzData(layer); }},
        {"GetMthetaData", [&profile, layer] { profile.GetMthetaData(layer); }},
        {"GetBSyData", [&profile, layer] { profile.GetBSyData(layer); }},
        {"GetBMthetaData", [&profile, layer] { profile.GetBMthetaData(layer); }},
    };
}

}  // namespace

TEST(CurveData, Version4ManualCurvesAndModificationsPerDiameter) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");

    // P-Y of layers 3-5 (code 000): the curves of layer 3, the division's
    // first layer; P 42.4 kN/m2 is 42400 N/m2. The row "3 5 2.134 0.9"
    // applies to the large pile, "0 0 0.0" (identity) to the small one.
    const PyData py = profile.GetPyData(softClay);
    EXPECT_EQ(py.code, 0);
    ASSERT_EQ(py.manualCurves.size(), 2u);
    EXPECT_EQ(py.manualCurves.at(small).points, (Points{{0.0, 0.0}, {0.00762, 42400.0}, {0.02286, 61100.0},
                                                         {0.0762, 91300.0}, {0.2286, 131600.0}, {0.6096, 182500.0}}));
    EXPECT_EQ(py.manualCurves.at(large).points.at(0.01067), 38600.0);
    EXPECT_EQ(py.modifications.at(small), PyModification::defaultModification);
    EXPECT_EQ(py.modifications.at(large), Factor(&PyModification::P_FACT, 0.9));
    // Layers 1-2, code 287: no manual curve; "1 2 0.0 ... 0.02" gives every
    // diameter a gap of 0.02.
    const PyData sand = profile.GetPyData(upperSand);
    EXPECT_EQ(sand.code, 287);
    EXPECT_TRUE(sand.manualCurves.empty());
    EXPECT_EQ(sand.modifications.at(small), Factor(&PyModification::Y_GAP, 0.02));
    EXPECT_EQ(sand.modifications.at(large), Factor(&PyModification::Y_GAP, 0.02));

    // T-Z of layers 6-7: the curves of layer 6, tension at 80 per cent for
    // every diameter ("6 7 0.0 1.0 0.8").
    const TzData tz = profile.GetTzData(denseSand);
    EXPECT_EQ(tz.code, 0);
    const Points layer6{{0.0, 0.0}, {0.00127, 23000.0}, {0.00254, 46000.0}, {0.0254, 46000.0}, {0.1, 46000.0}};
    EXPECT_EQ(tz.manualCurves.at(small).points, layer6);
    EXPECT_EQ(tz.manualCurves.at(large).points, layer6);
    EXPECT_EQ(tz.modifications.at(small), Factor(&TzModification::TNS_FCT, 0.8));
    EXPECT_EQ(tz.modifications.at(large), Factor(&TzModification::TNS_FCT, 0.8));

    // Q-Z of layers 8-10: the curves of layer 8; "8 10 1.524 ... 1.2" for the
    // small pile only.
    const QzData qz = profile.GetQzData(till);
    EXPECT_EQ(qz.code, 0);
    EXPECT_EQ(qz.manualCurves.at(small).points, (Points{{0.0, 0.0}, {0.00305, 432000.0}, {0.01981, 864000.0},
                                                         {0.06401, 1296000.0}, {0.11125, 1555200.0},
                                                         {0.1524, 1728000.0}}));
    EXPECT_EQ(qz.modifications.at(small), Factor(&QzModification::QZZ_FCT, 1.2));
    EXPECT_EQ(qz.modifications.at(large), QzModification::defaultModification);

    // Codes other than 000 pass through unchanged.
    EXPECT_EQ(profile.GetTzData(till).code, 293);
    EXPECT_EQ(profile.GetQzData(denseSand).code, 293);
    EXPECT_EQ(profile.GetPyData(till).code, 380);
}

TEST(CurveData, Version4MomentAndBaseCurvesWhereverTheFileGivesThem) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");

    // Layer 10: M-theta curves at both diameters (M in kN m/m, THETA in
    // radians, never converted) and the row "10 10 0.0 0.9 1.0".
    const MThetaData mTheta = profile.GetMthetaData(tillBottom);
    ASSERT_EQ(mTheta.manualCurves.size(), 2u);
    EXPECT_EQ(mTheta.manualCurves.at(small).points,
              (Points{{0.0, 0.0}, {0.001, 83800.0}, {0.005, 243800.0}, {0.01, 320000.0}, {0.02, 342900.0}}));
    EXPECT_EQ(mTheta.modifications.at(small), Factor(&MThetaModification::M_FCT, 0.9));
    EXPECT_EQ(mTheta.modifications.at(large), Factor(&MThetaModification::M_FCT, 0.9));
    // BS-Y: "10 10 2.134 1.1 1.0" for the large pile, identity for the small.
    const BSYData bsY = profile.GetBSyData(tillBottom);
    EXPECT_EQ(bsY.manualCurves.at(large).points,
              (Points{{0.0, 0.0}, {0.005, 865300.0}, {0.02, 1912700.0}, {0.05, 2322500.0}}));
    EXPECT_EQ(bsY.modifications.at(large), Factor(&BSYModification::BS_FCT, 1.1));
    EXPECT_EQ(bsY.modifications.at(small), BSYModification::defaultModification);
    // BM-theta: moments in kN m; "0 0 0.0 1.0 1.0" everywhere.
    const BMThetaData bmTheta = profile.GetBMthetaData(tillBottom);
    EXPECT_EQ(bmTheta.manualCurves.at(small).points,
              (Points{{0.0, 0.0}, {0.001, 1168100.0}, {0.005, 3114900.0}, {0.02, 3893600.0}}));
    EXPECT_EQ(bmTheta.modifications.at(large), BMThetaModification::defaultModification);

    // Layer 8 has none of these curves: no entry, identity factors.
    EXPECT_TRUE(profile.GetMthetaData(till).manualCurves.empty());
    EXPECT_EQ(profile.GetMthetaData(till).modifications.at(small), MThetaModification::defaultModification);
    EXPECT_TRUE(profile.GetBSyData(till).manualCurves.empty());
    EXPECT_TRUE(profile.GetBMthetaData(till).manualCurves.empty());
}

TEST(CurveData, Version5ExampleLooksCurvesUpByTheMainLayersFirstLayer) {
    const Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Main layer 2 (layers 3 to 5), P-Y code 000: the curves of layer 3;
    // "3 5 2.438 0.9 ..." for the large pile.
    const PyData data = profile.GetPyData(MakeLayer(2, 3, 3, 5.0, 16.0));
    EXPECT_EQ(data.code, 0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points, (Points{{0.0, 0.0}, {0.00915, 37600.0}, {0.02744, 54300.0},
                                                                  {0.09145, 81100.0}, {0.27435, 116900.0},
                                                                  {0.7316, 162200.0}}));
    EXPECT_EQ(data.modifications.at(Length(1.829)), PyModification::defaultModification);
    EXPECT_EQ(data.modifications.at(Length(2.438)), Factor(&PyModification::P_FACT, 0.9));
    // Main layer 1 has P-Y code 404 (ISO-04), main layer 3 T-Z code 000.
    EXPECT_EQ(profile.GetPyData(MakeLayer(1, 1, 2, 0.0, 5.0)).code, 404);
    EXPECT_EQ(profile.GetTzData(MakeLayer(3, 6, 2, 16.0, 28.0)).manualCurves.size(), 2u);
}

TEST(CurveData, WhatTheDiametersAndCodesAskFor) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();

    // A P-Y curve for layer 1, whose code is 287, is not taken.
    data.manualPyLateralResistanceDataSection.records.push_back({1, small, {0.0, 10.0}, {0.0, 0.01}});
    EXPECT_TRUE(profile.GetPyData(upperSand).manualCurves.empty());

    // The kinds without a code take a curve for one diameter of two: one
    // curve, and factors for both diameters.
    data.manualMthetaMomentDataSection.records.erase(data.manualMthetaMomentDataSection.records.begin() + 1);
    const MThetaData mTheta = profile.GetMthetaData(tillBottom);
    EXPECT_EQ(mTheta.manualCurves.size(), 1u);
    EXPECT_EQ(mTheta.manualCurves.count(small), 1u);
    EXPECT_EQ(mTheta.modifications.size(), 2u);

    // A diameter listed twice has one entry.
    data.pileDiametersAndGroupEffectsSection.diameters = {small, large, small};
    EXPECT_EQ(profile.GetPyData(softClay).manualCurves.size(), 2u);
    EXPECT_EQ(profile.GetPyData(softClay).modifications.size(), 2u);

    // With no diameters neither manual curves nor modification rows are
    // needed, even for a manual code.
    data.pileDiametersAndGroupEffectsSection.diameters.clear();
    data.manualPyLateralResistanceDataSection.records.clear();
    data.pyLateralResistanceDataModificationSection.records.clear();
    const PyData py = profile.GetPyData(softClay);
    EXPECT_EQ(py.code, 0);
    EXPECT_TRUE(py.manualCurves.empty());
    EXPECT_TRUE(py.modifications.empty());
    EXPECT_TRUE(profile.GetQzData(till).modifications.empty());
    EXPECT_TRUE(profile.GetBSyData(tillBottom).manualCurves.empty());
}

TEST(CurveData, ALayerWithoutItsDivisionOrAProfileWithoutVersionHasNoCurveData) {
    const Terrix version4 = ExampleProfile("north-sea-v4.terrix");
    const Terrix version5 = ExampleProfile("north-sea-v5.terrix");
    Terrix unknown = version4;  // every section of the example, but no version to read them by
    unknown.SetVersion(Version::Unknown);
    // The divisions cover layers 1 to 10, the main layers 1 to 4.
    for (const auto& getter : CurveDataGetters(version4, MakeLayer(4, 11, 1, 45.0, 50.0)))
        EXPECT_EQ(QueryErrorOf(getter.second), "Could not find layer") << getter.first;
    for (const auto& getter : CurveDataGetters(version5, MakeLayer(9, 1, 1, 0.0, 5.0)))
        EXPECT_EQ(QueryErrorOf(getter.second), "Could not find layer") << getter.first;
    for (const auto& getter : CurveDataGetters(unknown, softClay))
        EXPECT_EQ(QueryErrorOf(getter.second), "TERRIX version undefined") << getter.first;
}

TEST(CurveData, MissingCurvesAndRowsFailForPYTZAndQZOnly) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();
    // A manual code without its curve: the second record of each section is
    // the first layer's curve for the large pile, layer 3 (P-Y), 6 (T-Z) and
    // 8 (Q-Z). The next layer of the same division still has its own.
    Terrix noCurves = profile;
    const auto eraseSecond = [](auto& records) { records.erase(records.begin() + 1); };
    eraseSecond(noCurves.GetTerrixInputData().manualPyLateralResistanceDataSection.records);
    eraseSecond(noCurves.GetTerrixInputData().manualTzSkinFrictionDataSection.records);
    eraseSecond(noCurves.GetTerrixInputData().manualQzPileTipResistanceDataSection.records);
    EXPECT_EQ(QueryErrorOf([&] { noCurves.GetPyData(softClay); }), "Manual PY curve not defined");
    EXPECT_EQ(QueryErrorOf([&] { noCurves.GetTzData(denseSand); }), "Manual TZ curve not defined");
    EXPECT_EQ(QueryErrorOf([&] { noCurves.GetQzData(till); }), "Manual QZ curve not defined");
    EXPECT_EQ(noCurves.GetPyData(MakeLayer(2, 4, 1, 8.0, 10.0)).manualCurves.size(), 2u);

    // P-Y, T-Z and Q-Z need a modification row for every diameter: without
    // the rows "0 0 0.0" only those for chosen layers are left.
    data.pyLateralResistanceDataModificationSection.records.pop_back();
    data.tzSkinFrictionDataModificationSection.records.pop_back();
    data.qzPileTipResistanceDataModificationSection.records.pop_back();
    EXPECT_EQ(profile.GetPyData(upperSand).modifications.size(), 2u);  // "1 2 0.0"
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(denseSand); }), "Unable to find PY modifications");
    // Layer 3 has its large pile row, but not one for the small pile.
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(softClay); }), "Unable to find PY modifications");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetTzData(upperSand); }), "Unable to find TZ modifications");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetQzData(till); }), "Unable to find QZ modifications");

    // M-theta, BS-Y and BM-theta fall back on identity factors.
    data.mthetaMomentDataModificationSection.records.clear();
    data.bsyBaseShearDataModificationSection.records.clear();
    data.bmThetaMomentDataModificationSection.records.clear();
    EXPECT_EQ(profile.GetMthetaData(tillBottom).modifications.at(large), MThetaModification::defaultModification);
    EXPECT_EQ(profile.GetBSyData(tillBottom).modifications.at(large), BSYModification::defaultModification);
    EXPECT_EQ(profile.GetBMthetaData(tillBottom).modifications.at(large), BMThetaModification::defaultModification);
}

TEST(CurveData, ComparisonIsExactAndDefaultDataAreEmpty) {
    // The last digit counts. (Which layers the comparison joins, the
    // layering tests show.)
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");
    const PyData data = profile.GetPyData(softClay);
    PyData lastDigit = data;
    lastDigit.modifications.at(large).P_FACT = std::nextafter(0.9, 1.0);
    EXPECT_NE(data, lastDigit);
    // A NaN is equal to nothing, not even to the same data.
    MThetaData withNaN = profile.GetMthetaData(tillBottom);
    withNaN.modifications.at(small).THETA_FCT = std::numeric_limits<double>::quiet_NaN();
    const MThetaData copy = withNaN;
    EXPECT_FALSE(withNaN == copy);
    EXPECT_TRUE(withNaN != copy);

    // Data made and not yet filled: code 0, no curves, no factors.
    const PyData py;
    EXPECT_EQ(py.code, 0);
    EXPECT_TRUE(py.manualCurves.empty());
    EXPECT_TRUE(py.modifications.empty());
    EXPECT_EQ(TzData().code, 0);
    EXPECT_EQ(QzData().code, 0);
}
