// The six manual curve sections: curves given point by point for a layer and
// a pile diameter, looked up exactly, written as three-line records.

#include <cmath>
#include <functional>
#include <initializer_list>
#include <stdexcept>
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

// The message of the std::runtime_error that `lookup` throws; "" when it
// throws none.
std::string MessageOf(const std::function<void()>& lookup) {
    try {
        lookup();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
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
        EXPECT_EQ(MessageOf([&] { section.GetManualCurve(layer, Length(diameter)); }), "Manual PY curve not defined")
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
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(9, Length(1.5)); }), "Manual TZ curve not defined");
}

TEST(ManualCurveSection, HasManualCurveIsFalseExactlyWhenGetManualCurveThrowsTheKindsMessage) {
    // The three kinds whose curves are taken wherever the file gives one.
    const auto mTheta = Curves<ManualMthetaMomentDataSection>(
        {{3, 1.0, {0.0, 80.0}, {0.0, 0.001}}, {3, 2.0, {0.0, 120.0}, {0.0, 0.001}}});
    const auto baseShear = Curves<ManualBSYBaseShearDataSection>({{3, 2.0, {0.0, 400.0}, {0.0, 0.005}}});
    const auto baseMoment = Curves<ManualBMthetaMomentDataSection>({{4, 1.0, {0.0, 1500.0}, {0.0, 0.001}}});
    int found = 0;
    for (int layer : {0, 2, 3, 4}) {
        for (double diameter : {0.0, 1.0, 1.5, 2.0}) {
            const Length d(diameter);
            SCOPED_TRACE("layer " + std::to_string(layer) + ", diameter " + std::to_string(diameter));
            EXPECT_EQ(MessageOf([&] { mTheta.GetManualCurve(layer, d); }),
                      mTheta.HasManualCurve(layer, d) ? "" : "Manual M-Theta curve not defined");
            EXPECT_EQ(MessageOf([&] { baseShear.GetManualCurve(layer, d); }),
                      baseShear.HasManualCurve(layer, d) ? "" : "Manual Base Shear curve not defined");
            EXPECT_EQ(MessageOf([&] { baseMoment.GetManualCurve(layer, d); }),
                      baseMoment.HasManualCurve(layer, d) ? "" : "Manual Base Moment curve not defined");
            found += mTheta.HasManualCurve(layer, d) + baseShear.HasManualCurve(layer, d) +
                     baseMoment.HasManualCurve(layer, d);
        }
    }
    EXPECT_EQ(found, 4);
}

TEST(ManualCurveSection, ACurveWithoutPointsIsItsFirstLineAndTwoEmptyLines) {
    const auto section = Curves<ManualQzPileTipResistanceDataSection>(
        {{8, 2.0, {}, {}}, {9, 2.0, {0.0, 432000.0}, {0.0, 0.004}}});
    const std::string text = Exported(section);
    EXPECT_EQ(text,
              "*** MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : Q-VALUES (F/L**2)  LINE2 : Z-VALUES (L)\n"
              "         8       2.0         0\n"
              "\n"
              "\n"
              "         9       2.0         2\n"
              "       0.0     432.0\n"
              "       0.0     0.004\n");
    EXPECT_EQ(ReadSection<ManualQzPileTipResistanceDataSection>(text, Counted(2)), section);
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(8, Length(2.134)); }), "Manual QZ curve not defined");
}

TEST(ManualCurveSection, ValuesAreWrittenInTheUnitOfWhatTheyMeasure) {
    // P (a force per area) in N/m2 and Y in m are written in kN/m2 and m.
    EXPECT_EQ(Exported(Curves<ManualPyLateralResistanceDataSection>(
                  {{3, 1.524, {0.0, 42400.0, 91300.0, 182500.0}, {0.0, 0.00762, 0.0762, 0.6096}}})),
              "*** MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : P-VALUES (F/L**2)  LINE2 : Y-VALUES (L)\n"
              "         3     1.524         4\n"
              "       0.0      42.4      91.3     182.5\n"
              "       0.0   0.00762    0.0762    0.6096\n");

    // Ten points wrap after eight values, as every vector of the file does.
    EXPECT_EQ(Exported(Curves<ManualTzSkinFrictionDataSection>(
                  {{6, 2.0, {0, 5000, 10000, 15000, 20000, 25000, 30000, 35000, 40000, 45000},
                    {0, 0.001, 0.002, 0.003, 0.004, 0.005, 0.006, 0.007, 0.008, 0.009}}})),
              "*** MANUAL T-Z (SKIN FRICTION) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : T-VALUES (F/L**2)  LINE2 : Z-VALUES (L)\n"
              "         6       2.0        10\n"
              "       0.0       5.0      10.0      15.0      20.0      25.0      30.0      35.0\n"
              "      40.0      45.0\n"
              "       0.0     0.001     0.002     0.003     0.004     0.005     0.006     0.007\n"
              "     0.008     0.009\n");

    // M, a moment per length of pile (F*L/L), converts as a force: 83800
    // Nm/m is 83800 Nmm/mm. THETA is never converted; DIAM is a length.
    EXPECT_EQ(Exported(Curves<ManualMthetaMomentDataSection>({{10, 1.524, {0.0, 83800.0}, {0.0, 0.001}}}), "N", "mm"),
              "*** MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : M-VALUES (F*L/L)  LINE2 : THETA-VALUES (RAD)\n"
              "        10    1524.0         2\n"
              "       0.0   83800.0\n"
              "       0.0     0.001\n");

    // BS is a force, Y a length.
    EXPECT_EQ(Exported(Curves<ManualBSYBaseShearDataSection>({{10, 2.134, {0.0, 865300.0}, {0.0, 0.005}}}), "kN", "mm"),
              "*** MANUAL BS-Y (BASE SHEAR) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : BS-VALUES (F)  LINE2 : Y-VALUES (L)\n"
              "        10    2134.0         2\n"
              "       0.0     865.3\n"
              "       0.0       5.0\n");

    // BM is a force times a length: 3207 kNm is 3207000000 Nmm.
    EXPECT_EQ(Exported(Curves<ManualBMthetaMomentDataSection>({{10, 2.134, {0.0, 3207000.0}, {0.0, 0.001}}}), "N",
                       "mm"),
              "*** MANUAL BM-THETA (BASE MOMENT) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : BM-VALUES (F*L)  LINE2 : THETA-VALUES (RAD)\n"
              "        10    2134.0         2\n"
              "       0.0 3.207e+09\n"
              "       0.0     0.001\n");
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
    const std::string text =
        "*** MANUAL BS-Y (BASE SHEAR) DATA SECTION ***\r\n"
        "LAY       DIAM      NUMPNT  LINE1 : BS-VALUES (F)  LINE2 : Y-VALUES (L)\r\n"
        "* Base shear of the pile tip in the stiff clay\r\n"
        "10\t2.134\t4\r\n"
        "  0.0  865.3\r\n"
        "C  the last two points on a line of their own\r\n"
        "  1912.7\t2322.5\r\n"
        "  0.0  0.005  0.02  0.05\r\n";
    EXPECT_EQ(ReadSection<ManualBSYBaseShearDataSection>(text, Counted(1)),
              Curves<ManualBSYBaseShearDataSection>(
                  {{10, 2.134, {0.0, 865300.0, 1912700.0, 2322500.0}, {0.0, 0.005, 0.02, 0.05}}}));
}

TEST(ManualCurveSection, ReportsMalformedCurvesWithTheirLine) {
    const std::string title = "MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION";
    const std::string head = "*** " + title + " ***\n" +
                             "LAY       DIAM      NUMPNT  LINE1 : P-VALUES (F/L**2)  LINE2 : Y-VALUES (L)\n" +
                             "         3       1.5         3\n";
    auto errorOf = [](const std::string& text, std::size_t count = 1) {
        return SectionErrorOf<ManualPyLateralResistanceDataSection>(text, Counted(count));
    };
    // A resistance line with one value more than NUMPNT.
    EXPECT_EQ(errorOf(head + "       0.0      42.4      61.1      91.3\n       0.0    0.0076    0.0229\n"),
              ImportErrorText(4, "Expected vector of size: 3", title, "       0.0      42.4      61.1      91.3"));
    // One value short: the vector goes on to the displacement line, which
    // then holds one value too many.
    EXPECT_EQ(errorOf(head + "       0.0      42.4\n       0.0    0.0076    0.0229\n"),
              ImportErrorText(5, "Expected vector of size: 3", title, "       0.0    0.0076    0.0229"));
    // The displacements of the last curve one short: nothing follows.
    EXPECT_EQ(errorOf(head + "       0.0      42.4      61.1\n       0.0    0.0076\n"),
              ImportErrorText(6, "Error parsing argument: 2, expected vector of size: 3", title, ""));
    // A count that is not a number.
    EXPECT_EQ(errorOf(Replaced(head, "         3\n", "     three\n")),
              ImportErrorText(3, "Error parsing argument: 2", title, "         3       1.5     three"));
    // Fewer curves than the profile's count: the blank line that ends the
    // section stands where the next curve should.
    EXPECT_EQ(errorOf(head + "       0.0      42.4      61.1\n       0.0    0.0076    0.0229\n\n"
                             "*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n",
                      2),
              ImportErrorText(6, "Error parsing argument: 0", title, ""));
    // A missing column header.
    EXPECT_EQ(errorOf("*** " + title + " ***\n         3       1.5         2\n"),
              ImportErrorText(2, "Unable to find section", title, "         3       1.5         2"));
}

}  // namespace
