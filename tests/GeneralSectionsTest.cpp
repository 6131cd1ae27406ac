// The general sections of a profile: material coefficients, pile diameters,
// soil surface, surface loads, the soil type and main layer tables and the
// given soil displacements. Each is read from a text of its own, written
// back to the same text, and carried through other unit systems unchanged.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Version.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixExchange/sections/ControlSection.h>
#include <TerrixExchange/sections/GivenSoilDisplacementsAndOpenHoleSection.h>
#include <TerrixExchange/sections/LoadsAtSoilSurfaceSection.h>
#include <TerrixExchange/sections/MaterialCoefficientsSection.h>
#include <TerrixExchange/sections/PileDiametersAndGroupEffectsSection.h>
#include <TerrixExchange/sections/PileSoilPileInteractionAndPileScourSection.h>
#include <TerrixExchange/sections/SoilMainLayersAndPropertiesSection.h>
#include <TerrixExchange/sections/SoilSurfaceAndGroundWaterSection.h>
#include <TerrixExchange/sections/SoilTypeAndPropertySection.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

namespace {

using Length = Quantity<LengthPhenomenon>;
using Force = Quantity<ForcePhenomenon>;
using ForcePerArea = Quantity<ForcePerUnitAreaPhenomenon>;
using ForcePerVolume = Quantity<ForcePerUnitVolumePhenomenon>;

// The pile diameters section in the layout of each version.
const auto diametersV4 = [](auto& section, auto& archive) { section.Serialize(archive, false); };
const auto diametersV5 = [](auto& section, auto& archive) { section.Serialize(archive, true); };

Layer LayerOf(int mainLayer) { return Layer{mainLayer, 1, 1, Length(0.0), Length(0.0)}; }

// --- MATERIAL COEFFICIENTS SECTION ---

const std::string materialText =
    "*** MATERIAL COEFFICIENTS SECTION ***\n"
    "      1.25 SFTPHI  MATERIAL COEFFICIENT ON TAN(PHI)\n"
    "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH\n"
    "       1.0 SFSKF   MATERIAL COEFFICIENT ON PILE SKIN FRICTION\n"
    "      1.15 SFSIGT  MATERIAL COEFFICIENT ON PILE TIP RESISTANCE\n";

TEST(MaterialCoefficientsSection, FactorsThatNoUnitSystemChangesInTheirOrder) {
    const auto section = ReadSection<MaterialCoefficientsSection>(materialText, Uncounted);
    EXPECT_EQ(section, (MaterialCoefficientsSection{1.25, 1.4, 1.0, 1.15}));
    EXPECT_EQ(WriteSection(section, Uncounted), materialText);
    // In N and mm the numbers stay as they stand in the text.
    EXPECT_EQ(ReadSection<MaterialCoefficientsSection>(materialText, Uncounted, "N", "mm"), section);
    EXPECT_EQ(WriteSection(section, Uncounted, "N", "mm"), materialText);
    ExpectRoundTrips(MaterialCoefficientsSection{1.0 / 3.0, 0.1 + 0.2, 1e-300, -12345.678901234567}, Uncounted);

    // A new profile: a coefficient of 1.0 changes nothing it is applied to.
    EXPECT_EQ(MaterialCoefficientsSection(), (MaterialCoefficientsSection{1.0, 1.0, 1.0, 1.0}));

    // A parameter out of order, or missing.
    EXPECT_EQ(SectionErrorOf<MaterialCoefficientsSection>(
                  "*** MATERIAL COEFFICIENTS SECTION ***\n"
                  "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH\n"
                  "      1.25 SFTPHI  MATERIAL COEFFICIENT ON TAN(PHI)\n",
                  Uncounted),
              ImportErrorText(2, "Expected parameter 'SFTPHI' not found or incorrectly defined",
                              "MATERIAL COEFFICIENTS SECTION",
                              "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH"));

    const std::string missing =
        Replaced(materialText, "      1.15 SFSIGT  MATERIAL COEFFICIENT ON PILE TIP RESISTANCE\n",
                 "\n*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n");
    EXPECT_EQ(SectionErrorOf<MaterialCoefficientsSection>(missing, Uncounted),
              ImportErrorText(5, "Expected parameter 'SFSIGT' not found or incorrectly defined",
                              "MATERIAL COEFFICIENTS SECTION", ""));
}

// --- PILE DIAMETERS AND GROUP EFFECTS SECTION ---

const std::string evhratLine =
    "       0.8 EVHRAT       RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT\n";

const std::string diametersTextV5 =
    "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
    "         3 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
    "       0.9       1.8       2.4 DIAMETERS IN INCREASING ORDER\n"
    "   12000.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
    "     350.5 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n" +
    evhratLine + "      0.35 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n";

TEST(PileDiametersAndGroupEffectsSection, Version5HasAnEVHRATLineAndVersion4None) {
    const auto section = ReadSection<PileDiametersAndGroupEffectsSection>(diametersTextV5, diametersV5);
    // 12000 kN/m2 and 350.5 kN/m3 in N/m2 and N/m3; the two ratios as they are.
    EXPECT_EQ(section, (PileDiametersAndGroupEffectsSection{{Length(0.9), Length(1.8), Length(2.4)},
                                                            ForcePerArea(12e6), ForcePerVolume(350500.0), 0.8, 0.35}));
    EXPECT_EQ(WriteSection(section, diametersV5), diametersTextV5);
    // Diameters out of order keep it: nothing sorts them.
    auto unordered = section;
    unordered.diameters = {Length(2.4), Length(0.9), Length(1.0 / 3.0), Length(1.8)};
    ExpectRoundTrips(unordered, diametersV5);

    // Version 4 has no EVHRAT: it is neither read (a new section's ratio of
    // isotropic soil stays) nor written.
    const std::string textV4 = Replaced(diametersTextV5, evhratLine, "");
    auto expectedV4 = section;
    expectedV4.EVHRAT = 1.0;
    EXPECT_EQ(ReadSection<PileDiametersAndGroupEffectsSection>(textV4, diametersV4), expectedV4);
    expectedV4.EVHRAT = 2.0;
    EXPECT_EQ(WriteSection(expectedV4, diametersV4), textV4);
    // A version 4 reader meets EVHRAT where it expects POSAVR.
    EXPECT_EQ(SectionErrorOf<PileDiametersAndGroupEffectsSection>(diametersTextV5, diametersV4),
              ImportErrorText(6, "Expected parameter 'POSAVR' not found or incorrectly defined",
                              "PILE DIAMETERS AND GROUP EFFECTS SECTION", evhratLine.substr(0, evhratLine.size() - 1)));
}

TEST(PileDiametersAndGroupEffectsSection, NoDiametersIsALineWithTheCommentOnly) {
    // What a new profile writes.
    const std::string text = WriteSection(PileDiametersAndGroupEffectsSection(), diametersV5);
    EXPECT_NE(text.find("\n         0 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
                        " DIAMETERS IN INCREASING ORDER\n"),
              std::string::npos)
        << text;
    // Read over diameters held before, a count of 0 or a negative count
    // leaves none; both are written back as 0.
    PileDiametersAndGroupEffectsSection held;
    held.diameters = {Length(1.0)};
    for (const char* count : {"         0 NUMDIA", "        -2 NUMDIA"}) {
        const auto section = ReadSection<PileDiametersAndGroupEffectsSection>(
            Replaced(text, "         0 NUMDIA", count), diametersV5, "kN", "m", held);
        EXPECT_EQ(section, PileDiametersAndGroupEffectsSection()) << count;
        EXPECT_EQ(WriteSection(section, diametersV5), text);
    }

    // Fewer diameters than NUMDIA.
    const std::string fewer = Replaced(diametersTextV5, "       2.4 DIAM", " DIAM");
    EXPECT_EQ(SectionErrorOf<PileDiametersAndGroupEffectsSection>(fewer, diametersV5),
              ImportErrorText(3, "Error parsing argument: 2, expected vector of size: 3",
                              "PILE DIAMETERS AND GROUP EFFECTS SECTION",
                              "       0.9       1.8 DIAMETERS IN INCREASING ORDER"));
}

// --- SOIL SURFACE AND GROUND WATER SECTION ---

const std::string surfaceText =
    "*** SOIL SURFACE AND GROUND WATER SECTION ***\n"
    "      25.5 ZSURF   Z-LEVEL OF NON-SCOURED SOIL SURFACE\n"
    "       1.5 SCRGEN  DEPTH OF GENERAL SCOUR BELOW ZSURF\n"
    "      2.25 SCRLOC  DEPTH OF LOCAL SCOUR BELOW ZSURF\n"
    "      30.0 SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES\n"
    "      -4.0 ZGRWT   Z-LEVEL OF GROUND WATER TABLE\n"
    "     10.25 GAMPWP  UNIT WEIGHT OF GROUND WATER (USED TO FIND PORE WATER PRSS)\n";

TEST(SoilSurfaceAndGroundWaterSection, LevelsAndWaterConvertTheSlopeInDegreesDoesNot) {
    const auto section = ReadSection<SoilSurfaceAndGroundWaterSection>(surfaceText, Uncounted);
    EXPECT_EQ(section.ZSURF, Length(25.5));
    EXPECT_EQ(section.SCRGEN, Length(1.5));
    EXPECT_EQ(section.SCRLOC, Length(2.25));
    EXPECT_EQ(section.SLOPE, 30.0);
    EXPECT_EQ(section.ZGRWT, Length(-4.0));
    EXPECT_EQ(section.GAMPWP, ForcePerVolume(10250.0));
    EXPECT_EQ(WriteSection(section, Uncounted), surfaceText);

    // Degrees are degrees in every unit system.
    const auto inMillimetres = ReadSection<SoilSurfaceAndGroundWaterSection>(surfaceText, Uncounted, "N", "mm");
    EXPECT_EQ(inMillimetres.ZSURF, Length(0.0255));
    EXPECT_EQ(inMillimetres.SLOPE, 30.0);
    auto awkward = section;
    awkward.ZSURF = Length(1.0 / 3.0);
    awkward.SLOPE = 0.1 + 0.2;
    ExpectRoundTrips(awkward, Uncounted);

    EXPECT_EQ(SectionErrorOf<SoilSurfaceAndGroundWaterSection>(
                  Replaced(surfaceText, "      30.0 SLOPE", "       ABC SLOPE"), Uncounted),
              ImportErrorText(5, "Expected parameter 'SLOPE' not found or incorrectly defined",
                              "SOIL SURFACE AND GROUND WATER SECTION",
                              "       ABC SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES"));

    // A new profile has sea water as ground water (the control section's
    // default unit weight of water, 10.0518 kN/m3), and every level 0.
    const SoilSurfaceAndGroundWaterSection fresh;
    EXPECT_EQ(fresh.GAMPWP, ControlSection().GAMMAW);
    EXPECT_EQ(fresh.GAMPWP, ForcePerVolume(10051.8));
    EXPECT_EQ(fresh.ZSURF, Length(0.0));
    EXPECT_EQ(fresh.SLOPE, 0.0);
}

// --- LOADS AT SOIL SURFACE SECTION ---

const std::string loadsText =
    "*** LOADS AT SOIL SURFACE SECTION ***\n"
    "      12.5 SIGSRF  VERTICAL STRESS AT SURFACE\n"
    "      40.0 DPEMB   VERTICAL STRESS UNDER EMBANKMENT LOADING\n"
    "      15.0 AEMB    WIDTH A OF EMBANKMENT SLOPING PART\n"
    "      -3.5 BEMB    PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)\n"
    "      20.0 DPCIRC  VERTICAL STRESS UNDER CIRCULAR LOADED AREA\n"
    "       8.0 RADIUS  RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)\n"
    "         2 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
    "     150.0     275.5 POINT FORCE VALUES\n"
    "       4.0      6.25 HORIZONTAL DISTANCE TO PILE AXIS\n";

TEST(LoadsAtSoilSurfaceSection, ReadsLoadsAndPointForcesAndWritesThemBack) {
    const auto section = ReadSection<LoadsAtSoilSurfaceSection>(loadsText, Uncounted);
    EXPECT_EQ(section, (LoadsAtSoilSurfaceSection{ForcePerArea(12500.0), ForcePerArea(40000.0), Length(15.0),
                                                  Length(-3.5), ForcePerArea(20000.0), Length(8.0),
                                                  {Force(150000.0), Force(275500.0)}, {Length(4.0), Length(6.25)}}));
    EXPECT_EQ(WriteSection(section, Uncounted), loadsText);

    auto awkward = section;
    awkward.pointForces = {Force(1.0 / 3.0), Force(0.1 + 0.2), Force(-7e-9)};
    awkward.distances = {Length(2.0 / 3.0), Length(1e5), Length(0.0)};
    ExpectRoundTrips(awkward, Uncounted);

    EXPECT_EQ(SectionErrorOf<LoadsAtSoilSurfaceSection>(Replaced(loadsText, "      6.25 HORIZONTAL", " HORIZONTAL"),
                                                        Uncounted),
              ImportErrorText(10, "Error parsing argument: 1, expected vector of size: 2",
                              "LOADS AT SOIL SURFACE SECTION", "       4.0 HORIZONTAL DISTANCE TO PILE AXIS"));
}

TEST(LoadsAtSoilSurfaceSection, NoPointForcesGiveTwoEmptyVectors) {
    const std::string emptyVectors =
        "         0 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
        " POINT FORCE VALUES\n"
        " HORIZONTAL DISTANCE TO PILE AXIS\n";
    const std::string text = WriteSection(LoadsAtSoilSurfaceSection(), Uncounted);
    EXPECT_NE(text.find(emptyVectors), std::string::npos) << text;

    // Read over point forces held before, none are left. Each empty vector
    // may be an empty line, and the separator before the next section is
    // still there.
    LoadsAtSoilSurfaceSection held;
    held.pointForces = {Force(1.0)};
    held.distances = {Length(1.0)};
    EXPECT_EQ(ReadSection<LoadsAtSoilSurfaceSection>(text, Uncounted, "kN", "m", held), LoadsAtSoilSurfaceSection());
    const std::string emptyLines = Replaced(text, emptyVectors, "         0 NUMFRC\n\n\n") +
                                   "\n*** SOIL TYPE AND PROPERTY SECTION ***\n";
    ReadText(emptyLines, [&](Importer& importer) {
        held.Serialize(importer);
        importer.BlankLine();
        EXPECT_EQ(importer.GetLineCounter(), 12u);
    });
    EXPECT_EQ(held, LoadsAtSoilSurfaceSection());
}

// --- SOIL TYPE AND PROPERTY SECTION ---

using SoilType = SoilTypeAndPropertySectionRecord;

const std::string soilTypeTitleAndHeader =
    "*** SOIL TYPE AND PROPERTY SECTION ***\n"
    "TYP       GAMTOT    PHI       SU.Z=0    SU.Z=100  EPSC      OCR       API-J     GAP       RPRAT     TZZRES\n";
const std::string sandFirstLine = "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5";
const std::string sandSecondLine = "         1       0.8      0.01";

const std::string soilTypeText = soilTypeTitleAndHeader + sandFirstLine + "\n" + sandSecondLine + "\n" +
                                 "         2      17.0       0.0      25.0     125.0      0.02       2.5      0.25\n"
                                 "         0       1.0     0.015\n";

TEST(SoilTypeAndPropertySection, ReadsTwoLineRecordsAndWritesThemBack) {
    const auto section = ReadSection<SoilTypeAndPropertySection>(soilTypeText, Counted(2));
    EXPECT_EQ(section.records,
              (std::vector<SoilType>{{1, ForcePerVolume(19500.0), 32.0, ForcePerArea(0.0), ForcePerArea(0.0), 0.005,
                                      1.0, 0.5, 1, 0.8, Length(0.01)},
                                     {2, ForcePerVolume(17000.0), 0.0, ForcePerArea(25000.0), ForcePerArea(125000.0),
                                      0.02, 2.5, 0.25, 0, 1.0, Length(0.015)}}));
    EXPECT_EQ(WriteSection(section, Counted(2)), soilTypeText);

    // GAMTOT, the strengths and TZZRES follow the units; the rest does not.
    auto inMillimetres = section;
    inMillimetres.records[0].GAMTOT = ForcePerVolume(19.5e9);
    inMillimetres.records[0].TZZRES = Length(1e-5);
    inMillimetres.records[1].GAMTOT = ForcePerVolume(17e9);
    inMillimetres.records[1].SU_Z0 = ForcePerArea(25e6);
    inMillimetres.records[1].SU_Z100 = ForcePerArea(125e6);
    inMillimetres.records[1].TZZRES = Length(15e-6);
    EXPECT_EQ(ReadSection<SoilTypeAndPropertySection>(soilTypeText, Counted(2), "N", "mm"), inMillimetres);

    auto awkward = section;
    awkward.records[1].SU_Z100 = ForcePerArea(1.0 / 3.0);
    awkward.records[1].TZZRES = Length(0.1 + 0.2);
    awkward.records[1].PHI = 2.0 / 3.0;
    ExpectRoundTrips(awkward, Counted(2));

    // Comments between and within records, CRLF, tabs, and integers truncated
    // toward zero.
    const std::string handWritten =
        "*** SOIL TYPE AND PROPERTY SECTION ***\r\n"
        "TYP\tGAMTOT\tPHI\tSU.Z=0\tSU.Z=100\tEPSC\tOCR\tAPI-J\tGAP\tRPRAT\tTZZRES\r\n"
        "* dense sand\r\n"
        "1.9\t19.5\t32.0\t0.0\t0.0\t0.005\t1.0\t0.5\r\n"
        "C first soil type, second line\r\n"
        "  1.7   0.8   0.01 \r\n"
        "*\r\n"
        "2 17.0 0 25 125 0.02 2.5 0.25\r\n"
        "-0.5 1 0.015\r\n";
    EXPECT_EQ(ReadSection<SoilTypeAndPropertySection>(handWritten, Counted(2)), section);
}

TEST(SoilTypeAndPropertySection, FindLayerFindsTheFirstRecordOfTheSoilType) {
    SoilTypeAndPropertySection section;
    for (int type : {4, 7, 4}) section.records.emplace_back().TYP = type;
    EXPECT_EQ(section.FindLayer(LayerOf(4)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(7)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(5)), section.records.end());
    // No soil types: no record, and the title and header alone are written.
    const SoilTypeAndPropertySection none;
    EXPECT_EQ(none.FindLayer(LayerOf(4)), none.records.end());
    EXPECT_EQ(WriteSection(none, Counted(0)), soilTypeTitleAndHeader);
}

TEST(SoilTypeAndPropertySection, BadRowsGiveTheErrorOfTheirLine) {
    const std::string title = "SOIL TYPE AND PROPERTY SECTION";
    auto errorOf = [](const std::string& text, std::size_t count) {
        return SectionErrorOf<SoilTypeAndPropertySection>(text, Counted(count));
    };
    const std::string tooMany = sandFirstLine + "       1.0";
    EXPECT_EQ(errorOf(soilTypeTitleAndHeader + tooMany + "\n" + sandSecondLine + "\n", 1),
              ImportErrorText(3, "Expected end of line of record.", title, tooMany));

    // A record on one line: the first line has three values too many.
    EXPECT_EQ(errorOf(soilTypeTitleAndHeader + sandFirstLine + sandSecondLine + "\n", 1),
              ImportErrorText(3, "Expected end of line of record.", title, sandFirstLine + sandSecondLine));

    const std::string notANumber = Replaced(sandFirstLine, "      32.0", "       ABC");
    EXPECT_EQ(errorOf(soilTypeTitleAndHeader + notANumber + "\n" + sandSecondLine + "\n", 1),
              ImportErrorText(3, "Error parsing argument: 2", title, notANumber));

    // Fields are counted over both lines of the record: RPRAT is the tenth.
    // A comment line before the failing line is where the error is reported:
    // the first line after the last one read.
    EXPECT_EQ(errorOf(soilTypeText +
                          "         3      18.0      28.0       0.0       0.0      0.01       1.0       0.5\n"
                          "* the gap option of this soil is not known yet\n"
                          "         1       ABC      0.01\n",
                      3),
              ImportErrorText(8, "Error parsing argument: 9", title, "* the gap option of this soil is not known yet"));

    EXPECT_EQ(errorOf("*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***\n", 0),
              ImportErrorText(1, "Unable to find section", title, "*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***"));
}

// --- SOIL MAIN LAYERS AND PROPERTIES SECTION ---

using MainLayer = SoilMainLayersAndPropertiesSectionRecord;

const std::string mainLayersTitle = "*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***\n";
const std::string mainLayersHeader = "MAIN  ZBOTM GAMTOT CPTTOP CPTBOT  PHI   DR  SUTOP  SUBOT   IP   EPSC  API-J";
const std::string mainLayersTitleAndHeaderWithAK = mainLayersTitle + mainLayersHeader + "  AK\nLAYER\n";
const std::string mainLayersTitleAndHeaderWithoutAK = mainLayersTitle + mainLayersHeader + "\nLAYER\n";
const std::string sandMainLayerFirstLine =
    "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n";

const std::string mainLayersWithAK = mainLayersTitleAndHeaderWithAK + sandMainLayerFirstLine +
                                     "       0.0         0       0.0       0.5     120.0\n"
                                     "         2      12.0      17.5       0.8       1.2       0.0       0.0      40.0\n"
                                     "      60.0        30      0.01      0.25      80.0\n";

// The same without the AK column.
const std::string mainLayersWithoutAK =
    Replaced(Replaced(Replaced(mainLayersWithAK, "  AK\n", "\n"), "     120.0\n", "\n"), "      80.0\n", "\n");

TEST(SoilMainLayersAndPropertiesSection, ReadsTheTableWithAKAndWritesItBack) {
    const auto section = ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2));
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithAK));
    EXPECT_EQ(section.records, (std::vector<MainLayer>{
                                   {1, Length(5.5), 19.0, 2.5, 4.0, 35.0, 0.65, 0.0, 0.0, 0, 0.0, 0.5, 120.0},
                                   {2, Length(12.0), 17.5, 0.8, 1.2, 0.0, 0.0, 40.0, 60.0, 30, 0.01, 0.25, 80.0}}));
    EXPECT_EQ(WriteSection(section, Counted(2)), mainLayersWithAK);

    // Only ZBOTM is a length of the file; the other columns stay as read.
    auto inMillimetres = section;
    inMillimetres.records[0].ZBOTM = Length(0.0055);
    inMillimetres.records[1].ZBOTM = Length(0.012);
    EXPECT_EQ(ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2), "N", "mm"), inMillimetres);
    ExpectRoundTrips(section, Counted(2));
}

TEST(SoilMainLayersAndPropertiesSection, ReadsTheTableWithoutAKAndWritesItSo) {
    const auto section = ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersWithoutAK, Counted(2));
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithoutAK));
    // The same rows as the table with AK, AK 0.
    auto withAK = ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2));
    withAK.layoutRevision = static_cast<int>(Revision::WithoutAK);
    withAK.records[0].AK = withAK.records[1].AK = 0.0;
    EXPECT_EQ(section, withAK);
    EXPECT_EQ(WriteSection(section, Counted(2)), mainLayersWithoutAK);
    ExpectRoundTrips(section, Counted(2));
}

TEST(SoilMainLayersAndPropertiesSection, AnUnsettledSectionIsWrittenWithAK) {
    SoilMainLayersAndPropertiesSection section;
    EXPECT_EQ(WriteSection(section, Counted(0)), mainLayersTitleAndHeaderWithAK);
    section.records.resize(1);
    const std::string written = WriteText([&](Exporter& exporter) { section.Serialize(exporter, 1); });
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithAK));
    EXPECT_EQ(written, mainLayersTitleAndHeaderWithAK +
                           "         0       0.0       0.0       0.0       0.0       0.0       0.0       0.0\n"
                           "       0.0         0       0.0       0.0       0.0\n");

    // No main layers: title and both header lines, in either layout.
    SoilMainLayersAndPropertiesSection held;
    held.records.resize(2);
    held = ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersTitleAndHeaderWithoutAK, Counted(0), "kN", "m",
                                                           held);
    EXPECT_TRUE(held.records.empty());
    EXPECT_EQ(held.layoutRevision, static_cast<int>(Revision::WithoutAK));
    EXPECT_EQ(WriteSection(held, Counted(0)), mainLayersTitleAndHeaderWithoutAK);
}

TEST(SoilMainLayersAndPropertiesSection, WhenNeitherLayoutReadsTheErrorWithoutAKReachesTheCaller) {
    const std::string title = "SOIL MAIN LAYERS AND PROPERTIES SECTION";
    auto errorOf = [](const std::string& text, std::size_t count, SoilMainLayersAndPropertiesSection section = {}) {
        return SectionErrorOf<SoilMainLayersAndPropertiesSection>(text, Counted(count), section);
    };
    const std::string headerWithAKFails =
        ImportErrorText(2, "Unable to find section", title, mainLayersHeader + "  AK");

    // A section set to the layout without AK reads only that layout.
    SoilMainLayersAndPropertiesSection withoutAK;
    withoutAK.layoutRevision = static_cast<int>(Revision::WithoutAK);
    EXPECT_EQ(ReadSection<SoilMainLayersAndPropertiesSection>(mainLayersWithoutAK, Counted(2), "kN", "m", withoutAK)
                  .records.size(),
              2u);
    EXPECT_EQ(errorOf(mainLayersWithAK, 2, withoutAK), headerWithAKFails);

    // The header has no AK; the second main layer has "ABC" for CPTTOP.
    const std::string badValue = Replaced(mainLayersWithoutAK, "17.5       0.8", "17.5       ABC");
    EXPECT_EQ(errorOf(badValue, 2),
              ImportErrorText(6, "Error parsing argument: 3", title,
                              "         2      12.0      17.5       ABC       1.2       0.0       0.0      40.0"));

    // The header has AK but the rows have not: without AK the header fails.
    EXPECT_EQ(errorOf(mainLayersTitleAndHeaderWithAK + sandMainLayerFirstLine +
                          "       0.0         0       0.0       0.5\n",
                      1),
              headerWithAKFails);

    // NUMLAYM says 3, but the next section follows the second main layer.
    EXPECT_EQ(errorOf(mainLayersWithoutAK + "\n*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n", 3),
              ImportErrorText(8, "Error parsing argument: 0", title, ""));
}

TEST(SoilMainLayersAndPropertiesSection, FindLayerFindsTheFirstRecordOfTheMainLayer) {
    SoilMainLayersAndPropertiesSection section;
    for (int main : {1, 2, 1}) section.records.emplace_back().MAIN = main;
    EXPECT_EQ(section.FindLayer(LayerOf(1)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(2)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(3)), section.records.end());
}

// --- GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION ---

using Displacement = GivenSoilDisplacementsAndOpenHoleSectionRecord;

const std::string displacementsTitleAndHeader =
    "*** GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION ***\n"
    "ZLEV  DSP-X  DSP-Y  DSP-Z  HOLE-DIAM\n";

const std::string displacementsText = displacementsTitleAndHeader +
                                      "      10.0      0.05       0.0    -0.002       3.0\n"
                                      "       2.0       0.0       0.1       0.0       0.0\n";

Displacement MakeDisplacement(double z, double x, double y, double dz, double hole) {
    return Displacement{Length(z), Length(x), Length(y), Length(dz), Length(hole)};
}

TEST(GivenSoilDisplacementsAndOpenHoleSection, ReadsFiveLengthsPerLevelInFileOrder) {
    const auto section = ReadSection<GivenSoilDisplacementsAndOpenHoleSection>(displacementsText, Counted(2));
    EXPECT_EQ(section.records, (std::vector<Displacement>{MakeDisplacement(10.0, 0.05, 0.0, -0.002, 3.0),
                                                          MakeDisplacement(2.0, 0.0, 0.1, 0.0, 0.0)}));
    EXPECT_EQ(WriteSection(section, Counted(2)), displacementsText);

    // All five columns are lengths.
    EXPECT_EQ(ReadSection<GivenSoilDisplacementsAndOpenHoleSection>(displacementsText, Counted(2), "N", "cm").records,
              (std::vector<Displacement>{MakeDisplacement(0.1, 0.0005, 0.0, -0.00002, 0.03),
                                         MakeDisplacement(0.02, 0.0, 0.001, 0.0, 0.0)}));
    ExpectRoundTrips(section, Counted(2));
    // No levels: title and header only.
    EXPECT_EQ(WriteSection(GivenSoilDisplacementsAndOpenHoleSection(), Counted(0)), displacementsTitleAndHeader);

    // NUMDSP says 3, but the profile ends after two levels.
    EXPECT_EQ(SectionErrorOf<GivenSoilDisplacementsAndOpenHoleSection>(
                  displacementsText + "\nEND OF TERRIX INPUT FILE\n", Counted(3)),
              ImportErrorText(5, "Error parsing argument: 0", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", ""));
}

// --- Pile-soil-pile interaction and pile scour data ---
// Values that a profile keeps but never writes, so only their comparison can
// be checked.

TEST(PileSoilPileInteractionAndPileScourSection, ComparesItsRecordsMemberByMember) {
    using Section = PileSoilPileInteractionAndPileScourSection;
    const Section section{{{2, "LEG A2", 1.5}}};
    EXPECT_EQ((Section{{{2, "LEG A2", 1.5}}}), section);
    EXPECT_NE((Section{{{2, "LEG A3", 1.5}}}), section);
    EXPECT_NE((Section{{{2, "LEG A2", 1.25}}}), section);
    EXPECT_NE((Section{{{2, "LEG A2", 1.5}, {2, "LEG A2", 1.5}}}), section);
}

}  // namespace
