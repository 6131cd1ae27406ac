// The six manual curve sections: curves given point by point for a layer and
// a pile diameter, looked up exactly, written as three-line records.

#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/ManualBMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualBSYBaseShearDataSection.h>
#include <TerrixExchange/sections/ManualMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualPyLateralResistanceDataSection.h>
#include <TerrixExchange/sections/ManualQzPileTipResistanceDataSection.h>
#include <TerrixExchange/sections/ManualTzSkinFrictionDataSection.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

template <class Section>
typename Section::Record CurveRecord(int layer, double diameter, std::vector<double> resistances,
                                     std::vector<double> displacements) {
    typename Section::Record record;
    record.LAY = layer;
    record.DIAM = Length(diameter);
    record.resistances = std::move(resistances);
    record.displacements = std::move(displacements);
    return record;
}

// The message of the std::runtime_error that `action` throws.
std::string MessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "(nothing thrown)";
}

template <class Section>
std::string Exported(Section& section, std::size_t count, const std::string& force = "kN",
                     const std::string& length = "m") {
    return WriteText([&](Exporter& exporter) { section.Serialize(exporter, count); }, force, length);
}

template <class Section>
Section Imported(const std::string& text, std::size_t count, const std::string& force = "kN",
                 const std::string& length = "m") {
    Section section;
    ReadText(text, [&](Importer& importer) { section.Serialize(importer, count); }, force, length);
    return section;
}

}  // namespace

TEST(ManualCurveSection, FindsTheCurveOfExactlyTheLayerAndDiameter) {
    ManualPyLateralResistanceDataSection section;
    section.records = {CurveRecord<ManualPyLateralResistanceDataSection>(3, 1.0, {0.0, 10.0, 20.0}, {0.0, 0.01, 0.02}),
                       CurveRecord<ManualPyLateralResistanceDataSection>(3, 2.0, {0.0, 15.0, 30.0}, {0.0, 0.01, 0.02})};

    ManualCurve second;
    second.points = {{0.0, 0.0}, {0.01, 15.0}, {0.02, 30.0}};
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)), second);

    // No tolerance, and 0 is a diameter like any other here.
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(3, Length(1.5)); }), "Manual PY curve not defined");
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(3, Length(0.0)); }), "Manual PY curve not defined");
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(4, Length(1.0)); }), "Manual PY curve not defined");
    EXPECT_EQ(MessageOf([&] { section.GetManualCurve(3, Length(std::nextafter(2.0, 3.0))); }),
              "Manual PY curve not defined");

    // Two curves for the same layer and diameter: the first in the file.
    section.records.push_back(
        CurveRecord<ManualPyLateralResistanceDataSection>(3, 2.0, {0.0, 99.0}, {0.0, 0.01}));
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)), second);
}

TEST(ManualCurveSection, PointsComeBackInAscendingDisplacement) {
    ManualTzSkinFrictionDataSection section;
    // Given from the largest displacement down, with 0.01 twice.
    section.records = {
        CurveRecord<ManualTzSkinFrictionDataSection>(6, 1.5, {46.0, 40.0, 23.0, 0.0, 25.0}, {0.1, 0.01, 0.005, 0.0, 0.01})};

    const ManualCurve curve = section.GetManualCurve(6, Length(1.5));
    ManualCurve expected;
    // The later point of displacement 0.01 wins.
    expected.points = {{0.0, 0.0}, {0.005, 23.0}, {0.01, 25.0}, {0.1, 46.0}};
    EXPECT_EQ(curve, expected);
    ASSERT_EQ(curve.points.size(), 4u);
    EXPECT_EQ(curve.points.begin()->first, 0.0);
    EXPECT_EQ(curve.points.rbegin()->first, 0.1);

    // A record without points is an empty curve, not a missing one.
    section.records.push_back(CurveRecord<ManualTzSkinFrictionDataSection>(7, 1.5, {}, {}));
    EXPECT_TRUE(section.GetManualCurve(7, Length(1.5)).points.empty());

    // Lines that a program filled unequally pair up to the shorter one.
    section.records.push_back(CurveRecord<ManualTzSkinFrictionDataSection>(8, 1.5, {0.0, 20.0, 40.0}, {0.0, 0.01}));
    ManualCurve paired;
    paired.points = {{0.0, 0.0}, {0.01, 20.0}};
    EXPECT_EQ(section.GetManualCurve(8, Length(1.5)), paired);
}

TEST(ManualCurveSection, ACurveWithoutPointsIsItsFirstLineAndTwoEmptyLines) {
    ManualQzPileTipResistanceDataSection section;
    section.records = {CurveRecord<ManualQzPileTipResistanceDataSection>(8, 2.0, {}, {}),
                       CurveRecord<ManualQzPileTipResistanceDataSection>(9, 2.0, {0.0, 432000.0}, {0.0, 0.004})};
    const std::string text = Exported(section, 2);
    EXPECT_EQ(text,
              "*** MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : Q-VALUES (F/L**2)  LINE2 : Z-VALUES (L)\n"
              "         8       2.0         0\n"
              "\n"
              "\n"
              "         9       2.0         2\n"
              "       0.0     432.0\n"
              "       0.0     0.004\n");
    EXPECT_EQ(Imported<ManualQzPileTipResistanceDataSection>(text, 2), section);
}

TEST(ManualCurveSection, EachKindHasItsOwnMessage) {
    EXPECT_EQ(MessageOf([] { ManualPyLateralResistanceDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual PY curve not defined");
    EXPECT_EQ(MessageOf([] { ManualTzSkinFrictionDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual TZ curve not defined");
    EXPECT_EQ(MessageOf([] { ManualQzPileTipResistanceDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual QZ curve not defined");
    EXPECT_EQ(MessageOf([] { ManualMthetaMomentDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual M-Theta curve not defined");
    EXPECT_EQ(MessageOf([] { ManualBSYBaseShearDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual Base Shear curve not defined");
    EXPECT_EQ(MessageOf([] { ManualBMthetaMomentDataSection().GetManualCurve(1, Length(1.0)); }),
              "Manual Base Moment curve not defined");
}

TEST(ManualCurveSection, HasManualCurveIsFalseExactlyWhenGetManualCurveThrows) {
    ManualMthetaMomentDataSection mTheta;
    mTheta.records = {CurveRecord<ManualMthetaMomentDataSection>(3, 1.0, {0.0, 80.0}, {0.0, 0.001}),
                      CurveRecord<ManualMthetaMomentDataSection>(3, 2.0, {0.0, 120.0}, {0.0, 0.001})};
    ManualBSYBaseShearDataSection baseShear;
    baseShear.records = {CurveRecord<ManualBSYBaseShearDataSection>(3, 2.0, {0.0, 400.0}, {0.0, 0.005})};
    ManualBMthetaMomentDataSection baseMoment;
    baseMoment.records = {CurveRecord<ManualBMthetaMomentDataSection>(4, 1.0, {0.0, 1500.0}, {0.0, 0.001})};

    auto throws = [](const std::function<void()>& lookup) {
        try {
            lookup();
        } catch (const std::runtime_error&) {
            return true;
        }
        return false;
    };
    int found = 0;
    for (int layer : {0, 2, 3, 4}) {
        for (double diameter : {0.0, 1.0, 1.5, 2.0}) {
            const Length d(diameter);
            SCOPED_TRACE("layer " + std::to_string(layer) + ", diameter " + std::to_string(diameter));
            EXPECT_NE(mTheta.HasManualCurve(layer, d), throws([&] { mTheta.GetManualCurve(layer, d); }));
            EXPECT_NE(baseShear.HasManualCurve(layer, d), throws([&] { baseShear.GetManualCurve(layer, d); }));
            EXPECT_NE(baseMoment.HasManualCurve(layer, d), throws([&] { baseMoment.GetManualCurve(layer, d); }));
            found += mTheta.HasManualCurve(layer, d) + baseShear.HasManualCurve(layer, d) +
                     baseMoment.HasManualCurve(layer, d);
        }
    }
    EXPECT_EQ(found, 4);
}

TEST(ManualCurveSection, WritesThreeLinesPerCurveInTheFileUnits) {
    // P in N/m2 and Y in m are written in kN/m2 and m.
    ManualPyLateralResistanceDataSection py;
    py.records = {CurveRecord<ManualPyLateralResistanceDataSection>(3, 1.524, {0.0, 42400.0, 91300.0, 182500.0},
                                                                     {0.0, 0.00762, 0.0762, 0.6096})};
    EXPECT_EQ(Exported(py, 1),
              "*** MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : P-VALUES (F/L**2)  LINE2 : Y-VALUES (L)\n"
              "         3     1.524         4\n"
              "       0.0      42.4      91.3     182.5\n"
              "       0.0   0.00762    0.0762    0.6096\n");

    // Ten points wrap after eight values, as every vector of the file does.
    ManualTzSkinFrictionDataSection tz;
    tz.records = {CurveRecord<ManualTzSkinFrictionDataSection>(
        6, 2.0, {0, 5000, 10000, 15000, 20000, 25000, 30000, 35000, 40000, 45000},
        {0, 0.001, 0.002, 0.003, 0.004, 0.005, 0.006, 0.007, 0.008, 0.009})};
    EXPECT_EQ(Exported(tz, 1),
              "*** MANUAL T-Z (SKIN FRICTION) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : T-VALUES (F/L**2)  LINE2 : Z-VALUES (L)\n"
              "         6       2.0        10\n"
              "       0.0       5.0      10.0      15.0      20.0      25.0      30.0      35.0\n"
              "      40.0      45.0\n"
              "       0.0     0.001     0.002     0.003     0.004     0.005     0.006     0.007\n"
              "     0.008     0.009\n");

    ManualQzPileTipResistanceDataSection qz;
    qz.records = {CurveRecord<ManualQzPileTipResistanceDataSection>(8, 2.134, {0.0, 864000.0}, {0.0, 0.02774})};
    EXPECT_EQ(Exported(qz, 1),
              "*** MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : Q-VALUES (F/L**2)  LINE2 : Z-VALUES (L)\n"
              "         8     2.134         2\n"
              "       0.0     864.0\n"
              "       0.0   0.02774\n");

    // M (force x length / length) converts as a force, THETA not at all.
    ManualMthetaMomentDataSection mTheta;
    mTheta.records = {CurveRecord<ManualMthetaMomentDataSection>(10, 1.524, {0.0, 83800.0}, {0.0, 0.001})};
    EXPECT_EQ(Exported(mTheta, 1),
              "*** MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : M-VALUES (F*L/L)  LINE2 : THETA-VALUES (RAD)\n"
              "        10     1.524         2\n"
              "       0.0      83.8\n"
              "       0.0     0.001\n");

    ManualBSYBaseShearDataSection baseShear;
    baseShear.records = {CurveRecord<ManualBSYBaseShearDataSection>(10, 2.134, {0.0, 865300.0}, {0.0, 0.005})};
    EXPECT_EQ(Exported(baseShear, 1, "kN", "mm"),
              "*** MANUAL BS-Y (BASE SHEAR) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : BS-VALUES (F)  LINE2 : Y-VALUES (L)\n"
              "        10    2134.0         2\n"
              "       0.0     865.3\n"
              "       0.0       5.0\n");

    // BM is a force times a length: 3207 kNm is 3207000000 Nmm.
    ManualBMthetaMomentDataSection baseMoment;
    baseMoment.records = {CurveRecord<ManualBMthetaMomentDataSection>(10, 2.134, {0.0, 3207000.0}, {0.0, 0.001})};
    EXPECT_EQ(Exported(baseMoment, 1),
              "*** MANUAL BM-THETA (BASE MOMENT) DATA SECTION ***\n"
              "LAY       DIAM      NUMPNT  LINE1 : BM-VALUES (F*L)  LINE2 : THETA-VALUES (RAD)\n"
              "        10     2.134         2\n"
              "       0.0    3207.0\n"
              "       0.0     0.001\n");
    EXPECT_EQ(Imported<ManualBMthetaMomentDataSection>(Exported(baseMoment, 1, "N", "mm"), 1, "N", "mm"),
              baseMoment);
    EXPECT_NE(Exported(baseMoment, 1, "N", "mm").find("3.207e+09"), std::string::npos);
}

TEST(ManualCurveSection, RoundTripsInKilonewtonMetreAndNewtonMillimetre) {
    ManualPyLateralResistanceDataSection py;
    py.records = {
        CurveRecord<ManualPyLateralResistanceDataSection>(3, 1.524, {0.0, 42400.0, 61100.0, 91300.0, 131600.0, 182500.0},
                                                          {0.0, 0.00762, 0.02286, 0.0762, 0.2286, 0.6096}),
        CurveRecord<ManualPyLateralResistanceDataSection>(3, 2.134, {0.0, 38600.0}, {0.0, 0.01067}),
        CurveRecord<ManualPyLateralResistanceDataSection>(4, 1.524, {}, {})};
    ManualMthetaMomentDataSection mTheta;
    mTheta.records = {CurveRecord<ManualMthetaMomentDataSection>(10, 1.524, {0.0, 83800.0, 243800.0, 1.0 / 3.0},
                                                                 {0.0, 0.001, 0.005, 0.02})};
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm"), std::make_pair("kN", "m")}) {
        SCOPED_TRACE(std::string(units.first) + " " + units.second);
        EXPECT_EQ(Imported<ManualPyLateralResistanceDataSection>(Exported(py, 3, units.first, units.second), 3,
                                                                 units.first, units.second),
                  py);
        EXPECT_EQ(Imported<ManualMthetaMomentDataSection>(Exported(mTheta, 1, units.first, units.second), 1,
                                                          units.first, units.second),
                  mTheta);
    }
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
    const auto section = Imported<ManualBSYBaseShearDataSection>(text, 1);
    ManualBSYBaseShearDataSection expected;
    expected.records = {CurveRecord<ManualBSYBaseShearDataSection>(10, 2.134, {0.0, 865300.0, 1912700.0, 2322500.0},
                                                                   {0.0, 0.005, 0.02, 0.05})};
    EXPECT_EQ(section, expected);
}

TEST(ManualCurveSection, ReportsMalformedCurvesWithTheirLine) {
    const std::string head =
        "*** MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION ***\n"
        "LAY       DIAM      NUMPNT  LINE1 : P-VALUES (F/L**2)  LINE2 : Y-VALUES (L)\n";
    auto errorOf = [](const std::string& text, std::size_t count) {
        return ImportErrorOf([&] { Imported<ManualPyLateralResistanceDataSection>(text, count); });
    };
    const std::string title = "MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION";

    // A resistance line with one value more than NUMPNT.
    EXPECT_EQ(errorOf(head +
                          "         3       1.5         3\n"
                          "       0.0      42.4      61.1      91.3\n"
                          "       0.0    0.0076    0.0229\n",
                      1),
              ImportErrorText(4, "Expected vector of size: 3", title, "       0.0      42.4      61.1      91.3"));

    // One value short: the vector goes on to the displacement line, which
    // then holds one value too many.
    EXPECT_EQ(errorOf(head +
                          "         3       1.5         3\n"
                          "       0.0      42.4\n"
                          "       0.0    0.0076    0.0229\n",
                      1),
              ImportErrorText(5, "Expected vector of size: 3", title, "       0.0    0.0076    0.0229"));

    // The displacements of the last curve one short: nothing follows.
    EXPECT_EQ(errorOf(head +
                          "         3       1.5         3\n"
                          "       0.0      42.4      61.1\n"
                          "       0.0    0.0076\n",
                      1),
              ImportErrorText(6, "Error parsing argument: 2, expected vector of size: 3", title, ""));

    // A count that is not a number.
    EXPECT_EQ(errorOf(head + "         3       1.5     three\n", 1),
              ImportErrorText(3, "Error parsing argument: 2", title, "         3       1.5     three"));

    // Fewer curves than the profile's count: the blank line that ends the
    // section stands where the next curve should.
    EXPECT_EQ(errorOf(head +
                          "         3       1.5         2\n"
                          "       0.0      42.4\n"
                          "       0.0    0.0076\n"
                          "\n"
                          "*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n",
                      2),
              ImportErrorText(6, "Error parsing argument: 0", title, ""));

    // A missing column header.
    EXPECT_EQ(errorOf("*** MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION ***\n"
                      "         3       1.5         2\n",
                      1),
              ImportErrorText(2, "Unable to find section", title, "         3       1.5         2"));
}
