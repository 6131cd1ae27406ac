// The cases of the format, kept as data in tests/cases, each text read as
// `terrix check` reads a file (a stream of profiles, the units of each
// deduced from its control section):
// - import-errors/NAME.terrix gives the whole error of NAME.error, with LF,
//   CR LF and lone CR line ends alike;
// - round-trip/NAME.terrix is a profile exactly as the library writes it in
//   its units, with any line ends, and written in other units it reads back
//   as the same profile and text; each of its values counts;
// - dump/NAME.terrix, whose dump the tool tests check, is written as text
//   that reads back as the same text.
// A new case is a file or two.

#include <cstdlib>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

const char* const lineEnds[] = {"\n", "\r\n", "\r"};

std::string LineEndName(const std::string& lineEnd) {
    return lineEnd == "\n" ? "LF" : lineEnd == "\r\n" ? "CR LF" : "CR";
}

// The text with another number in place of the `number` at `column`.
std::string WithOtherNumber(const std::string& text, std::size_t column, const std::string& number) {
    const std::string other = std::strtod(number.c_str(), nullptr) == 7.0 ? "8" : "7";
    return text.substr(0, column) + other + text.substr(column + number.size());
}

}  // namespace

TEST(FormatCases, EachMalformedTextGivesItsWholeErrorWhateverItsLineEnds) {
    const std::vector<std::string> texts = CaseTexts("import-errors");
    ASSERT_FALSE(texts.empty());
    for (const std::string& path : texts) {
        std::string expected = FileText(path.substr(0, path.size() - 7) + ".error");
        if (!expected.empty() && expected.back() == '\n') expected.pop_back();
        for (const std::string lineEnd : lineEnds) {
            SCOPED_TRACE(path + " (" + LineEndName(lineEnd) + ")");
            EXPECT_EQ(ErrorOf([&] { Read(WithLineEnds(FileText(path), lineEnd)); }), expected);
        }
    }
}

// A text in memory reads as the stream that holds it: the same profiles, with
// the same lines noted, or the same whole error; with any line ends.
TEST(FormatCases, EveryTextReadsFromMemoryAsFromAStream) {
    std::vector<std::string> paths;
    for (const char* folder : {"import-errors", "round-trip", "dump", "strict", "edits"})
        for (const std::string& path : CaseTexts(folder)) paths.push_back(path);
    for (const char* example : {"north-sea-v4", "north-sea-v5", "offshore-v5", "three-profiles"})
        paths.push_back(TERRIX_EXAMPLES_DIR "/" + std::string(example) + ".terrix");
    for (const std::string& path : paths) {
        for (const std::string lineEnd : lineEnds) {
            SCOPED_TRACE(path + " (" + LineEndName(lineEnd) + ")");
            const std::string text = WithLineEnds(FileText(path), lineEnd);
            TerrixMultipleSoilProfiles fromStream;
            TerrixMultipleSoilProfiles fromText;
            std::vector<SourceLines> streamLines;
            std::vector<SourceLines> textLines;
            std::istringstream stream(text);
            const std::string streamError = ErrorOrNothing([&] { fromStream.Import(stream, streamLines); });
            EXPECT_EQ(ErrorOrNothing([&] { fromText.ImportText(text, textLines); }), streamError);
            ASSERT_EQ(fromText.GetSoilProfiles().size(), fromStream.GetSoilProfiles().size());
            for (std::size_t i = 0; i < fromText.GetSoilProfiles().size(); ++i)
                EXPECT_EQ(WriteJson(DescribeProfile(fromText.GetSoilProfiles()[i])),
                          WriteJson(DescribeProfile(fromStream.GetSoilProfiles()[i])));
            EXPECT_TRUE(textLines == streamLines);
        }
    }
}

TEST(FormatCases, EachRoundTripTextIsWrittenBackAsItStandsFromAnyUnits) {
    const std::vector<std::string> texts = CaseTexts("round-trip");
    ASSERT_FALSE(texts.empty());
    for (const std::string& path : texts) {
        SCOPED_TRACE(path);
        const std::string text = FileText(path);
        const Terrix profile = Read(text);
        for (const std::string lineEnd : lineEnds)
            EXPECT_EQ(Written(Read(WithLineEnds(text, lineEnd))), text) << LineEndName(lineEnd);
        for (const auto& [force, length] : {std::pair("N", "mm"), std::pair("lbf", "ft"), std::pair("kN", "m")}) {
            const Terrix back = Read(Written(profile, Units::Runtime::UnitSystem(force, length)));
            // A NaN equals nothing, itself included: the text written back says it.
            if (text.find("NaN") == std::string::npos) {
                EXPECT_TRUE(back.GetTerrixInputData() == profile.GetTerrixInputData()) << force << " " << length;
            }
            EXPECT_EQ(Written(back, profile.GetUnitSystem()), text) << force << " " << length;
        }
    }
}

// A profile is the values of its file: with any one value of a round-trip
// text changed (the numbers that stand before the first word of a line), the
// text reads as another profile, or not at all.
TEST(FormatCases, EveryValueOfARoundTripTextCountsInTheComparisonOfProfiles) {
    for (const std::string& path : CaseTexts("round-trip")) {
        const std::string text = FileText(path);
        const TerrixInputData original = Read(text).GetTerrixInputData();
        std::size_t lineStart = 0;
        for (int line = 1; lineStart < text.size(); ++line) {
            const std::size_t lineEnd = text.find('\n', lineStart);
            if (lineEnd == std::string::npos) break;
            for (std::size_t column = text.find_first_not_of(' ', lineStart); column < lineEnd;
                 column = text.find_first_not_of(' ', column)) {
                const std::string number = text.substr(column, text.find_first_of(" \n", column) - column);
                char* end = nullptr;
                std::strtod(number.c_str(), &end);
                if (number.empty() || *end != '\0') break;
                try {
                    EXPECT_FALSE(Read(WithOtherNumber(text, column, number)).GetTerrixInputData() == original)
                        << path << ":" << line << ": " << number << " changed reads as the same profile";
                } catch (const std::runtime_error&) {
                }
                column += number.size();
            }
            lineStart = lineEnd + 1;
        }
    }
}

// Every text of the dump cases, hand-written or not, is written as text that
// reads back as the same text, from its own units and from N and mm.
TEST(FormatCases, EachDumpCaseTextIsWrittenAsTextThatReadsBackUnchanged) {
    for (const std::string& path : CaseTexts("dump")) {
        std::istringstream stream(FileText(path));
        TerrixMultipleSoilProfiles profiles;
        profiles.Import(stream);
        for (const Terrix& profile : profiles.GetSoilProfiles()) {
            const std::string text = Written(profile);
            EXPECT_EQ(Written(Read(text)), text) << path;
            EXPECT_EQ(Written(Read(Written(profile, Units::Runtime::UnitSystem("N", "mm"))), profile.GetUnitSystem()),
                      text)
                << path;
        }
    }
}

// What a profile holds before it reads anything, and one made to start from.
TEST(FormatCases, ANewProfileIsWrittenAsTheNewProfileCases) {
    const Units::Runtime::UnitSystem kNm("kN", "m");
    EXPECT_EQ(Written(Terrix(Version::V4), kNm), CaseText("round-trip/new-profile-v4.terrix"));
    EXPECT_EQ(Written(Terrix(Version::V5), kNm), CaseText("round-trip/new-profile-v5.terrix"));
    // What terrix new writes: a profile to start from.
    EXPECT_EQ(Written(Terrix::MakeNew(Version::V5, kNm, "WF-A01"), kNm), CaseText("round-trip/started-profile-v5.terrix"));
}
