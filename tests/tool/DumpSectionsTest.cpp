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
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
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

// The titles of the sections that every profile holds, before and after
// those of its version.
const Keys general{"CONTROL SECTION", "MATERIAL COEFFICIENTS SECTION", "PILE DIAMETERS AND GROUP EFFECTS SECTION",
                   "SOIL SURFACE AND GROUND WATER SECTION", "LOADS AT SOIL SURFACE SECTION"};
const Keys curves{"MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION", "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION",
                  "MANUAL T-Z (SKIN FRICTION) DATA SECTION", "T-Z (SKIN FRICTION) DATA MODIFICATION SECTION",
                  "MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION",
                  "Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION"};
const std::string axialTitle = "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION";
const std::string lastTitle = "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION";

Keys Concatenated(std::vector<Keys> parts) {
    Keys all;
    for (const Keys& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST_F(DumpSectionsTest, AVersion4ProfileHasEverySectionOfItsFileKeyedAsTheFileNamesIt) {
    const Json sections = DumpedSections(Run({"dump", ExamplePath("north-sea-v4.terrix")}));
    EXPECT_EQ(KeysOf(sections),
              Concatenated({general,
                            {"SOIL TYPE AND PROPERTY SECTION", axialTitle, "SOIL LAYER DIV ..."},
                            curves,
                            {"MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION",
                             "M-THETA (DISTRIBUTED MOMENT) DATA MODIFICATION SECTION",
                             "MANUAL BS-Y (BASE SHEAR) DATA SECTION", "BS-Y (BASE SHEAR) DATA MODIFICATION SECTION",
                             "MANUAL BM-THETA (BASE MOMENT) DATA SECTION",
                             "BM-THETA (BASE MOMENT) DATA MODIFICATION SECTION", lastTitle}}));

    // The counts of the file (NUMDIA, NUMFRC) from the vectors they size;
    // no EVHRAT in version 4. ESOL0 25000 kN/m2, a point force 350 kN.
    EXPECT_EQ(sections["PILE DIAMETERS AND GROUP EFFECTS SECTION"], Json::parse(R"({
        "NUMDIA": 2, "diameters": [1.524, 2.134], "ESOL0": 25000000, "ESOL1": 1800000, "POSAVR": 0.35})"));
    EXPECT_EQ(sections["LOADS AT SOIL SURFACE SECTION"], Json::parse(R"({
        "SIGSRF": 0, "DPEMB": 0, "AEMB": 0, "BEMB": 0, "DPCIRC": 0, "RADIUS": 0, "NUMFRC": 2,
        "pointForces": [350000, 350000], "distances": [12, 16.5]})"));
    EXPECT_EQ(sections["SOIL SURFACE AND GROUND WATER SECTION"]["SLOPE"], 30);  // degrees, as written

    // A soil type row over its two lines, keyed by the header's titles.
    EXPECT_EQ(sections["SOIL TYPE AND PROPERTY SECTION"]["records"][1], Json::parse(R"({
        "TYP": 2, "GAMTOT": 17500, "PHI": 0, "SU.Z=0": 12000, "SU.Z=100": 172000, "EPSC": 0.02, "OCR": 1.5,
        "API-J": 0.5, "GAP": 0, "RPRAT": 0.7, "TZZRES": 0.02})"));
    // Level rows: skin friction as written; a row of seven numbers has no
    // shear modulus.
    const Json& levels = sections[axialTitle];
    EXPECT_EQ(KeysOf(levels), (Keys{"ZONINF", "RFTZ", "records"}));
    EXPECT_EQ(levels["records"][2], Json::parse(R"({
        "ZLEV": 14, "SKIN-CMP": 35, "SKIN-TNS": 35, "G0-SOIL": null, "DSPTZ/DIAM": 0.01, "SIG-TIP": 315,
        "POIS": 0.45, "DSPQZ/DIAM": 0.1})"));

    // A curve record: its value lines named as the header line names them.
    EXPECT_EQ(sections["MANUAL BS-Y (BASE SHEAR) DATA SECTION"]["records"][1], Json::parse(R"({
        "LAY": 10, "DIAM": 2.134, "NUMPNT": 4, "BS-VALUES": [0, 865300, 1912700, 2322500],
        "Y-VALUES": [0, 0.005, 0.02, 0.05]})"));
    EXPECT_EQ(KeysOf(sections["MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION"]["records"][0]),
              (Keys{"LAY", "DIAM", "NUMPNT", "M-VALUES", "THETA-VALUES"}));
    // Modification rows: the factors keyed by the header's titles.
    EXPECT_EQ(sections["Q-Z (PILE TIP RESISTANCE) DATA MODIFICATION SECTION"]["records"][0], Json::parse(R"({
        "LAY1": 8, "LAY2": 10, "DIAM": 1.524, "CMP-FCT": 1, "TNS-FCT": 1, "QZZ-FCT": 1.2, "Q-RES-FCT": 1,
        "Z-RES-FCT": 1})"));
    EXPECT_EQ(sections[lastTitle]["records"][0], Json::parse(R"({
        "ZLEV": 0, "DSP-X": 0.05, "DSP-Y": 0, "DSP-Z": 0, "HOLE-DIAM": 0})"));
}

TEST_F(DumpSectionsTest, AVersion5ProfileHasItsMainLayerSectionsWithTwoLineTitlesJoined) {
    // No NUMDM, NUMBS or NUMBM: no M-theta, BS-Y or BM-theta sections.
    const Json sections = DumpedSections(Run({"dump", ExamplePath("offshore-v5.terrix")}));
    EXPECT_EQ(KeysOf(sections), Concatenated({general,
                                              {"SOIL MAIN LAYERS AND PROPERTIES SECTION", axialTitle,
                                               "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION"},
                                              curves,
                                              {lastTitle}}));
    EXPECT_EQ(sections["CONTROL SECTION"]["NUMDM"], nullptr);
    EXPECT_EQ(sections["PILE DIAMETERS AND GROUP EFFECTS SECTION"]["EVHRAT"], 1);
    EXPECT_EQ(sections["LOADS AT SOIL SURFACE SECTION"]["pointForces"], Json::array());

    // "MAIN" over "LAYER" is "MAIN LAYER"; GAMTOT to AK as written.
    EXPECT_EQ(sections["SOIL MAIN LAYERS AND PROPERTIES SECTION"]["records"][1], Json::parse(R"({
        "MAIN LAYER": 2, "ZBOTM": 22, "GAMTOT": 19.5, "CPTTOP": 1.5, "CPTBOT": 2.5, "PHI": 0, "DR": 0,
        "SUTOP": 80, "SUBOT": 140, "IP": 25, "EPSC": 0.005, "API-J": 0.5, "AK": 0})"));
    const Json& axial = sections[axialTitle];
    EXPECT_EQ(KeysOf(axial), (Keys{"DIAMP", "WALL", "ZTIP", "MATPIL", "records"}));
    EXPECT_EQ(axial["records"][2], Json::parse(R"({
        "MAIN LAYER": 3, "CALC METH": 0, "SKINC TOP": 60, "SKINC BOT": 96, "SKINT TOP": 45, "SKINT BOT": 72,
        "SIGTIP TOP": 9000, "SIGTIP BOT": 12000, "G0 FACT": 1, "TRES/TMAX": 0.9, "TZZRES": 0.01})"));
    EXPECT_EQ(sections["MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION"]["records"][1], Json::parse(R"({
        "MAIN LAYER": 2, "ZBOTM": 22, "SUBDIVISION": 2, "P-Y CODE": 0, "T-Z CODE": 293, "Q-Z CODE": 293,
        "OPEN HOLE": 0, "MISC.SOIL.LAYER.VALUES": [0, 0, 0, 0, 0]})"));
    // Sections without records: an empty list.
    EXPECT_EQ(sections["MANUAL T-Z (SKIN FRICTION) DATA SECTION"], Json::parse(R"({"records": []})"));

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
