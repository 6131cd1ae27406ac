// The curve data of a layer: per pile diameter, the manual curves and the
// modification factors that the file gives for it.

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
using namespace TerrixExchange::Units::Runtime;

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

PyModification PyFactors(double pFact, double yGap) {
    PyModification modification;
    modification.P_FACT = pFact;
    modification.Y_GAP = yGap;
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

TEST(CurveData, Version4ManualPYCurvesAndModificationsPerDiameter) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");  // kN and m
    const PyData data = profile.GetPyData(softClay);

    EXPECT_EQ(data.code, 0);
    // The curves of layer 3, the first layer of the division; P in kN/m2
    // becomes N/m2 (42.4 -> 42400), Y stays in m.
    ASSERT_EQ(data.manualCurves.size(), 2u);
    EXPECT_EQ(data.manualCurves.at(small).points, (Points{{0.0, 0.0},
                                                          {0.00762, 42400.0},
                                                          {0.02286, 61100.0},
                                                          {0.0762, 91300.0},
                                                          {0.2286, 131600.0},
                                                          {0.6096, 182500.0}}));
    EXPECT_EQ(data.manualCurves.at(large).points, (Points{{0.0, 0.0},
                                                          {0.01067, 38600.0},
                                                          {0.03201, 55700.0},
                                                          {0.1067, 83100.0},
                                                          {0.3201, 119900.0},
                                                          {0.8536, 166300.0}}));
    // Rows: "3 5 2.134 0.9 ..." for the large pile; "1 2 0.0 ..." is not for
    // layer 3; "0 0 0.0" (identity) for everything else.
    ASSERT_EQ(data.modifications.size(), 2u);
    EXPECT_EQ(data.modifications.at(small), PyModification::defaultModification);
    EXPECT_EQ(data.modifications.at(large), PyFactors(0.9, 0.0));

    // Layers 1-2 have code 287 (API-87): no manual curve; "1 2 0.0 1.0 1.0
    // 0.02 ..." gives both diameters a gap of 0.02.
    const PyData sand = profile.GetPyData(upperSand);
    EXPECT_EQ(sand.code, 287);
    EXPECT_TRUE(sand.manualCurves.empty());
    EXPECT_EQ(sand.modifications.at(small), PyFactors(1.0, 0.02));
    EXPECT_EQ(sand.modifications.at(large), PyFactors(1.0, 0.02));
}

TEST(CurveData, Version4ManualTZAndQZCurves) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");

    // Layers 6-7: T-Z code 000, the curves of layer 6; the row "6 7 0.0 1.0
    // 0.8 1.0 1.0 1.0" reduces the tension to 80 per cent at every diameter.
    const TzData tz = profile.GetTzData(denseSand);
    EXPECT_EQ(tz.code, 0);
    const Points layer6{{0.0, 0.0}, {0.00127, 23000.0}, {0.00254, 46000.0}, {0.0254, 46000.0}, {0.1, 46000.0}};
    EXPECT_EQ(tz.manualCurves.at(small).points, layer6);
    EXPECT_EQ(tz.manualCurves.at(large).points, layer6);
    TzModification tension;
    tension.TNS_FCT = 0.8;
    EXPECT_EQ(tz.modifications.at(small), tension);
    EXPECT_EQ(tz.modifications.at(large), tension);

    // Layers 8-10: Q-Z code 000, the curves of layer 8 (1555.2 kN/m2 ->
    // 1555200 N/m2); "8 10 1.524 ... 1.2" for the small pile only.
    const QzData qz = profile.GetQzData(till);
    EXPECT_EQ(qz.code, 0);
    EXPECT_EQ(qz.manualCurves.at(small).points, (Points{{0.0, 0.0},
                                                        {0.00305, 432000.0},
                                                        {0.01981, 864000.0},
                                                        {0.06401, 1296000.0},
                                                        {0.11125, 1555200.0},
                                                        {0.1524, 1728000.0}}));
    QzModification displacement;
    displacement.QZZ_FCT = 1.2;
    EXPECT_EQ(qz.modifications.at(small), displacement);
    EXPECT_EQ(qz.modifications.at(large), QzModification::defaultModification);

    // Codes other than 000 pass through unchanged.
    EXPECT_EQ(profile.GetTzData(till).code, 293);
    EXPECT_EQ(profile.GetQzData(denseSand).code, 293);
    EXPECT_EQ(profile.GetPyData(till).code, 380);
}

TEST(CurveData, Version4MomentAndBaseCurvesWhereverTheFileGivesThem) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");

    // Layer 10 has M-theta curves at both diameters (M in kN m/m -> N m/m,
    // THETA in radians), and the row "10 10 0.0 0.9 1.0".
    const MThetaData mTheta = profile.GetMthetaData(tillBottom);
    ASSERT_EQ(mTheta.manualCurves.size(), 2u);
    EXPECT_EQ(mTheta.manualCurves.at(small).points,
              (Points{{0.0, 0.0}, {0.001, 83800.0}, {0.005, 243800.0}, {0.01, 320000.0}, {0.02, 342900.0}}));
    MThetaModification moment;
    moment.M_FCT = 0.9;
    EXPECT_EQ(mTheta.modifications.at(small), moment);
    EXPECT_EQ(mTheta.modifications.at(large), moment);

    // BS-Y: "10 10 2.134 1.1 1.0" for the large pile; no row, identity
    // factors, for the small one.
    const BSYData bsY = profile.GetBSyData(tillBottom);
    EXPECT_EQ(bsY.manualCurves.at(large).points,
              (Points{{0.0, 0.0}, {0.005, 865300.0}, {0.02, 1912700.0}, {0.05, 2322500.0}}));
    BSYModification shear;
    shear.BS_FCT = 1.1;
    EXPECT_EQ(bsY.modifications.at(large), shear);
    EXPECT_EQ(bsY.modifications.at(small), BSYModification::defaultModification);

    // BM-theta: curves in kN m -> N m; "0 0 0.0 1.0 1.0" everywhere.
    const BMThetaData bmTheta = profile.GetBMthetaData(tillBottom);
    EXPECT_EQ(bmTheta.manualCurves.at(small).points,
              (Points{{0.0, 0.0}, {0.001, 1168100.0}, {0.005, 3114900.0}, {0.02, 3893600.0}}));
    EXPECT_EQ(bmTheta.modifications.at(large), BMThetaModification::defaultModification);

    // Layer 8 has none of these curves: no entry, and identity factors
    // where no row applies.
    const MThetaData none = profile.GetMthetaData(till);
    EXPECT_TRUE(none.manualCurves.empty());
    EXPECT_EQ(none.modifications.size(), 2u);
    EXPECT_EQ(none.modifications.at(small), MThetaModification::defaultModification);
    EXPECT_TRUE(profile.GetBSyData(till).manualCurves.empty());
    EXPECT_TRUE(profile.GetBMthetaData(till).manualCurves.empty());
}

TEST(CurveData, Version5ExampleLooksCurvesUpByTheMainLayersFirstLayer) {
    const Terrix profile = ExampleProfile("north-sea-v5.terrix");
    // Main layer 2 (subdivision 3, layers 3 to 5) has P-Y code 000: the
    // curves of layer 3; "3 5 2.438 0.9 ..." for the large pile.
    const PyData data = profile.GetPyData(MakeLayer(2, 3, 3, 5.0, 16.0));
    EXPECT_EQ(data.code, 0);
    EXPECT_EQ(data.manualCurves.at(Length(1.829)).points, (Points{{0.0, 0.0},
                                                                  {0.00915, 37600.0},
                                                                  {0.02744, 54300.0},
                                                                  {0.09145, 81100.0},
                                                                  {0.27435, 116900.0},
                                                                  {0.7316, 162200.0}}));
    EXPECT_EQ(data.modifications.at(Length(1.829)), PyModification::defaultModification);
    EXPECT_EQ(data.modifications.at(Length(2.438)), PyFactors(0.9, 0.0));
    // Main layer 1 has P-Y code 404 (ISO-04), main layer 3 T-Z code 000.
    EXPECT_EQ(profile.GetPyData(MakeLayer(1, 1, 2, 0.0, 5.0)).code, 404);
    EXPECT_EQ(profile.GetTzData(MakeLayer(3, 6, 2, 16.0, 28.0)).manualCurves.size(), 2u);
}

TEST(CurveData, AManualCurveIsTakenOnlyWhereTheCodeSaysManual) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    // A P-Y curve for layer 1, whose code is 287.
    ManualPyLateralResistanceDataSectionRecord curve;
    curve.LAY = 1;
    curve.DIAM = small;
    curve.resistances = {0.0, 10.0};
    curve.displacements = {0.0, 0.01};
    profile.GetTerrixInputData().manualPyLateralResistanceDataSection.records.push_back(curve);

    EXPECT_TRUE(profile.GetPyData(upperSand).manualCurves.empty());

    // The kinds without a code take a curve for one diameter of two: one
    // curve, and factors for both diameters.
    std::vector<ManualMthetaMomentDataSectionRecord>& mTheta =
        profile.GetTerrixInputData().manualMthetaMomentDataSection.records;
    mTheta.erase(mTheta.begin() + 1);  // layer 10 at 2.134
    const MThetaData data = profile.GetMthetaData(tillBottom);
    EXPECT_EQ(data.manualCurves.size(), 1u);
    EXPECT_EQ(data.manualCurves.count(small), 1u);
    EXPECT_EQ(data.modifications.size(), 2u);
}

TEST(CurveData, NoDiametersGiveEmptyMapsWithoutLookingAnythingUp) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();
    data.pileDiametersAndGroupEffectsSection.diameters.clear();
    // With no diameters neither manual curves nor modification rows are
    // needed, even for a manual code.
    data.manualPyLateralResistanceDataSection.records.clear();
    data.pyLateralResistanceDataModificationSection.records.clear();

    const PyData py = profile.GetPyData(softClay);
    EXPECT_EQ(py.code, 0);
    EXPECT_TRUE(py.manualCurves.empty());
    EXPECT_TRUE(py.modifications.empty());
    EXPECT_TRUE(profile.GetTzData(denseSand).manualCurves.empty());
    EXPECT_TRUE(profile.GetQzData(till).modifications.empty());
    EXPECT_TRUE(profile.GetMthetaData(tillBottom).manualCurves.empty());
    EXPECT_TRUE(profile.GetBSyData(tillBottom).modifications.empty());
    EXPECT_TRUE(profile.GetBMthetaData(tillBottom).manualCurves.empty());
}

TEST(CurveData, ADiameterListedTwiceHasOneEntry) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters = {small, large, small};
    const PyData data = profile.GetPyData(softClay);
    EXPECT_EQ(data.manualCurves.size(), 2u);
    EXPECT_EQ(data.modifications.size(), 2u);
}

TEST(CurveData, ALayerWithoutItsDivisionOrAProfileWithoutVersionHasNoCurveData) {
    const Terrix version4 = ExampleProfile("north-sea-v4.terrix");
    // The divisions cover layers 1 to 10.
    for (const auto& getter : CurveDataGetters(version4, MakeLayer(4, 11, 1, 45.0, 50.0)))
        EXPECT_EQ(QueryErrorOf(getter.second), "Could not find layer") << getter.first;

    const Terrix version5 = ExampleProfile("north-sea-v5.terrix");
    for (const auto& getter : CurveDataGetters(version5, MakeLayer(9, 1, 1, 0.0, 5.0)))
        EXPECT_EQ(QueryErrorOf(getter.second), "Could not find layer") << getter.first;

    // Every section of the example, but no version to read them by.
    Terrix unknown = version4;
    unknown.SetVersion(Version::Unknown);
    for (const auto& getter : CurveDataGetters(unknown, softClay))
        EXPECT_EQ(QueryErrorOf(getter.second), "TERRIX version undefined") << getter.first;
}

TEST(CurveData, AManualCodeWithoutItsCurveFails) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();
    // The second record of each section is the first layer's curve for the
    // large pile: layer 3 (P-Y), 6 (T-Z) and 8 (Q-Z).
    data.manualPyLateralResistanceDataSection.records.erase(data.manualPyLateralResistanceDataSection.records.begin() +
                                                            1);
    data.manualTzSkinFrictionDataSection.records.erase(data.manualTzSkinFrictionDataSection.records.begin() + 1);
    data.manualQzPileTipResistanceDataSection.records.erase(data.manualQzPileTipResistanceDataSection.records.begin() +
                                                            1);
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(softClay); }), "Manual PY curve not defined");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetTzData(denseSand); }), "Manual TZ curve not defined");
    EXPECT_EQ(QueryErrorOf([&] { profile.GetQzData(till); }), "Manual QZ curve not defined");
    // The next layers of the same divisions still have theirs.
    EXPECT_EQ(profile.GetPyData(MakeLayer(2, 4, 1, 8.0, 10.0)).manualCurves.size(), 2u);
}

TEST(CurveData, PYTZAndQZNeedAModificationRowForEveryDiameter) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = profile.GetTerrixInputData();
    // Without the rows "0 0 0.0" only the rows for chosen layers are left.
    data.pyLateralResistanceDataModificationSection.records.pop_back();
    data.tzSkinFrictionDataModificationSection.records.pop_back();
    data.qzPileTipResistanceDataModificationSection.records.pop_back();

    // P-Y: layers 1-2 and, for the large pile, 3-5 keep a row; layer 6 has none.
    EXPECT_EQ(profile.GetPyData(upperSand).modifications.size(), 2u);
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(denseSand); }), "Unable to find PY modifications");
    // Layer 3 has its large pile row, but not one for the small pile.
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(softClay); }), "Unable to find PY modifications");
    // T-Z: only layers 6-7 keep a row.
    EXPECT_EQ(QueryErrorOf([&] { profile.GetTzData(upperSand); }), "Unable to find TZ modifications");
    // Q-Z: layers 8-10 for the small pile only.
    EXPECT_EQ(QueryErrorOf([&] { profile.GetQzData(till); }), "Unable to find QZ modifications");

    // No rows at all fail too.
    data.pyLateralResistanceDataModificationSection.records.clear();
    EXPECT_EQ(QueryErrorOf([&] { profile.GetPyData(upperSand); }), "Unable to find PY modifications");

    // The other three kinds fall back on identity factors.
    data.mthetaMomentDataModificationSection.records.clear();
    data.bsyBaseShearDataModificationSection.records.clear();
    data.bmThetaMomentDataModificationSection.records.clear();
    EXPECT_EQ(profile.GetMthetaData(tillBottom).modifications.at(large), MThetaModification::defaultModification);
    EXPECT_EQ(profile.GetBSyData(tillBottom).modifications.at(large), BSYModification::defaultModification);
    EXPECT_EQ(profile.GetBMthetaData(tillBottom).modifications.at(large), BMThetaModification::defaultModification);
}

TEST(CurveData, ComparisonIsExact) {
    const Terrix profile = ExampleProfile("north-sea-v4.terrix");
    // Layers 4 and 5 have different manual curves, layers 1 and 2 the same
    // code, curves (none) and factors.
    EXPECT_EQ(profile.GetPyData(MakeLayer(1, 1, 1, 0.0, 3.0)), profile.GetPyData(MakeLayer(1, 2, 1, 3.0, 6.0)));
    EXPECT_NE(profile.GetPyData(MakeLayer(2, 4, 1, 8.0, 10.0)), profile.GetPyData(MakeLayer(2, 5, 1, 10.0, 14.0)));

    const PyData data = profile.GetPyData(softClay);
    PyData lastDigit = data;
    lastDigit.modifications.at(large).P_FACT = std::nextafter(0.9, 1.0);
    EXPECT_FALSE(data == lastDigit);
    EXPECT_TRUE(data != lastDigit);

    PyData otherCode = data;
    otherCode.code = 100;
    EXPECT_NE(data, otherCode);

    PyData oneCurvePointMore = data;
    oneCurvePointMore.manualCurves.at(small).points[1.0] = 200000.0;
    EXPECT_NE(data, oneCurvePointMore);

    // A NaN is equal to nothing, not even to the same data.
    MThetaData withNaN = profile.GetMthetaData(tillBottom);
    withNaN.modifications.at(small).THETA_FCT = std::numeric_limits<double>::quiet_NaN();
    const MThetaData copy = withNaN;
    EXPECT_FALSE(withNaN == copy);
    EXPECT_TRUE(withNaN != copy);
}

TEST(CurveData, DefaultDataHaveCodeZeroAndEmptyMaps) {
    const PyData py;
    EXPECT_EQ(py.code, 0);
    EXPECT_TRUE(py.manualCurves.empty());
    EXPECT_TRUE(py.modifications.empty());
    EXPECT_EQ(TzData().code, 0);
    EXPECT_EQ(QzData().code, 0);
    EXPECT_EQ(PyData(), PyData());
    EXPECT_TRUE(BMThetaData().manualCurves.empty());
}
