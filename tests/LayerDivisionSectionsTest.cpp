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
using Divisions = SoilLayerDivisionsAndCodesForPyTzQzSection;
using MainLayer = MainLayersSubdivisionAndPyTzQzCodesSectionRecord;
using Subdivision = MainLayersSubdivisionAndPyTzQzCodesSection;

Division MakeDivision(int layer1, int layer2, int typ, double zbotm, int py, int tz, int qz) {
    return Division{layer1, layer2, typ, Length(zbotm), py, tz, qz};
}

MainLayer MakeMainLayer(int main, double zbotm, int subdivision, int py, int tz, int qz, int openHole,
                        std::vector<double> misc = {}) {
    return MainLayer{main, Length(zbotm), subdivision, py, tz, qz, openHole, misc};
}

// A layer of main layer (or soil type) `main` from layer `first` on.
Layer LayerOf(int main, int first) { return MakeLayer(main, first, 1, 0.0, 0.0); }

// --- Version 4: "SOIL LAYER DIV ..." ----------------------------------------

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
    EXPECT_EQ(section.FindLayer(LayerOf(2, 1)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(2, 3)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(5, 4)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(5, 5)), section.records.end());
    EXPECT_EQ(section.FindLayer(LayerOf(2, 0)), section.records.end());
    // Overlapping divisions: the first that holds the layer.
    section.records = {MakeDivision(1, 4, 1, 6.0, 0, 0, 0), MakeDivision(3, 5, 2, 9.0, 0, 0, 0)};
    EXPECT_EQ(section.FindLayer(LayerOf(2, 3)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(2, 5)), section.records.begin() + 1);

    // LAYER2 below LAYER1 is taken as written: 0 layers, or a count wrapped
    // around to a huge unsigned number.
    EXPECT_EQ(MakeDivision(3, 2, 1, 1.0, 0, 0, 0).GetSublayerCount(), 0u);
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetSublayerCount(), static_cast<std::size_t>(-1));
    EXPECT_EQ(MakeDivision(3, 1, 1, 1.0, 0, 0, 0).GetLayer(Length(0.0)).layerCount, static_cast<std::uint64_t>(-1));

    const Divisions empty;
    EXPECT_TRUE(empty.GetLayers(Length(5.0)).empty());
    EXPECT_EQ(empty.GetLayerCount(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount() + empty.GetManualTZRecordCount() + empty.GetManualQZRecordCount(), 0u);
    EXPECT_EQ(empty.FindLayer(LayerOf(1, 1)), empty.records.end());
}

// Three divisions as the exporter writes them.
const std::vector<Division> divisions = {MakeDivision(1, 2, 1, 4.5, 0, 293, 293),
                                         MakeDivision(3, 5, 2, 12.25, 284, 0, 0),
                                         MakeDivision(6, 6, 1, 20.0, 287, 200, 200)};
const std::string divisionsText = TestData("layer-division-v4.terrix");
// The title and the four fixed lines.
const std::string divisionsHead = divisionsText.substr(0, divisionsText.find("         1         2"));

TEST(SoilLayerDivisionsSection, ReadsDivisionsUntilTheyCoverTheLayersAndWritesEveryOne) {
    Divisions section;
    section.records = divisions;
    // Told that the profile has 2 layers, the export still writes the
    // divisions beyond them: it never drops data the profile holds.
    EXPECT_EQ(WriteSection(section, Counted(2)), divisionsText);
    auto awkward = section;
    awkward.records = {MakeDivision(1, 2, 1, 0.1, 0, 293, 293), MakeDivision(3, 5, 2, 12.345678901234, 284, 0, 0),
                       MakeDivision(6, 9, 4, 1.0 / 3.0, 100, 214, 214)};
    ExpectRoundTrips(awkward, Counted(9));

    // Six layers: 1-2, 3-5 and 6-6 cover them; the line 7-8 is no longer a
    // division of this section.
    const std::string extra = "         7         8         3      30.0       287       200       200";
    const std::string text = divisionsText + extra + "\n";
    EXPECT_EQ(ReadSection<Divisions>(text, Counted(6)).records, divisions);
    // A last division may cover more layers than asked for; no layers asked
    // for reads no division.
    EXPECT_EQ(ReadSection<Divisions>(text, Counted(7)).records.size(), 4u);
    EXPECT_TRUE(ReadSection<Divisions>(text, Counted(0)).records.empty());

    // CRLF, tabs, a bare title, free columns, a truncated LAYER2, a comment
    // between two divisions and millimetres.
    EXPECT_EQ(ReadSection<Divisions>(WithLineEnds(TestData("layer-division-v4-hand-written-mm.terrix"), "\r\n"), Counted(5), "kN",
                                     "mm")
                  .records,
              (std::vector<Division>(divisions.begin(), divisions.begin() + 2)));
}

// --- Version 5: "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION" --------

// Three main layers as the exporter writes them.
const std::vector<MainLayer> mainLayers = {MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {0, 0, 0, 0, 0}),
                                           MakeMainLayer(2, 12.0, 1, 214, 214, 214, 1, {1.5, -2, 0.003, 4, 5}),
                                           MakeMainLayer(3, 20.0, 2, 0, 293, 0, 0)};
const std::string subdivisionText = TestData("layer-division-v5.terrix");

// The ten lines before the first main layer, with a NUMPIL of 2.7 (read as 2).
const std::string subdivisionHead = Replaced(subdivisionText.substr(0, subdivisionText.find("         1       5.5")),
                                             "         2 NUMPIL", "       2.7 NUMPIL");

TEST(MainLayersSubdivisionSection, MainLayersGiveLayersNumberedOnOverTheSubdivisions) {
    Subdivision section;
    section.records = {MakeMainLayer(1, 5.0, 3, 0, 293, 0, 0), MakeMainLayer(2, 8.0, 1, 0, 0, 293, 0),
                       MakeMainLayer(3, 15.0, 2, 284, 0, 0, 1)};
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
    section.records = {MakeMainLayer(1, 5.0, 0, 0, 0, 0, 0), MakeMainLayer(2, 8.0, 3, 0, 293, 293, 0)};
    EXPECT_EQ(section.GetLayers(Length(0.0)),
              (std::vector<Layer>{MakeLayer(1, 1, 0, 0.0, 5.0), MakeLayer(2, 1, 3, 5.0, 8.0)}));
    EXPECT_EQ(section.CountSubLayers(), 3u);
    EXPECT_EQ(section.GetManualPYRecordCount(), 3);
    EXPECT_EQ(section.GetManualTZRecordCount(), 0);
    EXPECT_EQ(section.GetManualQZRecordCount(), 0);
    EXPECT_EQ(MakeMainLayer(1, 5.0, -1, 0, 0, 0, 0).GetLayer(1, Length(0.0)).layerCount,
              static_cast<std::uint64_t>(-1));

    // FindLayer takes the first record of the main layer.
    section.records = {MakeMainLayer(4, 5.0, 1, 0, 0, 0, 0), MakeMainLayer(7, 8.0, 1, 0, 0, 0, 0),
                       MakeMainLayer(7, 9.0, 1, 0, 0, 0, 1)};
    EXPECT_EQ(section.FindLayer(LayerOf(7, 1)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(4, 9)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(5, 1)), section.records.end());

    const Subdivision empty;
    EXPECT_TRUE(empty.GetLayers(Length(3.0)).empty());
    EXPECT_EQ(empty.CountSubLayers(), 0u);
    EXPECT_EQ(empty.GetManualPYRecordCount(), 0);
    EXPECT_EQ(empty.FindLayer(LayerOf(1, 1)), empty.records.end());
}

TEST(MainLayersSubdivisionSection, MainLayersWithTheirMiscellaneousValuesReadAndWritten) {
    Subdivision section;
    section.NUMPIL = 2;
    section.records = mainLayers;
    EXPECT_EQ(WriteSection(section, Counted(3)), subdivisionText);
    auto awkward = section;
    awkward.NUMPIL = 12;
    awkward.records = {MakeMainLayer(1, 0.1, 3, 0, 0, 0, 0, {0.1, 1e-7, -3.25, 1e20, 5}),
                       MakeMainLayer(2, 12.345678901234, 1, 214, 214, 214, 1),
                       MakeMainLayer(3, 1.0 / 3.0, 0, 287, 293, 293, 0, {2.0 / 3.0})};
    ExpectRoundTrips(awkward, Counted(3));

    // However many numbers the line holds after the open hole flag.
    section.records.push_back(MakeMainLayer(4, 25.0, 1, 404, 214, 214, 0, {1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(ReadSection<Subdivision>(subdivisionHead +
                                           "  1   5.5   3   0   0   0   0   0.0 0.0 0.0 0.0 0.0\n"
                                           "  2  12.0   1   214 214 214 1   1.5 -2 3e-3 4 5\n"
                                           "  3  20.0   2   0   293 0   0\n"
                                           "  4  25.0   1   404 214 214 0   1 2 3 4 5 6\n",
                                       Counted(4)),
              section);

    // CRLF, tabs and millimetres.
    const std::string inMillimetres = WithLineEnds(subdivisionHead + "\t1\t5500\t3\t0\t0\t0\t0\t7.25\t0\n", "\r\n");
    EXPECT_EQ(ReadSection<Subdivision>(inMillimetres, Counted(1), "kN", "mm").records,
              (std::vector<MainLayer>{MakeMainLayer(1, 5.5, 3, 0, 0, 0, 0, {7.25, 0})}));
}

}  // namespace
