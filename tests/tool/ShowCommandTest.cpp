// terrix show: each profile as an engineer reads it, in the units of its
// file, within 80 columns.

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ToolTestSupport.h"

namespace {

using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::LinesOf;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::TestData;
using TerrixToolTesting::ToolRun;

using ShowCommandTest = TerrixToolTesting::ToolTest;

// Each of `lines` is a whole line of `text`.
void ExpectLines(const std::string& text, const std::vector<std::string>& lines) {
    const std::vector<std::string> all = LinesOf(text);
    for (const std::string& line : lines)
        EXPECT_NE(std::find(all.begin(), all.end(), line), all.end()) << line << "\nin:\n" << text;
}

TEST_F(ShowCommandTest, AProfileShowsItsHeaderParametersAndLayersInTheUnitsOfItsFile) {
    const ToolRun run = Run({"show", ExamplePath("offshore-v5.terrix")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    // Three main layers from the seafloor at 0 to 8, 22 and 40 m with 4, 2
    // and 6 numbered layers. Main layer 2 is clay (SUTOP 80, SUBOT 140 at its
    // top and bottom) with manual P-Y curves for both diameters. Every layer
    // has TNS-FCT 0.8 ("0 0" of T-Z), layers 1 and 2 P-FACT 0.9 ("1 2" of P-Y).
    EXPECT_EQ(run.out, TestData("expected/tool-show-offshore-v5.txt"));
}

TEST_F(ShowCommandTest, Version4LayersAreTheNumberedLayersUnlessNoSplitIsGiven) {
    const ToolRun run = Run({"show", ExamplePath("north-sea-v4.terrix")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LinesOf(run.out).at(0), "Profile #0: TERRIX version 4, values in kN and m");  // no name in version 4
    ExpectLines(run.out, {"  T-Z code 200                zone of influence 10, curve shape factor 0.9"});
    ExpectLines(run.out, {"Layers: the numbered layers, joined where their curve data agree"});
    // Layer 4 is the middle third of division 3-5, 6 to 14 m: from 8.667 to
    // 11.333 m, shown to six digits. Soil type 2: 17.5 kN/m3, SU.Z=0 12 and
    // SU.Z=100 172 kN/m2, at the levels 0 and 100 m of the version 4 table.
    ExpectLines(run.out, {"  4         2  8.66667  11.3333  Clay    0         17.5  12 at 0, 172 at 100"});
    // Layers 1 and 2 have the same curves and are one; layer 10 has manual
    // Q-Z, M-theta, BS-Y and BM-theta curves for both diameters and factors
    // other than 1 for Q-Z, M-theta and BS-Y.
    ExpectLines(run.out, {"  1-2    287  293  293  -                                     P-Y"});
    ExpectLines(run.out, {"  10     380  293    0  Q-Z 2, M-theta 2, BS-Y 2, BM-theta 2  Q-Z, M-theta, BS-Y"});

    const ToolRun divisions = Run({"show", "--no-split", ExamplePath("north-sea-v4.terrix")});
    ExpectLines(divisions.out, {"Layers: as the soil layer divisions give them"});
    ExpectLines(divisions.out, {"  3-5       2    6      14  Clay    0         17.5  12 at 0, 172 at 100"});

    // Line ends of a DOS editor and tabs between the fields show the same.
    std::string dos;
    for (char c : ReadFile(ExamplePath("north-sea-v4.terrix")))
        dos += c == '\n' ? std::string("\r\n") : std::string(1, c);
    dos = Replaced(dos, "   10.0518 GAMMAW", "\t10.0518\tGAMMAW");
    EXPECT_EQ(Run({"show", "-"}, dos).out, run.out);
}

TEST_F(ShowCommandTest, AQueryThatFailsShowsErrorInPlaceWithItsMessageUnderTheLayer) {
    // Without the P-Y row "0 0", only layers 1 and 2 have P-Y factors.
    const std::string pyRowForEverything = "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0\n";
    const ToolRun run =
        Run({"show", "-"}, Replaced(ReadFile(ExamplePath("offshore-v5.terrix")), pyRowForEverything, ""));
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string table =
        "  Layer    P-Y  T-Z  Q-Z  Manual curves  Modified\n"
        "  1-4      287  293  293  -              P-Y, T-Z\n"
        "  5-6    error  293  293  -              T-Z\n"
        "      P-Y: error: Unable to find PY modifications\n"
        "  7-12   error  293  293  -              T-Z\n"
        "      P-Y: error: Unable to find PY modifications\n";
    EXPECT_NE(run.out.find(table), std::string::npos) << run.out;
    // The soil of every layer is still there.
    ExpectLines(run.out, {"  5-6       2    8      22  Clay    0         19.5  80 at 8, 140 at 22"});

    // A soil type that the soil type table lacks: the soil of its layers
    // fails, their levels and curves are shown.
    const std::string withoutType4 = Replaced(
        Replaced(ReadFile(ExamplePath("north-sea-v4.terrix")), "         4 NUMTYP", "         3 NUMTYP"),
        "         4      21.0       0.0      80.0     400.0     0.005       4.0      0.25\n"
        "         1       0.5      0.02\n",
        "");
    const ToolRun unknown = Run({"show", "--no-split", "-"}, withoutType4);
    EXPECT_EQ(unknown.status, 0) << unknown.err;
    EXPECT_NE(unknown.out.find("  8-10      4   30      45  error  error        error  error\n"
                               "      Soil, Phi, Unit weight, Su: error: Unknown layer\n"),
              std::string::npos)
        << unknown.out;
    ExpectLines(unknown.out, {"  8-10   380  293    0  Q-Z 2          Q-Z"});

    // When the layers themselves cannot be worked out, that is said in their
    // place, after the parameters.
    const ToolRun layers =
        Run({"show", "-"}, Replaced(ReadFile(ExamplePath("north-sea-v4.terrix")), pyRowForEverything, ""));
    EXPECT_EQ(layers.status, 0) << layers.err;
    ExpectLines(layers.out, {"  Seafloor level              0 m"});
    EXPECT_EQ(LinesOf(layers.out).back(), "Layers: error: Unable to find PY modifications");
}

TEST_F(ShowCommandTest, OtherUnitsProfilesAndWideValuesStayWithin80Columns) {
    // The example written in N and mm shows its levels in mm; the unit
    // weights and strengths that version 5 keeps as written stand as they are.
    const std::string converted = Path("in-mm.txt");
    ASSERT_EQ(Run({"convert", "--to", "N", "mm", "-o", converted, ExamplePath("offshore-v5.terrix")}).status, 0);
    const ToolRun mm = Run({"show", converted});
    EXPECT_EQ(LinesOf(mm.out).at(0), "Profile #0 'NS-MP07': TERRIX version 5, values in N and mm");
    ExpectLines(mm.out, {"  Unit weight of water        0.0000100518 N/mm3"});
    ExpectLines(mm.out, {"  5-6       2   8000   22000  Clay    0         19.5  80 at 8000, 140 at 22000"});
    // --profile picks one profile of a stream; without it every profile is
    // shown, one after the other.
    const ToolRun second = Run({"show", "--profile", "#1", ExamplePath("three-profiles.terrix")});
    EXPECT_EQ(LinesOf(second.out).at(0), "Profile #1 'NS-B07': TERRIX version 5, values in kN and m");
    const ToolRun past = Run({"show", "--profile", "#3", ExamplePath("three-profiles.terrix")});
    EXPECT_EQ(past.status, 2);
    EXPECT_EQ(past.err, "terrix: --profile #3: the file holds 3 profiles (#0 to #2)\n");
    const ToolRun all = Run({"show", ExamplePath("three-profiles.terrix")});
    EXPECT_NE(all.out.find("\n\nProfile #2 'NS-C03': TERRIX version 5, values in kN and m\n"), std::string::npos);

    // Long fractions: numbers are shown to six significant digits, and a
    // row too long for 80 columns goes on under its last column.
    std::string wide = ReadFile(ExamplePath("north-sea-v4.terrix"));
    wide = Replaced(wide, "best estimate soil profile\n",
                    "best estimate soil profile, with a remark long enough for a second line\n");
    wide = Replaced(wide, "       0.0 ZSURF", "  -123.456789012 ZSURF");
    wide = Replaced(wide, "         2      17.5       0.0      12.0     172.0      0.02",
                    "         2 17.5312345       0.0 12.3456789 172.98765      0.02");
    const ToolRun run = Run({"show", "-"}, wide);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("  North Sea jacket NS-A12, leg A1: best estimate soil profile, with a remark\n"
                           "    long enough for a second line\n"),
              std::string::npos)
        << run.out;
    ExpectLines(run.out, {"  Seafloor level              -123.457 m"});
    ExpectLines(run.out, {"  1-2       1  -123.457        6  Sand   32         19.5  0"});
    EXPECT_NE(run.out.find("  3         2         6  8.66667  Clay    0      17.5312  12.3457 at 0,\n"
                           "                                                          172.98765 at 100\n"),
              std::string::npos)
        << run.out;
    for (const std::string& text : {run.out, all.out, mm.out, Run({"show", ExamplePath("north-sea-v4.terrix")}).out,
                                    Run({"show", ExamplePath("north-sea-v5.terrix")}).out})
        for (const std::string& line : LinesOf(text)) EXPECT_LE(line.size(), 80u) << line;
}

}  // namespace
