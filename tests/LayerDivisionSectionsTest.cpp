#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/MainLayersSubdivisionAndPyTzQzCodesSection.h>
#include <TerrixExchange/sections/SoilLayerDivisionsAndCodesForPyTzQzSection.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

using Division = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;
using MainLayer = MainLayersSubdivisionAndPyTzQzCodesSectionRecord;

Division MakeDivision(int layer1, int layer2, int typ, double zbotm, int py, int tz, int qz) {
    Division division;
    division.LAYER1 = layer1;
    division.LAYER2 = layer2;
    division.TYP = typ;
    division.ZBOTM = Length(zbotm);
    division.PYCODE = py;
    division.TZCODE = tz;
    division.QZCODE = qz;
    return division;
}

MainLayer MakeMainLayer(int main, double zbotm, int subdivision, int py, int tz, int qz, int openHole,
                        std::vector<double> misc) {
    MainLayer record;
    record.MAIN_LAYER = main;
    record.ZBOTM = Length(zbotm);
    record.SUBDIVISION = subdivision;
    record.PYCODE = py;
    record.TZCODE = tz;
    record.QZCODE = qz;
    record.OPEN_HOLE = openHole;
    record.MISC_VALUES = misc;
    return record;
}

Layer MakeLayer(std::int32_t mainLayer, std::int32_t firstLayer, std::uint64_t layerCount, double top, double bottom) {
    return Layer{mainLayer, firstLayer, layerCount, Length(top), Length(bottom)};
}

// --- Version 4: "SOIL LAYER DIV ..." ----------------------------------------

const std::string divisionsTitle = "SOIL LAYER DIV ...";

const std::string divisionsHead =
    "SOIL LAYER DIV ...\n"
    "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\n"
    "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\n"
    "Q-Z CODES : 000=Manual 100+N=Auto 200=bi-linear 293=API-93 214=API-2014\n"
    "LAYER1    LAYER2    TYP       ZBOTM     PYCODE    TZCODE    QZCODE\n";

SoilLayerDivisionsAndCodesForPyTzQzSection ReadDivisions(const std::string& text, std::size_t layerCount,
                                                         const std::string& lengthUnit = "m") {
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    ReadText(text, [&](Importer& importer) { section.Serialize(importer, layerCount); }, "kN", lengthUnit);
    return section;
}

std::string WriteDivisions(SoilLayerDivisionsAndCodesForPyTzQzSection section, const std::string& forceUnit = "kN",
                           const std::string& lengthUnit = "m") {
    return WriteText([&](Exporter& exporter) { section.Serialize(exporter, section.GetLayerCount()); }, forceUnit,
                     lengthUnit);
}

}  // namespace

TEST(SoilLayerDivisionsSection, DivisionsGiveLayersAndCounts) {
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    section.records = {MakeDivision(1, 3, 2, 6.0, 0, 293, 293), MakeDivision(4, 4, 5, 9.5, 284, 0, 0)};

    EXPECT_EQ(section.records[0].GetSublayerCount(), 3u);
    EXPECT_EQ(section.GetLayerCount(), 4u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 3u);
    EXPECT_EQ(section.GetManualTZRecordCount(), 1u);
    EXPECT_EQ(section.GetManualQZRecordCount(), 1u);

    // The soil type stands in the main-layer slot; each division starts
    // where the one above ends.
    EXPECT_EQ(section.GetLayers(Length(-1.0)),
              (std::vector<Layer>{MakeLayer(2, 1, 3, -1.0, 6.0), MakeLayer(5, 4, 1, 6.0, 9.5)}));

    EXPECT_EQ(section.FindLayer(MakeLayer(2, 1, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 3, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 4, 1, 0.0, 0.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 5, 1, 0.0, 0.0)), section.records.end());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 0, 1, 0.0, 0.0)), section.records.end());
}

TEST(SoilLayerDivisionsSection, FindLayerTakesTheFirstDivisionThatHoldsTheLayer) {
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    section.records = {MakeDivision(1, 4, 1, 6.0, 0, 0, 0), MakeDivision(3, 5, 2, 9.0, 0, 0, 0)};
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 3, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 5, 1, 0.0, 0.0)), section.records.begin() + 1);
}

TEST(SoilLayerDivisionsSection, ManualCodes) {
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 0, 293, 293).HasManualCodes());
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 284, 0, 293).HasManualCodes());
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 284, 293, 0).HasManualCodes());
    EXPECT_FALSE(MakeDivision(1, 1, 1, 1.0, 284, 293, 293).HasManualCodes());
}

TEST(SoilLayerDivisionsSection, BackwardDivisionsAndAnEmptySection) {
    // LAYER2 below LAYER1 is taken as written: 0 layers, or a count wrapped
    // around to a huge unsigned number.
    EXPECT_EQ(MakeDivision(3, 2, 1, 1.0, 0, 0, 0).GetSublayerCount(), 0u);
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetSublayerCount(), static_cast<std::size_t>(-1));
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetLayer(Length(0.0)).layerCount, static_cast<std::uint64_t>(-1));

    const SoilLayerDivisionsAndCodesForPyTzQzSection empty;
    EXPECT_TRUE(empty.GetLayers(Length(5.0)).empty());
    EXPECT_EQ(empty.GetLayerCount(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount(), 0u);
    EXPECT_EQ(empty.GetManualTZRecordCount(), 0u);
    EXPECT_EQ(empty.GetManualQZRecordCount(), 0u);
    EXPECT_EQ(empty.FindLayer(MakeLayer(1, 1, 1, 0.0, 0.0)), empty.records.end());
}

TEST(SoilLayerDivisionsSection, ImportReadsDivisionsUntilTheyCoverTheLayers) {
    // Six layers: 1-2, 3-5 and 6-6 cover them; the line 7-8 is no longer a
    // division of this section.
    const std::string text = divisionsHead +
                             "    1    2    1    4.5    0  293  293\n"
                             "    3  5.9    2  12.25  284    0    0\n"
                             "    6    6    1     20  287  200  200\n"
                             "    7    8    3     30  287  200  200\n";
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    std::string afterwards;
    ReadText(text, [&](Importer& importer) {
        section.Serialize(importer, 6);
        afterwards = ImportErrorOf([&] { importer.BlankLine(); });
    });
    EXPECT_EQ(section.records, (std::vector<Division>{MakeDivision(1, 2, 1, 4.5, 0, 293, 293),
                                                      MakeDivision(3, 5, 2, 12.25, 284, 0, 0),
                                                      MakeDivision(6, 6, 1, 20.0, 287, 200, 200)}));
    EXPECT_EQ(afterwards, ImportErrorText(9, "Expected blank line", divisionsTitle,
                                          "    7    8    3     30  287  200  200"));

    // A last division may cover more layers than asked for; no layers asked
    // for reads no division.
    EXPECT_EQ(ReadDivisions(text, 7).records.size(), 4u);
    EXPECT_TRUE(ReadDivisions(text, 0).records.empty());
}

TEST(SoilLayerDivisionsSection, ImportAcceptsCrLfTabsCommentsAndOtherUnits) {
    const std::string text =
        "*** SOIL LAYER DIV ...        ***\r\n"
        "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\r\n"
        "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\r\n"
        "Q-Z CODES : 000=Manual\t100+N=Auto 200=bi-linear 293=API-93 214=API-2014\r\n"
        "LAYER1\tLAYER2\tTYP\tZBOTM\tPYCODE\tTZCODE\tQZCODE\r\n"
        "\t1\t2\t1\t4500\t0\t293\t293\r\n"
        "* a comment between two divisions\r\n"
        "\t3\t3\t2\t12250\t284\t0\t0 \t\r\n";
    const auto section = ReadDivisions(text, 3, "mm");
    EXPECT_EQ(section.records,
              (std::vector<Division>{MakeDivision(1, 2, 1, 4.5, 0, 293, 293), MakeDivision(3, 3, 2, 12.25, 284, 0, 0)}));
}

TEST(SoilLayerDivisionsSection, ExportWritesTheFixedLinesAndOneRowPerDivision) {
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    section.records = {MakeDivision(1, 2, 1, 4.5, 0, 293, 293), MakeDivision(3, 5, 2, 12.25, 284, 0, 0),
                       MakeDivision(6, 6, 1, 20.0, 287, 200, 200)};
    EXPECT_EQ(WriteDivisions(section),
              "*** SOIL LAYER DIV ...        ***\n"
              "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\n"
              "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\n"
              "Q-Z CODES : 000=Manual 100+N=Auto 200=bi-linear 293=API-93 214=API-2014\n"
              "LAYER1    LAYER2    TYP       ZBOTM     PYCODE    TZCODE    QZCODE\n"
              "         1         2         1       4.5         0       293       293\n"
              "         3         5         2     12.25       284         0         0\n"
              "         6         6         1      20.0       287       200       200\n");
    EXPECT_EQ(WriteDivisions(section, "N", "mm"),
              "*** SOIL LAYER DIV ...        ***\n"
              "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\n"
              "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\n"
              "Q-Z CODES : 000=Manual 100+N=Auto 200=bi-linear 293=API-93 214=API-2014\n"
              "LAYER1    LAYER2    TYP       ZBOTM     PYCODE    TZCODE    QZCODE\n"
              "         1         2         1    4500.0         0       293       293\n"
              "         3         5         2   12250.0       284         0         0\n"
              "         6         6         1   20000.0       287       200       200\n");
}

TEST(SoilLayerDivisionsSection, ExportWritesEveryDivisionHeld) {
    // Divisions beyond the layers they must cover are written all the same:
    // the export never drops data the profile holds.
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    section.records = {MakeDivision(1, 6, 1, 4.5, 0, 293, 293), MakeDivision(7, 8, 2, 9.0, 284, 0, 0)};
    const std::string text = WriteText([&](Exporter& exporter) { section.Serialize(exporter, 6); });
    EXPECT_NE(text.find("         7         8         2       9.0"), std::string::npos) << text;
}

TEST(SoilLayerDivisionsSection, RoundTripInOtherUnits) {
    SoilLayerDivisionsAndCodesForPyTzQzSection section;
    section.records = {MakeDivision(1, 2, 1, 0.1, 0, 293, 293), MakeDivision(3, 5, 2, 12.345678901234, 284, 0, 0),
                       MakeDivision(6, 9, 4, 1.0 / 3.0, 100, 214, 214)};
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        const std::string text = WriteDivisions(section, units.first, units.second);
        EXPECT_EQ(ReadDivisions(text, 9, units.second), section) << text;
    }
}

TEST(SoilLayerDivisionsSection, BadInputGivesOneClearError) {
    const std::string tooManyColumns = divisionsHead + "    1    2    1    4.5    0  293  293  7\n";
    EXPECT_EQ(ImportErrorOf([&] { ReadDivisions(tooManyColumns, 2); }),
              ImportErrorText(6, "Expected end of line of record.", divisionsTitle,
                              "    1    2    1    4.5    0  293  293  7"));

    const std::string notANumber = divisionsHead +
                                   "    1    2    1    4.5    0  293  293\n"
                                   "    3    4    1    ABC    0  293  293\n";
    EXPECT_EQ(ImportErrorOf([&] { ReadDivisions(notANumber, 4); }),
              ImportErrorText(7, "Error parsing argument: 3", divisionsTitle, "    3    4    1    ABC    0  293  293"));

    // The divisions end before they cover the layers.
    EXPECT_EQ(ImportErrorOf([&] { ReadDivisions(divisionsHead + "    1    2    1    4.5    0  293  293\n\n", 3); }),
              ImportErrorText(7, "Error parsing argument: 0", divisionsTitle, ""));

    std::string misspelt = divisionsHead;
    misspelt.replace(misspelt.find("TYP "), 4, "TYPE");
    EXPECT_EQ(ImportErrorOf([&] { ReadDivisions(misspelt, 0); }),
              ImportErrorText(5, "Unable to find section", divisionsTitle,
                              "LAYER1    LAYER2    TYPE      ZBOTM     PYCODE    TZCODE    QZCODE"));

    EXPECT_EQ(ImportErrorOf([&] { ReadDivisions("SOIL LAYER DIVISIONS\n", 0); }),
              ImportErrorText(1, "Unable to find section", divisionsTitle, "SOIL LAYER DIVISIONS"));
}

// --- Version 5: "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION" --------

namespace {

const std::string subdivisionTitle = "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION";

const std::string subdivisionHead =
    "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION\n"
    "       2.7 NUMPIL  PILE NUMBER TO BE USED FOR AUTOMATIC MAIN LAYERS SUB-DIVISIONS\n"
    "*\n"
    "* P-Y codes : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR 404=ISO-04 214=API-2014\n"
    "* T-Z codes : 000=Manual 100+N=Auto 200=Kraft-1981 293=API-93 214=API-2014\n"
    "* Q-Z codes : 000=Manual 100+N=Auto 200=Bi-linear 293=API-93 214=API-2014\n"
    "* SUBDIVISIONS : 0=AUTO (DETERMINED FROM PILE NODES)    1=NONE\n"
    "*\n"
    "MAIN  ZBOTM  SUBDIVISION    P-Y   T-Z   Q-Z   OPEN  MISC.SOIL.LAYER.VALUES\n"
    "LAYER       0=AUTO 1=NONE  CODE  CODE  CODE   HOLE   1    2    3    4    5\n";

MainLayersSubdivisionAndPyTzQzCodesSection ReadSubdivision(const std::string& text, std::size_t count,
                                                           const std::string& lengthUnit = "m") {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    ReadText(text, [&](Importer& importer) { section.Serialize(importer, count); }, "kN", lengthUnit);
    return section;
}

std::string WriteSubdivision(MainLayersSubdivisionAndPyTzQzCodesSection section, const std::string& forceUnit = "kN",
                             const std::string& lengthUnit = "m") {
    return WriteText([&](Exporter& exporter) { section.Serialize(exporter, section.records.size()); }, forceUnit,
                     lengthUnit);
}

}  // namespace

TEST(MainLayersSubdivisionSection, MainLayersGiveLayersNumberedOnOverTheSubdivisions) {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    section.records = {MakeMainLayer(1, 5.0, 3, 0, 293, 0, 0, {}), MakeMainLayer(2, 8.0, 1, 0, 0, 293, 0, {}),
                       MakeMainLayer(3, 15.0, 2, 284, 0, 0, 1, {})};
    EXPECT_EQ(section.GetLayers(Length(-2.0)),
              (std::vector<Layer>{MakeLayer(1, 1, 3, -2.0, 5.0), MakeLayer(2, 4, 1, 5.0, 8.0),
                                  MakeLayer(3, 5, 2, 8.0, 15.0)}));
    EXPECT_EQ(section.records[1].GetLayer(7, Length(1.5)), MakeLayer(2, 7, 1, 1.5, 8.0));
    EXPECT_EQ(section.CountSubLayers(), 6u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 4);
    EXPECT_EQ(section.GetManualTZRecordCount(), 3);
    EXPECT_EQ(section.GetManualQZRecordCount(), 5);
}

TEST(MainLayersSubdivisionSection, AutomaticSubdivisionCountsNoLayer) {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    section.records = {MakeMainLayer(1, 5.0, 0, 0, 0, 0, 0, {}), MakeMainLayer(2, 8.0, 3, 0, 293, 293, 0, {})};
    EXPECT_EQ(section.GetLayers(Length(0.0)),
              (std::vector<Layer>{MakeLayer(1, 1, 0, 0.0, 5.0), MakeLayer(2, 1, 3, 5.0, 8.0)}));
    EXPECT_EQ(section.CountSubLayers(), 3u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 3);
    EXPECT_EQ(section.GetManualTZRecordCount(), 0);
    EXPECT_EQ(section.GetManualQZRecordCount(), 0);

    // A negative subdivision is taken as written, sign-extended.
    EXPECT_EQ(MakeMainLayer(1, 5.0, -1, 0, 0, 0, 0, {}).GetLayer(1, Length(0.0)).layerCount,
              static_cast<std::uint64_t>(-1));
}

TEST(MainLayersSubdivisionSection, FindLayerTakesTheFirstRecordOfTheMainLayer) {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    section.records = {MakeMainLayer(4, 5.0, 1, 0, 0, 0, 0, {}), MakeMainLayer(7, 8.0, 1, 0, 0, 0, 0, {}),
                       MakeMainLayer(7, 9.0, 1, 0, 0, 0, 1, {})};
    EXPECT_EQ(section.FindLayer(MakeLayer(7, 1, 1, 0.0, 0.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(4, 9, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 1, 1, 0.0, 0.0)), section.records.end());

    const MainLayersSubdivisionAndPyTzQzCodesSection empty;
    EXPECT_TRUE(empty.GetLayers(Length(3.0)).empty());
    EXPECT_EQ(empty.CountSubLayers(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount(), 0);
    EXPECT_EQ(empty.FindLayer(MakeLayer(1, 1, 1, 0.0, 0.0)), empty.records.end());
}

TEST(MainLayersSubdivisionSection, ImportReadsTheMainLayersWithTheirMiscellaneousValues) {
    const std::string text = subdivisionHead +
                             "  1   5.5   3   0   0   0   0   0.0 0.0 0.0 0.0 0.0\n"
                             "  2  12.0   1   214 214 214 1   1.5 -2 3e-3 4 5\n"
                             "  3  20.0   2   0   293 0   0\n"
                             "  4  25.0   1   404 214 214 0   1 2 3 4 5 6\n";
    const auto section = ReadSubdivision(text, 4);
    EXPECT_EQ(section.NUMPIL, 2);
    EXPECT_EQ(section.records, (std::vector<MainLayer>{MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {0, 0, 0, 0, 0}),
                                                       MakeMainLayer(2, 12.0, 1, 214, 214, 214, 1, {1.5, -2, 3e-3, 4, 5}),
                                                       MakeMainLayer(3, 20.0, 2, 0, 293, 0, 0, {}),
                                                       MakeMainLayer(4, 25.0, 1, 404, 214, 214, 0, {1, 2, 3, 4, 5, 6})}));
}

TEST(MainLayersSubdivisionSection, ImportAcceptsCrLfTabsAndOtherUnits) {
    std::string text;
    for (char c : subdivisionHead) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
    text += "\t1\t5500\t3\t0\t0\t0\t0\t7.25\t0\r\n";
    const auto section = ReadSubdivision(text, 1, "mm");
    EXPECT_EQ(section.records, (std::vector<MainLayer>{MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {7.25, 0})}));
}

TEST(MainLayersSubdivisionSection, ExportWritesTheCommentsHeadersAndRows) {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    section.NUMPIL = 2;
    section.records = {MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {0, 0, 0, 0, 0}),
                       MakeMainLayer(2, 12.0, 1, 214, 214, 214, 1, {1.5, -2, 0.003, 4, 5}),
                       MakeMainLayer(3, 20.0, 2, 0, 293, 0, 0, {})};
    EXPECT_EQ(WriteSubdivision(section),
              "*** MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION ***\n"
              "         2 NUMPIL  PILE NUMBER TO BE USED FOR AUTOMATIC MAIN LAYERS SUB-DIVISIONS\n"
              "*\n"
              "* P-Y codes : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR 404=ISO-04 214=API-2014\n"
              "* T-Z codes : 000=Manual 100+N=Auto 200=Kraft-1981 293=API-93 214=API-2014\n"
              "* Q-Z codes : 000=Manual 100+N=Auto 200=Bi-linear 293=API-93 214=API-2014\n"
              "* SUBDIVISIONS : 0=AUTO (DETERMINED FROM PILE NODES)    1=NONE\n"
              "*\n"
              "MAIN  ZBOTM  SUBDIVISION    P-Y   T-Z   Q-Z   OPEN  MISC.SOIL.LAYER.VALUES\n"
              "LAYER       0=AUTO 1=NONE  CODE  CODE  CODE   HOLE   1    2    3    4    5\n"
              "         1       5.5         3         0         0         0         0       0.0       0.0"
              "       0.0       0.0       0.0\n"
              "         2      12.0         1       214       214       214         1       1.5      -2.0"
              "     0.003       4.0       5.0\n"
              "         3      20.0         2         0       293         0         0\n");
}

TEST(MainLayersSubdivisionSection, RoundTripInOtherUnits) {
    MainLayersSubdivisionAndPyTzQzCodesSection section;
    section.NUMPIL = 12;
    section.records = {MakeMainLayer(1, 0.1, 3, 0, 0, 0, 0, {0.1, 1e-7, -3.25, 1e20, 5}),
                       MakeMainLayer(2, 12.345678901234, 1, 214, 214, 214, 1, {}),
                       MakeMainLayer(3, 1.0 / 3.0, 0, 287, 293, 293, 0, {2.0 / 3.0})};
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        const std::string text = WriteSubdivision(section, units.first, units.second);
        EXPECT_EQ(ReadSubdivision(text, 3, units.second), section) << text;
    }
}

TEST(MainLayersSubdivisionSection, BadInputGivesOneClearError) {
    std::string noPile = subdivisionHead;
    noPile.replace(noPile.find("NUMPIL"), 6, "NUMPILE");
    EXPECT_EQ(ImportErrorOf([&] { ReadSubdivision(noPile, 0); }),
              ImportErrorText(2, "Expected parameter 'NUMPIL' not found or incorrectly defined", subdivisionTitle,
                              "       2.7 NUMPILE  PILE NUMBER TO BE USED FOR AUTOMATIC MAIN LAYERS SUB-DIVISIONS"));

    // The miscellaneous values run to the end of the line; a text among them
    // ends the row too early.
    EXPECT_EQ(ImportErrorOf([&] { ReadSubdivision(subdivisionHead + "  1   5.5   3   0   0   0   0   1.0 x 3.0\n", 1); }),
              ImportErrorText(11, "Expected end of line of record.", subdivisionTitle,
                              "  1   5.5   3   0   0   0   0   1.0 x 3.0"));

    EXPECT_EQ(ImportErrorOf([&] { ReadSubdivision(subdivisionHead + "  1   5.5   3   0   0\n", 1); }),
              ImportErrorText(11, "Error parsing argument: 5", subdivisionTitle, "  1   5.5   3   0   0"));

    EXPECT_EQ(ImportErrorOf([&] { ReadSubdivision(subdivisionHead + "  1   5.5   3   0   0   0   0\n", 2); }),
              ImportErrorText(12, "Error parsing argument: 0", subdivisionTitle, ""));
}
