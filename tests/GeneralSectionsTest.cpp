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
using Diameters = PileDiametersAndGroupEffectsSection;
using Loads = LoadsAtSoilSurfaceSection;
using SoilTypes = SoilTypeAndPropertySection;
using MainLayers = SoilMainLayersAndPropertiesSection;
using Displacements = GivenSoilDisplacementsAndOpenHoleSection;

// The pile diameters section in the layout of each version.
const auto diametersV4 = [](auto& section, auto& archive) { section.Serialize(archive, false); };
const auto diametersV5 = [](auto& section, auto& archive) { section.Serialize(archive, true); };

Layer LayerOf(int mainLayer) { return Layer{mainLayer, 1, 1, Length(0.0), Length(0.0)}; }

// `text` read is `expected`, and `expected` written is `text` again.
template <class Section, class Serialize>
void ExpectReadsAndWritesBack(const std::string& text, const Serialize& serialize, const Section& expected) {
    EXPECT_EQ(ReadSection<Section>(text, serialize), expected);
    EXPECT_EQ(WriteSection(expected, serialize), text);
}

const std::string materialText = TestData("general-sections-material-coefficients.terrix");
const std::string diametersText = TestData("general-sections-pile-diameters-v5.terrix");
const std::string surfaceText = TestData("general-sections-soil-surface.terrix");
const std::string loadsText = TestData("general-sections-loads.terrix");
const std::string soilTypeText = TestData("general-sections-soil-types.terrix");
const std::string mainLayersWithAK = TestData("general-sections-main-layers-with-ak.terrix");
const std::string displacementsText = TestData("general-sections-displacements.terrix");

// The soil type table's title and header; the main layer table's title and
// two header lines with and without the AK column, and its rows without AK.
const std::string soilTypeHead = soilTypeText.substr(0, soilTypeText.find("         1"));
const std::string mainLayersHeadWithAK = mainLayersWithAK.substr(0, mainLayersWithAK.find("         1"));
const std::string mainLayersHeadWithoutAK = Replaced(mainLayersHeadWithAK, "  AK\n", "\n");
const std::string mainLayersWithoutAK =
    Replaced(Replaced(Replaced(mainLayersWithAK, "  AK\n", "\n"), "     120.0\n", "\n"), "      80.0\n", "\n");

TEST(MaterialCoefficientsSection, FactorsThatNoUnitSystemChangesInTheirOrder) {
    const MaterialCoefficientsSection section{1.25, 1.4, 1.0, 1.15};
    ExpectReadsAndWritesBack(materialText, Uncounted, section);
    // In N and mm the numbers stay as they stand in the text.
    EXPECT_EQ(ReadSection<MaterialCoefficientsSection>(materialText, Uncounted, "N", "mm"), section);
    EXPECT_EQ(WriteSection(section, Uncounted, "N", "mm"), materialText);
    ExpectRoundTrips(MaterialCoefficientsSection{1.0 / 3.0, 0.1 + 0.2, 1e-300, -12345.678901234567}, Uncounted);
    // A new profile: a coefficient of 1.0 changes nothing it is applied to.
    EXPECT_EQ(MaterialCoefficientsSection(), (MaterialCoefficientsSection{1.0, 1.0, 1.0, 1.0}));
}

TEST(PileDiametersAndGroupEffectsSection, Version5HasAnEVHRATLineAndVersion4None) {
    // 12000 kN/m2 and 350.5 kN/m3 in N/m2 and N/m3; the two ratios as they are.
    const Diameters section{
        {Length(0.9), Length(1.8), Length(2.4)}, 12e6, 350500.0, 0.8, 0.35};
    ExpectReadsAndWritesBack(diametersText, diametersV5, section);
    // Diameters out of order keep it: nothing sorts them.
    auto unordered = section;
    unordered.diameters = {Length(2.4), Length(0.9), Length(1.0 / 3.0), Length(1.8)};
    ExpectRoundTrips(unordered, diametersV5);

    // Version 4 has no EVHRAT: it is neither read (a new section's ratio of
    // isotropic soil stays) nor written.
    const std::string textV4 = Replaced(diametersText, TextLine(diametersText, 6) + "\n", "");
    auto sectionV4 = section;
    sectionV4.EVHRAT = 1.0;
    EXPECT_EQ(ReadSection<Diameters>(textV4, diametersV4), sectionV4);
    sectionV4.EVHRAT = 2.0;
    EXPECT_EQ(WriteSection(sectionV4, diametersV4), textV4);

    // No diameters: the vector's line holds its comment only. Read over
    // diameters held before, a count of 0 or a negative count leaves none;
    // both are written back as 0.
    const std::string none = WriteSection(Diameters(), diametersV5);
    EXPECT_NE(none.find("\n         0 NUMDIA  NUMBER OF PILE DIAM FOR WHICH P-Y/T-Z/Q-Z DATA IS WANTED\n"
                        " DIAMETERS IN INCREASING ORDER\n"),
              std::string::npos)
        << none;
    Diameters held;
    held.diameters = {Length(1.0)};
    for (const char* count : {"         0 NUMDIA", "        -2 NUMDIA"}) {
        const auto read = ReadSection<Diameters>(Replaced(none, "         0 NUMDIA", count), diametersV5, "kN", "m", held);
        EXPECT_EQ(read, Diameters()) << count;
        EXPECT_EQ(WriteSection(read, diametersV5), none);
    }
}

TEST(SoilSurfaceAndGroundWaterSection, LevelsAndWaterConvertTheSlopeInDegreesDoesNot) {
    const auto surface = [](double zsurf, double scrgen, double scrloc, double slope, double zgrwt, double gampwp) {
        SoilSurfaceAndGroundWaterSection section;
        section.ZSURF = zsurf, section.SCRGEN = scrgen, section.SCRLOC = scrloc;
        section.SLOPE = slope, section.ZGRWT = zgrwt, section.GAMPWP = gampwp;
        return section;
    };
    const auto section = surface(25.5, 1.5, 2.25, 30.0, -4.0, 10250.0);
    ExpectReadsAndWritesBack(surfaceText, Uncounted, section);
    // Degrees are degrees in every unit system.
    const auto inMillimetres = ReadSection<SoilSurfaceAndGroundWaterSection>(surfaceText, Uncounted, "N", "mm");
    EXPECT_EQ(inMillimetres.ZSURF, 0.0255);
    EXPECT_EQ(inMillimetres.SLOPE, 30.0);
    auto awkward = section;
    awkward.ZSURF = 1.0 / 3.0;
    awkward.SLOPE = 0.1 + 0.2;
    ExpectRoundTrips(awkward, Uncounted);

    // A new profile has sea water as ground water (the control section's
    // default unit weight of water, 10.0518 kN/m3), and every level 0.
    const SoilSurfaceAndGroundWaterSection fresh;
    EXPECT_EQ(fresh.GAMPWP, ControlSection().GAMMAW.GetValue());
    EXPECT_EQ(fresh, surface(0.0, 0.0, 0.0, 0.0, 0.0, 10051.8));
}

TEST(LoadsAtSoilSurfaceSection, LoadsAndPointForcesOrNone) {
    const Loads section{12500.0, 40000.0, 15.0, -3.5, 20000.0, 8.0, {150000.0, 275500.0}, {Length(4.0), Length(6.25)}};
    ExpectReadsAndWritesBack(loadsText, Uncounted, section);
    auto awkward = section;
    awkward.pointForces = {1.0 / 3.0, 0.1 + 0.2, -7e-9};
    awkward.distances = {Length(2.0 / 3.0), Length(1e5), Length(0.0)};
    ExpectRoundTrips(awkward, Uncounted);

    // No point forces: two vectors of a comment each. Read over point forces
    // held before, none are left. Each empty vector may be an empty line,
    // and the separator before the next section is still there.
    const std::string emptyVectors = "         0 NUMFRC  NUMBER OF VERTICAL POINT FORCES AT SOIL SURFACE\n"
                                     " POINT FORCE VALUES\n"
                                     " HORIZONTAL DISTANCE TO PILE AXIS\n";
    const std::string none = WriteSection(Loads(), Uncounted);
    EXPECT_NE(none.find(emptyVectors), std::string::npos) << none;
    Loads held = section;
    EXPECT_EQ(ReadSection<Loads>(none, Uncounted, "kN", "m", held), Loads());
    ReadText(Replaced(none, emptyVectors, "         0 NUMFRC\n\n\n") + "\n*** SOIL TYPE AND PROPERTY SECTION ***\n",
             [&](Importer& importer) {
                 held.Serialize(importer);
                 importer.BlankLine();
                 EXPECT_EQ(importer.GetLineCounter(), 12u);
             });
    EXPECT_EQ(held, Loads());
}

TEST(SoilTypeAndPropertySection, ReadsTwoLineRecordsAndWritesThemBack) {
    SoilTypes section;
    section.records = {{1, ForcePerVolume(19500.0), 32.0, 0.0, 0.0, 0.005, 1.0, 0.5, 1, 0.8, Length(0.01)},
                       {2, ForcePerVolume(17000.0), 0.0, 25000.0, 125000.0, 0.02, 2.5, 0.25, 0, 1.0, Length(0.015)}};
    ExpectReadsAndWritesBack(soilTypeText, Counted(2), section);
    // No soil types: the title and header alone.
    EXPECT_EQ(WriteSection(SoilTypes(), Counted(0)), soilTypeHead);

    // GAMTOT, the strengths and TZZRES follow the units; the rest does not.
    auto inMillimetres = section;
    inMillimetres.records[0].GAMTOT = ForcePerVolume(19.5e9);
    inMillimetres.records[0].TZZRES = Length(1e-5);
    inMillimetres.records[1].GAMTOT = ForcePerVolume(17e9);
    inMillimetres.records[1].SU_Z0 = 25e6;
    inMillimetres.records[1].SU_Z100 = 125e6;
    inMillimetres.records[1].TZZRES = Length(15e-6);
    EXPECT_EQ(ReadSection<SoilTypes>(soilTypeText, Counted(2), "N", "mm"), inMillimetres);

    auto awkward = section;
    awkward.records[1].SU_Z100 = 1.0 / 3.0;
    awkward.records[1].TZZRES = Length(0.1 + 0.2);
    awkward.records[1].PHI = 2.0 / 3.0;
    ExpectRoundTrips(awkward, Counted(2));

    // Comments between and within records, CRLF, tabs, and integers truncated
    // toward zero.
    EXPECT_EQ(ReadSection<SoilTypes>(WithLineEnds(TestData("general-sections-soil-types-hand-written.terrix"), "\r\n"), Counted(2)),
              section);
}

TEST(SoilMainLayersAndPropertiesSection, ReadsTheTableWithOrWithoutAKAndWritesItSo) {
    MainLayers section;
    section.layoutRevision = static_cast<int>(Revision::WithAK);
    section.records = {{1, Length(5.5), 19.0, 2.5, 4.0, 35.0, 0.65, 0.0, 0.0, 0, 0.0, 0.5, 120.0},
                       {2, Length(12.0), 17.5, 0.8, 1.2, 0.0, 0.0, 40.0, 60.0, 30, 0.01, 0.25, 80.0}};
    ExpectReadsAndWritesBack(mainLayersWithAK, Counted(2), section);
    ExpectRoundTrips(section, Counted(2));
    // Only ZBOTM is a length of the file; the other columns stay as read.
    auto inMillimetres = section;
    inMillimetres.records[0].ZBOTM = Length(0.0055);
    inMillimetres.records[1].ZBOTM = Length(0.012);
    EXPECT_EQ(ReadSection<MainLayers>(mainLayersWithAK, Counted(2), "N", "mm"), inMillimetres);

    // Without AK: the same rows, AK 0.
    section.layoutRevision = static_cast<int>(Revision::WithoutAK);
    section.records[0].AK = section.records[1].AK = 0.0;
    ExpectReadsAndWritesBack(mainLayersWithoutAK, Counted(2), section);
    ExpectRoundTrips(section, Counted(2));
    // A section set to the layout without AK reads only that layout.
    EXPECT_EQ(ReadSection<MainLayers>(mainLayersWithoutAK, Counted(2), "kN", "m", section), section);

    // No main layers: title and both header lines, in either layout.
    MainLayers held;
    held.records.resize(2);
    held = ReadSection<MainLayers>(mainLayersHeadWithoutAK, Counted(0), "kN", "m", held);
    EXPECT_TRUE(held.records.empty());
    EXPECT_EQ(held.layoutRevision, static_cast<int>(Revision::WithoutAK));
    EXPECT_EQ(WriteSection(held, Counted(0)), mainLayersHeadWithoutAK);
}

TEST(SoilMainLayersAndPropertiesSection, AnUnsettledSectionIsWrittenWithAK) {
    MainLayers section;
    EXPECT_EQ(WriteSection(section, Counted(0)), mainLayersHeadWithAK);
    section.records.resize(1);
    const std::string written = WriteText([&](Exporter& exporter) { section.Serialize(exporter, 1); });
    EXPECT_EQ(section.layoutRevision, static_cast<int>(Revision::WithAK));
    EXPECT_EQ(written, mainLayersHeadWithAK +
                           "         0       0.0       0.0       0.0       0.0       0.0       0.0       0.0\n"
                           "       0.0         0       0.0       0.0       0.0\n");
}

TEST(GeneralSections, FindLayerFindsTheFirstRecordOfTheSoilTypeOrMainLayer) {
    SoilTypes types;
    for (int type : {4, 7, 4}) types.records.emplace_back().TYP = type;
    EXPECT_EQ(types.FindLayer(LayerOf(4)), types.records.begin());
    EXPECT_EQ(types.FindLayer(LayerOf(7)), types.records.begin() + 1);
    EXPECT_EQ(types.FindLayer(LayerOf(5)), types.records.end());
    const SoilTypes none;
    EXPECT_EQ(none.FindLayer(LayerOf(4)), none.records.end());

    MainLayers mainLayers;
    for (int main : {1, 2, 1}) mainLayers.records.emplace_back().MAIN = main;
    EXPECT_EQ(mainLayers.FindLayer(LayerOf(1)), mainLayers.records.begin());
    EXPECT_EQ(mainLayers.FindLayer(LayerOf(2)), mainLayers.records.begin() + 1);
    EXPECT_EQ(mainLayers.FindLayer(LayerOf(3)), mainLayers.records.end());
}

TEST(GivenSoilDisplacementsAndOpenHoleSection, ReadsFiveLengthsPerLevelInFileOrder) {
    const auto level = [](double z, double x, double y, double dz, double hole) {
        return GivenSoilDisplacementsAndOpenHoleSectionRecord{z, x, y, dz, hole};
    };
    Displacements section;
    section.records = {level(10.0, 0.05, 0.0, -0.002, 3.0), level(2.0, 0.0, 0.1, 0.0, 0.0)};
    ExpectReadsAndWritesBack(displacementsText, Counted(2), section);
    ExpectRoundTrips(section, Counted(2));
    // All five columns are lengths.
    section.records = {level(0.1, 0.0005, 0.0, -0.00002, 0.03), level(0.02, 0.0, 0.001, 0.0, 0.0)};
    EXPECT_EQ(ReadSection<Displacements>(displacementsText, Counted(2), "N", "cm"), section);
    // No levels: title and header only.
    EXPECT_EQ(WriteSection(Displacements(), Counted(0)), TextLine(displacementsText, 1) + "\n" +
                                                             TextLine(displacementsText, 2) + "\n");
}

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
