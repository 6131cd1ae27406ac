// The six modification sections: rows of factors for a range of layers and a
// pile diameter, where 0 0 means every layer and DIAM 0 every diameter.

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>
#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>
#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>
#include <TerrixExchange/sections/TzSkinFrictionDataModificationSection.h>

#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using PyRow = PyLateralResistanceDataModificationSectionRecord;
using TzRow = TzSkinFrictionDataModificationSectionRecord;

template <class Record>
Record Row(int lay1, int lay2, double diameter, typename Record::Modification modification = {}) {
    Record record;
    record.LAY1 = lay1;
    record.LAY2 = lay2;
    record.DIAM = Length(diameter);
    record.modification = modification;
    return record;
}

PyModification PyFactors(double pFactor, double yGap = 0.0) { return PyModification{{}, pFactor, 1.0, yGap}; }
TzModification TzFactors(double tensionFactor) { return TzModification{{}, 1.0, tensionFactor}; }

// A P-Y, T-Z or Q-Z section read or written as in a profile of 10 layers and 2
// pile diameters; the other three need no counts.
const auto tenLayersTwoDiameters = [](auto& section, auto& archive) { section.Serialize(archive, 10, 2); };

TEST(ModificationSection, DefaultsAreTheIdentityModification) {
    // Factors of 1, and a Y-GAP of 0, leave a curve as it is.
    EXPECT_EQ(PyModification::Factors(PyModification::defaultModification),
              std::make_tuple(1.0, 1.0, 0.0, 1.0, 1.0, 1.0));
    EXPECT_EQ(TzModification::Factors(TzModification::defaultModification), std::make_tuple(1.0, 1.0, 1.0, 1.0, 1.0));
    EXPECT_EQ(QzModification::Factors(QzModification::defaultModification), std::make_tuple(1.0, 1.0, 1.0, 1.0, 1.0));
    EXPECT_EQ(MThetaModification::Factors(MThetaModification::defaultModification), std::make_tuple(1.0, 1.0));
    EXPECT_EQ(BSYModification::Factors(BSYModification::defaultModification), std::make_tuple(1.0, 1.0));
    EXPECT_EQ(BMThetaModification::Factors(BMThetaModification::defaultModification), std::make_tuple(1.0, 1.0));
    EXPECT_EQ(PyModification(), PyModification::defaultModification);

    // Every factor counts in the comparison, to the last bit.
    PyModification changed;
    changed.Y_RES_FCT = std::nextafter(1.0, 2.0);
    EXPECT_NE(changed, PyModification::defaultModification);
}

TEST(ModificationSection, WildcardsAndRangesCoverLayersAndDiameters) {
    const PyRow everything = Row<PyRow>(0, 0, 0.0);
    EXPECT_TRUE(everything.HasLayer(1) && everything.HasLayer(10) && everything.HasLayer(0));
    EXPECT_TRUE(everything.HasDiameter(Length(1.524)) && everything.HasDiameter(Length(2.134)));
    // 10 layers and 3 diameters.
    EXPECT_EQ(everything.GetLayerCount(10, 3), 30u);

    // 0 5 is an ordinary range from layer 0 to layer 5.
    const PyRow upper = Row<PyRow>(0, 5, 2.0);
    EXPECT_TRUE(upper.HasLayer(0) && upper.HasLayer(3) && upper.HasLayer(5));
    EXPECT_FALSE(upper.HasLayer(6));
    EXPECT_EQ(upper.GetLayerCount(10, 3), 6u);
    // A diameter that differs in the last bit is another diameter.
    EXPECT_TRUE(upper.HasDiameter(Length(2.0)));
    EXPECT_FALSE(upper.HasDiameter(Length(std::nextafter(2.0, 3.0))));
    EXPECT_FALSE(upper.HasDiameter(Length(std::nextafter(2.0, 1.0))));

    // Every layer at one diameter; a range at every diameter; a range whose
    // end lies above its start covers nothing.
    EXPECT_EQ(Row<PyRow>(0, 0, 2.0).GetLayerCount(10, 3), 10u);
    EXPECT_EQ(Row<PyRow>(3, 4, 0.0).GetLayerCount(10, 3), 6u);
    EXPECT_EQ(Row<PyRow>(5, 3, 1.0).GetLayerCount(10, 3), 0u);
    EXPECT_FALSE(Row<PyRow>(5, 3, 1.0).HasLayer(4));

    // A section adds up its rows: pairs that two rows cover count twice.
    PyLateralResistanceDataModificationSection section;
    EXPECT_EQ(section.GetLayerCount(10, 3), 0u);
    section.records = {Row<PyRow>(3, 4, 0.0), Row<PyRow>(0, 0, 0.0)};
    EXPECT_EQ(section.GetLayerCount(10, 3), 36u);
}

TEST(ModificationSection, TheFirstMatchingRowWins) {
    PyLateralResistanceDataModificationSection section;
    section.records = {Row<PyRow>(3, 5, 2.134, PyFactors(0.9)), Row<PyRow>(1, 4, 0.0, PyFactors(1.0, 0.02)),
                       Row<PyRow>(0, 0, 0.0, PyFactors(1.1))};
    const auto& lookup = section;
    EXPECT_EQ(lookup.GetModification(4, Length(2.134)), PyFactors(0.9));
    EXPECT_EQ(lookup.GetModification(4, Length(1.524)), PyFactors(1.0, 0.02));
    EXPECT_EQ(lookup.GetModification(2, Length(2.134)), PyFactors(1.0, 0.02));
    EXPECT_EQ(lookup.GetModification(7, Length(2.134)), PyFactors(1.1));
}

TEST(ModificationSection, NoRowIsAnErrorForPyTzQzAndTheIdentityForTheOthers) {
    const Length d(1.0);
    EXPECT_EQ(QueryErrorOf([&] { PyLateralResistanceDataModificationSection().GetModification(1, d); }),
              "Unable to find PY modifications");
    EXPECT_EQ(QueryErrorOf([&] { TzSkinFrictionDataModificationSection().GetModification(1, d); }),
              "Unable to find TZ modifications");
    // A row for other layers does not help.
    QzPileTipResistanceDataModificationSection qz;
    qz.records = {Row<QzPileTipResistanceDataModificationSectionRecord>(8, 10, 1.524)};
    EXPECT_EQ(QueryErrorOf([&] { qz.GetModification(8, Length(2.134)); }), "Unable to find QZ modifications");

    MThetaModification halfMoment;
    halfMoment.M_FCT = 0.5;
    MthetaMomentDataModificationSection mTheta;
    mTheta.records = {Row<MthetaMomentDataModificationSectionRecord>(10, 10, 0.0, halfMoment)};
    EXPECT_EQ(mTheta.GetModification(10, Length(1.524)), halfMoment);
    EXPECT_EQ(mTheta.GetModification(9, Length(1.524)), MThetaModification::defaultModification);
    EXPECT_EQ(BSYBaseShearDataModificationSection().GetModification(1, d), BSYModification::defaultModification);
    EXPECT_EQ(BMthetaMomentDataModificationSection().GetModification(1, d), BMThetaModification::defaultModification);
}

TEST(ModificationSection, GetModificationForLayerTakesTheFirstRowOfTheLayer) {
    TzSkinFrictionDataModificationSection section;
    EXPECT_FALSE(section.GetModificationForLayer(6));
    section.records = {Row<TzRow>(1, 2, 1.524, TzFactors(0.7)), Row<TzRow>(0, 0, 0.0, TzFactors(0.9)),
                       Row<TzRow>(6, 6, 2.134, TzFactors(0.8))};
    const auto& lookup = section;
    // The all-layers row stands before the row naming layer 6, and wins.
    EXPECT_TRUE(lookup.GetModificationForLayer(6) == section.records[1]);
    // The diameter is not consulted.
    EXPECT_TRUE(lookup.GetModificationForLayer(2) == section.records[0]);

    BSYBaseShearDataModificationSection baseShear;
    baseShear.records = {Row<BSYBaseShearDataModificationSectionRecord>(10, 10, 2.134)};
    EXPECT_TRUE(baseShear.GetModificationForLayer(10) == baseShear.records[0]);
    EXPECT_FALSE(baseShear.GetModificationForLayer(9));
}

TEST(ModificationSection, PyRowsAreWrittenInColumnsOfSevenTheOthersInColumnsOfTen) {
    // The six sections of the version 4 example, written in kN and mm: DIAM
    // is a length; the factors, and the gap Y-GAP, are kept as written.
    TerrixInputData data = ExampleProfile("north-sea-v4.terrix").GetTerrixInputData();
    int widthAfterPy = 0;
    EXPECT_EQ(WriteText(
                  [&](Exporter& exporter) {
                      data.pyLateralResistanceDataModificationSection.Serialize(exporter, 10, 2);
                      widthAfterPy = exporter.GetColumnWidth();
                      exporter.BlankLine();
                      data.tzSkinFrictionDataModificationSection.Serialize(exporter, 10, 2);
                      exporter.BlankLine();
                      data.qzPileTipResistanceDataModificationSection.Serialize(exporter, 10, 2);
                      exporter.BlankLine();
                      data.mthetaMomentDataModificationSection.Serialize(exporter);
                      exporter.BlankLine();
                      data.bsyBaseShearDataModificationSection.Serialize(exporter);
                      exporter.BlankLine();
                      data.bmThetaMomentDataModificationSection.Serialize(exporter);
                  },
                  "kN", "mm"),
              TestData("modification-sections-kN-mm.terrix"));
    // The width of the rest of the file is restored after the P-Y rows.
    EXPECT_EQ(widthAfterPy, 10);
}

TEST(ModificationSection, RoundTripsInKilonewtonMetreAndNewtonMillimetre) {
    PyLateralResistanceDataModificationSection py;
    py.records = {Row<PyRow>(3, 5, 2.134, PyFactors(0.9)), Row<PyRow>(1, 2, 0.0, PyFactors(1.0, 0.02)),
                  Row<PyRow>(0, 0, 0.0, PyFactors(1.0 / 3.0))};
    MThetaModification moment;
    moment.THETA_FCT = 1.25;
    MthetaMomentDataModificationSection mTheta;
    mTheta.records = {Row<MthetaMomentDataModificationSectionRecord>(0, 0, 1.829, moment)};

    ExpectRoundTrips(py, tenLayersTwoDiameters);
    ExpectRoundTrips(mTheta, Uncounted);
}

TEST(ModificationSection, RowsEndAtTheFirstLineThatIsNoRow) {
    // CRLF, tabs and a comment; P-Y rows in columns of 10 read as well.
    const std::string text = WithLineEnds(TestData("modification-py-and-mtheta-hand-written.terrix"), "\r\n");
    PyLateralResistanceDataModificationSection py;
    MthetaMomentDataModificationSection mTheta;
    ReadText(text, [&](Importer& importer) {
        py.Serialize(importer, 10, 2);
        importer.BlankLine();
        mTheta.Serialize(importer);
        // The M-theta rows end at the empty ninth line, which is still there.
        importer.BlankLine();
        EXPECT_EQ(importer.GetLineCounter(), 10u);
    });
    EXPECT_EQ(py.records, (std::vector<PyRow>{Row<PyRow>(8, 10, 1.524, PyFactors(0.9)), Row<PyRow>(0, 0, 0.0)}));
    // A section without rows is a title and a header.
    EXPECT_TRUE(mTheta.records.empty());
}

}  // namespace
