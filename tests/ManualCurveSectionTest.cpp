// The six manual curve sections: curves given point by point for a layer and
// a pile diameter, looked up exactly, written as three-line records.

#include <cmath>
#include <initializer_list>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/ManualBMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualBSYBaseShearDataSection.h>
#include <TerrixExchange/sections/ManualMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualPyLateralResistanceDataSection.h>
#include <TerrixExchange/sections/ManualQzPileTipResistanceDataSection.h>
#include <TerrixExchange/sections/ManualTzSkinFrictionDataSection.h>

#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

// A section holding these curves, each {layer, diameter, resistances,
// displacements} in database units.
template <class Section>
Section Curves(std::initializer_list<std::tuple<int, double, std::vector<double>, std::vector<double>>> curves) {
    Section section;
    for (const auto& [layer, diameter, resistances, displacements] : curves)
        section.records.push_back({layer, Length(diameter), resistances, displacements});
    return section;
}

// The section written with all its curves.
template <class Section>
std::string Exported(const Section& section, const std::string& force = "kN", const std::string& length = "m") {
    return WriteSection(section, Counted(section.records.size()), force, length);
}

TEST(ManualCurveSection, FindsTheCurveOfExactlyTheLayerAndDiameter) {
    auto section = Curves<ManualPyLateralResistanceDataSection>(
        {{3, 1.0, {0.0, 10.0, 20.0}, {0.0, 0.01, 0.02}}, {3, 2.0, {0.0, 15.0, 30.0}, {0.0, 0.01, 0.02}}});
    ManualCurve second;
    second.points = {{0.0, 0.0}, {0.01, 15.0}, {0.02, 30.0}};
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)), second);

    // No tolerance, and 0 is a diameter like any other here.
    for (const auto& [layer, diameter] : std::vector<std::pair<int, double>>{
             {3, 1.5}, {3, 0.0}, {4, 1.0}, {3, std::nextafter(2.0, 3.0)}}) {
        EXPECT_EQ(QueryErrorOf([&] { section.GetManualCurve(layer, Length(diameter)); }), "Manual PY curve not defined")
            << layer << " " << diameter;
    }

    // Two curves for the same layer and diameter: the first in the file.
    section.records.push_back({3, Length(2.0), {0.0, 99.0}, {0.0, 0.01}});
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)), second);
}

TEST(ManualCurveSection, PointsComeBackInAscendingDisplacement) {
    // Given from the largest displacement down, with 0.01 twice; a record
    // without points; and lines that a program filled unequally.
    const auto section = Curves<ManualTzSkinFrictionDataSection>(
        {{6, 1.5, {46.0, 40.0, 23.0, 0.0, 25.0}, {0.1, 0.01, 0.005, 0.0, 0.01}},
         {7, 1.5, {}, {}},
         {8, 1.5, {0.0, 20.0, 40.0}, {0.0, 0.01}}});
    // The later point of displacement 0.01 wins.
    ManualCurve expected;
    expected.points = {{0.0, 0.0}, {0.005, 23.0}, {0.01, 25.0}, {0.1, 46.0}};
    EXPECT_EQ(section.GetManualCurve(6, Length(1.5)), expected);
    // A record without points is an empty curve, not a missing one.
    EXPECT_TRUE(section.GetManualCurve(7, Length(1.5)).points.empty());
    // Unequal lines pair up to the shorter one.
    expected.points = {{0.0, 0.0}, {0.01, 20.0}};
    EXPECT_EQ(section.GetManualCurve(8, Length(1.5)), expected);
    EXPECT_EQ(QueryErrorOf([&] { section.GetManualCurve(9, Length(1.5)); }), "Manual TZ curve not defined");
}

TEST(ManualCurveSection, HasManualCurveIsFalseExactlyWhenGetManualCurveThrowsTheKindsMessage) {
    // The three kinds whose curves are taken wherever the file gives one.
    const auto mTheta = Curves<ManualMthetaMomentDataSection>(
        {{3, 1.0, {0.0, 80.0}, {0.0, 0.001}}, {3, 2.0, {0.0, 120.0}, {0.0, 0.001}}});
    const auto baseShear = Curves<ManualBSYBaseShearDataSection>({{3, 2.0, {0.0, 400.0}, {0.0, 0.005}}});
    const auto baseMoment = Curves<ManualBMthetaMomentDataSection>({{4, 1.0, {0.0, 1500.0}, {0.0, 0.001}}});
    int found = 0;
    const auto check = [&found](const auto& section, int layer, Length d, const std::string& message) {
        if (section.HasManualCurve(layer, d)) {
            EXPECT_NO_THROW(section.GetManualCurve(layer, d));
            ++found;
        } else {
            EXPECT_EQ(QueryErrorOf([&] { section.GetManualCurve(layer, d); }), message);
        }
    };
    for (int layer : {0, 2, 3, 4}) {
        for (double diameter : {0.0, 1.0, 1.5, 2.0}) {
            SCOPED_TRACE("layer " + std::to_string(layer) + ", diameter " + std::to_string(diameter));
            check(mTheta, layer, Length(diameter), "Manual M-Theta curve not defined");
            check(baseShear, layer, Length(diameter), "Manual Base Shear curve not defined");
            check(baseMoment, layer, Length(diameter), "Manual Base Moment curve not defined");
        }
    }
    EXPECT_EQ(found, 4);
}

TEST(ManualCurveSection, ValuesAreWrittenInTheUnitOfWhatTheyMeasure) {
    const auto qz = Curves<ManualQzPileTipResistanceDataSection>(
        {{8, 2.0, {}, {}}, {9, 2.0, {0.0, 432000.0}, {0.0, 0.004}}});
    const std::vector<std::pair<std::string, std::string>> pins = {
        // P (a force per area) in N/m2 and Y in m are written in kN/m2 and m.
        {"manual-curve-py-kN-m.terrix",
         Exported(Curves<ManualPyLateralResistanceDataSection>(
             {{3, 1.524, {0.0, 42400.0, 91300.0, 182500.0}, {0.0, 0.00762, 0.0762, 0.6096}}}))},
        // Ten points wrap after eight values, as every vector of the file does.
        {"manual-curve-tz-kN-m.terrix",
         Exported(Curves<ManualTzSkinFrictionDataSection>(
             {{6, 2.0, {0, 5000, 10000, 15000, 20000, 25000, 30000, 35000, 40000, 45000},
               {0, 0.001, 0.002, 0.003, 0.004, 0.005, 0.006, 0.007, 0.008, 0.009}}}))},
        // A curve without points is its first line and two empty lines.
        {"manual-curve-qz-kN-m.terrix", Exported(qz)},
        // M, a moment per length of pile (F*L/L), converts as a force: 83800
        // Nm/m is 83800 Nmm/mm. THETA is never converted; DIAM is a length.
        {"manual-curve-mtheta-N-mm.terrix",
         Exported(Curves<ManualMthetaMomentDataSection>({{10, 1.524, {0.0, 83800.0}, {0.0, 0.001}}}), "N", "mm")},
        // BS is a force, Y a length.
        {"manual-curve-bsy-kN-mm.terrix",
         Exported(Curves<ManualBSYBaseShearDataSection>({{10, 2.134, {0.0, 865300.0}, {0.0, 0.005}}}), "kN", "mm")},
        // BM is a force times a length: 3207 kNm is 3207000000 Nmm.
        {"manual-curve-bmtheta-N-mm.terrix",
         Exported(Curves<ManualBMthetaMomentDataSection>({{10, 2.134, {0.0, 3207000.0}, {0.0, 0.001}}}), "N", "mm")},
    };
    for (const auto& [file, exported] : pins) EXPECT_EQ(exported, TestData(file)) << file;

    EXPECT_EQ(ReadSection<ManualQzPileTipResistanceDataSection>(TestData("manual-curve-qz-kN-m.terrix"), Counted(2)),
              qz);
    EXPECT_EQ(QueryErrorOf([&] { qz.GetManualCurve(8, Length(2.134)); }), "Manual QZ curve not defined");
}

TEST(ManualCurveSection, RoundTripsInKilonewtonMetreAndNewtonMillimetre) {
    const auto py = Curves<ManualPyLateralResistanceDataSection>(
        {{3, 1.524, {0.0, 42400.0, 61100.0, 91300.0, 131600.0, 182500.0},
          {0.0, 0.00762, 0.02286, 0.0762, 0.2286, 0.6096}},
         {3, 2.134, {0.0, 38600.0}, {0.0, 0.01067}},
         {4, 1.524, {}, {}}});
    const auto baseMoment = Curves<ManualBMthetaMomentDataSection>(
        {{10, 1.524, {0.0, 83800.0, 243800.0, 1.0 / 3.0}, {0.0, 0.001, 0.005, 0.02}}});
    ExpectRoundTrips(py, Counted(3));
    ExpectRoundTrips(baseMoment, Counted(1));
}

TEST(ManualCurveSection, ReadsHandWrittenCurvesWithCommentsTabsAndCrLf) {
    // Tabs between values, a '*' comment and a 'C' comment between the lines
    // of a record, and points spread over two lines.
    EXPECT_EQ(ReadSection<ManualBSYBaseShearDataSection>(WithLineEnds(TestData("manual-curve-bsy-hand-written.terrix"), "\r\n"),
                                                          Counted(1)),
              Curves<ManualBSYBaseShearDataSection>(
                  {{10, 2.134, {0.0, 865300.0, 1912700.0, 2322500.0}, {0.0, 0.005, 0.02, 0.05}}}));
}

}  // namespace
