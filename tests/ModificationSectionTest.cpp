// The six modification sections: rows of factors for a range of layers and a
// pile diameter, where 0 0 means every layer and DIAM 0 every diameter.

#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>
#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>
#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>
#include <TerrixExchange/sections/TzSkinFrictionDataModificationSection.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

template <class Record>
Record Row(int lay1, int lay2, double diameter, typename Record::Modification modification = {}) {
    Record record;
    record.LAY1 = lay1;
    record.LAY2 = lay2;
    record.DIAM = Length(diameter);
    record.modification = modification;
    return record;
}

PyModification PyFactors(double pFactor, double yGap = 0.0) {
    PyModification modification;
    modification.P_FACT = pFactor;
    modification.Y_GAP = yGap;
    return modification;
}

TzModification TzFactors(double tensionFactor) {
    TzModification modification;
    modification.TNS_FCT = tensionFactor;
    return modification;
}

std::string MessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "(nothing thrown)";
}

}  // namespace

TEST(ModificationSection, DefaultsAreTheIdentityModification) {
    const PyModification& py = PyModification::defaultModification;
    EXPECT_EQ(py.P_FACT, 1.0);
    EXPECT_EQ(py.Y_FACT, 1.0);
    EXPECT_EQ(py.Y_GAP, 0.0);
    EXPECT_EQ(py.P_PEAK_FCT, 1.0);
    EXPECT_EQ(py.P_RES_FCT, 1.0);
    EXPECT_EQ(py.Y_RES_FCT, 1.0);
    EXPECT_EQ(PyModification(), py);

    const TzModification& tz = TzModification::defaultModification;
    EXPECT_TRUE(tz.CMP_FCT == 1.0 && tz.TNS_FCT == 1.0 && tz.TZZ_FCT == 1.0 && tz.T_RES_FCT == 1.0 &&
                tz.Z_RES_FCT == 1.0);
    const QzModification& qz = QzModification::defaultModification;
    EXPECT_TRUE(qz.CMP_FCT == 1.0 && qz.TNS_FCT == 1.0 && qz.QZZ_FCT == 1.0 && qz.Q_RES_FCT == 1.0 &&
                qz.Z_RES_FCT == 1.0);
    EXPECT_TRUE(MThetaModification::defaultModification.M_FCT == 1.0 &&
                MThetaModification::defaultModification.THETA_FCT == 1.0);
    EXPECT_TRUE(BSYModification::defaultModification.BS_FCT == 1.0 &&
                BSYModification::defaultModification.Y_FCT == 1.0);
    EXPECT_TRUE(BMThetaModification::defaultModification.BM_FCT == 1.0 &&
                BMThetaModification::defaultModification.THETA_FCT == 1.0);

    // Every factor counts in the comparison, to the last bit.
    PyModification changed = py;
    changed.Y_RES_FCT = std::nextafter(1.0, 2.0);
    EXPECT_NE(changed, py);
    EXPECT_FALSE(changed == py);
}

TEST(ModificationSection, WildcardsAndRangesCoverLayersAndDiameters) {
    using Record = PyLateralResistanceDataModificationSectionRecord;
    const Record everything = Row<Record>(0, 0, 0.0);
    EXPECT_TRUE(everything.HasLayer(1) && everything.HasLayer(10) && everything.HasLayer(0));
    EXPECT_TRUE(everything.HasDiameter(Length(1.524)) && everything.HasDiameter(Length(2.134)));
    // 10 layers and 3 diameters.
    EXPECT_EQ(everything.GetLayerCount(10, 3), 30u);

    // 0 5 is an ordinary range from layer 0 to layer 5.
    const Record upper = Row<Record>(0, 5, 2.0);
    EXPECT_TRUE(upper.HasLayer(0) && upper.HasLayer(3) && upper.HasLayer(5));
    EXPECT_FALSE(upper.HasLayer(6));
    EXPECT_EQ(upper.GetLayerCount(10, 3), 6u);

    // A diameter that differs in the last bit is another diameter.
    EXPECT_TRUE(upper.HasDiameter(Length(2.0)));
    EXPECT_FALSE(upper.HasDiameter(Length(std::nextafter(2.0, 3.0))));
    EXPECT_FALSE(upper.HasDiameter(Length(std::nextafter(2.0, 1.0))));

    // Every layer at one diameter; a range at every diameter; a range whose
    // end lies above its start covers nothing.
    EXPECT_EQ(Row<Record>(0, 0, 2.0).GetLayerCount(10, 3), 10u);
    EXPECT_EQ(Row<Record>(3, 4, 0.0).GetLayerCount(10, 3), 6u);
    EXPECT_EQ(Row<Record>(5, 3, 1.0).GetLayerCount(10, 3), 0u);
    EXPECT_FALSE(Row<Record>(5, 3, 1.0).HasLayer(4));

    PyLateralResistanceDataModificationSection section;
    EXPECT_EQ(section.GetLayerCount(10, 3), 0u);
    section.records = {Row<Record>(3, 4, 0.0), Row<Record>(0, 0, 0.0)};
    EXPECT_EQ(section.GetLayerCount(10, 3), 36u);
}

TEST(ModificationSection, TheFirstMatchingRowWins) {
    using Record = PyLateralResistanceDataModificationSectionRecord;
    PyLateralResistanceDataModificationSection section;
    section.records = {Row<Record>(3, 5, 2.134, PyFactors(0.9)), Row<Record>(1, 4, 0.0, PyFactors(1.0, 0.02)),
                       Row<Record>(0, 0, 0.0, PyFactors(1.1))};
    EXPECT_EQ(section.GetModification(4, Length(2.134)), PyFactors(0.9));
    EXPECT_EQ(section.GetModification(4, Length(1.524)), PyFactors(1.0, 0.02));
    EXPECT_EQ(section.GetModification(2, Length(2.134)), PyFactors(1.0, 0.02));
    EXPECT_EQ(section.GetModification(7, Length(2.134)), PyFactors(1.1));
}

TEST(ModificationSection, NoRowIsAnErrorForPyTzQzAndTheIdentityForTheOthers) {
    EXPECT_EQ(MessageOf([] { PyLateralResistanceDataModificationSection().GetModification(1, Length(1.0)); }),
              "Unable to find PY modifications");
    EXPECT_EQ(MessageOf([] { TzSkinFrictionDataModificationSection().GetModification(1, Length(1.0)); }),
              "Unable to find TZ modifications");
    EXPECT_EQ(MessageOf([] { QzPileTipResistanceDataModificationSection().GetModification(1, Length(1.0)); }),
              "Unable to find QZ modifications");

    // A row for other layers does not help.
    QzPileTipResistanceDataModificationSection qz;
    qz.records = {Row<QzPileTipResistanceDataModificationSectionRecord>(8, 10, 1.524)};
    EXPECT_EQ(MessageOf([&] { qz.GetModification(8, Length(2.134)); }), "Unable to find QZ modifications");

    MThetaModification halfMoment;
    halfMoment.M_FCT = 0.5;
    MthetaMomentDataModificationSection mTheta;
    mTheta.records = {Row<MthetaMomentDataModificationSectionRecord>(10, 10, 0.0, halfMoment)};
    EXPECT_EQ(mTheta.GetModification(10, Length(1.524)), halfMoment);
    EXPECT_EQ(mTheta.GetModification(9, Length(1.524)), MThetaModification::defaultModification);
    EXPECT_EQ(BSYBaseShearDataModificationSection().GetModification(1, Length(1.0)),
              BSYModification::defaultModification);
    EXPECT_EQ(BMthetaMomentDataModificationSection().GetModification(1, Length(1.0)),
              BMThetaModification::defaultModification);
}

TEST(ModificationSection, GetModificationForLayerTakesTheFirstRowOfTheLayer) {
    using Record = TzSkinFrictionDataModificationSectionRecord;
    TzSkinFrictionDataModificationSection section;
    EXPECT_FALSE(section.GetModificationForLayer(6));

    section.records = {Row<Record>(1, 2, 1.524, TzFactors(0.7)), Row<Record>(0, 0, 0.0, TzFactors(0.9)),
                       Row<Record>(6, 6, 2.134, TzFactors(0.8))};
    // The all-layers row stands before the row naming layer 6, and wins.
    const boost::optional<Record> six = section.GetModificationForLayer(6);
    ASSERT_TRUE(six);
    EXPECT_EQ(*six, section.records[1]);
    // The diameter is not consulted.
    EXPECT_EQ(*section.GetModificationForLayer(2), section.records[0]);

    BSYBaseShearDataModificationSection baseShear;
    baseShear.records = {Row<BSYBaseShearDataModificationSectionRecord>(10, 10, 2.134)};
    EXPECT_EQ(*baseShear.GetModificationForLayer(10), baseShear.records[0]);
    EXPECT_FALSE(baseShear.GetModificationForLayer(9));
}

TEST(ModificationSection, PyRowsAreWrittenInColumnsOfSeven) {
    using Record = PyLateralResistanceDataModificationSectionRecord;
    PyLateralResistanceDataModificationSection py;
    py.records = {Row<Record>(3, 5, 2.134, PyFactors(0.9)), Row<Record>(0, 0, 0.0)};
    TzSkinFrictionDataModificationSection tz;
    tz.records = {Row<TzSkinFrictionDataModificationSectionRecord>(6, 7, 0.0, TzFactors(0.8))};

    int widthAfterPy = 0;
    const std::string text = WriteText([&](Exporter& exporter) {
        py.Serialize(exporter, 10, 2);
        widthAfterPy = exporter.GetColumnWidth();
        exporter.BlankLine();
        tz.Serialize(exporter, 10, 2);
    });
    EXPECT_EQ(widthAfterPy, 10);
    EXPECT_EQ(text,
              "*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   P-FACT Y-FACT Y-GAP  P-PEAK-FCT P-RES-FCT Y-RES-FCT\n"
              "      3      5  2.134    0.9    1.0    0.0    1.0    1.0    1.0\n"
              "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0\n"
              "\n"
              "*** T-Z (SKIN FRICTION) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT TZZ-FCT T-RES-FCT Z-RES-FCT\n"
              "         6         7       0.0       1.0       0.8       1.0       1.0       1.0\n");

    // DIAM is a length, the factors are plain numbers.
    MThetaModification moment;
    moment.M_FCT = 0.9;
    MthetaMomentDataModificationSection mTheta;
    mTheta.records = {Row<MthetaMomentDataModificationSectionRecord>(10, 10, 1.524, moment)};
    EXPECT_EQ(WriteText([&](Exporter& exporter) { mTheta.Serialize(exporter); }, "kN", "mm"),
              "*** M-THETA (DISTRIBUTED MOMENT) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   M-FCT THETA-FCT\n"
              "        10        10    1524.0       0.9       1.0\n");
}

TEST(ModificationSection, TheOtherKindsAreWrittenInColumnsOfTen) {
    QzModification stiffer;
    stiffer.QZZ_FCT = 1.2;
    QzPileTipResistanceDataModificationSection qz;
    qz.records = {Row<QzPileTipResistanceDataModificationSectionRecord>(8, 10, 1.524, stiffer)};
    BSYModification shear;
    shear.BS_FCT = 1.1;
    BSYBaseShearDataModificationSection bs;
    bs.records = {Row<BSYBaseShearDataModificationSectionRecord>(10, 10, 2.134, shear)};
    BMthetaMomentDataModificationSection bm;
    bm.records = {Row<BMthetaMomentDataModificationSectionRecord>(0, 0, 0.0)};
    EXPECT_EQ(WriteText([&](Exporter& exporter) {
                  qz.Serialize(exporter, 10, 2);
                  exporter.BlankLine();
                  bs.Serialize(exporter);
                  exporter.BlankLine();
                  bm.Serialize(exporter);
              }),
              "*** Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT QZZ-FCT Q-RES-FCT Z-RES-FCT\n"
              "         8        10     1.524       1.0       1.0       1.2       1.0       1.0\n"
              "\n"
              "*** BS-Y (BASE SHEAR) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   BS-FCT Y-FCT\n"
              "        10        10     2.134       1.1       1.0\n"
              "\n"
              "*** BM-THETA (BASE MOMENT) DATA MODIFICATION SECTION ***\n"
              "LAY1   LAY2   DIAM   BM-FCT THETA-FCT\n"
              "         0         0       0.0       1.0       1.0\n");
}

TEST(ModificationSection, RoundTripsInKilonewtonMetreAndNewtonMillimetre) {
    using Record = PyLateralResistanceDataModificationSectionRecord;
    PyLateralResistanceDataModificationSection py;
    py.records = {Row<Record>(3, 5, 2.134, PyFactors(0.9)), Row<Record>(1, 2, 0.0, PyFactors(1.0, 0.02)),
                  Row<Record>(0, 0, 0.0, PyFactors(1.0 / 3.0))};
    BMThetaModification moment;
    moment.THETA_FCT = 1.25;
    BMthetaMomentDataModificationSection bm;
    bm.records = {Row<BMthetaMomentDataModificationSectionRecord>(0, 0, 1.829, moment)};

    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        SCOPED_TRACE(std::string(units.first) + " " + units.second);
        const std::string text = WriteText(
            [&](Exporter& exporter) {
                py.Serialize(exporter, 10, 2);
                exporter.BlankLine();
                bm.Serialize(exporter);
            },
            units.first, units.second);
        PyLateralResistanceDataModificationSection pyBack;
        BMthetaMomentDataModificationSection bmBack;
        ReadText(
            text,
            [&](Importer& importer) {
                pyBack.Serialize(importer, 10, 2);
                importer.BlankLine();
                bmBack.Serialize(importer);
            },
            units.first, units.second);
        EXPECT_EQ(pyBack, py);
        EXPECT_EQ(bmBack, bm);
    }
}

TEST(ModificationSection, RowsEndAtTheFirstLineThatIsNoRow) {
    const std::string text =
        "*** Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION ***\r\n"
        "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT QZZ-FCT Q-RES-FCT Z-RES-FCT\r\n"
        "* the pile tip in the stiff clay\r\n"
        "8\t10\t1.524\t1.0\t1.0\t1.2\t1.0\t1.0\r\n"
        "         0         0       0.0       1.0       1.0       1.0       1.0       1.0\r\n"
        "\r\n"
        "*** M-THETA (DISTRIBUTED MOMENT) DATA SECTION ***\r\n";
    QzPileTipResistanceDataModificationSection section;
    ReadText(text, [&](Importer& importer) {
        section.Serialize(importer, 10, 2);
        importer.BlankLine();
        EXPECT_EQ(importer.GetLineCounter(), 7u);
    });
    ASSERT_EQ(section.records.size(), 2u);
    EXPECT_EQ(section.records[0].LAY1, 8);
    EXPECT_EQ(section.records[0].LAY2, 10);
    EXPECT_EQ(section.records[0].DIAM, Length(1.524));
    EXPECT_EQ(section.records[0].modification.QZZ_FCT, 1.2);
    EXPECT_EQ(section.records[1].GetLayerCount(10, 2), 20u);

    // A section without rows is a title and a header.
    TzSkinFrictionDataModificationSection empty;
    ReadText("*** T-Z (SKIN FRICTION) DATA MODIFICATION SECTION ***\n"
             "LAY1   LAY2   DIAM   CMP-FCT TNS-FCT TZZ-FCT T-RES-FCT Z-RES-FCT\n"
             "\n",
             [&](Importer& importer) { empty.Serialize(importer, 10, 2); });
    EXPECT_TRUE(empty.records.empty());
}

TEST(ModificationSection, ReportsMalformedRowsWithTheirLine) {
    const std::string title = "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION";
    auto errorOf = [](const std::string& text) {
        return ImportErrorOf([&] {
            PyLateralResistanceDataModificationSection section;
            ReadText(text, [&](Importer& importer) { section.Serialize(importer, 10, 2); });
        });
    };
    EXPECT_EQ(errorOf("*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n"
                      "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0\n"),
              ImportErrorText(2, "Unable to find section", title,
                              "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0"));
    EXPECT_EQ(errorOf("*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n"
                      "LAY1   LAY2   DIAM   P-FACT Y-FACT Y-GAP  P-PEAK-FCT P-RES-FCT Y-RES-FCT\n"
                      "      3      5  2.134    0.9    1.0    0.0    1.0    1.0    1.0\n"
                      "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0    1.0\n"),
              ImportErrorText(4, "Expected end of line of record.", title,
                              "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0    1.0"));
    EXPECT_EQ(errorOf("*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION ***\n"
                      "LAY1   LAY2   DIAM   P-FACT Y-FACT Y-GAP  P-PEAK-FCT P-RES-FCT Y-RES-FCT\n"
                      "      0      0    0.0    1.0    1.0    0.0    1.0\n"),
              ImportErrorText(3, "Error parsing argument: 7", title, "      0      0    0.0    1.0    1.0    0.0    1.0"));
}
