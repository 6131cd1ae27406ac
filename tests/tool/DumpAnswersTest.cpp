// terrix dump: what the library answers about a profile, its "parameters"
// and "layers", checked against what a hand calculation from the example
// files gives. The files are in kN and m; the dump is in N and m, so a
// stress of 12 kN/m2 is 12000 and a unit weight of 17.5 kN/m3 is 17500,
// except in the columns the format keeps as the numbers the file gives.

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ToolTestSupport.h"

namespace {

using Json = nlohmann::ordered_json;
using Layers = std::vector<std::vector<double>>;
using TerrixToolTesting::ExamplePath;
using TerrixToolTesting::ExpectValuesAt;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::Replaced;
using TerrixToolTesting::ToolRun;

using DumpAnswersTest = TerrixToolTesting::ToolTest;

// The one profile of a dump.
Json DumpedProfile(const ToolRun& run) {
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const Json dump = Json::parse(run.out);
    EXPECT_EQ(dump["profiles"].size(), 1u);
    return dump["profiles"][0];
}

// mainLayer, firstLayer, layerCount, zTop and zBottom of each layer.
Layers Layering(const Json& layers) {
    Layers list;
    for (const Json& layer : layers)
        list.push_back({layer["mainLayer"].get<double>(), layer["firstLayer"].get<double>(),
                        layer["layerCount"].get<double>(), layer["zTop"].get<double>(),
                        layer["zBottom"].get<double>()});
    return list;
}

// The bottom of piece i + 1 of n of a layer from top to bottom, as the
// library cuts a layer into its numbered layers.
double PieceBottom(double top, double bottom, int i, int n) {
    const double t = (i + 1) / static_cast<double>(n);
    return (1 - t) * top + t * bottom;
}

// The P-Y modification row "0 0 0.0 1.0 ..." of the examples, which covers
// every layer and diameter that no row above it covers.
const std::string pyRowForEverything = "      0      0    0.0    1.0    1.0    0.0    1.0    1.0    1.0\n";

TEST_F(DumpAnswersTest, Version4ParametersLayeringAndLayersByHand) {
    const std::string file = ExamplePath("north-sea-v4.terrix");
    const Json profile = DumpedProfile(Run({"dump", file}));
    // GAMMAW 10.0518 kN/m3, ZCYCL 20 m, SUSTIF 96 kN/m2, the four coefficients
    // 1.0, two diameters, ESOL0 25000 kN/m2, ESOL1 1800 kN/m3, POSAVR 0.35,
    // ZSURF 0, SCRGEN 1, SCRLOC 1.5, SLOPE 30 degrees = pi / 6, no loads,
    // ZONINF 10 and RFTZ 0.9 of the version 4 skin friction section.

    // The divisions 1-2 (to 6 m), 3-5 (to 14), 6-7 (to 30) and 8-10 (to 45),
    // from the seafloor at 0. Layers 1 and 2 have the same curves and join
    // again; layers 3 to 5 have manual P-Y curves of their own, 6 and 7
    // manual T-Z curves, 8 to 10 manual Q-Z curves, so each stays alone, in
    // pieces of equal thickness. --no-split gives the divisions.
    EXPECT_EQ(Layering(profile["layers"]), (Layers{{1, 1, 2, 0, 6},
                                                   {2, 3, 1, 6, PieceBottom(6, 14, 0, 3)},
                                                   {2, 4, 1, PieceBottom(6, 14, 0, 3), PieceBottom(6, 14, 1, 3)},
                                                   {2, 5, 1, PieceBottom(6, 14, 1, 3), 14},
                                                   {3, 6, 1, 14, 22},
                                                   {3, 7, 1, 22, 30},
                                                   {4, 8, 1, 30, 35},
                                                   {4, 9, 1, 35, 40},
                                                   {4, 10, 1, 40, 45}}));
    EXPECT_EQ(Layering(DumpedProfile(Run({"dump", "--no-split", file}))["layers"]),
              (Layers{{1, 1, 2, 0, 6}, {2, 3, 3, 6, 14}, {3, 6, 2, 14, 30}, {4, 8, 3, 30, 45}}));

    // Layer 3, the top third of division 3-5 (soil type 2, soft clay), from 6
    // to 8.667 m; its middle 7.333 lies between the level rows at 6 and 14.
    // Soil type 2: GAMTOT 17.5 kN/m3, PHI 0, SU.Z=0 12 and SU.Z=100 172
    // kN/m2 (so clay), EPSC 0.02, OCR 1.5, API-J 0.5, GAP 0, RPRAT 0.7, TZZRES
    // 0.02 m. Level row 6 (the first of the two): G0-SOIL 45000, DSPTZ/DIAM
    // 0.01, POIS 0.3, DSPQZ/DIAM 0.1. Skin friction and tip resistance from
    // both rows, as the file gives them: 14.5 and 35, 2900 and 315.
    // P-Y code 0: the manual curves of layer 3 for 1.524 and 2.134 m, P in
    // kN/m2 times 1000; factors from the row "3 5 2.134" (P-FACT 0.9) for
    // 2.134, from the row "0 0" for 1.524. Codes 293 and identity factors
    // for T-Z and Q-Z; no M-theta, BS-Y or BM-theta curve for layer 3, and
    // no row for it but "0 0" of BM-theta: identity factors.
    ExpectValuesAt(profile, "expected/tool-dump-answers-north-sea-v4.json");
}

TEST_F(DumpAnswersTest, Version5LayersAreMainLayersWithTheValuesOfTheirRowsByHand) {
    const ToolRun run = Run({"dump", ExamplePath("north-sea-v5.terrix")});
    const Json profile = DumpedProfile(run);
    // Main layers 1 to 4 with subdivisions 2, 3, 2, 3: first layers 1, 3, 6, 8.
    // Version 5 does not split, with or without --no-split.
    const Layers mainLayers{{1, 1, 2, 0, 5}, {2, 3, 3, 5, 16}, {3, 6, 2, 16, 28}, {4, 8, 3, 28, 42}};
    EXPECT_EQ(Layering(profile["layers"]), mainLayers);
    EXPECT_EQ(Layering(DumpedProfile(Run({"dump", "--no-split", ExamplePath("north-sea-v5.terrix")}))["layers"]),
              mainLayers);

    // Main layer 2, soft to firm clay from 5 to 16 m. Main layer row: GAMTOT
    // 17.5, PHI 0, SUTOP 20, SUBOT 70, EPSC 0.02, API-J 0.5, AK 0: kept as the
    // file gives them; SUz at the main layer's own top (ZBOTM of main layer
    // 1) and bottom. Axial row: SKINC and SKINT 20 and 70, SIGTIP 180 and 630
    // at the layer's top and bottom, TRES/TMAX 0.8, TZZRES 0.02. OPEN HOLE 0.
    // No OCR in version 5, no level rows. P-Y code 0: manual curves of layer
    // 3; P-FACT 0.9 for 2.438 m ("3 5 2.438"), the row "0 0" for 1.829 m.
    // Main layer 1 starts at the seafloor: its strengths (0, sand) stand at
    // ZSURF 0 and ZBOTM 5; PHI 32 degrees in radians. Main layer 4: AK 1.2.
    ExpectValuesAt(profile, "expected/tool-dump-answers-north-sea-v5.json");
    EXPECT_EQ(profile["layers"][0]["Phi"], 32 * (3.14159265358979323846 / 180));

    // A list of plain values stands on one line: a pair of a map, the
    // factors of a row.
    EXPECT_NE(run.out.find("          \"SUz\": [\n"
                           "            [5, 20],\n"
                           "            [16, 70]\n"
                           "          ],\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("                \"factors\": [0.9, 1, 0, 1, 1, 1]\n"), std::string::npos);

    // Version 5 has no ZONINF and RFTZ: the two answers are empty.
    const Json offshore = DumpedProfile(Run({"dump", ExamplePath("offshore-v5.terrix")}));
    EXPECT_EQ(offshore["parameters"]["ZoneOfInfluenceTZ"], nullptr);
    EXPECT_EQ(offshore["parameters"]["CurveShapeFactorTZ"], nullptr);
}

TEST_F(DumpAnswersTest, AQueryThatFailsGivesItsErrorInPlaceAndEveryOtherAnswerStill) {
    const Json noModifications = Json::parse(R"({"error": "Unable to find PY modifications"})");
    // Without the row "0 0", the P-Y modifications cover layers 1 and 2 only
    // (the row "1 2"): main layer 1 (layers 1 to 4) keeps its P-Y data, main
    // layers 2 and 3 (first layers 5 and 7) have none.
    const std::string file =
        File("no-py-row.txt", Replaced(ReadFile(ExamplePath("offshore-v5.terrix")), pyRowForEverything, ""));
    const Json profile = DumpedProfile(Run({"dump", file}));
    ASSERT_EQ(profile["layers"].size(), 3u);
    const Json& clay = profile["layers"][1];
    EXPECT_EQ(clay["PyData"], noModifications);
    EXPECT_EQ(clay["TzData"]["code"], 293);
    EXPECT_EQ(clay["SUz"], Json::parse("[[8, 80], [22, 140]]"));
    EXPECT_EQ(profile["layers"][0]["PyData"]["modifications"][0]["factors"], Json::parse("[0.9, 1, 0, 1, 1, 1]"));

    // In version 4 the layering itself compares the curve data of the
    // numbered layers, so without the row the layers are that error; the
    // divisions as the file gives them still have their answers.
    const std::string v4 =
        File("no-py-row-v4.txt", Replaced(ReadFile(ExamplePath("north-sea-v4.terrix")), pyRowForEverything, ""));
    EXPECT_EQ(DumpedProfile(Run({"dump", v4}))["layers"], noModifications);
    const Json divisions = DumpedProfile(Run({"dump", "--no-split", v4}))["layers"];
    ASSERT_EQ(divisions.size(), 4u);
    EXPECT_EQ(divisions[0]["PyData"]["code"], 287);
    EXPECT_EQ(divisions[1]["PyData"], noModifications);
    EXPECT_EQ(divisions[1]["LayerUnitWeight"], 17500);

    // A soil type that the soil type table lacks: its soil answers fail with
    // "Unknown layer", its level rows and curves are still there.
    const std::string withoutType4 = Replaced(
        Replaced(ReadFile(ExamplePath("north-sea-v4.terrix")), "         4 NUMTYP", "         3 NUMTYP"),
        "         4      21.0       0.0      80.0     400.0     0.005       4.0      0.25\n"
        "         1       0.5      0.02\n",
        "");
    const Json unknown = DumpedProfile(Run({"dump", "-"}, withoutType4))["layers"][8];
    for (const char* key : {"SoilType", "Phi", "Epsc", "OverConsolidationRatio", "APIJFactor", "OpenGap", "RPRatio",
                            "TZCurveZDisplacement", "LayerUnitWeight", "SUz"})
        EXPECT_EQ(unknown[key], Json::parse(R"({"error": "Unknown layer"})")) << key;
    EXPECT_EQ(unknown["InitialSoilShearModulus"], 210000);
    EXPECT_EQ(unknown["SkinCompression"], Json::parse("[[38, 102], [45, 118]]"));
    EXPECT_EQ(unknown["QzData"]["code"], 0);
}

}  // namespace
