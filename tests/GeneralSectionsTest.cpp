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

// How each section is read and written.
const auto plain = [](auto& section, auto& archive) { section.Serialize(archive); };
const auto diametersV4 = [](auto& section, auto& archive) { section.Serialize(archive, false); };
const auto diametersV5 = [](auto& section, auto& archive) { section.Serialize(archive, true); };

template <class Section, class Serialize>
Section Read(const std::string& text, const Serialize& serialize, const std::string& force = "kN",
             const std::string& length = "m", Section section = Section()) {
    ReadText(text, [&](Importer& importer) { serialize(section, importer); }, force, length);
    return section;
}

template <class Section, class Serialize>
std::string Write(Section section, const Serialize& serialize, const std::string& force = "kN",
                  const std::string& length = "m") {
    return WriteText([&](Exporter& exporter) { serialize(section, exporter); }, force, length);
}

// The section written in the named units and read back in the same units.
template <class Section, class Serialize>
Section ReadBack(const Section& section, const Serialize& serialize, const std::string& force,
                 const std::string& length) {
    return Read<Section>(Write(section, serialize, force, length), serialize, force, length);
}

// The whole import error that reading `text` raises.
template <class Section, class Serialize>
std::string ErrorOf(const std::string& text, const Serialize& serialize, Section section = Section()) {
    return ImportErrorOf([&] { Read<Section>(text, serialize, "kN", "m", section); });
}

// A table section told its number of rows, as the profile tells it from the
// control section's counts.
auto Counted(std::size_t count) {
    return [count](auto& section, auto& archive) { section.Serialize(archive, count); };
}

Layer LayerOf(int mainLayer) {
    Layer layer;
    layer.mainLayer = mainLayer;
    layer.firstLayer = 1;
    layer.layerCount = 1;
    return layer;
}

// ---------------------------------------------------------------------------
// MATERIAL COEFFICIENTS SECTION

const std::string materialText =
    "*** MATERIAL COEFFICIENTS SECTION ***\n"
    "      1.25 SFTPHI  MATERIAL COEFFICIENT ON TAN(PHI)\n"
    "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH\n"
    "       1.0 SFSKF   MATERIAL COEFFICIENT ON PILE SKIN FRICTION\n"
    "      1.15 SFSIGT  MATERIAL COEFFICIENT ON PILE TIP RESISTANCE\n";

TEST(MaterialCoefficientsSection, ReadsTheFourCoefficientsAndWritesThemBack) {
    const auto section = Read<MaterialCoefficientsSection>(materialText, plain);
    EXPECT_EQ(section.SFTPHI, 1.25);
    EXPECT_EQ(section.SFSU, 1.4);
    EXPECT_EQ(section.SFSKF, 1.0);
    EXPECT_EQ(section.SFSIGT, 1.15);
    EXPECT_EQ(Write(section, plain), materialText);
}

TEST(MaterialCoefficientsSection, CoefficientsAreFactorsThatNoUnitSystemChanges) {
    // Read in N and mm, the numbers stay as they stand in the text.
    const auto section = Read<MaterialCoefficientsSection>(materialText, plain, "N", "mm");
    EXPECT_EQ(section.SFSU, 1.4);
    EXPECT_EQ(Write(section, plain, "N", "mm"), materialText);

    MaterialCoefficientsSection awkward;
    awkward.SFTPHI = 1.0 / 3.0;
    awkward.SFSU = 0.1 + 0.2;
    awkward.SFSKF = 1e-300;
    awkward.SFSIGT = -12345.678901234567;
    EXPECT_EQ(ReadBack(awkward, plain, "kN", "m"), awkward);
    EXPECT_EQ(ReadBack(awkward, plain, "N", "mm"), awkward);
}

TEST(MaterialCoefficientsSection, NewProfileLeavesValuesAsTheyAre) {
    // A coefficient of 1.0 changes nothing it is applied to.
    const MaterialCoefficientsSection section;
    EXPECT_EQ(section.SFTPHI, 1.0);
    EXPECT_EQ(section.SFSU, 1.0);
    EXPECT_EQ(section.SFSKF, 1.0);
    EXPECT_EQ(section.SFSIGT, 1.0);
}

TEST(MaterialCoefficientsSection, ParametersOutOfOrderFailAtTheFirstOneMisplaced) {
    const std::string swapped =
        "*** MATERIAL COEFFICIENTS SECTION ***\n"
        "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH\n"
        "      1.25 SFTPHI  MATERIAL COEFFICIENT ON TAN(PHI)\n"
        "       1.0 SFSKF   MATERIAL COEFFICIENT ON PILE SKIN FRICTION\n"
        "      1.15 SFSIGT  MATERIAL COEFFICIENT ON PILE TIP RESISTANCE\n";
    EXPECT_EQ(ErrorOf<MaterialCoefficientsSection>(swapped, plain),
              ImportErrorText(2, "Expected parameter 'SFTPHI' not found or incorrectly defined",
                              "MATERIAL COEFFICIENTS SECTION",
                              "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH"));

    const std::string missing =
        "*** MATERIAL COEFFICIENTS SECTION ***\n"
        "      1.25 SFTPHI  MATERIAL COEFFICIENT ON TAN(PHI)\n"
        "       1.4 SFSU    MATERIAL COEFFICIENT ON UNDRAINED SHEAR STRENGTH\n"
        "       1.0 SFSKF   MATERIAL COEFFICIENT ON PILE SKIN FRICTION\n"
        "\n"
        "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n";
    EXPECT_EQ(ErrorOf<MaterialCoefficientsSection>(missing, plain),
              ImportErrorText(5, "Expected parameter 'SFSIGT' not found or incorrectly defined",
                              "MATERIAL COEFFICIENTS SECTION", ""));
}

// ---------------------------------------------------------------------------
// PILE DIAMETERS AND GROUP EFFECTS SECTION

const std::string diametersTextV5 =
    "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
    "         3 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
    "       0.9       1.8       2.4 DIAMETERS IN INCREASING ORDER\n"
    "   12000.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
    "     350.5 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n"
    "       0.8 EVHRAT       RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT\n"
    "      0.35 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n";

const std::string diametersTextV4 =
    "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
    "         3 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
    "       0.9       1.8       2.4 DIAMETERS IN INCREASING ORDER\n"
    "   12000.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
    "     350.5 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n"
    "      0.35 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n";

TEST(PileDiametersAndGroupEffectsSection, ReadsVersion5AndWritesItBack) {
    const auto section = Read<PileDiametersAndGroupEffectsSection>(diametersTextV5, diametersV5);
    EXPECT_EQ(section.diameters, (std::vector<Length>{Length(0.9), Length(1.8), Length(2.4)}));
    // 12000 kN/m2 and 350.5 kN/m3 in N/m2 and N/m3.
    EXPECT_EQ(section.ESOL0, ForcePerArea(12e6));
    EXPECT_EQ(section.ESOL1, ForcePerVolume(350500.0));
    EXPECT_EQ(section.EVHRAT, 0.8);
    EXPECT_EQ(section.POSAVR, 0.35);
    EXPECT_EQ(Write(section, diametersV5), diametersTextV5);

    // In N and mm: the diameters in mm, the moduli in N/mm2 and N/mm3, the
    // two ratios as they are.
    EXPECT_EQ(Write(section, diametersV5, "N", "mm"),
              "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
              "         3 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
              "     900.0    1800.0    2400.0 DIAMETERS IN INCREASING ORDER\n"
              "      12.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
              " 0.0003505 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n"
              "       0.8 EVHRAT       RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT\n"
              "      0.35 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n");
    EXPECT_EQ(ReadBack(section, diametersV5, "kN", "m"), section);
    EXPECT_EQ(ReadBack(section, diametersV5, "N", "mm"), section);
}

TEST(PileDiametersAndGroupEffectsSection, Version4HasNoEVHRATLine) {
    const auto section = Read<PileDiametersAndGroupEffectsSection>(diametersTextV4, diametersV4);
    EXPECT_EQ(section.diameters.size(), 3u);
    EXPECT_EQ(section.POSAVR, 0.35);
    // Not in the text, so still the ratio of isotropic soil.
    EXPECT_EQ(section.EVHRAT, 1.0);

    auto anisotropic = section;
    anisotropic.EVHRAT = 2.0;
    EXPECT_EQ(Write(anisotropic, diametersV4), diametersTextV4);

    // A version 4 reader meets EVHRAT where it expects POSAVR.
    EXPECT_EQ(ErrorOf<PileDiametersAndGroupEffectsSection>(diametersTextV5, diametersV4),
              ImportErrorText(6, "Expected parameter 'POSAVR' not found or incorrectly defined",
                              "PILE DIAMETERS AND GROUP EFFECTS SECTION",
                              "       0.8 EVHRAT       RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT"));
}

TEST(PileDiametersAndGroupEffectsSection, NoDiametersIsALineWithTheCommentOnly) {
    const std::string text =
        "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
        "         0 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
        " DIAMETERS IN INCREASING ORDER\n"
        "       0.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
        "       0.0 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n"
        "       1.0 EVHRAT       RATIO EV(Z) / EH(Z), EV(Z) = E-SOIL FOR AXIAL GROUP EFFECT\n"
        "       0.0 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n";
    auto held = PileDiametersAndGroupEffectsSection();
    held.diameters = {Length(1.0)};
    const auto section = Read<PileDiametersAndGroupEffectsSection>(text, diametersV5, "kN", "m", held);
    EXPECT_TRUE(section.diameters.empty());
    EXPECT_EQ(Write(section, diametersV5), text);
    // What a new profile writes.
    EXPECT_EQ(Write(PileDiametersAndGroupEffectsSection(), diametersV5), text);

    // A negative count reads no diameters either, and is written back as 0.
    std::string negative = text;
    negative.replace(negative.find("         0 NUMDIA"), 17, "        -2 NUMDIA");
    const auto none = Read<PileDiametersAndGroupEffectsSection>(negative, diametersV5, "kN", "m", held);
    EXPECT_TRUE(none.diameters.empty());
    EXPECT_EQ(Write(none, diametersV5), text);
}

TEST(PileDiametersAndGroupEffectsSection, KeepsTheDiametersInTheFileOrderOverSeveralLines) {
    PileDiametersAndGroupEffectsSection section;
    for (int i = 12; i >= 1; --i) section.diameters.emplace_back(i * 0.25);
    section.POSAVR = 0.3;
    const std::string text =
        "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
        "        12 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
        "       3.0      2.75       2.5      2.25       2.0      1.75       1.5      1.25\n"
        "       1.0      0.75       0.5      0.25 DIAMETERS IN INCREASING ORDER\n"
        "       0.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n"
        "       0.0 ESOL1        ESOIL(Z) = ESOL0 + ESOL1*Z\n"
        "       0.3 POSAVR  SOIL AVERAGE POISSON RATIO FOR GROUP EFFECTS\n";
    EXPECT_EQ(Write(section, diametersV4), text);
    // Decreasing, as given: nothing sorts them.
    EXPECT_EQ(Read<PileDiametersAndGroupEffectsSection>(text, diametersV4).diameters, section.diameters);
    EXPECT_EQ(ReadBack(section, diametersV4, "N", "mm"), section);
}

TEST(PileDiametersAndGroupEffectsSection, FewerDiametersThanNUMDIAFail) {
    const std::string text =
        "*** PILE DIAMETERS AND GROUP EFFECTS SECTION ***\n"
        "         3 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
        "       0.9       1.8 DIAMETERS IN INCREASING ORDER\n"
        "   12000.0 ESOL0   E-SOIL FOR GROUP EFFECT CALCULATION :\n";
    EXPECT_EQ(ErrorOf<PileDiametersAndGroupEffectsSection>(text, diametersV5),
              ImportErrorText(3, "Error parsing argument: 2, expected vector of size: 3",
                              "PILE DIAMETERS AND GROUP EFFECTS SECTION",
                              "       0.9       1.8 DIAMETERS IN INCREASING ORDER"));
}

// ---------------------------------------------------------------------------
// SOIL SURFACE AND GROUND WATER SECTION

const std::string surfaceText =
    "*** SOIL SURFACE AND GROUND WATER SECTION ***\n"
    "      25.5 ZSURF   Z-LEVEL OF NON-SCOURED SOIL SURFACE\n"
    "       1.5 SCRGEN  DEPTH OF GENERAL SCOUR BELOW ZSURF\n"
    "      2.25 SCRLOC  DEPTH OF LOCAL SCOUR BELOW ZSURF\n"
    "      30.0 SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES\n"
    "      -4.0 ZGRWT   Z-LEVEL OF GROUND WATER TABLE\n"
    "     10.25 GAMPWP  UNIT WEIGHT OF GROUND WATER (USED TO FIND PORE WATER PRSS)\n";

TEST(SoilSurfaceAndGroundWaterSection, ReadsLevelsAndWaterAndWritesThemBack) {
    const auto section = Read<SoilSurfaceAndGroundWaterSection>(surfaceText, plain);
    EXPECT_EQ(section.ZSURF, Length(25.5));
    EXPECT_EQ(section.SCRGEN, Length(1.5));
    EXPECT_EQ(section.SCRLOC, Length(2.25));
    EXPECT_EQ(section.SLOPE, 30.0);
    EXPECT_EQ(section.ZGRWT, Length(-4.0));
    EXPECT_EQ(section.GAMPWP, ForcePerVolume(10250.0));
    EXPECT_EQ(Write(section, plain), surfaceText);

    // Degrees are degrees in every unit system: only SLOPE keeps its number.
    EXPECT_EQ(Write(section, plain, "N", "mm"),
              "*** SOIL SURFACE AND GROUND WATER SECTION ***\n"
              "   25500.0 ZSURF   Z-LEVEL OF NON-SCOURED SOIL SURFACE\n"
              "    1500.0 SCRGEN  DEPTH OF GENERAL SCOUR BELOW ZSURF\n"
              "    2250.0 SCRLOC  DEPTH OF LOCAL SCOUR BELOW ZSURF\n"
              "      30.0 SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES\n"
              "   -4000.0 ZGRWT   Z-LEVEL OF GROUND WATER TABLE\n"
              " 1.025e-05 GAMPWP  UNIT WEIGHT OF GROUND WATER (USED TO FIND PORE WATER PRSS)\n");
    EXPECT_EQ(Read<SoilSurfaceAndGroundWaterSection>(surfaceText, plain, "N", "mm").SLOPE, 30.0);

    auto awkward = section;
    awkward.ZSURF = Length(1.0 / 3.0);
    awkward.SLOPE = 0.1 + 0.2;
    EXPECT_EQ(ReadBack(awkward, plain, "kN", "m"), awkward);
    EXPECT_EQ(ReadBack(awkward, plain, "N", "mm"), awkward);
}

TEST(SoilSurfaceAndGroundWaterSection, NewProfileHasSeaWaterAsGroundWater) {
    const SoilSurfaceAndGroundWaterSection section;
    EXPECT_EQ(section.GAMPWP, ControlSection().GAMMAW);
    EXPECT_EQ(section.GAMPWP, UnitSystem("kN", "m").ConvertFromUnitSystem<ForcePerUnitVolumePhenomenon>(10.0518));
    EXPECT_EQ(section.ZSURF, Length(0.0));
    EXPECT_EQ(section.SLOPE, 0.0);
}

TEST(SoilSurfaceAndGroundWaterSection, AMisspeltParameterNamesTheExpectedOne) {
    const std::string text =
        "*** SOIL SURFACE AND GROUND WATER SECTION ***\n"
        "      25.5 ZSURF   Z-LEVEL OF NON-SCOURED SOIL SURFACE\n"
        "       1.5 SCRGEN  DEPTH OF GENERAL SCOUR BELOW ZSURF\n"
        "      2.25 SCRLOC  DEPTH OF LOCAL SCOUR BELOW ZSURF\n"
        "       ABC SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES\n";
    EXPECT_EQ(ErrorOf<SoilSurfaceAndGroundWaterSection>(text, plain),
              ImportErrorText(5, "Expected parameter 'SLOPE' not found or incorrectly defined",
                              "SOIL SURFACE AND GROUND WATER SECTION",
                              "       ABC SLOPE   SIDE SLOPE (DEGREES) OF LOCAL SCOUR HOLES"));
}

// ---------------------------------------------------------------------------
// LOADS AT SOIL SURFACE SECTION

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
    const auto section = Read<LoadsAtSoilSurfaceSection>(loadsText, plain);
    EXPECT_EQ(section.SIGSRF, ForcePerArea(12500.0));
    EXPECT_EQ(section.DPEMB, ForcePerArea(40000.0));
    EXPECT_EQ(section.AEMB, Length(15.0));
    EXPECT_EQ(section.BEMB, Length(-3.5));
    EXPECT_EQ(section.DPCIRC, ForcePerArea(20000.0));
    EXPECT_EQ(section.RADIUS, Length(8.0));
    EXPECT_EQ(section.pointForces, (std::vector<Force>{Force(150000.0), Force(275500.0)}));
    EXPECT_EQ(section.distances, (std::vector<Length>{Length(4.0), Length(6.25)}));
    EXPECT_EQ(Write(section, plain), loadsText);

    EXPECT_EQ(Write(section, plain, "N", "mm"),
              "*** LOADS AT SOIL SURFACE SECTION ***\n"
              "    0.0125 SIGSRF  VERTICAL STRESS AT SURFACE\n"
              "      0.04 DPEMB   VERTICAL STRESS UNDER EMBANKMENT LOADING\n"
              "   15000.0 AEMB    WIDTH A OF EMBANKMENT SLOPING PART\n"
              "   -3500.0 BEMB    PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)\n"
              "      0.02 DPCIRC  VERTICAL STRESS UNDER CIRCULAR LOADED AREA\n"
              "    8000.0 RADIUS  RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)\n"
              "         2 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
              "  150000.0  275500.0 POINT FORCE VALUES\n"
              "    4000.0    6250.0 HORIZONTAL DISTANCE TO PILE AXIS\n");

    auto awkward = section;
    awkward.pointForces = {Force(1.0 / 3.0), Force(0.1 + 0.2), Force(-7e-9)};
    awkward.distances = {Length(2.0 / 3.0), Length(1e5), Length(0.0)};
    EXPECT_EQ(ReadBack(awkward, plain, "kN", "m"), awkward);
    EXPECT_EQ(ReadBack(awkward, plain, "N", "mm"), awkward);
}

TEST(LoadsAtSoilSurfaceSection, NoPointForcesGiveTwoEmptyVectors) {
    const std::string text =
        "*** LOADS AT SOIL SURFACE SECTION ***\n"
        "       0.0 SIGSRF  VERTICAL STRESS AT SURFACE\n"
        "       0.0 DPEMB   VERTICAL STRESS UNDER EMBANKMENT LOADING\n"
        "       0.0 AEMB    WIDTH A OF EMBANKMENT SLOPING PART\n"
        "       0.0 BEMB    PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)\n"
        "       0.0 DPCIRC  VERTICAL STRESS UNDER CIRCULAR LOADED AREA\n"
        "       0.0 RADIUS  RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)\n"
        "         0 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
        " POINT FORCE VALUES\n"
        " HORIZONTAL DISTANCE TO PILE AXIS\n";
    LoadsAtSoilSurfaceSection held;
    held.pointForces = {Force(1.0)};
    held.distances = {Length(1.0)};
    const auto section = Read<LoadsAtSoilSurfaceSection>(text, plain, "kN", "m", held);
    EXPECT_TRUE(section.pointForces.empty());
    EXPECT_TRUE(section.distances.empty());
    EXPECT_EQ(Write(section, plain), text);
    EXPECT_EQ(Write(LoadsAtSoilSurfaceSection(), plain), text);

    // Each empty vector still has its line; an empty line serves as well.
    const std::string emptyLines =
        "*** LOADS AT SOIL SURFACE SECTION ***\n"
        "      12.5 SIGSRF  VERTICAL STRESS AT SURFACE\n"
        "       0.0 DPEMB   VERTICAL STRESS UNDER EMBANKMENT LOADING\n"
        "       0.0 AEMB    WIDTH A OF EMBANKMENT SLOPING PART\n"
        "       0.0 BEMB    PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)\n"
        "       0.0 DPCIRC  VERTICAL STRESS UNDER CIRCULAR LOADED AREA\n"
        "       0.0 RADIUS  RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)\n"
        "         0 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
        "\n"
        "\n"
        "\n"
        "*** SOIL TYPE AND PROPERTY SECTION ***\n";
    ReadText(emptyLines, [](Importer& importer) {
        LoadsAtSoilSurfaceSection read;
        read.Serialize(importer);
        EXPECT_EQ(read.SIGSRF, ForcePerArea(12500.0));
        EXPECT_TRUE(read.pointForces.empty());
        // The separator before the next section is still there.
        importer.BlankLine();
        EXPECT_EQ(importer.GetLineCounter(), 12u);
    });
}

TEST(LoadsAtSoilSurfaceSection, FewerDistancesThanNUMFRCFail) {
    const std::string text =
        "*** LOADS AT SOIL SURFACE SECTION ***\n"
        "      12.5 SIGSRF  VERTICAL STRESS AT SURFACE\n"
        "      40.0 DPEMB   VERTICAL STRESS UNDER EMBANKMENT LOADING\n"
        "      15.0 AEMB    WIDTH A OF EMBANKMENT SLOPING PART\n"
        "      -3.5 BEMB    PILE POSITION W.R.T. EMBANKMENT TOE (POSITIVE OUTSIDE)\n"
        "      20.0 DPCIRC  VERTICAL STRESS UNDER CIRCULAR LOADED AREA\n"
        "       8.0 RADIUS  RADIUS OF CIRCULAR LOADED AREA (PILE IS IN CENTER)\n"
        "         2 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
        "     150.0     275.5 POINT FORCE VALUES\n"
        "       4.0 HORIZONTAL DISTANCE TO PILE AXIS\n";
    EXPECT_EQ(ErrorOf<LoadsAtSoilSurfaceSection>(text, plain),
              ImportErrorText(10, "Error parsing argument: 1, expected vector of size: 2",
                              "LOADS AT SOIL SURFACE SECTION", "       4.0 HORIZONTAL DISTANCE TO PILE AXIS"));
}

// ---------------------------------------------------------------------------
// SOIL TYPE AND PROPERTY SECTION

const std::string soilTypeTitleAndHeader =
    "*** SOIL TYPE AND PROPERTY SECTION ***\n"
    "TYP       GAMTOT    PHI       SU.Z=0    SU.Z=100  EPSC      OCR       API-J     GAP       RPRAT     TZZRES\n";

const std::string soilTypeText = soilTypeTitleAndHeader +
                                 "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5\n"
                                 "         1       0.8      0.01\n"
                                 "         2      17.0       0.0      25.0     125.0      0.02       2.5      0.25\n"
                                 "         0       1.0     0.015\n";

TEST(SoilTypeAndPropertySection, ReadsTwoLineRecordsAndWritesThemBack) {
    const auto section = Read<SoilTypeAndPropertySection>(soilTypeText, Counted(2));
    ASSERT_EQ(section.records.size(), 2u);
    const SoilTypeAndPropertySectionRecord& sand = section.records[0];
    EXPECT_EQ(sand.TYP, 1);
    EXPECT_EQ(sand.GAMTOT, ForcePerVolume(19500.0));
    EXPECT_EQ(sand.PHI, 32.0);
    EXPECT_EQ(sand.SU_Z0, ForcePerArea(0.0));
    EXPECT_EQ(sand.SU_Z100, ForcePerArea(0.0));
    EXPECT_EQ(sand.EPSC, 0.005);
    EXPECT_EQ(sand.OCR, 1.0);
    EXPECT_EQ(sand.API_J, 0.5);
    EXPECT_EQ(sand.GAP, 1);
    EXPECT_EQ(sand.RPRAT, 0.8);
    EXPECT_EQ(sand.TZZRES, Length(0.01));
    const SoilTypeAndPropertySectionRecord& clay = section.records[1];
    EXPECT_EQ(clay.TYP, 2);
    EXPECT_EQ(clay.SU_Z0, ForcePerArea(25000.0));
    EXPECT_EQ(clay.SU_Z100, ForcePerArea(125000.0));
    EXPECT_EQ(clay.OCR, 2.5);
    EXPECT_EQ(clay.GAP, 0);
    EXPECT_EQ(clay.TZZRES, Length(0.015));
    EXPECT_EQ(Write(section, Counted(2)), soilTypeText);

    // GAMTOT, the strengths and TZZRES follow the units; the rest does not.
    EXPECT_EQ(Write(section, Counted(2), "N", "mm"),
              soilTypeTitleAndHeader +
                  "         1 0.0000195      32.0       0.0       0.0     0.005       1.0       0.5\n"
                  "         1       0.8      10.0\n"
                  "         2  0.000017       0.0     0.025     0.125      0.02       2.5      0.25\n"
                  "         0       1.0      15.0\n");
    EXPECT_EQ(ReadBack(section, Counted(2), "kN", "m"), section);
    EXPECT_EQ(ReadBack(section, Counted(2), "N", "mm"), section);

    auto awkward = section;
    awkward.records[1].SU_Z100 = ForcePerArea(1.0 / 3.0);
    awkward.records[1].TZZRES = Length(0.1 + 0.2);
    awkward.records[1].PHI = 2.0 / 3.0;
    EXPECT_EQ(ReadBack(awkward, Counted(2), "N", "mm"), awkward);
}

TEST(SoilTypeAndPropertySection, ReadsCommentsCRLFTabsAndTruncatesIntegers) {
    const std::string text =
        "*** SOIL TYPE AND PROPERTY SECTION ***\r\n"
        "TYP\tGAMTOT\tPHI\tSU.Z=0\tSU.Z=100\tEPSC\tOCR\tAPI-J\tGAP\tRPRAT\tTZZRES\r\n"
        "* dense sand\r\n"
        "1.9\t19.5\t32.0\t0.0\t0.0\t0.005\t1.0\t0.5\r\n"
        "C first soil type, second line\r\n"
        "  1.7   0.8   0.01 \r\n"
        "*\r\n"
        "2 17.0 0 25 125 0.02 2.5 0.25\r\n"
        "-0.5 1 0.015\r\n";
    const auto section = Read<SoilTypeAndPropertySection>(text, Counted(2));
    EXPECT_EQ(section, Read<SoilTypeAndPropertySection>(soilTypeText, Counted(2)));
}

TEST(SoilTypeAndPropertySection, NoSoilTypesWriteTitleAndHeaderOnly) {
    SoilTypeAndPropertySection held;
    held.records.resize(2);
    ReadText(soilTypeTitleAndHeader + "\n*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n",
             [&](Importer& importer) {
                 held.Serialize(importer, 0);
                 // The reader stands on the empty line after the header.
                 importer.BlankLine();
                 EXPECT_EQ(importer.GetLineCounter(), 4u);
             });
    EXPECT_TRUE(held.records.empty());
    EXPECT_EQ(Write(held, Counted(0)), soilTypeTitleAndHeader);
}

TEST(SoilTypeAndPropertySection, FindLayerFindsTheFirstRecordOfTheSoilType) {
    SoilTypeAndPropertySection section;
    section.records.resize(3);
    section.records[0].TYP = 4;
    section.records[0].PHI = 30.0;
    section.records[1].TYP = 7;
    section.records[2].TYP = 4;
    section.records[2].PHI = 35.0;

    const auto first = section.FindLayer(LayerOf(4));
    ASSERT_NE(first, section.records.end());
    EXPECT_EQ(first, section.records.begin());
    EXPECT_EQ(first->PHI, 30.0);
    EXPECT_EQ(section.FindLayer(LayerOf(7)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(5)), section.records.end());
    const SoilTypeAndPropertySection none;
    EXPECT_EQ(none.FindLayer(LayerOf(4)), none.records.end());
}

TEST(SoilTypeAndPropertySection, BadRowsGiveTheErrorOfTheirLine) {
    const std::string tooMany = soilTypeTitleAndHeader +
                                "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5"
                                "       1.0\n"
                                "         1       0.8      0.01\n";
    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>(tooMany, Counted(1)),
              ImportErrorText(3, "Expected end of line of record.", "SOIL TYPE AND PROPERTY SECTION",
                              "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5"
                              "       1.0"));

    // A record on one line: the first line has three values too many.
    const std::string oneLine = soilTypeTitleAndHeader +
                                "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5"
                                "         1       0.8      0.01\n";
    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>(oneLine, Counted(1)),
              ImportErrorText(3, "Expected end of line of record.", "SOIL TYPE AND PROPERTY SECTION",
                              "         1      19.5      32.0       0.0       0.0     0.005       1.0       0.5"
                              "         1       0.8      0.01"));

    const std::string notANumber = soilTypeTitleAndHeader +
                                   "         1      19.5       ABC       0.0       0.0     0.005       1.0       0.5\n"
                                   "         1       0.8      0.01\n";
    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>(notANumber, Counted(1)),
              ImportErrorText(3, "Error parsing argument: 2", "SOIL TYPE AND PROPERTY SECTION",
                              "         1      19.5       ABC       0.0       0.0     0.005       1.0       0.5"));

    // Fields are counted over both lines of the record: RPRAT is the tenth.
    // A comment line before the failing line is where the error is reported:
    // the first line after the last one read.
    const std::string secondLine = soilTypeText +
                                   "         3      18.0      28.0       0.0       0.0      0.01       1.0       0.5\n"
                                   "* the gap option of this soil is not known yet\n"
                                   "         1       ABC      0.01\n";
    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>(secondLine, Counted(3)),
              ImportErrorText(8, "Error parsing argument: 9", "SOIL TYPE AND PROPERTY SECTION",
                              "* the gap option of this soil is not known yet"));

    // NUMTYP says 3, but the next section follows the second soil type.
    const std::string shortTable = soilTypeText + "\n*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n";
    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>(shortTable, Counted(3)),
              ImportErrorText(7, "Error parsing argument: 0", "SOIL TYPE AND PROPERTY SECTION", ""));

    EXPECT_EQ(ErrorOf<SoilTypeAndPropertySection>("*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***\n", Counted(0)),
              ImportErrorText(1, "Unable to find section", "SOIL TYPE AND PROPERTY SECTION",
                              "*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***"));
}

// ---------------------------------------------------------------------------
// SOIL MAIN LAYERS AND PROPERTIES SECTION

const std::string mainLayersTitle = "*** SOIL MAIN LAYERS AND PROPERTIES SECTION ***\n";
const std::string mainLayersHeader = "MAIN  ZBOTM GAMTOT CPTTOP CPTBOT  PHI   DR  SUTOP  SUBOT   IP   EPSC  API-J";

const std::string mainLayersWithAK = mainLayersTitle + mainLayersHeader + "  AK\n" +
                                     "LAYER\n"
                                     "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n"
                                     "       0.0         0       0.0       0.5     120.0\n"
                                     "         2      12.0      17.5       0.8       1.2       0.0       0.0      40.0\n"
                                     "      60.0        30      0.01      0.25      80.0\n";

const std::string mainLayersWithoutAK = mainLayersTitle + mainLayersHeader + "\n" +
                                        "LAYER\n"
                                        "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n"
                                        "       0.0         0       0.0       0.5\n"
                                        "         2      12.0      17.5       0.8       1.2       0.0       0.0      40.0\n"
                                        "      60.0        30      0.01      0.25\n";

TEST(SoilMainLayersAndPropertiesSection, ReadsTheTableWithAKAndWritesItBack) {
    const auto section = Read<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2));
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithAK));
    ASSERT_EQ(section.records.size(), 2u);
    const SoilMainLayersAndPropertiesSectionRecord& clay = section.records[1];
    EXPECT_EQ(clay.MAIN, 2);
    EXPECT_EQ(clay.ZBOTM, Length(12.0));
    EXPECT_EQ(clay.GAMTOT, 17.5);
    EXPECT_EQ(clay.CPTTOP, 0.8);
    EXPECT_EQ(clay.CPTBOT, 1.2);
    EXPECT_EQ(clay.PHI, 0.0);
    EXPECT_EQ(clay.DR, 0.0);
    EXPECT_EQ(clay.SUTOP, 40.0);
    EXPECT_EQ(clay.SUBOT, 60.0);
    EXPECT_EQ(clay.IP, 30);
    EXPECT_EQ(clay.EPSC, 0.01);
    EXPECT_EQ(clay.API_J, 0.25);
    EXPECT_EQ(clay.AK, 80.0);
    EXPECT_EQ(section.records[0].AK, 120.0);
    EXPECT_EQ(Write(section, Counted(2)), mainLayersWithAK);

    // Only ZBOTM is a length of the file; the other columns stay as read.
    EXPECT_EQ(Write(section, Counted(2), "N", "mm"),
              mainLayersTitle + mainLayersHeader + "  AK\n" +
                  "LAYER\n"
                  "         1    5500.0      19.0       2.5       4.0      35.0      0.65       0.0\n"
                  "       0.0         0       0.0       0.5     120.0\n"
                  "         2   12000.0      17.5       0.8       1.2       0.0       0.0      40.0\n"
                  "      60.0        30      0.01      0.25      80.0\n");
    EXPECT_EQ(ReadBack(section, Counted(2), "kN", "m"), section);
    EXPECT_EQ(ReadBack(section, Counted(2), "N", "mm"), section);
}

TEST(SoilMainLayersAndPropertiesSection, ReadsTheTableWithoutAKAndWritesItSo) {
    const auto section = Read<SoilMainLayersAndPropertiesSection>(mainLayersWithoutAK, Counted(2));
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithoutAK));
    ASSERT_EQ(section.records.size(), 2u);
    EXPECT_EQ(section.records[0].AK, 0.0);
    EXPECT_EQ(section.records[1].AK, 0.0);
    EXPECT_EQ(section.records[1].API_J, 0.25);
    EXPECT_EQ(Write(section, Counted(2)), mainLayersWithoutAK);
    EXPECT_EQ(ReadBack(section, Counted(2), "N", "mm"), section);

    // The same rows read as the table with AK.
    auto withAK = section;
    withAK.layoutRevision = static_cast<int>(Revision::Unsettled);
    withAK.records[0].AK = 120.0;
    withAK.records[1].AK = 80.0;
    auto expected = withAK;
    expected.layoutRevision = static_cast<int>(Revision::WithAK);
    EXPECT_EQ(Read<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2)), expected);
}

TEST(SoilMainLayersAndPropertiesSection, AnUnsettledSectionIsWrittenWithAK) {
    SoilMainLayersAndPropertiesSection section;
    EXPECT_EQ(Write(section, Counted(0)), mainLayersTitle + mainLayersHeader + "  AK\nLAYER\n");
    section.records.resize(1);
    const std::string written = WriteText([&](Exporter& exporter) { section.Serialize(exporter, 1); });
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithAK));
    EXPECT_EQ(written, mainLayersTitle + mainLayersHeader + "  AK\nLAYER\n" +
                           "         0       0.0       0.0       0.0       0.0       0.0       0.0       0.0\n"
                           "       0.0         0       0.0       0.0       0.0\n");

    // No main layers: title and both header lines, in either layout.
    SoilMainLayersAndPropertiesSection held;
    held.records.resize(2);
    held = Read<SoilMainLayersAndPropertiesSection>(mainLayersTitle + mainLayersHeader + "\nLAYER\n", Counted(0), "kN",
                                                    "m", held);
    EXPECT_TRUE(held.records.empty());
    EXPECT_EQ(held.layoutRevision, static_cast<int>(Revision::WithoutAK));
    EXPECT_EQ(Write(held, Counted(0)), mainLayersTitle + mainLayersHeader + "\nLAYER\n");
}

TEST(SoilMainLayersAndPropertiesSection, ASectionWithoutAKReadsOnlyTheTableWithoutAK) {
    SoilMainLayersAndPropertiesSection withoutAK;
    withoutAK.layoutRevision = static_cast<int>(Revision::WithoutAK);
    EXPECT_EQ(Read<SoilMainLayersAndPropertiesSection>(mainLayersWithoutAK, Counted(2), "kN", "m", withoutAK)
                  .records.size(),
              2u);
    EXPECT_EQ(ErrorOf<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2), withoutAK),
              ImportErrorText(2, "Unable to find section", "SOIL MAIN LAYERS AND PROPERTIES SECTION",
                              mainLayersHeader + "  AK"));
}

TEST(SoilMainLayersAndPropertiesSection, WhenNeitherLayoutReadsTheErrorWithoutAKReachesTheCaller) {
    // The header has no AK; the second main layer has "ABC" for CPTTOP.
    const std::string badValue = mainLayersTitle + mainLayersHeader + "\n" +
                                 "LAYER\n"
                                 "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n"
                                 "       0.0         0       0.0       0.5\n"
                                 "         2      12.0      17.5       ABC       1.2       0.0       0.0      40.0\n"
                                 "      60.0        30      0.01      0.25\n";
    EXPECT_EQ(ErrorOf<SoilMainLayersAndPropertiesSection>(badValue, Counted(2)),
              ImportErrorText(6, "Error parsing argument: 3", "SOIL MAIN LAYERS AND PROPERTIES SECTION",
                              "         2      12.0      17.5       ABC       1.2       0.0       0.0      40.0"));

    // The header has AK but the rows have not: without AK the header fails.
    const std::string rowsWithoutAK = mainLayersTitle + mainLayersHeader + "  AK\n" +
                                      "LAYER\n"
                                      "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n"
                                      "       0.0         0       0.0       0.5\n";
    EXPECT_EQ(ErrorOf<SoilMainLayersAndPropertiesSection>(rowsWithoutAK, Counted(1)),
              ImportErrorText(2, "Unable to find section", "SOIL MAIN LAYERS AND PROPERTIES SECTION",
                              mainLayersHeader + "  AK"));

    // A row with a column too many in the table with AK: the layout with AK
    // fails at the extra column, the layout without AK at the header, and
    // the caller sees the second.
    const std::string tooMany = mainLayersTitle + mainLayersHeader + "  AK\n" +
                                "LAYER\n"
                                "         1       5.5      19.0       2.5       4.0      35.0      0.65       0.0\n"
                                "       0.0         0       0.0       0.5     120.0       1.0\n";
    EXPECT_EQ(ErrorOf<SoilMainLayersAndPropertiesSection>(tooMany, Counted(1)),
              ImportErrorText(2, "Unable to find section", "SOIL MAIN LAYERS AND PROPERTIES SECTION",
                              mainLayersHeader + "  AK"));

    // NUMLAYM says 3, but the next section follows the second main layer.
    const std::string shortTable =
        mainLayersWithoutAK + "\n*** SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION ***\n";
    EXPECT_EQ(ErrorOf<SoilMainLayersAndPropertiesSection>(shortTable, Counted(3)),
              ImportErrorText(8, "Error parsing argument: 0", "SOIL MAIN LAYERS AND PROPERTIES SECTION", ""));
}

TEST(SoilMainLayersAndPropertiesSection, FindLayerFindsTheFirstRecordOfTheMainLayer) {
    auto section = Read<SoilMainLayersAndPropertiesSection>(mainLayersWithAK, Counted(2));
    section.records.push_back(section.records[0]);
    section.records.back().PHI = 40.0;
    EXPECT_EQ(section.FindLayer(LayerOf(1)), section.records.begin());
    EXPECT_EQ(section.FindLayer(LayerOf(1))->PHI, 35.0);
    EXPECT_EQ(section.FindLayer(LayerOf(2)), section.records.begin() + 1);
    EXPECT_EQ(section.FindLayer(LayerOf(3)), section.records.end());
}

// ---------------------------------------------------------------------------
// GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION

const std::string displacementsTitleAndHeader =
    "*** GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION ***\n"
    "ZLEV  DSP-X  DSP-Y  DSP-Z  HOLE-DIAM\n";

const std::string displacementsText = displacementsTitleAndHeader +
                                      "      10.0      0.05       0.0    -0.002       3.0\n"
                                      "       2.0       0.0       0.1       0.0       0.0\n";

TEST(GivenSoilDisplacementsAndOpenHoleSection, ReadsLevelsInFileOrderAndWritesThemBack) {
    const auto section = Read<GivenSoilDisplacementsAndOpenHoleSection>(displacementsText, Counted(2));
    ASSERT_EQ(section.records.size(), 2u);
    const GivenSoilDisplacementsAndOpenHoleSectionRecord& deep = section.records[0];
    EXPECT_EQ(deep.ZLEV, Length(10.0));
    EXPECT_EQ(deep.DSP_X, Length(0.05));
    EXPECT_EQ(deep.DSP_Y, Length(0.0));
    EXPECT_EQ(deep.DSP_Z, Length(-0.002));
    EXPECT_EQ(deep.HOLE_DIAM, Length(3.0));
    EXPECT_EQ(section.records[1].ZLEV, Length(2.0));
    EXPECT_EQ(section.records[1].DSP_Y, Length(0.1));
    EXPECT_EQ(Write(section, Counted(2)), displacementsText);

    // All five columns are lengths.
    EXPECT_EQ(Write(section, Counted(2), "N", "mm"), displacementsTitleAndHeader +
                                                         "   10000.0      50.0       0.0      -2.0    3000.0\n"
                                                         "    2000.0       0.0     100.0       0.0       0.0\n");
    EXPECT_EQ(Read<GivenSoilDisplacementsAndOpenHoleSection>(displacementsText, Counted(2), "N", "cm").records[0].ZLEV,
              Length(0.1));
    EXPECT_EQ(ReadBack(section, Counted(2), "kN", "m"), section);
    EXPECT_EQ(ReadBack(section, Counted(2), "N", "mm"), section);
}

TEST(GivenSoilDisplacementsAndOpenHoleSection, NoLevelsWriteTitleAndHeaderOnly) {
    GivenSoilDisplacementsAndOpenHoleSection held;
    held.records.resize(1);
    held = Read<GivenSoilDisplacementsAndOpenHoleSection>(displacementsTitleAndHeader, Counted(0), "kN", "m", held);
    EXPECT_TRUE(held.records.empty());
    EXPECT_EQ(Write(held, Counted(0)), displacementsTitleAndHeader);
}

TEST(GivenSoilDisplacementsAndOpenHoleSection, BadRowsGiveTheErrorOfTheirLine) {
    const std::string tooMany = displacementsTitleAndHeader + "      10.0      0.05       0.0    -0.002       3.0       1.0\n";
    EXPECT_EQ(ErrorOf<GivenSoilDisplacementsAndOpenHoleSection>(tooMany, Counted(1)),
              ImportErrorText(3, "Expected end of line of record.", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION",
                              "      10.0      0.05       0.0    -0.002       3.0       1.0"));

    const std::string notANumber = displacementsTitleAndHeader + "      10.0      0.05       ABC    -0.002       3.0\n";
    EXPECT_EQ(ErrorOf<GivenSoilDisplacementsAndOpenHoleSection>(notANumber, Counted(1)),
              ImportErrorText(3, "Error parsing argument: 2", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION",
                              "      10.0      0.05       ABC    -0.002       3.0"));

    // NUMDSP says 3, but the profile ends after two levels.
    const std::string shortTable = displacementsText + "\nEND OF TERRIX INPUT FILE\n";
    EXPECT_EQ(ErrorOf<GivenSoilDisplacementsAndOpenHoleSection>(shortTable, Counted(3)),
              ImportErrorText(5, "Error parsing argument: 0", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", ""));
}

// ---------------------------------------------------------------------------
// Pile-soil-pile interaction and pile scour data: values only.

TEST(PileSoilPileInteractionAndPileScourSection, ComparesItsRecordsMemberByMember) {
    PileSoilPileInteractionAndPileScourSection section;
    section.records.push_back({});
    section.records[0].number = 2;
    section.records[0].text = "LEG A2";
    section.records[0].value = 1.5;
    auto copy = section;
    EXPECT_EQ(copy, section);
    copy.records[0].text = "LEG A3";
    EXPECT_NE(copy, section);
    copy = section;
    copy.records[0].value = 1.25;
    EXPECT_NE(copy, section);
    copy = section;
    copy.records.push_back(section.records[0]);
    EXPECT_NE(copy, section);
}

}  // namespace
