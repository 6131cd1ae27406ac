// The JSON of terrix dump read back, as an engineer uses it: every command
// reads it wherever it reads a file, dump | convert writes what convert
// writes, and bad JSON is one error that says where. The cases of bad JSON
// are data: tests/cases/json-errors/NAME.json (the input whole) or
// NAME.patch (a JSON Patch on the dump of a file), each with NAME.error,
// the error that the library gives and the tool prints.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/document/LibraryVersion.h>

#include "ToolTestSupport.h"

namespace {

namespace fs = std::filesystem;
using TerrixExchange::Testing::JsonCaseText;
using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::ToolRun;

using JsonInputTest = TerrixToolTesting::ToolTest;

// Every TERRIX text of examples/ and tests/cases that imports.
std::vector<std::string> FilesThatImport() {
    std::vector<std::string> files;
    for (const char* folder : {TERRIX_EXAMPLES_DIR, TERRIX_TEST_CASES_DIR})
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.path().extension() == ".terrix") files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

TEST_F(JsonInputTest, DumpThenConvertWritesWhatConvertWritesInAnyUnits) {
    std::size_t checked = 0;
    for (const std::string& file : FilesThatImport()) {
        if (Run({"check", file}).status != 0) continue;
        ++checked;
        const std::string dumped = File("dumped.json", Run({"dump", file}).out);
        for (const std::vector<std::string>& to : {std::vector<std::string>{}, {"--to", "N", "mm"}, {"--to", "lbf", "ft"}}) {
            std::vector<std::string> convert = {"convert"}, convertDump = {"convert"};
            convert.insert(convert.end(), to.begin(), to.end());
            convertDump.insert(convertDump.end(), to.begin(), to.end());
            convert.push_back(file);
            convertDump.push_back("-");
            const ToolRun expected = Run(convert);
            const ToolRun fromJson = Run(convertDump, ReadFile(dumped));
            EXPECT_EQ(fromJson.status, 0) << file << fromJson.err;
            EXPECT_EQ(fromJson.out, expected.out) << file << (to.empty() ? "" : " --to " + to[1] + " " + to[2]);
        }
    }
    EXPECT_GE(checked, 40u);
}

TEST_F(JsonInputTest, EachBadJsonIsOneErrorThatSaysWhereAndNothingIsWritten) {
    std::size_t cases = 0;
    for (const auto& entry : fs::directory_iterator(TERRIX_TEST_CASES_DIR "/json-errors")) {
        const fs::path path = entry.path();
        if (path.extension() != ".json" && path.extension() != ".patch") continue;
        SCOPED_TRACE(path.filename().string());
        ++cases;
        std::string expected = ReadFile(fs::path(path).replace_extension(".error"));
        const std::string input = File("input.json", JsonCaseText(path.string()));

        TerrixExchange::TerrixMultipleSoilProfiles profiles;
        try {
            profiles.ImportJson(ReadFile(input));
            ADD_FAILURE() << "no error";
        } catch (const TerrixExchange::JsonImportError& error) {
            EXPECT_EQ(std::string(error.what()) + "\n", expected);
        }
        EXPECT_TRUE(profiles.GetSoilProfiles().empty());

        const ToolRun run = Run({"convert", input, "-o", Path("out.terrix")});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, "terrix: " + input + ": cannot import\n" + expected);
        EXPECT_FALSE(fs::exists(Path("out.terrix")));
    }
    EXPECT_GE(cases, 20u);
}

// NaN and the infinities, -0 and a header in Latin-1 come back as they were.
TEST_F(JsonInputTest, EveryCommandReadsJsonWithItsOptions) {
    const std::string v4 = ExamplePath("north-sea-v4.terrix");
    const std::string json = File("north-sea.json", Run({"dump", v4}).out);
    EXPECT_EQ(Run({"check", json}).out, json + ": OK version 4, 1 profile, units kN m\n");
    EXPECT_EQ(Run({"show", "--no-split", json}).out, Run({"show", "--no-split", v4}).out);
    EXPECT_EQ(Run({"diff", v4, json}).out, "A and B hold the same profiles\n");
    // The page's title is the file's name.
    EXPECT_EQ(Run({"report", "-", "-o", Path("from-json.html")}, ReadFile(json)).status, 0);
    EXPECT_EQ(Run({"report", "-", "-o", Path("from-text.html")}, ReadFile(v4)).status, 0);
    EXPECT_TRUE(ReadFile(Path("from-json.html")) == ReadFile(Path("from-text.html")));
    // --units names the units that the profile was read in; the values of
    // the JSON are in N and m whatever they are.
    EXPECT_EQ(Run({"convert", "--units", "N", "mm", json}).out, Run({"convert", "--to", "N", "mm", v4}).out);
    const std::string three = File("three.json", Run({"dump", ExamplePath("three-profiles.terrix")}).out);
    EXPECT_EQ(Run({"dump", "--profile", "#2", three}).out, Run({"dump", "--profile", "#2", ExamplePath("three-profiles.terrix")}).out);
    EXPECT_EQ(Run({"dump", json}).out, ReadFile(json));
}

TEST_F(JsonInputTest, NewWritesAProfileThatTheStrictCheckFindsSound) {
    for (const std::string version : {"4", "5"}) {
        for (const std::vector<std::string>& units : {std::vector<std::string>{"kN", "m"}, {"lbf", "ft"}, {"kgf", "cm"}}) {
            const ToolRun made = Run({"new", "--version", version, "--units", units[0], units[1], "-o", Path("new.terrix")});
            EXPECT_EQ(made.status, 0) << made.err;
            const ToolRun check = Run({"check", "--strict", Path("new.terrix")});
            EXPECT_EQ(check.out, Path("new.terrix") + ": OK version " + version + ", 1 profile, units " + units[0] + " " +
                                     units[1] + "\n");
        }
    }
    EXPECT_EQ(Run({"new", "--name", "WF-A01"}).out,
              ReadFile(std::string(TERRIX_TEST_CASES_DIR) + "/round-trip/started-profile-v5.terrix"));
    EXPECT_EQ(Run({"new", "--version", "4", "--name", "A"}).err, "terrix: --name: a version 4 profile has no name\n");
    EXPECT_EQ(Run({"new", "--name", "ELEVEN-LONG"}).status, 2);
    EXPECT_EQ(Run({"--version"}).out,
              std::string("terrix 1.1.0, TerrixExchange library ") + TerrixExchange::GetLibraryVersion() + "\n");
}
