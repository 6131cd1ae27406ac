// terrix dump, checked against cases kept as data: every
// tests/cases/dump/NAME.json is an excerpt of what `terrix dump NAME.terrix`
// prints (NAME.no-split.json: `terrix dump --no-split NAME.terrix`). An
// object of an excerpt names only the members it checks; a list holds every
// element, in order, each again an excerpt; any other value is exact. A new
// case is two files.

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
    const std::vector<std::string> excerpts = TerrixExchange::Testing::CaseTexts("dump", ".json");
    ASSERT_FALSE(excerpts.empty());
    for (const fs::path excerpt : excerpts) {
        SCOPED_TRACE(excerpt.filename().string());
        const fs::path name = excerpt.stem();
        const std::string text = (excerpt.parent_path() / name.stem()).string() + ".terrix";
        const ToolRun run = name.extension() == ".no-split" ? Run({"dump", "--no-split", text}) : Run({"dump", text});
        ASSERT_EQ(run.status, 0) << run.err;
        std::string where;
        EXPECT_TRUE(Holds(Json::parse(run.out), Json::parse(ReadFile(excerpt)), where)) << where;
    }
}

// The keys of a profile's dump in order, one line per object: the
// profile's, each section's and its first record's, the parameters' and the
// first layer's.
std::string KeyOutline(const Json& profile) {
    const auto line = [](const std::string& name, const Json& object) {
        std::string text = name + ":";
        for (const std::string& key : KeysOf(object)) text += " " + key + ",";
        return text + "\n";
    };
    std::string outline = line("profile", profile);
    for (const auto& [title, section] : profile["sections"].items()) {
        outline += line(title, section);
        if (section.contains("records") && !section["records"].empty())
            outline += line(title + " record", section["records"][0]);
    }
    return outline + line("parameters", profile["parameters"]) + line("layer", profile["layers"][0]);
}

// Only the sections the file holds, in file order, keyed by their titles; in
// each the file's names in the order of its lines, a record's keys the
// titles of its table's header; the answers in the order of their getters.
// So is each profile of a stream.
TEST_F(DumpCasesTest, EveryObjectHasItsKeysInOrder) {
    for (const std::string name : {"every-section-v4", "every-section-v5", "main-layers-without-ak-v5"}) {
        const ToolRun run = Run({"dump", std::string(TERRIX_TEST_CASES_DIR) + "/round-trip/" + name + ".terrix"});
        EXPECT_EQ(KeyOutline(Json::parse(run.out)["profiles"][0]), TestData("expected/tool-dump-keys-" + name + ".txt"));
    }
    const Json stream = Json::parse(Run({"dump", ExamplePath("three-profiles.terrix")}).out);
    for (const Json& profile : stream["profiles"])
        EXPECT_EQ(KeysOf(profile), (Keys{"version", "revision", "name", "header", "encoding", "units", "sections",
                                         "parameters", "layers"}));
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
