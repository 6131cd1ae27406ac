// What an editor asks of the library: what stands at a line and column of a
// text, the text laid out as the exporter writes it, and the edits that mend
// what the strict check finds.

#include <gtest/gtest.h>

#include <TerrixExchange/queries/SoundnessCheck.h>

#include "TestSupport.h"

namespace TerrixExchange { namespace Testing { namespace {

struct Read {
    TerrixMultipleSoilProfiles profiles;
    std::vector<SourceLines> lines;
    std::vector<SourceMap> maps;
};

// Reads the text in memory, as an editor's buffer is read; a stream that
// holds it notes every value at the same place.
void ReadInto(Read& read, const std::string& text) {
    read.profiles.ImportText(text, read.lines, read.maps);
    Read fromStream;
    std::istringstream stream(text);
    fromStream.profiles.Import(stream, fromStream.lines, fromStream.maps);
    ASSERT_EQ(fromStream.maps.size(), read.maps.size());
    for (std::size_t i = 0; i < read.maps.size(); ++i) {
        const std::vector<SourceMap::Value>& values = read.maps[i].GetValues();
        const std::vector<SourceMap::Value>& streamValues = fromStream.maps[i].GetValues();
        ASSERT_EQ(streamValues.size(), values.size());
        for (std::size_t j = 0; j < values.size(); ++j)
            EXPECT_TRUE(streamValues[j].line == values[j].line && streamValues[j].firstColumn == values[j].firstColumn &&
                        streamValues[j].endColumn == values[j].endColumn && streamValues[j].name == values[j].name);
    }
}

TEST(SourceMap, TellsEachValueByItsLineAndColumns) {
    Read read;
    ReadInto(read, ExampleFileText("offshore-v5.terrix"));
    ASSERT_EQ(read.maps.size(), 1u);
    const SourceMap& map = read.maps[0];
    // "   10.0518 GAMMAW ...": the number from column 3 up to column 10.
    const SourceMap::Value* gammaw = map.FindValue(12, 3);
    ASSERT_NE(gammaw, nullptr);
    EXPECT_EQ(map.GetName(gammaw->section), "CONTROL SECTION");
    EXPECT_EQ(map.GetName(gammaw->name), "GAMMAW");
    EXPECT_EQ(gammaw->record, SourceMap::none);
    EXPECT_EQ(gammaw->firstColumn, 3u);
    EXPECT_EQ(gammaw->endColumn, 10u);
    EXPECT_EQ(gammaw->number, 10051.8);
    EXPECT_EQ(gammaw->dimension, Units::Runtime::ForcePerUnitVolumePhenomenon::dimension);
    EXPECT_EQ(map.FindValue(12, 9), gammaw);
    EXPECT_EQ(map.FindValue(12, 10), nullptr);  // the blank after it
    EXPECT_EQ(map.FindValue(12, 2), nullptr);
    EXPECT_EQ(map.FindValue(12, 12), nullptr);  // the parameter's name

    // The second value of the pile diameters, and a column of a record's
    // second line.
    const SourceMap::Value* diameter = map.FindValue(27, 18);
    ASSERT_NE(diameter, nullptr);
    EXPECT_EQ(map.GetName(diameter->name), "diameters");
    EXPECT_EQ(diameter->element, 1u);
    EXPECT_EQ(diameter->number, 8.0);
    const SourceMap::Value* ip = map.FindValue(58, 19);
    ASSERT_NE(ip, nullptr);
    EXPECT_EQ(map.GetName(ip->name), "IP");
    EXPECT_EQ(ip->record, 1u);
    EXPECT_EQ(ip->kind, SourceMap::ValueKind::WholeNumber);
    EXPECT_EQ(map.FindValue(55, 27)->meaning, ColumnMeaning::KeptAsWritten);  // GAMTOT

    const SourceMap::Value* name = map.FindValue(7, 4);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->kind, SourceMap::ValueKind::Text);
    EXPECT_EQ(name->firstColumn, 1u);
    EXPECT_EQ(name->endColumn, 10u);  // 'NS-MP07' with its quotes

    EXPECT_EQ(map.FindPiece(6)->kind, SourceMap::Kind::Title);
    EXPECT_EQ(map.FindPiece(63), nullptr);  // a comment line
}

TEST(SourceMap, NotesEachValueOnceWhereATableIsReadTwice) {
    // The main layer table without AK is tried with AK first; what that
    // attempt noted goes with it.
    Read read;
    ReadInto(read, CaseText("round-trip/main-layers-without-ak-v5.terrix"));
    const std::vector<SourceMap::Value>& values = read.maps[0].GetValues();
    ASSERT_FALSE(values.empty());
    for (std::size_t i = 1; i < values.size(); ++i)
        EXPECT_TRUE(values[i - 1].line < values[i].line ||
                    (values[i - 1].line == values[i].line && values[i - 1].endColumn <= values[i].firstColumn))
            << "line " << values[i].line;
}

TEST(SourceMap, ValuesAreNotedOnlyWhereAsked) {
    std::vector<SourceLines> lines;
    TerrixMultipleSoilProfiles profiles;
    const std::string text = ExampleFileText("offshore-v5.terrix");
    std::istringstream stream(text);
    profiles.Import(stream, lines);
    Read read;
    ReadInto(read, text);
    EXPECT_GT(read.maps[0].GetValues().size(), 100u);
    EXPECT_EQ(profiles.GetSoilProfiles()[0].GetTerrixInputData().controlSection.GAMMAW,
              read.profiles.GetSoilProfiles()[0].GetTerrixInputData().controlSection.GAMMAW);
}

TEST(KeptLines, RealigningRewritesOnlyTheLinesLaidOutOtherwise) {
    const std::string original = ExampleFileText("north-sea-v4.terrix");
    std::string misaligned = original;
    const std::string row = "         2      17.5       0.0      12.0     172.0      0.02       1.5       0.5\n";
    misaligned.replace(misaligned.find(row), row.size(), "2 17.5 0 12.0 1.72e2 0.02 1.5 .5\n");
    Read read;
    ReadInto(read, misaligned);
    std::vector<LineEdit> edits;
    EXPECT_TRUE(read.profiles.EditKeepingLines(misaligned, edits, LinesKept::AsExported));
    ASSERT_EQ(edits.size(), 1u);
    EXPECT_EQ(edits[0].firstLine, 62u);
    EXPECT_EQ(edits[0].lineCount, 1u);
    EXPECT_EQ(edits[0].text, row);
    EXPECT_EQ(ApplyLineEdits(misaligned, edits), original);

    // Kept unchanged, nothing is to be done.
    EXPECT_TRUE(read.profiles.EditKeepingLines(misaligned, edits));
    EXPECT_TRUE(edits.empty());
}

TEST(Mending, ACountIsSetAndAMissingModificationRowAdded) {
    for (const char* name : {"strict/count-disagrees-with-its-table.terrix",
                             "strict/modifications-leave-a-layer-uncovered.terrix"}) {
        const std::string text = CaseText(name);
        Read read;
        ReadInto(read, text);
        Terrix& profile = read.profiles.GetSoilProfiles()[0];
        std::vector<SoundnessFinding> findings = FindUnsoundValues(profile, read.lines[0]);
        ASSERT_FALSE(findings.empty()) << name;
        for (const SoundnessFinding& finding : findings) {
            EXPECT_NE(finding.mending.kind, Mending::Kind::None) << finding.text;
            EXPECT_TRUE(Mend(profile, finding.mending)) << finding.text;
        }
        EXPECT_TRUE(FindUnsoundValues(profile, read.lines[0]).empty()) << name;
    }
    Read read;
    ReadInto(read, CaseText("strict/count-disagrees-with-its-table.terrix"));
    const SoundnessFinding finding = FindUnsoundValues(read.profiles.GetSoilProfiles()[0], read.lines[0]).at(0);
    EXPECT_EQ(finding.mending.name, "NUMLAY");
    EXPECT_EQ(finding.mending.value, 10);
    // Nothing to mend, nothing changed.
    const Mending none{Mending::Kind::None, "", 0, 0, 0};
    EXPECT_FALSE(Mend(read.profiles.GetSoilProfiles()[0], none));
}

}}}  // namespace TerrixExchange::Testing
