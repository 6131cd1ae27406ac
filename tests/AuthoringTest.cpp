// Profiles made and edited by a host, and written back:
// - the JSON of every profile reads back as the same profile;
// - tests/cases/edits/NAME.terrix edited by NAME.patch (a JSON Patch on its
//   dump, its lists taken as they are and the counts then set from them) is
//   written over its own text
//   as NAME.expected: only the lines that hold what changed are new;
// - any one value changed in a file with comments changes its line alone.

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/archive/ProfileComparison.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

TerrixMultipleSoilProfiles ReadAll(const std::string& text) {
    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    return profiles;
}

// Every TERRIX text of the cases and the examples that reads with its units
// deduced.
std::vector<std::string> TextsThatRead() {
    std::vector<std::string> paths;
    for (const char* folder : {"dump", "round-trip", "strict", "edits"})
        for (const std::string& path : CaseTexts(folder)) paths.push_back(path);
    for (const char* example : {"north-sea-v4", "north-sea-v5", "offshore-v5", "three-profiles"})
        paths.push_back(TERRIX_EXAMPLES_DIR "/" + std::string(example) + ".terrix");
    std::vector<std::string> read;
    for (const std::string& path : paths) {
        try {
            ReadAll(FileText(path));
            read.push_back(path);
        } catch (const std::runtime_error&) {
        }
    }
    return read;
}

TerrixMultipleSoilProfiles FromJson(const Json& dump) {
    TerrixMultipleSoilProfiles profiles;
    profiles.ImportJson(WriteJson(dump));
    return profiles;
}

// The profiles written over `original`; `kept` says whether line by line.
std::string WrittenOver(TerrixMultipleSoilProfiles profiles, const std::string& original, bool& kept) {
    std::ostringstream text;
    kept = profiles.ExportKeepingLines(text, original);
    return text.str();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// Another value of the same kind, or null for one that is no number.
Json Changed(const Json& value) {
    if (value.is_number_integer()) return value.get<long long>() + 1;
    if (value.is_number_float()) return std::isfinite(value.get<double>()) ? value.get<double>() * 2.0 + 1.0 : 1.0;
    return nullptr;
}

// The number of lines in which two texts of as many lines differ.
std::size_t LinesThatDiffer(const std::string& a, const std::string& b) {
    const std::vector<std::string> one = Lines(a), other = Lines(b);
    if (one.size() != other.size()) return static_cast<std::size_t>(-1);
    std::size_t differ = 0;
    for (std::size_t i = 0; i < one.size(); ++i) differ += one[i] != other[i];
    return differ;
}

}  // namespace

TEST(Authoring, EveryProfileReadsBackFromItsJsonAsTheSameProfile) {
    for (const std::string& path : TextsThatRead()) {
        SCOPED_TRACE(path);
        const TerrixMultipleSoilProfiles read = ReadAll(FileText(path));
        const TerrixMultipleSoilProfiles back = FromJson(DumpOf(FileText(path)));
        ASSERT_EQ(back.GetSoilProfiles().size(), read.GetSoilProfiles().size());
        for (std::size_t i = 0; i < read.GetSoilProfiles().size(); ++i) {
            const Terrix& a = read.GetSoilProfiles()[i];
            const Terrix& b = back.GetSoilProfiles()[i];
            EXPECT_TRUE(CompareProfiles(a, b).empty());
            EXPECT_EQ(a.GetRevision(), b.GetRevision());
            EXPECT_EQ(a.GetUnitSystem(), b.GetUnitSystem());
            EXPECT_EQ(Written(a), Written(b));
            EXPECT_EQ(Written(a, Units::Runtime::UnitSystem("lbf", "ft")),
                      Written(b, Units::Runtime::UnitSystem("lbf", "ft")));
        }
    }
    // One profile reads from its own object or from a dump of one; the
    // units named replace those of the JSON.
    const Json dump = DumpOf(ExampleFileText("offshore-v5.terrix"));
    Terrix alone, fromDump;
    alone.ImportJson(WriteJson(dump["profiles"][0]), "N", "mm");
    fromDump.ImportJson(WriteJson(dump));
    EXPECT_TRUE(CompareProfiles(alone, fromDump).empty());
    EXPECT_EQ(alone.GetUnitSystem(), Units::Runtime::UnitSystem("N", "mm"));
    EXPECT_EQ(ErrorOf([&] { alone.ImportJson(WriteJson(DumpOf(ExampleFileText("three-profiles.terrix")))); }),
              "profiles: expected a list of one profile, found 3 profiles");
    EXPECT_EQ(alone.GetUnitSystem(), Units::Runtime::UnitSystem("N", "mm"));
}

TEST(Authoring, EachEditIsWrittenOverItsTextChangingOnlyItsLines) {
    const std::vector<std::string> texts = CaseTexts("edits");
    ASSERT_GE(texts.size(), 6u);
    for (const std::string& path : texts) {
        SCOPED_TRACE(path);
        const std::string name = path.substr(0, path.size() - 7);
        const std::string original = FileText(path);
        // As a host edits: the lists as they come, then the counts set from them.
        TerrixMultipleSoilProfiles edited;
        const Json patched = DumpOf(original).patch(Json::parse(FileText(name + ".patch")));
        for (const Json& profile : patched["profiles"]) {
            Terrix made = ProfileFromJson(profile, "profile", nullptr, ListLengths::AsGiven);
            made.SetCountsFromTables();
            edited.AddSoilProfile(made);
        }
        bool kept = false;
        const std::string written = WrittenOver(edited, original, kept);
        EXPECT_TRUE(kept);
        EXPECT_EQ(written, FileText(name + ".expected"));
        // What is written reads as the edited profiles.
        const TerrixMultipleSoilProfiles back = ReadAll(written);
        for (std::size_t i = 0; i < back.GetSoilProfiles().size(); ++i)
            EXPECT_TRUE(CompareProfiles(back.GetSoilProfiles()[i], edited.GetSoilProfiles()[i]).empty());
    }
}

// Each parameter and each column of each record of a file with comments,
// changed alone in a program, changes its own line alone. (Changes that
// make the profile read otherwise, a count or a code, are not edits of one
// value and are passed over.)
TEST(Authoring, AnyOneValueChangedChangesItsLineAlone) {
    for (const char* name : {"dump/hand-written-v4.terrix", "dump/hand-written-v5.terrix"}) {
        const std::string original = CaseText(name);
        const Json dump = DumpOf(original);
        std::vector<Json::json_pointer> places;
        const Json::json_pointer sections("/profiles/0/sections");
        for (const auto& section : dump["profiles"][0]["sections"].items()) {
            for (const auto& member : section.value().items())
                if (member.key() != "records") places.push_back(sections / section.key() / member.key());
            if (!section.value().contains("records")) continue;
            const Json& records = section.value()["records"];
            for (std::size_t record = 0; record < records.size(); ++record)
                for (const auto& column : records[record].items())
                    places.push_back(sections / section.key() / "records" / record / column.key());
        }
        std::size_t edits = 0;
        for (const Json::json_pointer& at : places) {
            Json edited = dump;
            const Json value = Changed(edited[at]);
            if (value.is_null()) continue;
            edited[at] = value;
            TerrixMultipleSoilProfiles profiles;
            try {
                profiles = FromJson(edited);
            } catch (const JsonImportError&) {
                continue;
            }
            if (!profiles.GetSoilProfiles()[0].FindInconsistencies().empty()) continue;
            bool kept = false;
            const std::string written = WrittenOver(profiles, original, kept);
            EXPECT_EQ(LinesThatDiffer(written, original), 1u) << name << ": " << at.to_string() << "\n" << written;
            EXPECT_TRUE(kept);
            ++edits;
        }
        EXPECT_GE(edits, 60u) << name;
    }
}

// Profiles written over the text they were read from, unchanged, give it
// back byte for byte, whatever its line ends. A profile of another version
// is written whole; one that would not read back is refused with every
// disagreement.
TEST(Authoring, UnchangedProfilesGiveTheirTextBackAndOthersAreWrittenWhole) {
    for (const std::string& path : TextsThatRead()) {
        // A text with CR LF or CR line ends of its own is taken as it stands.
        const std::string text = FileText(path);
        for (const char* lineEnd : {"\n", "\r\n", "\r"}) {
            if (text.find('\r') != std::string::npos && std::string(lineEnd) != "\n") continue;
            const std::string original = WithLineEnds(text, lineEnd);
            bool kept = false;
            EXPECT_EQ(WrittenOver(ReadAll(original), original, kept), original) << path;
            EXPECT_TRUE(kept) << path;
        }
    }
    const std::string v5 = ExampleFileText("offshore-v5.terrix");
    TerrixMultipleSoilProfiles other = ReadAll(ExampleFileText("north-sea-v4.terrix"));
    bool kept = true;
    std::ostringstream whole;
    other.ExportWithOwnHeaders(whole);
    EXPECT_EQ(WrittenOver(other, v5, kept), whole.str());
    EXPECT_FALSE(kept);
    other.GetSoilProfiles()[0].GetTerrixInputData().controlSection.NUMTYP = 9;
    other.GetSoilProfiles()[0].GetTerrixInputData().loadsAtSoilSurfaceSection.distances.emplace_back(1.0);
    EXPECT_EQ(ErrorOf([&] { WrittenOver(other, v5, kept); }),
              "The profiles would not read back as they are:\n"
              "profile #0: NUMTYP is 9 but 'SOIL TYPE AND PROPERTY SECTION' holds 4 records\n"
              "profile #0: 'LOADS AT SOIL SURFACE SECTION' holds 2 point forces but 3 distances");
    EXPECT_THROW(WrittenOver(other, v5, kept), InconsistentProfilesError);
    EXPECT_EQ(other.FindInconsistencies().size(), 2u);
}

// What each value is, for a program that lays a profile out for people: the
// columns of a table without records, the optional sections, the kinds,
// dimensions, meanings and the comments the file writes.
TEST(Authoring, FieldsDescribeEveryValueOfEverySectionOfTheVersion) {
    const Terrix started = Terrix::MakeNew(Version::V5, Units::Runtime::UnitSystem("kN", "m"), "A");
    const Json fields = DescribeFields(started);
    const Json& layers = fields["SOIL MAIN LAYERS AND PROPERTIES SECTION"];
    std::vector<std::string> columns;
    for (const auto& column : layers["columns"].items()) columns.push_back(column.key());
    EXPECT_EQ(columns, (std::vector<std::string>{"MAIN LAYER", "ZBOTM", "GAMTOT", "CPTTOP", "CPTBOT", "PHI", "DR",
                                                 "SUTOP", "SUBOT", "IP", "EPSC", "API-J", "AK"}));
    EXPECT_EQ(layers["columns"]["ZBOTM"], (Json{{"kind", "number"}, {"optional", false},
                                                {"dimension", {0, 1}}, {"meaning", "converted"}}));
    EXPECT_EQ(layers["columns"]["GAMTOT"]["meaning"], "as written");
    EXPECT_EQ(layers["columns"]["GAMTOT"]["dimension"], Json::array({0, 0}));
    EXPECT_EQ(layers["columns"]["IP"]["kind"], "whole number");
    EXPECT_EQ(layers["parameters"]["layout"]["layouts"], Json::array({"with AK", "without AK"}));
    const Json& control = fields["CONTROL SECTION"]["parameters"];
    EXPECT_EQ(control["profileName"]["kind"], "text");
    EXPECT_EQ(control["profileName"]["comment"], "NAME OF THIS SOIL PROFILE, MAX 10 CHARACTERS");
    EXPECT_EQ(control["GAMMAW"]["dimension"], Json::array({1, -3}));
    EXPECT_EQ(control["NUMDM"]["optional"], true);
    EXPECT_EQ(control["NUMLAYM"]["optional"], false);
    const Json& diameters = fields["PILE DIAMETERS AND GROUP EFFECTS SECTION"]["parameters"]["diameters"];
    EXPECT_EQ(diameters["kind"], "numbers");
    EXPECT_EQ(diameters["comment"], "DIAMETERS IN INCREASING ORDER");
    EXPECT_EQ(fields["MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION"]["columns"]["P-VALUES"]["dimension"],
              Json::array({1, -2}));
    // A profile without the optional kinds of curve has their fields too.
    const Json v5 = DescribeFields(ReadAll(ExampleFileText("offshore-v5.terrix")).GetSoilProfiles()[0]);
    EXPECT_TRUE(v5.contains("MANUAL BM-THETA (BASE MOMENT) DATA SECTION"));
    EXPECT_EQ(v5.size(), fields.size());
    const Json v4 = DescribeFields(ReadAll(ExampleFileText("north-sea-v4.terrix")).GetSoilProfiles()[0]);
    EXPECT_EQ(v4["SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION"]["columns"]["G0-SOIL"]["optional"], true);
    EXPECT_EQ(v4["SOIL TYPE AND PROPERTY SECTION"]["columns"]["SU.Z=100"]["meaning"], "at level");
}
