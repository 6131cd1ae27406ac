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

LevelRecord MakeLevel(double zlev, double skinCmp = 0, double skinTns = 0, boost::optional<double> g0 = boost::none,
                      double dsptz = 0, double sigTip = 0, double pois = 0, double dspqz = 0) {
    return LevelRecord{Length(zlev), skinCmp, skinTns, g0, dsptz, sigTip, pois, dspqz};
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

// The range as indexes into the records of a section with these levels:
// {first, last} or {end, end}.
std::pair<long, long> RangeOf(const std::vector<double>& levels, double top, double bottom) {
    Levels section;
    for (double level : levels) section.records.push_back(MakeLevel(level));
    const auto range = section.EqualRange(LayerBetween(top, bottom));
    return {range.first - section.records.begin(), range.second - section.records.begin()};
}

TEST(SkinFrictionSectionV4, EqualRangeBracketsTheMiddleOfALayerInFileOrder) {
    const std::vector<double> levels = {0.0, 10.0, 20.0};
    EXPECT_EQ(RangeOf(levels, 8.0, 14.0), std::make_pair(1L, 3L));     // middle 11: the levels at 10 and 20
    EXPECT_EQ(RangeOf(levels, 8.0, 12.0), std::make_pair(0L, 3L));     // middle 10: 10 is neither side
    EXPECT_EQ(RangeOf(levels, 30.0, 40.0), std::make_pair(2L, 3L));    // all above the middle: the last
    EXPECT_EQ(RangeOf(levels, -10.0, -4.0), std::make_pair(0L, 1L));   // all below the middle: the first
    EXPECT_EQ(RangeOf(levels, 18.0, 22.0), std::make_pair(1L, 2L));    // middle 20, nothing below: 10 alone
    EXPECT_EQ(RangeOf({}, 0.0, 1.0), std::make_pair(0L, 0L));          // no levels: empty, at the end
    EXPECT_EQ(RangeOf({5.0}, 4.0, 6.0), std::make_pair(1L, 1L));       // one level at the middle: the same
    // Not sorted: from the last level above the middle to the first below,
    // with whatever stands between them in the file. Out of depth order the
    // first level below may stand before the last above: no range.
    EXPECT_EQ(RangeOf({0.0, 10.0, 5.0, 12.0, 20.0}, 8.0, 14.0), std::make_pair(2L, 4L));
    EXPECT_EQ(RangeOf({0.0, 30.0, 10.0, 20.0, 5.0}, 8.0, 14.0), std::make_pair(5L, 5L));
    EXPECT_EQ(RangeOf({20.0, 0.0, 30.0, 10.0}, 8.0, 14.0), std::make_pair(4L, 4L));
}

// Three levels, the second without the soil shear modulus, as the exporter
// writes them: seven columns where G0-SOIL is not given.
const std::string levelsText = TestData("skin-friction-v4-levels.terrix");
const Levels levels{8.0, 0.9,
                    {MakeLevel(0.0, 5.0, 4.0, 20000.0, 0.01, 1000.0, 0.3, 0.1),
                     MakeLevel(10.0, 15.0, 12.0, boost::none, 0.01, 3000.0, 0.3, 0.1),
                     MakeLevel(22.5, 25.5, 20.0, 60000.0, 0.02, 5000.0, 0.35, 0.12)}};

TEST(SkinFrictionSectionV4, LevelsWithOrWithoutTheShearModulus) {
    EXPECT_EQ(WriteSection(levels, Counted(3)), levelsText);
    EXPECT_EQ(ReadSection<Levels>(levelsText, Counted(3)), levels);

    // Only the level is a length: in millimetres it alone changes. Tabs for
    // blanks and CRLF line ends read alike.
    std::string tabbed = WithLineEnds(levelsText, "\r\n");
    for (char& c : tabbed) c = c == ' ' ? '\t' : c;
    auto inMillimetres = levels;
    inMillimetres.records[1].ZLEV = Length(0.01);
    inMillimetres.records[2].ZLEV = Length(0.0225);
    EXPECT_EQ(ReadSection<Levels>(tabbed, Counted(3), "kN", "mm"), inMillimetres);

    auto awkward = levels;
    awkward.records.push_back(MakeLevel(1.0 / 3.0, 0.1, 1e-12, 2.0 / 3.0, 1e15, -0.0, 0.49999999999999994, 7));
    ExpectRoundTrips(awkward, Counted(4));
}

// --- Version 5: axial data per main layer ---------------------------------

const std::string mainLayersText = TestData("skin-friction-v5-main-layers.terrix");
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
    EXPECT_EQ(ReadSection<MainLayers>(WithLineEnds(mainLayersText, "\r\n"), Counted(2), "kN", "mm"), inMillimetres);

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

}  // namespace
