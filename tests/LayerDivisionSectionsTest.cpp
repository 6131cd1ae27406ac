// The sections that divide the soil into numbered layers and give each its
// P-Y, T-Z and Q-Z codes: the soil layer divisions of version 4 and the main
// layer subdivisions of version 5.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/MainLayersSubdivisionAndPyTzQzCodesSection.h>
#include <TerrixExchange/sections/SoilLayerDivisionsAndCodesForPyTzQzSection.h>

#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Division = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;
using MainLayer = MainLayersSubdivisionAndPyTzQzCodesSectionRecord;

Division MakeDivision(int layer1, int layer2, int typ, double zbotm, int py, int tz, int qz) {
    return Division{layer1, layer2, typ, Length(zbotm), py, tz, qz};
}

MainLayer MakeMainLayer(int main, double zbotm, int subdivision, int py, int tz, int qz, int openHole,
                        std::vector<double> misc) {
    return MainLayer{main, Length(zbotm), subdivision, py, tz, qz, openHole, misc};
}

// --- Version 4: "SOIL LAYER DIV ..." ----------------------------------------

const std::string divisionsTitle = "SOIL LAYER DIV ...";

using Divisions = SoilLayerDivisionsAndCodesForPyTzQzSection;

TEST(SoilLayerDivisionsSection, DivisionsGiveLayersCountsAndManualCodes) {
    Divisions section;
    section.records = {MakeDivision(1, 3, 2, 6.0, 0, 293, 293), MakeDivision(4, 4, 5, 9.5, 284, 0, 0)};
    EXPECT_EQ(section.records[0].GetSublayerCount(), 3u);
    EXPECT_EQ(section.GetLayerCount(), 4u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 3u);
    EXPECT_EQ(section.GetManualTZRecordCount(), 1u);
    EXPECT_EQ(section.GetManualQZRecordCount(), 1u);
    // Any of the three codes 0 is a manual code.
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 0, 293, 293).HasManualCodes());
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 284, 0, 293).HasManualCodes());
    EXPECT_TRUE(MakeDivision(1, 1, 1, 1.0, 284, 293, 0).HasManualCodes());
    EXPECT_FALSE(MakeDivision(1, 1, 1, 1.0, 284, 293, 293).HasManualCodes());

    // The soil type stands in the main-layer slot; each division starts
    // where the one above ends.
    EXPECT_EQ(section.GetLayers(Length(-1.0)),
              (std::vector<Layer>{MakeLayer(2, 1, 3, -1.0, 6.0), MakeLayer(5, 4, 1, 6.0, 9.5)}));
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 1, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 3, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 4, 1, 0.0, 0.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 5, 1, 0.0, 0.0)), section.records.end());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 0, 1, 0.0, 0.0)), section.records.end());

    // Overlapping divisions: the first that holds the layer.
    section.records = {MakeDivision(1, 4, 1, 6.0, 0, 0, 0), MakeDivision(3, 5, 2, 9.0, 0, 0, 0)};
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 3, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(2, 5, 1, 0.0, 0.0)), section.records.begin() + 1);
}

TEST(SoilLayerDivisionsSection, BackwardDivisionsAndAnEmptySection) {
    // LAYER2 below LAYER1 is taken as written: 0 layers, or a count wrapped
    // around to a huge unsigned number.
    EXPECT_EQ(MakeDivision(3, 2, 1, 1.0, 0, 0, 0).GetSublayerCount(), 0u);
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetSublayerCount(), static_cast<std::size_t>(-1));
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetLayer(Length(0.0)).layerCount, static_cast<std::uint64_t>(-1));

    const Divisions empty;
    EXPECT_TRUE(empty.GetLayers(Length(5.0)).empty());
    EXPECT_EQ(empty.GetLayerCount(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount(), 0u);
    EXPECT_EQ(empty.GetManualTZRecordCount(), 0u);
    EXPECT_EQ(empty.GetManualQZRecordCount(), 0u);
    EXPECT_EQ(empty.FindLayer(MakeLayer(1, 1, 1, 0.0, 0.0)), empty.records.end());
}

// Three divisions as the exporter writes them.
const std::vector<Division> divisions = {MakeDivision(1, 2, 1, 4.5, 0, 293, 293),
                                         MakeDivision(3, 5, 2, 12.25, 284, 0, 0),
                                         MakeDivision(6, 6, 1, 20.0, 287, 200, 200)};
const std::string divisionsText =
    "*** SOIL LAYER DIV ...        ***\n"
    "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\n"
    "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\n"
    "Q-Z CODES : 000=Manual 100+N=Auto 200=bi-linear 293=API-93 214=API-2014\n"
    "LAYER1    LAYER2    TYP       ZBOTM     PYCODE    TZCODE    QZCODE\n"
    "         1         2         1       4.5         0       293       293\n"
    "         3         5         2     12.25       284         0         0\n"
    "         6         6         1      20.0       287       200       200\n";
// The title and the four fixed lines.
const std::string divisionsHead = divisionsText.substr(0, divisionsText.find("         1         2"));

TEST(SoilLayerDivisionsSection, ExportWritesTheFixedLinesAndEveryDivisionHeld) {
    Divisions section;
    section.records = divisions;
    // Told that the profile has 2 layers, the export still writes the
    // divisions beyond them: it never drops data the profile holds.
    EXPECT_EQ(WriteSection(section, Counted(2)), divisionsText);

    section.records = {MakeDivision(1, 2, 1, 0.1, 0, 293, 293), MakeDivision(3, 5, 2, 12.345678901234, 284, 0, 0),
                       MakeDivision(6, 9, 4, 1.0 / 3.0, 100, 214, 214)};
    ExpectRoundTrips(section, Counted(9));
}

TEST(SoilLayerDivisionsSection, ImportReadsDivisionsUntilTheyCoverTheLayers) {
    // Six layers: 1-2, 3-5 and 6-6 cover them; the line 7-8 is no longer a
    // division of this section.
    const std::string extra = "         7         8         3      30.0       287       200       200";
    const std::string text = divisionsText + extra + "\n";
    Divisions section;
    std::string afterwards;
    ReadText(text, [&](Importer& importer) {
        section.Serialize(importer, 6);
        afterwards = ImportErrorOf([&] { importer.BlankLine(); });
    });
    EXPECT_EQ(section.records, divisions);
    EXPECT_EQ(afterwards, ImportErrorText(9, "Expected blank line", divisionsTitle, extra));

    // A last division may cover more layers than asked for; no layers asked
    // for reads no division.
    EXPECT_EQ(ReadSection<Divisions>(text, Counted(7)).records.size(), 4u);
    EXPECT_TRUE(ReadSection<Divisions>(text, Counted(0)).records.empty());

    // CRLF, tabs, a bare title, free columns, a truncated LAYER2, a comment
    // between two divisions and millimetres.
    const std::string handWritten = WithCrLf(
        "SOIL LAYER DIV ...\n"
        "P-Y CODES : 000=Manual 100+N=Auto 284=API-84 287=API-87 380=HKR-80 214=API-2014\n"
        "T-Z CODES : 000=Manual 100+N=Auto 200=Kraft et al. 293=API-93 214=API-2014\n"
        "Q-Z CODES : 000=Manual\t100+N=Auto 200=bi-linear 293=API-93 214=API-2014\n"
        "LAYER1\tLAYER2\tTYP\tZBOTM\tPYCODE\tTZCODE\tQZCODE\n"
        "\t1\t2\t1\t4500\t0\t293\t293\n"
        "* a comment between two divisions\n"
        "    3  5.9    2  12250  284    0    0 \t\n");
    EXPECT_EQ(ReadSection<Divisions>(handWritten, Counted(5), "kN", "mm").records,
              (std::vector<Division>(divisions.begin(), divisions.begin() + 2)));
}

TEST(SoilLayerDivisionsSection, BadInputGivesOneClearError) {
    auto errorOf = [](const std::string& text, std::size_t layers) {
        return SectionErrorOf<Divisions>(text, Counted(layers));
    };
    EXPECT_EQ(errorOf(divisionsHead + "    1    2    1    4.5    0  293  293  7\n", 2),
              ImportErrorText(6, "Expected end of line of record.", divisionsTitle,
                              "    1    2    1    4.5    0  293  293  7"));
    EXPECT_EQ(errorOf(divisionsHead + "    1    2    1    4.5    0  293  293\n"
                                      "    3    4    1    ABC    0  293  293\n",
                      4),
              ImportErrorText(7, "Error parsing argument: 3", divisionsTitle, "    3    4    1    ABC    0  293  293"));
    // The divisions end before they cover the layers.
    EXPECT_EQ(errorOf(divisionsHead + "    1    2    1    4.5    0  293  293\n\n", 3),
              ImportErrorText(7, "Error parsing argument: 0", divisionsTitle, ""));

    EXPECT_EQ(errorOf(Replaced(divisionsHead, "TYP ", "TYPE"), 0),
              ImportErrorText(5, "Unable to find section", divisionsTitle,
                              "LAYER1    LAYER2    TYPE      ZBOTM     PYCODE    TZCODE    QZCODE"));
    EXPECT_EQ(errorOf("SOIL LAYER DIVISIONS\n", 0),
              ImportErrorText(1, "Unable to find section", divisionsTitle, "SOIL LAYER DIVISIONS"));
}

// --- Version 5: "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION" --------

const std::string subdivisionTitle = "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION";

// Three main layers as the exporter writes them.
const std::vector<MainLayer> mainLayers = {MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {0, 0, 0, 0, 0}),
                                           MakeMainLayer(2, 12.0, 1, 214, 214, 214, 1, {1.5, -2, 0.003, 4, 5}),
                                           MakeMainLayer(3, 20.0, 2, 0, 293, 0, 0, {})};
const std::string subdivisionText =
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
    "         3      20.0         2         0       293         0         0\n";

// The ten lines before the first main layer, with a NUMPIL of 2.7 (read as 2).
const std::string subdivisionHead = [] {
    std::string head = subdivisionText.substr(0, subdivisionText.find("         1       5.5"));
    return head.replace(head.find("         2 NUMPIL"), 17, "       2.7 NUMPIL");
}();

using Subdivision = MainLayersSubdivisionAndPyTzQzCodesSection;

TEST(MainLayersSubdivisionSection, MainLayersGiveLayersNumberedOnOverTheSubdivisions) {
    Subdivision section;
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

    // An automatic subdivision (0) counts no layer; a negative one is taken
    // as written, sign-extended.
    section.records = {MakeMainLayer(1, 5.0, 0, 0, 0, 0, 0, {}), MakeMainLayer(2, 8.0, 3, 0, 293, 293, 0, {})};
    EXPECT_EQ(section.GetLayers(Length(0.0)),
              (std::vector<Layer>{MakeLayer(1, 1, 0, 0.0, 5.0), MakeLayer(2, 1, 3, 5.0, 8.0)}));
    EXPECT_EQ(section.CountSubLayers(), 3u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 3);
    EXPECT_EQ(section.GetManualTZRecordCount(), 0);
    EXPECT_EQ(section.GetManualQZRecordCount(), 0);
    EXPECT_EQ(MakeMainLayer(1, 5.0, -1, 0, 0, 0, 0, {}).GetLayer(1, Length(0.0)).layerCount,
              static_cast<std::uint64_t>(-1));

    // FindLayer takes the first record of the main layer.
    section.records = {MakeMainLayer(4, 5.0, 1, 0, 0, 0, 0, {}), MakeMainLayer(7, 8.0, 1, 0, 0, 0, 0, {}),
                       MakeMainLayer(7, 9.0, 1, 0, 0, 0, 1, {})};
    EXPECT_EQ(section.FindLayer(MakeLayer(7, 1, 1, 0.0, 0.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(4, 9, 1, 0.0, 0.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 1, 1, 0.0, 0.0)), section.records.end());

    const Subdivision empty;
    EXPECT_TRUE(empty.GetLayers(Length(3.0)).empty());
    EXPECT_EQ(empty.CountSubLayers(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount(), 0);
    EXPECT_EQ(empty.FindLayer(MakeLayer(1, 1, 1, 0.0, 0.0)), empty.records.end());
}

TEST(MainLayersSubdivisionSection, ImportReadsTheMainLayersWithTheirMiscellaneousValues) {
    // However many numbers the line holds after the open hole flag.
    const std::string text = subdivisionHead +
                             "  1   5.5   3   0   0   0   0   0.0 0.0 0.0 0.0 0.0\n"
                             "  2  12.0   1   214 214 214 1   1.5 -2 3e-3 4 5\n"
                             "  3  20.0   2   0   293 0   0\n"
                             "  4  25.0   1   404 214 214 0   1 2 3 4 5 6\n";
    const auto section = ReadSection<Subdivision>(text, Counted(4));
    EXPECT_EQ(section.NUMPIL, 2);
    auto expected = mainLayers;
    expected.push_back(MakeMainLayer(4, 25.0, 1, 404, 214, 214, 0, {1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(section.records, expected);

    // CRLF, tabs and millimetres.
    const std::string inMillimetres = WithCrLf(subdivisionHead + "\t1\t5500\t3\t0\t0\t0\t0\t7.25\t0\n");
    EXPECT_EQ(ReadSection<Subdivision>(inMillimetres, Counted(1), "kN", "mm").records,
              (std::vector<MainLayer>{MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {7.25, 0})}));
}

TEST(MainLayersSubdivisionSection, ExportWritesTheCommentsHeadersAndRows) {
    Subdivision section;
    section.NUMPIL = 2;
    section.records = mainLayers;
    EXPECT_EQ(WriteSection(section, Counted(3)), subdivisionText);

    section.NUMPIL = 12;
    section.records = {MakeMainLayer(1, 0.1, 3, 0, 0, 0, 0, {0.1, 1e-7, -3.25, 1e20, 5}),
                       MakeMainLayer(2, 12.345678901234, 1, 214, 214, 214, 1, {}),
                       MakeMainLayer(3, 1.0 / 3.0, 0, 287, 293, 293, 0, {2.0 / 3.0})};
    ExpectRoundTrips(section, Counted(3));
}

TEST(MainLayersSubdivisionSection, BadInputGivesOneClearError) {
    auto errorOf = [](const std::string& text, std::size_t count) {
        return SectionErrorOf<Subdivision>(text, Counted(count));
    };
    EXPECT_EQ(errorOf(Replaced(subdivisionHead, "NUMPIL", "NUMPILE"), 0),
              ImportErrorText(2, "Expected parameter 'NUMPIL' not found or incorrectly defined", subdivisionTitle,
                              "       2.7 NUMPILE  PILE NUMBER TO BE USED FOR AUTOMATIC MAIN LAYERS SUB-DIVISIONS"));

    // The miscellaneous values run to the end of the line; a text among them
    // ends the row too early.
    EXPECT_EQ(errorOf(subdivisionHead + "  1   5.5   3   0   0   0   0   1.0 x 3.0\n", 1),
              ImportErrorText(11, "Expected end of line of record.", subdivisionTitle,
                              "  1   5.5   3   0   0   0   0   1.0 x 3.0"));
    EXPECT_EQ(errorOf(subdivisionHead + "  1   5.5   3   0   0\n", 1),
              ImportErrorText(11, "Error parsing argument: 5", subdivisionTitle, "  1   5.5   3   0   0"));
    EXPECT_EQ(errorOf(subdivisionHead + "  1   5.5   3   0   0   0   0\n", 2),
              ImportErrorText(12, "Error parsing argument: 0", subdivisionTitle, ""));
}

}  // namespace
