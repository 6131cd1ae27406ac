// terrix dump: the "sections" of a profile, every section of its version
// that the file holds, in file order, keyed as the file names things: the
// title without its stars, parameters by name, table columns by the titles
// of the header line. Values in N and m, or as the file gives them where
// the format keeps a plain number.

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolTestSupport.h"

namespace {

using Json = nlohmann::ordered_json;
using Keys = std::vector<std::string>;
using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ExpectValuesAt;
using TerrixToolTesting::LinesOf;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::TestData;
using TerrixToolTesting::ToolRun;

using DumpSectionsTest = TerrixToolTesting::ToolTest;

Json DumpedSections(const ToolRun& run) {
    EXPECT_EQ(run.status, 0) << run.err;
    const Json dump = Json::parse(run.out);
    EXPECT_EQ(dump["profiles"].size(), 1u);
    return dump["profiles"][0]["sections"];
}

Keys KeysOf(const Json& object) {
    Keys keys;
    for (auto member = object.begin(); member != object.end(); ++member) keys.push_back(member.key());
    return keys;
}

const std::string axialTitle = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";

TEST_F(DumpSectionsTest, EachVersionHasTheSectionsOfItsFileKeyedAsTheFileNamesThem) {
    // The titles of each example's sections, in file order: version 4 with
    // its soil types, layer divisions and the optional M-theta, BS-Y and
    // BM-theta curves; version 5 with its main layers (a two-line title
    // joined), and without NUMDM, NUMBS and NUMBM none of those curves.
    // Then the values of some sections and records. Version 4: the counts
    // of the file (NUMDIA, NUMFRC) from the vectors they size, no EVHRAT,
    // ESOL0 25000 kN/m2, a point force 350 kN, SLOPE in degrees as written;
    // a soil type row over its two lines keyed by the header's titles; level
    // rows with skin friction as written, a row of seven numbers without
    // shear modulus; a curve record's value lines named as the header line
    // names them; modification rows' factors keyed by the header's titles.
    // Version 5: no NUMDM, EVHRAT 1, no point forces; "MAIN" over "LAYER" is
    // "MAIN LAYER"; GAMTOT to AK as written; a section without records has
    // an empty list.
    const Json v4 = DumpedSections(Run({"dump", ExamplePath("north-sea-v4.terrix")}));
    EXPECT_EQ(KeysOf(v4), LinesOf(TestData("expected/tool-dump-section-titles-north-sea-v4.txt")));
    ExpectValuesAt(v4, "expected/tool-dump-sections-north-sea-v4.json");
    EXPECT_EQ(KeysOf(v4[axialTitle]), (Keys{"ZONINF", "RFTZ", "records"}));
    EXPECT_EQ(KeysOf(v4["MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION"]["records"][0]),
              (Keys{"LAY", "DIAM", "NUMPNT", "M-VALUES", "THETA-VALUES"}));

    const Json v5 = DumpedSections(Run({"dump", ExamplePath("offshore-v5.terrix")}));
    EXPECT_EQ(KeysOf(v5), LinesOf(TestData("expected/tool-dump-section-titles-offshore-v5.txt")));
    ExpectValuesAt(v5, "expected/tool-dump-sections-offshore-v5.json");
    EXPECT_EQ(KeysOf(v5[axialTitle]), (Keys{"DIAMP", "WALL", "ZTIP", "MATPIL", "records"}));

    // A main layer table without the AK column has no AK key.
    std::string text = ReadFile(ExamplePath("offshore-v5.terrix"));
    text = Replaced(text, "SUBOT   IP   EPSC  API-J  AK\n", "SUBOT   IP   EPSC  API-J\n");
    text = Replaced(text, "       0.0         0       0.0       0.0       0.0\n         2",
                    "       0.0         0       0.0       0.0\n         2");
    text = Replaced(text, "     140.0        25     0.005       0.5       0.0\n",
                    "     140.0        25     0.005       0.5\n");
    text = Replaced(text, "       0.0         0       0.0       0.0       0.0\n\n",
                    "       0.0         0       0.0       0.0\n\n");
    const Json withoutAK = DumpedSections(Run({"dump", File("without-ak.txt", text)}));
    EXPECT_EQ(KeysOf(withoutAK["SOIL MAIN LAYERS AND PROPERTIES SECTION"]["records"][0]),
              (Keys{"MAIN LAYER", "ZBOTM", "GAMTOT", "CPTTOP", "CPTBOT", "PHI", "DR", "SUTOP", "SUBOT", "IP", "EPSC",
                    "API-J"}));
}

TEST_F(DumpSectionsTest, AStreamOfProfilesDumpsEachWithItsOwnSectionsAndAnswers) {
    const ToolRun run = Run({"dump", ExamplePath("three-profiles.terrix")});
    ASSERT_EQ(run.status, 0) << run.err;
    const Json dump = Json::parse(run.out);
    ASSERT_EQ(dump["profiles"].size(), 3u);
    Keys names;
    for (const Json& profile : dump["profiles"]) {
        names.push_back(profile["name"]);
        EXPECT_EQ(KeysOf(profile), (Keys{"version", "name", "header", "units", "sections", "parameters", "layers"}));
        EXPECT_EQ(profile["sections"]["CONTROL SECTION"]["profileName"], profile["name"]);
        EXPECT_TRUE(profile["layers"].is_array());
    }
    EXPECT_EQ(names, (Keys{"NS-A12", "NS-B07", "NS-C03"}));
}

}  // namespace
