// The terrix tool as an engineer runs it: check, convert and dump of whole
// files, their errors and their exit statuses.

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolTestSupport.h"

namespace {

using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::TestData;
using TerrixToolTesting::ToolRun;
using TerrixToolTesting::WithoutEndLine;

const std::string examplePath = ExamplePath("offshore-v5.terrix");

// A version 5 profile "SOUTH-02" in kN and m, as the library writes it,
// with a few control values whose JSON text is worth a look: CONFRC
// 0.1 + 0.2 (0.30000000000000004, all 17 digits needed), GAMMAW 9.81,
// ZCYCL -12.345, SUSTIF NaN and NUMBS 0 without NUMDM and NUMBM.
const std::string south = ReadFile(std::string(TERRIX_TEST_CASES_DIR) + "/dump/south-02.terrix");

// A stream of the offshore example and `next`, the marker line between.
std::string TwoProfiles(const std::string& next) {
    return WithoutEndLine(ReadFile(examplePath)) + "\n### New soil profile\n" + next;
}

using TerrixToolTest = TerrixToolTesting::ToolTest;

TEST_F(TerrixToolTest, CheckPrintsOkPerFileAndGoesOnAfterAFileThatCannotBeRead) {
    const std::string missing = Path("missing.txt");
    // A directory opens, but its reading fails: that failure is told, not
    // the import error that the missing text would give.
    const std::string directory = TERRIX_TEST_CASES_DIR;
    const ToolRun run = Run({"check", examplePath, missing, directory, "-"}, ReadFile(examplePath));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, examplePath + ": OK version 5, 1 profile, units kN m\n-: OK version 5, 1 profile, units kN m\n");
    EXPECT_EQ(run.err, "terrix: " + missing + ": cannot read\nNo such file or directory\nterrix: " + directory +
                           ": cannot read\nIs a directory\n");

    // Each profile of a stream is deduced on its own; differing versions and
    // units are listed once each, in file order.
    const std::string inMillimetres = Run({"convert", "--to", "N", "mm", ExamplePath("north-sea-v4.terrix")}).out;
    const std::string mixed = File("mixed.txt", TwoProfiles(inMillimetres));
    const ToolRun both = Run({"check", mixed});
    EXPECT_EQ(both.status, 0) << both.err;
    EXPECT_EQ(both.out, mixed + ": OK versions 5, 4, 2 profiles, units kN m, N mm\n");
}

TEST_F(TerrixToolTest, CheckOfAMisspeltParameterGivesTheLibrarysFourLineError) {
    const std::string file = std::string(TERRIX_TEST_CASES_DIR) + "/import-errors/misspelt-parameter-name";
    const ToolRun run = Run({"check", file + ".terrix"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "terrix: " + file + ".terrix: cannot import\n" + ReadFile(file + ".error") + "\n");
}

TEST_F(TerrixToolTest, UnitsThatCannotBeDeducedAreAskedFor) {
    const std::string file =
        File("odd-water.txt", Replaced(ReadFile(examplePath), "   10.0518 GAMMAW", "       5.0 GAMMAW"));
    const ToolRun deduced = Run({"check", file});
    EXPECT_EQ(deduced.status, 1);
    EXPECT_EQ(deduced.err.rfind("terrix: " + file + ": cannot import\nUnable to deduce units\n", 0), 0u) << deduced.err;
    EXPECT_NE(deduced.err.find("--units FORCE LENGTH"), std::string::npos) << deduced.err;

    const ToolRun given = Run({"check", "--units", "kN", "m", file});
    EXPECT_EQ(given.status, 0) << given.err;
    EXPECT_EQ(given.out, file + ": OK version 5, 1 profile, units kN m\n");
    // Every command reads the file in the units given.
    EXPECT_EQ(Run({"convert", "--units", "kN", "m", file}).out, ReadFile(file));
    EXPECT_NE(Run({"show", "--units", "kN", "m", file}).out.find("values in kN and m"), std::string::npos);
    const nlohmann::json inMillimetres = nlohmann::json::parse(Run({"dump", "--units", "N", "mm", file}).out);
    EXPECT_EQ(inMillimetres["profiles"][0]["parameters"]["LowestLevelWithCyclicPY"], 0.012);  // ZCYCL 12.0
}

TEST_F(TerrixToolTest, WrongUsageExits2AndUnknownUnitNamesExit1) {
    const std::vector<std::vector<std::string>> usages = {
        {},
        {"frobnicate", examplePath},
        {"check"},
        {"check", "--units", "kN"},
        {"check", "--colour", examplePath},
        {"dump", examplePath, examplePath},
        {"dump", "--profile", "#x", examplePath},
        {"dump", "--profile", "#1", examplePath},
        {"convert", "--profile", "NO-SUCH", examplePath},
        {"convert", "--to", "N", examplePath},
    };
    for (const std::vector<std::string>& usage : usages) {
        std::string line;
        for (const std::string& word : usage) line += " " + word;
        const ToolRun run = Run(usage);
        EXPECT_EQ(run.status, 2) << "terrix" << line << "\n" << run.err;
        EXPECT_EQ(run.err.rfind("terrix: ", 0), 0u) << "terrix" << line << "\n" << run.err;
        EXPECT_EQ(run.out, "") << "terrix" << line;
    }
    EXPECT_EQ(Run({"dump", "--profile", "#1", examplePath}).err,
              "terrix: --profile #1: the file holds 1 profile (#0 to #0)\n");

    // A well formed command line with a name that is no unit.
    const ToolRun units = Run({"check", "--units", "kNN", "m", examplePath});
    EXPECT_EQ(units.status, 1);
    EXPECT_NE(units.err.find("--units kNN m: Unknown force unit: 'kNN'"), std::string::npos) << units.err;
    const ToolRun to = Run({"convert", "--to", "N", "furlong", examplePath});
    EXPECT_EQ(to.status, 1);
    EXPECT_EQ(to.out, "");
    EXPECT_NE(to.err.find("--to N furlong: Unknown length unit: 'furlong'"), std::string::npos) << to.err;

    // --help documents the choices.
    const ToolRun help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* text : {"check", "show", "dump", "convert", "Unable to deduce units", "--units", "#INDEX",
                             "shortest", "\"NaN\"", "Exit status", "lsp", "terrix.units"})
        EXPECT_NE(help.out.find(text), std::string::npos) << text;
    EXPECT_NE(Run({"convert", "--help"}).out.find("--no-end-line"), std::string::npos);
}

TEST_F(TerrixToolTest, ConvertWritesTheFileBackAsItWasAndNothingWhenItDoesNotImport) {
    const ToolRun run = Run({"convert", examplePath});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, ReadFile(examplePath));
    // A file saved with old Mac line ends (a lone CR) is written back with
    // line feeds, the same text.
    const std::string mac = TerrixExchange::Testing::WithLineEnds(ReadFile(examplePath), "\r");
    EXPECT_EQ(Run({"convert", "-"}, mac).out, ReadFile(examplePath));

    // Every profile keeps its own header lines; the marker stands between two.
    const std::string two = TwoProfiles(south);
    EXPECT_EQ(Run({"convert", "-"}, two).out, two);
    const ToolRun second =
        Run({"convert", "--profile", "SOUTH-02", "--no-end-line", "-o", Path("south.txt"), "-"}, two);
    EXPECT_EQ(second.status, 0) << second.err;
    EXPECT_EQ(second.out, "");
    EXPECT_EQ(ReadFile(Path("south.txt")), WithoutEndLine(south));
    EXPECT_EQ(Run({"convert", "--profile", "#0", "-"}, two).out, ReadFile(examplePath));
    // Of two profiles of one name, --profile NAME takes the first.
    const std::string twins = TwoProfiles(Replaced(ReadFile(examplePath), "Monopile MP-07", "Monopile MP-07, again"));
    EXPECT_EQ(Run({"convert", "--profile", "NS-MP07", "-"}, twins).out, ReadFile(examplePath));

    const ToolRun broken = Run({"convert", "-o", Path("never.txt"), "-"}, "TERRIX\nnot a profile\n");
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.err.rfind("terrix: -: cannot import\nImport error in line ", 0), 0u) << broken.err;
    EXPECT_FALSE(std::filesystem::exists(Path("never.txt")));
}

TEST_F(TerrixToolTest, ConvertToOtherUnitsThenCheckAndDumpRoundTrip) {
    const std::string converted = Path("converted.txt");
    EXPECT_EQ(Run({"convert", "--to", "N", "mm", "-o", converted, examplePath}).status, 0);
    EXPECT_EQ(Run({"check", converted}).out, converted + ": OK version 5, 1 profile, units N mm\n");

    // The same values, whatever the units of the file.
    const nlohmann::json original = nlohmann::json::parse(Run({"dump", examplePath}).out);
    nlohmann::json back = nlohmann::json::parse(Run({"dump", converted}).out);
    EXPECT_EQ(back["profiles"][0]["units"], nlohmann::json({{"force", "N"}, {"length", "mm"}}));
    back["profiles"][0]["units"] = original["profiles"][0]["units"];
    EXPECT_EQ(back, original);
    // And back to kN and m: the text of the example again.
    EXPECT_EQ(Run({"convert", "--to", "kN", "m", converted}).out, ReadFile(examplePath));
}

// The values themselves the dump cases show.
TEST_F(TerrixToolTest, DumpWritesNumbersInTheirShortestTextAndOneProfileOfAStream) {
    const ToolRun run = Run({"dump", File("south.txt", south)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    // Numbers in their shortest exact text.
    EXPECT_NE(run.out.find("\"CONFRC\": 0.30000000000000004,"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\"GAMMAW\": 9810,"), std::string::npos) << run.out;

    // --profile picks one profile of a stream, -o names the output file.
    const std::string two = TwoProfiles(south);
    const ToolRun byName = Run({"dump", "--profile", "SOUTH-02", "-o", Path("south.json"), "-"}, two);
    EXPECT_EQ(byName.status, 0);
    EXPECT_EQ(byName.out, "");
    EXPECT_EQ(ReadFile(Path("south.json")), run.out);
    const nlohmann::json first = nlohmann::json::parse(Run({"dump", "--profile", "#0", "-"}, two).out);
    ASSERT_EQ(first["profiles"].size(), 1u);
    EXPECT_EQ(first["profiles"][0]["name"], "NS-MP07");
}

}  // namespace

TEST_F(TerrixToolTest, HostileFilesGiveWholeBoundedErrorsAndNeverSplitAbsurdDivisions) {
    // A NUL byte is shown, not taken for the end of the message; a line of
    // 5 MB is cut after 200 characters with a note of its length.
    EXPECT_EQ(Run({"check", "-"}, std::string("TER\0RIX\n", 8)).err,
              "terrix: -: cannot import\nImport error in line 1:\nUnable to find section\n"
              "While importing section: 'TERRIX'\nFound: 'TER\\x00RIX'\n");
    const std::string longLine(5 << 20, 'X');
    EXPECT_EQ(Run({"check", "-"}, "TERRIX\nheader\n\n" + longLine + "\tY\n").err,
              "terrix: -: cannot import\nImport error in line 4:\nUnable to find section\n"
              "While importing section: 'CONTROL SECTION'\nFound: '" + longLine.substr(0, 200) +
                  "...' (cut after 200 of the line's 5242882 characters)\n");

    // A division written backwards, and divisions covering more numbered
    // layers than a profile can have, import; check names them at their
    // lines, show and dump give the layers as that error and all else.
    const std::string v4 = ReadFile(ExamplePath("north-sea-v4.terrix"));
    const std::string firstDivision = "         1         2         1       6.0";
    const std::string backwards = File("backwards.txt", Replaced(Replaced(v4, "        10 NUMLAY", "         8 NUMLAY"),
                                                                 firstDivision, "         2         1         1       6.0"));
    const std::string absurd = File("absurd.txt", Replaced(Replaced(v4, "        10 NUMLAY", "   2000008 NUMLAY"),
                                                           firstDivision, "         1   2000000         1       6.0"));
    const ToolRun check = Run({"check", backwards, absurd});
    EXPECT_EQ(check.status, 1);
    const std::string backwardsError = "line 88: layer division 2 1 runs backwards: LAYER2 is less than LAYER1";
    const std::string absurdError =
        "line 88: the layer divisions cover 2000000 numbered layers up to this one, more than the 1000000 a profile "
        "can have";
    EXPECT_EQ(check.out, backwards + ":88: error: " + backwardsError.substr(9) + "\n" + absurd + ":88: error: " +
                             absurdError.substr(9) + "\n");
    const ToolRun show = Run({"show", backwards});
    EXPECT_EQ(show.status, 0);
    EXPECT_NE(show.out.find("Parameters\n"), std::string::npos);
    EXPECT_NE(show.out.find("\nLayers: error: line 88: layer division 2 1 runs backwards: LAYER2 is less than\n"
                            "    LAYER1\n"),
              std::string::npos)
        << show.out;
    const nlohmann::json dump = nlohmann::json::parse(Run({"dump", "--no-split", absurd}).out)["profiles"][0];
    EXPECT_EQ(dump["layers"], nlohmann::json({{"error", absurdError}}));
    EXPECT_EQ(dump["parameters"]["DiameterCount"], 2);
}
