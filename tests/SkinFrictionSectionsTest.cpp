// The axial data of a profile: skin friction and tip resistance at depth
// levels (version 4) or per main layer (version 5).

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV4.h>
#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV5.h>

#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Levels = SkinFrictionAndTipResistanceSectionV4;
using LevelRecord = SkinFrictionAndTipResistanceSectionV4Record;
using MainLayers = SkinFrictionAndTipResistanceSectionV5;
using MainLayerRecord = SkinFrictionAndTipResistanceSectionV5Record;

const std::string title = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";

// A layer of main layer 1 from `top` down to `bottom`.
Layer LayerBetween(double top, double bottom) { return MakeLayer(1, 1, 1, top, bottom); }

LevelRecord MakeLevel(double zlev, double skinCmp, double skinTns, boost::optional<double> g0, double dsptz,
                      double sigTip, double pois, double dspqz) {
    return LevelRecord{Length(zlev), skinCmp, skinTns, g0, dsptz, sigTip, pois, dspqz};
}

LevelRecord MakeLevel(double zlev) { return MakeLevel(zlev, 0, 0, boost::none, 0, 0, 0, 0); }

// The range as indexes into the records of a section with these levels:
// {first, last} or {end, end}.
std::pair<long, long> RangeOf(const std::vector<double>& levels, const Layer& layer) {
    Levels section;
    for (double level : levels) section.records.push_back(MakeLevel(level));
    const auto range = section.EqualRange(layer);
    return {range.first - section.records.begin(), range.second - section.records.begin()};
}

// --- Version 4: axial data at depth levels --------------------------------

TEST(SkinFrictionSectionV4, LevelAgainstALayer) {
    const Layer layer = LayerBetween(8.0, 14.0);  // middle 11
    const struct {
        double level;
        bool above, below, part;
    } cases[] = {{10.0, true, false, true},  {12.0, false, true, true},   {11.0, false, false, true},
                 {8.0, true, false, true},   {14.0, false, true, true},   {7.999, true, false, false},
                 {14.001, false, true, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(MakeLevel(c.level).IsAboveMiddleOfLayer(layer), c.above) << c.level;
        EXPECT_EQ(MakeLevel(c.level).IsBelowMiddleOfLayer(layer), c.below) << c.level;
        EXPECT_EQ(MakeLevel(c.level).IsPartOfLayer(layer), c.part) << c.level;
    }
}

TEST(SkinFrictionSectionV4, EqualRangeBracketsTheMiddleOfALayer) {
    const std::vector<double> levels = {0.0, 10.0, 20.0};
    // Middle 11: the levels at 10 and 20.
    EXPECT_EQ(RangeOf(levels, LayerBetween(8.0, 14.0)), std::make_pair(1L, 3L));
    // Middle 10: the level at 10 is neither side, so 0 to 20.
    EXPECT_EQ(RangeOf(levels, LayerBetween(8.0, 12.0)), std::make_pair(0L, 3L));
    // All levels above the middle: the last alone.
    EXPECT_EQ(RangeOf(levels, LayerBetween(30.0, 40.0)), std::make_pair(2L, 3L));
    // All levels below the middle: the first alone.
    EXPECT_EQ(RangeOf(levels, LayerBetween(-10.0, -4.0)), std::make_pair(0L, 1L));
    // Middle 20 with nothing below: the level at 10 alone.
    EXPECT_EQ(RangeOf(levels, LayerBetween(18.0, 22.0)), std::make_pair(1L, 2L));
    // No levels, or a single level exactly at the middle (on neither side):
    // an empty range at the end.
    EXPECT_EQ(RangeOf({}, LayerBetween(0.0, 1.0)), std::make_pair(0L, 0L));
    EXPECT_EQ(RangeOf({5.0}, LayerBetween(4.0, 6.0)), std::make_pair(1L, 1L));
}

TEST(SkinFrictionSectionV4, EqualRangeTakesTheRecordsInFileOrder) {
    // Not sorted: from the last level above the middle to the first below,
    // with whatever stands between them in the file.
    EXPECT_EQ(RangeOf({0.0, 10.0, 5.0, 12.0, 20.0}, LayerBetween(8.0, 14.0)), std::make_pair(2L, 4L));
    // Levels out of depth order: the first level below (30) stands before
    // the last above (5). The range is never reversed: it runs from the one
    // to the other, both included.
    EXPECT_EQ(RangeOf({0.0, 30.0, 10.0, 20.0, 5.0}, LayerBetween(8.0, 14.0)), std::make_pair(1L, 5L));
    EXPECT_EQ(RangeOf({20.0, 0.0, 30.0, 10.0}, LayerBetween(8.0, 14.0)), std::make_pair(0L, 4L));
}

// Three levels, the second without the soil shear modulus, as the exporter
// writes them: seven columns where G0-SOIL is not given.
const std::vector<LevelRecord> levels = {MakeLevel(0.0, 5.0, 4.0, 20000.0, 0.01, 1000.0, 0.3, 0.1),
                                         MakeLevel(10.0, 15.0, 12.0, boost::none, 0.01, 3000.0, 0.3, 0.1),
                                         MakeLevel(22.5, 25.5, 20.0, 60000.0, 0.02, 5000.0, 0.35, 0.12)};
const std::string levelsText =
    "*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n"
    "       8.0 ZONINF  (ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200\n"
    "       0.9 RFTZ    CURVE FITTING FACTOR RF FOR TZCODE = 200\n"
    "ZLEV  SKIN-CMP  SKIN-TNS  G0-SOIL  DSPTZ/DIAM   SIG-TIP  POIS  DSPQZ/DIAM\n"
    "       0.0       5.0       4.0   20000.0      0.01    1000.0       0.3       0.1\n"
    "      10.0      15.0      12.0      0.01    3000.0       0.3       0.1\n"
    "      22.5      25.5      20.0   60000.0      0.02    5000.0      0.35      0.12\n";

TEST(SkinFrictionSectionV4, LevelsWithOrWithoutTheShearModulus) {
    const Levels section{8.0, 0.9, levels};
    EXPECT_EQ(WriteSection(section, Counted(3)), levelsText);
    EXPECT_EQ(ReadSection<Levels>(levelsText, Counted(3)), section);

    // Only the level is a length: in millimetres it alone changes. Tabs for
    // blanks and CRLF line ends read alike.
    std::string tabbed = WithCrLf(levelsText);
    for (char& c : tabbed) c = c == ' ' ? '\t' : c;
    auto inMillimetres = section;
    inMillimetres.records[1].ZLEV = Length(0.01);
    inMillimetres.records[2].ZLEV = Length(0.0225);
    EXPECT_EQ(ReadSection<Levels>(tabbed, Counted(3), "kN", "mm"), inMillimetres);

    auto awkward = section;
    awkward.records.push_back(MakeLevel(1.0 / 3.0, 0.1, 1e-12, 2.0 / 3.0, 1e15, -0.0, 0.49999999999999994, 7));
    ExpectRoundTrips(awkward, Counted(4));
}

TEST(SkinFrictionSectionV4, BadInputGivesOneClearError) {
    EXPECT_EQ(SectionErrorOf<Levels>(Replaced(levelsText, "8.0 ZONINF", "x.0 ZONINF"), Counted(3)),
              ImportErrorText(2, "Expected parameter 'ZONINF' not found or incorrectly defined", title,
                              "       x.0 ZONINF  (ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200"));
    EXPECT_EQ(SectionErrorOf<Levels>(Replaced(levelsText, "RFTZ", "RF  "), Counted(3)),
              ImportErrorText(3, "Expected parameter 'RFTZ' not found or incorrectly defined", title,
                              "       0.9 RF      CURVE FITTING FACTOR RF FOR TZCODE = 200"));
    // Nine values are one too many even with the shear modulus.
    EXPECT_EQ(SectionErrorOf<Levels>(levelsText + "  30.0  1  2  3  4  5  6  7  8\n", Counted(4)),
              ImportErrorText(8, "Expected end of line of record.", title, "  30.0  1  2  3  4  5  6  7  8"));
    // More levels asked for than the file holds.
    EXPECT_EQ(SectionErrorOf<Levels>(levelsText, Counted(4)),
              ImportErrorText(8, "Error parsing argument: 0", title, ""));
}

// --- Version 5: axial data per main layer ---------------------------------

const std::string mainLayersText =
    "*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n"
    "*  Auto axial capacity calculations currently not supported by Kesta, dummy values used\n"
    "       2.5 DIAMP   Pile outside  diameter  for axial capacity calculations\n"
    "     0.065 WALL    Pile tip wall thickness for axial capacity calculations\n"
    "      45.0 ZTIP    Pile tip Z-level for axial capacity calculations\n"
    "         1 MATPIL  Pile wall material type : 1=steel 2=concrete\n"
    "*  Calculation methods : 0=Given values  1=API-93  2=ICP-05  3=NGI-05\n"
    "MAIN   CALC  SKINC  SKINC  SKINT  SKINT  SIGTIP SIGTIP   G0   TRES/  TZZRES\n"
    "LAYER  METH   TOP    BOT    TOP    BOT     TOP   BOT    FACT  TMAX\n"
    "         1         0      10.0      20.0       8.0      16.0     500.0     900.0       1.0       0.9      0.01\n"
    "         2         3      20.0      35.5      16.0      28.0     900.0    1500.0       1.2       0.8      0.02\n";

const MainLayers mainLayers{Length(2.5), Length(0.065), Length(45.0), 1,
                            {MainLayerRecord{1, 0, 10.0, 20.0, 8.0, 16.0, 500, 900, 1.0, 0.9, 0.01},
                             MainLayerRecord{2, 3, 20.0, 35.5, 16.0, 28.0, 900, 1500, 1.2, 0.8, 0.02}}};

TEST(SkinFrictionSectionV5, ThePileAndOneRowPerMainLayer) {
    EXPECT_EQ(WriteSection(mainLayers, Counted(2)), mainLayersText);
    EXPECT_EQ(ReadSection<MainLayers>(mainLayersText, Counted(2)), mainLayers);

    // The pile's lengths are converted; the table is kept as written.
    auto inMillimetres = mainLayers;
    inMillimetres.DIAMP = Length(0.0025);
    inMillimetres.WALL = Length(0.000065);
    inMillimetres.ZTIP = Length(0.045);
    EXPECT_EQ(ReadSection<MainLayers>(WithCrLf(mainLayersText), Counted(2), "kN", "mm"), inMillimetres);

    auto awkward = mainLayers;
    awkward.ZTIP = Length(1.0 / 3.0);
    awkward.records.push_back(MainLayerRecord{3, 2, 0.1, 1e-12, 2.0 / 3.0, 1e15, -0.0, 7, 8, 9, 1e300});
    ExpectRoundTrips(awkward, Counted(3));

    // FindLayer takes the first record of the main layer.
    MainLayers section;
    section.records = {MainLayerRecord{3}, MainLayerRecord{5}, MainLayerRecord{5, 1}};
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 1, 1, 0.0, 1.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(3, 1, 1, 0.0, 1.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(4, 1, 1, 0.0, 1.0)), section.records.end());
}

TEST(SkinFrictionSectionV5, BadInputGivesOneClearError) {
    EXPECT_EQ(SectionErrorOf<MainLayers>(Replaced(mainLayersText, "         1 MATPIL", "       one MATPIL"),
                                         Counted(2)),
              ImportErrorText(6, "Expected parameter 'MATPIL' not found or incorrectly defined", title,
                              "       one MATPIL  Pile wall material type : 1=steel 2=concrete"));
    EXPECT_EQ(SectionErrorOf<MainLayers>(Replaced(mainLayersText, "35.5", "35,5"), Counted(2)),
              ImportErrorText(11, "Error parsing argument: 3", title,
                              "         2         3      20.0      35,5      16.0      28.0     900.0    1500.0"
                              "       1.2       0.8      0.02"));
    EXPECT_EQ(SectionErrorOf<MainLayers>(Replaced(mainLayersText, "       0.8      0.02", "       0.8"), Counted(2)),
              ImportErrorText(11, "Error parsing argument: 10", title,
                              "         2         3      20.0      35.5      16.0      28.0     900.0    1500.0"
                              "       1.2       0.8"));
}

}  // namespace
