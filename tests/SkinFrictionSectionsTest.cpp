#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV4.h>
#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV5.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

using LevelRecord = SkinFrictionAndTipResistanceSectionV4Record;
using MainLayerRecord = SkinFrictionAndTipResistanceSectionV5Record;

const std::string title = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";

Layer MakeLayer(std::int32_t mainLayer, double top, double bottom) {
    return Layer{mainLayer, 1, 1, Length(top), Length(bottom)};
}

LevelRecord MakeLevel(double zlev, double skinCmp, double skinTns, boost::optional<double> g0, double dsptz,
                      double sigTip, double pois, double dspqz) {
    LevelRecord record;
    record.ZLEV = Length(zlev);
    record.SKIN_CMP = skinCmp;
    record.SKIN_TNS = skinTns;
    record.G0_SOIL = g0;
    record.DSPTZ_DIAM = dsptz;
    record.SIG_TIP = sigTip;
    record.POIS = pois;
    record.DSPQZ_DIAM = dspqz;
    return record;
}

LevelRecord MakeLevel(double zlev) { return MakeLevel(zlev, 0, 0, boost::none, 0, 0, 0, 0); }

SkinFrictionAndTipResistanceSectionV4 SectionWithLevels(std::vector<double> levels) {
    SkinFrictionAndTipResistanceSectionV4 section;
    for (double level : levels) section.records.push_back(MakeLevel(level));
    return section;
}

// The range as indexes into the records: {first, last} or {end, end}.
std::pair<long, long> RangeOf(const SkinFrictionAndTipResistanceSectionV4& section, const Layer& layer) {
    const auto range = section.EqualRange(layer);
    return {range.first - section.records.begin(), range.second - section.records.begin()};
}

MainLayerRecord MakeMainLayer(int main, int method, std::vector<double> values) {
    MainLayerRecord record;
    record.MAIN_LAYER = main;
    record.CALC_METH = method;
    double* const fields[] = {&record.SKINC_TOP,  &record.SKINC_BOT, &record.SKINT_TOP,
                              &record.SKINT_BOT,  &record.SIGTIP_TOP, &record.SIGTIP_BOT,
                              &record.G0_FACT,    &record.TRES_TMAX, &record.TZZRES};
    for (std::size_t i = 0; i < values.size() && i < 9; ++i) *fields[i] = values[i];
    return record;
}

template <class Section>
Section ReadSection(const std::string& text, std::size_t count, const std::string& lengthUnit = "m") {
    Section section;
    ReadText(text, [&](Importer& importer) { section.Serialize(importer, count); }, "kN", lengthUnit);
    return section;
}

template <class Section>
std::string WriteSection(Section section, const std::string& forceUnit = "kN", const std::string& lengthUnit = "m") {
    return WriteText([&](Exporter& exporter) { section.Serialize(exporter, section.records.size()); }, forceUnit,
                     lengthUnit);
}

}  // namespace

// --- Version 4: axial data at depth levels --------------------------------

TEST(SkinFrictionSectionV4, LevelAgainstALayer) {
    const Layer layer = MakeLayer(1, 8.0, 14.0);  // middle 11
    EXPECT_TRUE(MakeLevel(10.0).IsAboveMiddleOfLayer(layer));
    EXPECT_FALSE(MakeLevel(10.0).IsBelowMiddleOfLayer(layer));
    EXPECT_TRUE(MakeLevel(12.0).IsBelowMiddleOfLayer(layer));
    EXPECT_FALSE(MakeLevel(12.0).IsAboveMiddleOfLayer(layer));
    EXPECT_FALSE(MakeLevel(11.0).IsAboveMiddleOfLayer(layer));
    EXPECT_FALSE(MakeLevel(11.0).IsBelowMiddleOfLayer(layer));

    EXPECT_TRUE(MakeLevel(8.0).IsPartOfLayer(layer));
    EXPECT_TRUE(MakeLevel(14.0).IsPartOfLayer(layer));
    EXPECT_TRUE(MakeLevel(11.0).IsPartOfLayer(layer));
    EXPECT_FALSE(MakeLevel(7.999).IsPartOfLayer(layer));
    EXPECT_FALSE(MakeLevel(14.001).IsPartOfLayer(layer));
}

TEST(SkinFrictionSectionV4, EqualRangeBracketsTheMiddleOfALayer) {
    const auto section = SectionWithLevels({0.0, 10.0, 20.0});
    // Middle 11: the levels at 10 and 20.
    EXPECT_EQ(RangeOf(section, MakeLayer(1, 8.0, 14.0)), std::make_pair(1L, 3L));
    // Middle 10: the level at 10 is neither side, so 0 to 20.
    EXPECT_EQ(RangeOf(section, MakeLayer(1, 8.0, 12.0)), std::make_pair(0L, 3L));
    // All levels above the middle: the last alone.
    EXPECT_EQ(RangeOf(section, MakeLayer(1, 30.0, 40.0)), std::make_pair(2L, 3L));
    // All levels below the middle: the first alone.
    EXPECT_EQ(RangeOf(section, MakeLayer(1, -10.0, -4.0)), std::make_pair(0L, 1L));
    // Middle 20 with nothing below: the level at 10 alone.
    EXPECT_EQ(RangeOf(section, MakeLayer(1, 18.0, 22.0)), std::make_pair(1L, 2L));

    // No levels: an empty range at the end.
    const SkinFrictionAndTipResistanceSectionV4 empty;
    const auto none = empty.EqualRange(MakeLayer(1, 0.0, 1.0));
    EXPECT_EQ(none.first, empty.records.end());
    EXPECT_EQ(none.second, empty.records.end());

    // A single level exactly at the middle is on neither side: empty.
    const auto atMiddle = SectionWithLevels({5.0});
    const auto range = atMiddle.EqualRange(MakeLayer(1, 4.0, 6.0));
    EXPECT_EQ(range.first, atMiddle.records.end());
    EXPECT_EQ(range.second, atMiddle.records.end());
}

TEST(SkinFrictionSectionV4, EqualRangeTakesTheRecordsInFileOrder) {
    // Not sorted: from the last level above the middle to the first below,
    // with whatever stands between them in the file.
    const auto section = SectionWithLevels({0.0, 10.0, 5.0, 12.0, 20.0});
    EXPECT_EQ(RangeOf(section, MakeLayer(1, 8.0, 14.0)), std::make_pair(2L, 4L));

    // Levels out of depth order: the first level below (30) stands before
    // the last above (5). The range is never reversed: it runs from the one
    // to the other, both included.
    const auto unordered = SectionWithLevels({0.0, 30.0, 10.0, 20.0, 5.0});
    EXPECT_EQ(RangeOf(unordered, MakeLayer(1, 8.0, 14.0)), std::make_pair(1L, 5L));
    const auto shuffled = SectionWithLevels({20.0, 0.0, 30.0, 10.0});
    EXPECT_EQ(RangeOf(shuffled, MakeLayer(1, 8.0, 14.0)), std::make_pair(0L, 4L));
}

namespace {

const std::string levelsText =
    "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION\n"
    "       8.0 ZONINF  (ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200\n"
    "       0.9 RFTZ    CURVE FITTING FACTOR RF FOR TZCODE = 200\n"
    "ZLEV  SKIN-CMP  SKIN-TNS  G0-SOIL  DSPTZ/DIAM   SIG-TIP  POIS  DSPQZ/DIAM\n"
    "   0.0   5.0   4.0   20000.0   0.01   1000.0   0.3   0.1\n"
    "  10.0  15.0  12.0             0.01   3000.0   0.3   0.1\n"
    "  22.5  25.5  20.0   6.0e4     0.02   5000.0  0.35  0.12\n";

}  // namespace

TEST(SkinFrictionSectionV4, ImportReadsLevelsWithOrWithoutTheShearModulus) {
    const auto section = ReadSection<SkinFrictionAndTipResistanceSectionV4>(levelsText, 3);
    EXPECT_EQ(section.ZONINF, 8.0);
    EXPECT_EQ(section.RFTZ, 0.9);
    EXPECT_EQ(section.records,
              (std::vector<LevelRecord>{MakeLevel(0.0, 5.0, 4.0, 20000.0, 0.01, 1000.0, 0.3, 0.1),
                                        MakeLevel(10.0, 15.0, 12.0, boost::none, 0.01, 3000.0, 0.3, 0.1),
                                        MakeLevel(22.5, 25.5, 20.0, 60000.0, 0.02, 5000.0, 0.35, 0.12)}));

    // Only the level is a length: in millimetres it alone changes.
    std::string crlf;
    for (char c : levelsText) crlf += c == '\n' ? std::string("\r\n") : c == ' ' ? std::string("\t") : std::string(1, c);
    const auto inMillimetres = ReadSection<SkinFrictionAndTipResistanceSectionV4>(crlf, 3, "mm");
    EXPECT_EQ(inMillimetres.records[2], MakeLevel(0.0225, 25.5, 20.0, 60000.0, 0.02, 5000.0, 0.35, 0.12));
    EXPECT_EQ(inMillimetres.ZONINF, 8.0);
}

TEST(SkinFrictionSectionV4, ExportWritesTheShearModulusOnlyWhenGiven) {
    SkinFrictionAndTipResistanceSectionV4 section;
    section.ZONINF = 8.0;
    section.RFTZ = 0.9;
    section.records = {MakeLevel(0.0, 5.0, 4.0, 20000.0, 0.01, 1000.0, 0.3, 0.1),
                       MakeLevel(10.0, 15.0, 12.0, boost::none, 0.01, 3000.0, 0.3, 0.1)};
    const std::string expected =
        "*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n"
        "       8.0 ZONINF  (ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200\n"
        "       0.9 RFTZ    CURVE FITTING FACTOR RF FOR TZCODE = 200\n"
        "ZLEV  SKIN-CMP  SKIN-TNS  G0-SOIL  DSPTZ/DIAM   SIG-TIP  POIS  DSPQZ/DIAM\n"
        "       0.0       5.0       4.0   20000.0      0.01    1000.0       0.3       0.1\n"
        "      10.0      15.0      12.0      0.01    3000.0       0.3       0.1\n";
    EXPECT_EQ(WriteSection(section), expected);
}

TEST(SkinFrictionSectionV4, RoundTripInOtherUnits) {
    auto section = ReadSection<SkinFrictionAndTipResistanceSectionV4>(levelsText, 3);
    section.records.push_back(MakeLevel(1.0 / 3.0, 0.1, 1e-12, 2.0 / 3.0, 1e15, -0.0, 0.49999999999999994, 7));
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        const std::string text = WriteSection(section, units.first, units.second);
        EXPECT_EQ(ReadSection<SkinFrictionAndTipResistanceSectionV4>(text, 4, units.second), section) << text;
    }
}

TEST(SkinFrictionSectionV4, BadInputGivesOneClearError) {
    std::string noZoninf = levelsText;
    noZoninf.replace(noZoninf.find("8.0"), 3, "x.0");
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV4>(noZoninf, 3); }),
              ImportErrorText(2, "Expected parameter 'ZONINF' not found or incorrectly defined", title,
                              "       x.0 ZONINF  (ZONE OF INFLUENCE) / (PILE RADIUS) FOR TZCODE = 200"));

    std::string noRftz = levelsText;
    noRftz.replace(noRftz.find("RFTZ"), 4, "RF  ");
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV4>(noRftz, 3); }),
              ImportErrorText(3, "Expected parameter 'RFTZ' not found or incorrectly defined", title,
                              "       0.9 RF      CURVE FITTING FACTOR RF FOR TZCODE = 200"));

    // Nine values are one too many even with the shear modulus.
    EXPECT_EQ(ImportErrorOf([&] {
                  ReadSection<SkinFrictionAndTipResistanceSectionV4>(
                      levelsText + "  30.0  1  2  3  4  5  6  7  8\n", 4);
              }),
              ImportErrorText(8, "Expected end of line of record.", title, "  30.0  1  2  3  4  5  6  7  8"));

    // More levels asked for than the file holds.
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV4>(levelsText, 4); }),
              ImportErrorText(8, "Error parsing argument: 0", title, ""));
}

// --- Version 5: axial data per main layer ---------------------------------

namespace {

const std::string mainLayersText =
    "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION\n"
    "*  Auto axial capacity calculations currently not supported by Kesta, dummy values used\n"
    "       2.5 DIAMP   Pile outside  diameter  for axial capacity calculations\n"
    "     0.065 WALL    Pile tip wall thickness for axial capacity calculations\n"
    "      45.0 ZTIP    Pile tip Z-level for axial capacity calculations\n"
    "       1.0 MATPIL  Pile wall material type : 1=steel 2=concrete\n"
    "*  Calculation methods : 0=Given values  1=API-93  2=ICP-05  3=NGI-05\n"
    "MAIN   CALC  SKINC  SKINC  SKINT  SKINT  SIGTIP SIGTIP   G0   TRES/  TZZRES\n"
    "LAYER  METH   TOP    BOT    TOP    BOT     TOP   BOT    FACT  TMAX\n"
    "  1     0     10.0   20.0   8.0    16.0   500    900    1.0   0.9   0.01\n"
    "  2     1     20.0   35.5   16.0   28.0   900   1500    1.2   0.8   0.02\n";

}  // namespace

TEST(SkinFrictionSectionV5, ImportReadsThePileAndTheMainLayers) {
    const auto section = ReadSection<SkinFrictionAndTipResistanceSectionV5>(mainLayersText, 2);
    EXPECT_EQ(section.DIAMP, Length(2.5));
    EXPECT_EQ(section.WALL, Length(0.065));
    EXPECT_EQ(section.ZTIP, Length(45.0));
    EXPECT_EQ(section.MATPIL, 1);
    EXPECT_EQ(section.records,
              (std::vector<MainLayerRecord>{MakeMainLayer(1, 0, {10.0, 20.0, 8.0, 16.0, 500, 900, 1.0, 0.9, 0.01}),
                                            MakeMainLayer(2, 1, {20.0, 35.5, 16.0, 28.0, 900, 1500, 1.2, 0.8, 0.02})}));

    // The pile's lengths are converted; the table is kept as written.
    std::string crlf;
    for (char c : mainLayersText) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const auto inMillimetres = ReadSection<SkinFrictionAndTipResistanceSectionV5>(crlf, 2, "mm");
    EXPECT_EQ(inMillimetres.DIAMP, Length(0.0025));
    EXPECT_EQ(inMillimetres.ZTIP, Length(0.045));
    EXPECT_EQ(inMillimetres.records, section.records);
}

TEST(SkinFrictionSectionV5, FindLayerTakesTheFirstRecordOfTheMainLayer) {
    SkinFrictionAndTipResistanceSectionV5 section;
    section.records = {MakeMainLayer(3, 0, {1}), MakeMainLayer(5, 0, {2}), MakeMainLayer(5, 1, {3})};
    EXPECT_EQ(section.FindLayer(MakeLayer(5, 0.0, 1.0)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(MakeLayer(3, 0.0, 1.0)), section.records.begin());
    EXPECT_EQ(section.FindLayer(MakeLayer(4, 0.0, 1.0)), section.records.end());
}

TEST(SkinFrictionSectionV5, ExportWritesThePileAndOneRowPerMainLayer) {
    SkinFrictionAndTipResistanceSectionV5 section;
    section.DIAMP = Length(2.5);
    section.WALL = Length(0.065);
    section.ZTIP = Length(45.0);
    section.MATPIL = 2;
    section.records = {MakeMainLayer(1, 3, {10.0, 20.0, 8.0, 16.0, 500, 900, 1.0, 0.9, 0.01})};
    EXPECT_EQ(WriteSection(section),
              "*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n"
              "*  Auto axial capacity calculations currently not supported by Kesta, dummy values used\n"
              "       2.5 DIAMP   Pile outside  diameter  for axial capacity calculations\n"
              "     0.065 WALL    Pile tip wall thickness for axial capacity calculations\n"
              "      45.0 ZTIP    Pile tip Z-level for axial capacity calculations\n"
              "         2 MATPIL  Pile wall material type : 1=steel 2=concrete\n"
              "*  Calculation methods : 0=Given values  1=API-93  2=ICP-05  3=NGI-05\n"
              "MAIN   CALC  SKINC  SKINC  SKINT  SKINT  SIGTIP SIGTIP   G0   TRES/  TZZRES\n"
              "LAYER  METH   TOP    BOT    TOP    BOT     TOP   BOT    FACT  TMAX\n"
              "         1         3      10.0      20.0       8.0      16.0     500.0     900.0       1.0       0.9"
              "      0.01\n");
    // In millimetres the pile's lengths change and the table does not.
    const std::string inMillimetres = WriteSection(section, "N", "mm");
    EXPECT_NE(inMillimetres.find("\n    2500.0 DIAMP   Pile outside  diameter  for axial capacity calculations\n"
                                 "      65.0 WALL    Pile tip wall thickness for axial capacity calculations\n"
                                 "   45000.0 ZTIP    Pile tip Z-level for axial capacity calculations\n"),
              std::string::npos)
        << inMillimetres;
    EXPECT_NE(inMillimetres.find("\n         1         3      10.0      20.0"), std::string::npos) << inMillimetres;
}

TEST(SkinFrictionSectionV5, RoundTripInOtherUnits) {
    auto section = ReadSection<SkinFrictionAndTipResistanceSectionV5>(mainLayersText, 2);
    section.ZTIP = Length(1.0 / 3.0);
    section.records.push_back(MakeMainLayer(3, 2, {0.1, 1e-12, 2.0 / 3.0, 1e15, -0.0, 7, 8, 9, 1e300}));
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        const std::string text = WriteSection(section, units.first, units.second);
        EXPECT_EQ(ReadSection<SkinFrictionAndTipResistanceSectionV5>(text, 3, units.second), section) << text;
    }
}

TEST(SkinFrictionSectionV5, BadInputGivesOneClearError) {
    std::string noMaterial = mainLayersText;
    noMaterial.replace(noMaterial.find("1.0 MATPIL"), 3, "one");
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV5>(noMaterial, 2); }),
              ImportErrorText(6, "Expected parameter 'MATPIL' not found or incorrectly defined", title,
                              "       one MATPIL  Pile wall material type : 1=steel 2=concrete"));

    std::string badValue = mainLayersText;
    badValue.replace(badValue.find("35.5"), 4, "35,5");
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV5>(badValue, 2); }),
              ImportErrorText(11, "Error parsing argument: 3", title,
                              "  2     1     20.0   35,5   16.0   28.0   900   1500    1.2   0.8   0.02"));

    std::string shortRow = mainLayersText;
    shortRow.replace(shortRow.find("   0.02"), 7, "");
    EXPECT_EQ(ImportErrorOf([&] { ReadSection<SkinFrictionAndTipResistanceSectionV5>(shortRow, 2); }),
              ImportErrorText(11, "Error parsing argument: 10", title,
                              "  2     1     20.0   35.5   16.0   28.0   900   1500    1.2   0.8"));
}
