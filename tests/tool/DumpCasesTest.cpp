// terrix dump, checked against cases kept as data: every
// tests/cases/dump/NAME.json is an excerpt of what `terrix dump NAME.terrix`
// prints (NAME.no-split.json: `terrix dump --no-split NAME.terrix`). An
// object of an excerpt names only the members it checks; a list holds every
// element, in order, each again an excerpt; any other value is exact. A new
// case is two files.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolTestSupport.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using Keys = std::vector<std::string>;
using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::LinesOf;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::TestData;
using TerrixToolTesting::ToolRun;

using DumpCasesTest = TerrixToolTesting::ToolTest;

// True when `actual` holds the excerpt `expected`; else `where` tells where
// it does not.
bool Holds(const Json& actual, const Json& expected, std::string& where) {
    if (!expected.is_structured() && actual == expected) return true;
    if (expected.is_array() && actual.is_array() && actual.size() != expected.size()) {
        where += ": " + std::to_string(actual.size()) + " elements, not " + std::to_string(expected.size());
        return false;
    }
    if (!expected.is_structured() || actual.type() != expected.type()) {
        where += ": " + actual.dump().substr(0, 300) + ", not " + expected.dump().substr(0, 300);
        return false;
    }
    for (const auto& member : expected.items()) {
        where += "/" + member.key();
        if (expected.is_object() && !actual.contains(member.key())) {
            where += ": missing";
            return false;
        }
        const Json& part = expected.is_array() ? actual.at(std::stoul(member.key())) : actual.at(member.key());
        if (!Holds(part, member.value(), where)) return false;
        where.erase(where.rfind('/'));
    }
    return true;
}

Keys KeysOf(const Json& object) {
    Keys keys;
    for (auto member = object.begin(); member != object.end(); ++member) keys.push_back(member.key());
    return keys;
}

}  // namespace

TEST_F(DumpCasesTest, EachTextDumpsWhatItsExcerptSays) {
    std::vector<fs::path> excerpts;
    for (const auto& entry : fs::directory_iterator(fs::path(TERRIX_TEST_CASES_DIR) / "dump"))
        if (entry.path().extension() == ".json") excerpts.push_back(entry.path());
    std::sort(excerpts.begin(), excerpts.end());
    ASSERT_FALSE(excerpts.empty());
    for (const fs::path& excerpt : excerpts) {
        SCOPED_TRACE(excerpt.filename().string());
        const fs::path name = excerpt.stem();
        const std::string text = (excerpt.parent_path() / name.stem()).string() + ".terrix";
        const ToolRun run = name.extension() == ".no-split" ? Run({"dump", "--no-split", text}) : Run({"dump", text});
        ASSERT_EQ(run.status, 0) << run.err;
        std::string where;
        EXPECT_TRUE(Holds(Json::parse(run.out), Json::parse(ReadFile(excerpt)), where)) << where;
    }
}

// Only the sections the file holds, in file order, keyed by their titles,
// and in each section the file's names in the order of its lines: version 4
// with its soil types, layer divisions and the optional M-theta, BS-Y and
// BM-theta curves; version 5 with its main layers and, without NUMDM, NUMBS
// and NUMBM, none of those curves. A table without AK has no AK key.
TEST_F(DumpCasesTest, SectionsAndTheirMembersStandInFileOrder) {
    const auto dump = [this](const std::string& path) {
        const ToolRun run = Run({"dump", path});
        EXPECT_EQ(run.status, 0) << run.err;
        return Json::parse(run.out)["profiles"];
    };
    const std::string axial = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";
    const Json v4 = dump(ExamplePath("north-sea-v4.terrix"))[0]["sections"];
    EXPECT_EQ(KeysOf(v4), LinesOf(TestData("expected/tool-dump-section-titles-north-sea-v4.txt")));
    EXPECT_EQ(KeysOf(v4[axial]), (Keys{"ZONINF", "RFTZ", "records"}));
    EXPECT_EQ(KeysOf(v4["MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION"]["records"][0]),
              (Keys{"LAY", "DIAM", "NUMPNT", "M-VALUES", "THETA-VALUES"}));
    const Json v5 = dump(ExamplePath("offshore-v5.terrix"))[0]["sections"];
    EXPECT_EQ(KeysOf(v5), LinesOf(TestData("expected/tool-dump-section-titles-offshore-v5.txt")));
    EXPECT_EQ(KeysOf(v5[axial]), (Keys{"DIAMP", "WALL", "ZTIP", "MATPIL", "records"}));
    EXPECT_EQ(KeysOf(v5["CONTROL SECTION"]), (Keys{"profileName", "CONFRC", "CONLTH", "NUMLAYM", "NUMDSP", "GAMMAW",
                                                   "ATMPRS", "ZCYCL", "SUSTIF", "JPRINT", "JECHO", "NUMDM", "NUMBS",
                                                   "NUMBM"}));
    const Json withoutAK = dump(std::string(TERRIX_TEST_CASES_DIR) + "/round-trip/main-layers-without-ak-v5.terrix")[0];
    EXPECT_EQ(KeysOf(withoutAK["sections"]["SOIL MAIN LAYERS AND PROPERTIES SECTION"]["records"][0]),
              (Keys{"MAIN LAYER", "ZBOTM", "GAMTOT", "CPTTOP", "CPTBOT", "PHI", "DR", "SUTOP", "SUBOT", "IP", "EPSC",
                    "API-J"}));
    for (const Json& profile : dump(ExamplePath("three-profiles.terrix")))
        EXPECT_EQ(KeysOf(profile), (Keys{"version", "name", "header", "units", "sections", "parameters", "layers"}));
}

// A list of plain values stands on one line: a pair of a map, the factors
// of a row.
TEST_F(DumpCasesTest, AListOfPlainValuesStandsOnOneLine) {
    const ToolRun run = Run({"dump", ExamplePath("north-sea-v5.terrix")});
    EXPECT_NE(run.out.find("          \"SUz\": [\n"
                           "            [5, 20],\n"
                           "            [16, 70]\n"
                           "          ],\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("                \"factors\": [0.9, 1, 0, 1, 1, 1]\n"), std::string::npos);
}
