// terrix convert names the columns that a change of units leaves as they
// were; every command accepts after the last profile only what a file may
// hold there.

#include <string>

#include <gtest/gtest.h>

#include "ToolTestSupport.h"

namespace {

using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::ToolRun;
using TerrixToolTesting::WithoutEndLine;

using ConvertWarningsTest = TerrixToolTesting::ToolTest;
using TrailingTextTest = TerrixToolTesting::ToolTest;

// The warning of convert for one column, from kN m to N mm.
std::string Warning(const std::string& file, const std::string& section, const std::string& column) {
    return "terrix: " + file + ": warning: profile #0: " + section + ", column " + column +
           ": values are kept as written, not converted from kN m to N mm\n";
}

const std::string axial = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";
const std::string mainLayers = "SOIL MAIN LAYERS AND PROPERTIES SECTION";
const std::string pyModifications = "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION";

TEST_F(ConvertWarningsTest, EveryDimensionedColumnKeptAsWrittenIsNamedWhenItHoldsAValue) {
    // Version 4: skin friction, shear modulus and tip resistance of the
    // level rows, and the gap of the P-Y row "1 2" (Y-GAP 0.02 m, a length).
    const std::string v4 = ExamplePath("north-sea-v4.terrix");
    const ToolRun fromV4 = Run({"convert", "--to", "N", "mm", v4});
    EXPECT_EQ(fromV4.status, 0);
    // SU.Z=100 is the strength at level 100 in the length unit: named when
    // the length unit changes, and only then.
    const std::string atLevel100 = "terrix: " + v4 +
                                   ": warning: profile #0: SOIL TYPE AND PROPERTY SECTION, column SU.Z=100: values "
                                   "are given at a level in the length unit, which becomes mm instead of m\n";
    EXPECT_EQ(fromV4.err, atLevel100 + Warning(v4, axial, "SKIN-CMP") + Warning(v4, axial, "SKIN-TNS") +
                              Warning(v4, axial, "G0-SOIL") + Warning(v4, axial, "SIG-TIP") +
                              Warning(v4, pyModifications, "Y-GAP"));
    EXPECT_EQ(Run({"convert", "--to", "MN", "m", v4}).err.find("SU.Z=100"), std::string::npos);

    // Version 5: unit weight, CPT values, strengths and AK (1.2 for main
    // layer 4) of the main layer rows, the axial values and the same gap.
    // DR, IP, EPSC, API-J, G0 FACT and TRES/TMAX are ratios and indices.
    const std::string v5 = ExamplePath("north-sea-v5.terrix");
    const ToolRun fromV5 = Run({"convert", "--to", "N", "mm", v5});
    EXPECT_EQ(fromV5.status, 0);
    std::string expected;
    for (const char* column : {"GAMTOT", "CPTTOP", "CPTBOT", "SUTOP", "SUBOT", "AK"})
        expected += Warning(v5, mainLayers, column);
    for (const char* column :
         {"SKINC TOP", "SKINC BOT", "SKINT TOP", "SKINT BOT", "SIGTIP TOP", "SIGTIP BOT", "TZZRES"})
        expected += Warning(v5, axial, column);
    expected += Warning(v5, pyModifications, "Y-GAP");
    EXPECT_EQ(fromV5.err, expected);

    // A column whose values are all 0 means the same in any units: the
    // offshore example has no AK and no gap. A gap in one row is named.
    const std::string offshore = ExamplePath("offshore-v5.terrix");
    const ToolRun fromOffshore = Run({"convert", "--to", "N", "mm", offshore});
    EXPECT_EQ(fromOffshore.err.find("column AK"), std::string::npos) << fromOffshore.err;
    EXPECT_EQ(fromOffshore.err.find("column Y-GAP"), std::string::npos) << fromOffshore.err;
    EXPECT_NE(fromOffshore.err.find(Warning(offshore, mainLayers, "SUBOT")), std::string::npos);
    const std::string gap = Replaced(ReadFile(offshore), "    1.0    1.0    0.0    1.0    1.0    1.0\n",
                                     "    1.0    1.0   0.05    1.0    1.0    1.0\n");
    const ToolRun withGap = Run({"convert", "--to", "N", "mm", "-"}, gap);
    EXPECT_NE(withGap.err.find(Warning("-", pyModifications, "Y-GAP")), std::string::npos) << withGap.err;
    // No change of units, nothing to warn of.
    EXPECT_EQ(Run({"convert", "--to", "kN", "m", "-"}, gap).err, "");
}

TEST_F(TrailingTextTest, AfterTheLastProfileOnlyEmptyLinesCommentsAndTheEndLineMayFollow) {
    const std::string example = ReadFile(ExamplePath("offshore-v5.terrix"));
    const std::string withoutEndLine = WithoutEndLine(example);

    // Comment lines, empty lines (also of blanks or a tab) and the end line.
    const ToolRun ok = Run({"check", "-"}, withoutEndLine + "\n* checked 2011\nC  by hand\n   \n\t\n"
                                                            "END OF TERRIX INPUT FILE\n\n* the end\n");
    EXPECT_EQ(ok.status, 0) << ok.err;
    EXPECT_EQ(ok.out, "-: OK version 5, 1 profile, units kN m\n");

    // Any other text is an import error at its own line: the example has
    // 127 lines, so text after it stands on line 128. Every command reads a
    // file so.
    const std::string stray = File("stray.txt", example + "   7.0 stray values\n");
    for (const char* command : {"check", "dump", "show", "convert"}) {
        const ToolRun run = Run({command, stray});
        EXPECT_EQ(run.status, 1) << command;
        EXPECT_EQ(run.out, "") << command;
        EXPECT_EQ(run.err, "terrix: " + stray +
                               ": cannot import\n"
                               "Import error in line 128:\n"
                               "Expected: ### New soil profile\n"
                               "While importing section: 'GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION'\n"
                               "Found: '   7.0 stray values'\n")
            << command;
    }

    // The same without the end line, after empty and comment lines.
    const ToolRun noEndLine = Run({"check", "-"}, withoutEndLine + "\n* notes\n\nREVISION B\n");
    EXPECT_EQ(noEndLine.status, 1);
    EXPECT_EQ(noEndLine.err,
              "terrix: -: cannot import\n"
              "Import error in line 129:\n"
              "Expected: ### New soil profile\n"
              "While importing section: 'GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION'\n"
              "Found: 'REVISION B'\n");
}

}  // namespace
