// terrix diff compares by value: an example against itself written in other
// units holds the same profiles; against a copy with one value changed it
// names exactly that value, in A's units, and exits 1.

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolTestSupport.h"

namespace {

using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::ToolRun;

using DiffCommandTest = TerrixToolTesting::ToolTest;

TEST_F(DiffCommandTest, AFileInOtherUnitsHoldsTheSameProfiles) {
    for (const char* example : {"north-sea-v4.terrix", "north-sea-v5.terrix", "three-profiles.terrix"}) {
        SCOPED_TRACE(example);
        const std::string converted = Path("converted.terrix");
        ASSERT_EQ(Run({"convert", "--to", "N", "mm", "-o", converted, ExamplePath(example)}).status, 0);
        const ToolRun diff = Run({"diff", ExamplePath(example), converted});
        EXPECT_EQ(diff.status, 0) << diff.out;
        EXPECT_EQ(diff.out, "A and B hold the same profiles\n");
    }
}

TEST_F(DiffCommandTest, OneChangedValueIsNamedExactly) {
    const std::string a = ExamplePath("offshore-v5.terrix");
    // The friction angle of main layer 1, 36 degrees, becomes 37, and the
    // copy is written in N and mm: only that value differs.
    const std::string changed = File("changed.terrix", Replaced(ReadFile(a), "      36.0       0.8", "      37.0       0.8"));
    const std::string b = Path("changed-in-mm.terrix");
    ASSERT_EQ(Run({"convert", "--to", "N", "mm", "-o", b, changed}).status, 0);
    const ToolRun diff = Run({"diff", a, b});
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "profile #0 'NS-MP07': SOIL MAIN LAYERS AND PROPERTIES SECTION, record 1, PHI: 36 in A, 37 in B\n");
    const ToolRun json = Run({"diff", "--json", a, b});
    EXPECT_EQ(json.status, 1);
    const nlohmann::json differences = nlohmann::json::parse(json.out)["differences"];
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0]["column"], "PHI");
    EXPECT_EQ(differences[0]["record"], 1);
    EXPECT_EQ(differences[0]["a"], 36.0);
    EXPECT_EQ(differences[0]["b"], 37.0);
    // A length in the units of A, though B holds millimetres.
    const std::string deeper = File("deeper.terrix", Replaced(ReadFile(a), "   0.0 ZSURF", "   0.5 ZSURF"));
    EXPECT_EQ(Run({"diff", a, deeper}).out,
              "profile #0 'NS-MP07': SOIL SURFACE AND GROUND WATER SECTION, ZSURF: 0 m in A, 0.5 m in B\n");
    EXPECT_EQ(Run({"diff", a}).status, 2);
}

}  // namespace
