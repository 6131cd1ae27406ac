// What a host reaches only through the API, not through a file: layers it
// makes itself, a profile without a version, layers the profile does not
// hold, curves whose two lines a program filled unequally, and the lookups
// and counts of the sections that no query asks for.

#include <cmath>
#include <cstdint>
#include <map>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "AnswersOfAllLayers.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Points = std::map<double, double>;

Layer MakeLayer(std::int32_t mainLayer, std::int32_t firstLayer, std::uint64_t layerCount, double zTop,
                double zBottom) {
    return Layer{mainLayer, firstLayer, layerCount, Length(zTop), Length(zBottom)};
}

template <class Record>
Record Row(int lay1, int lay2, double diameter) {
    Record record;
    record.LAY1 = lay1;
    record.LAY2 = lay2;
    record.DIAM = Length(diameter);
    return record;
}

}  // namespace

TEST(ProfileApi, LayersSplitIntoEqualNumberedPiecesAndMergeWithinTheirMainLayer) {
    const std::vector<Layer> pieces = MakeLayer(7, 4, 3, 10.0, 16.0).Split();
    EXPECT_EQ(pieces, (std::vector<Layer>{MakeLayer(7, 4, 1, 10.0, 12.0), MakeLayer(7, 5, 1, 12.0, 14.0),
                                          MakeLayer(7, 6, 1, 14.0, 16.0)}));
    EXPECT_TRUE(MakeLayer(7, 4, 0, 10.0, 16.0).Split().empty());
    // The deeper bottom wins; another main layer is an error that changes
    // nothing. A layer made and not filled is all zero.
    Layer layer = pieces[0];
    layer.Merge(pieces[1]);
    layer.Merge(MakeLayer(7, 6, 1, 11.0, 13.0));
    EXPECT_EQ(layer, MakeLayer(7, 4, 3, 10.0, 14.0));
    EXPECT_EQ(ErrorOf([&] { layer.Merge(MakeLayer(8, 7, 1, 14.0, 16.0)); }),
              "Unable to join layers with incompatible main layers");
    EXPECT_EQ(layer, MakeLayer(7, 4, 3, 10.0, 14.0));
    EXPECT_EQ(Layer(), MakeLayer(0, 0, 0, 0.0, 0.0));
}

TEST(ProfileApi, AProfileWithoutVersionOrALayerItDoesNotHoldHasNoAnswers) {
    Terrix profile = Read(CaseText("round-trip/every-section-v4.terrix"));
    const Layer layer = profile.GetLayers(false).front();
    // Divisions cover layers 1 to 6, main layers 1 to 3.
    EXPECT_EQ(ErrorOf([&] { profile.GetPyData(MakeLayer(1, 7, 1, 20.0, 25.0)); }), "Could not find layer");
    const Terrix v5 = Read(CaseText("round-trip/every-section-v5.terrix"));
    EXPECT_EQ(ErrorOf([&] { v5.GetBSyData(MakeLayer(4, 1, 1, 0.0, 1.0)); }), "Could not find layer");

    profile.SetVersion(Version::Unknown);
    EXPECT_TRUE(profile.GetLayers(true).empty());
    EXPECT_EQ(ErrorOf([&] { profile.GetPhi(layer); }), "Unknown TERRIX version");
    EXPECT_EQ(ErrorOf([&] { profile.GetInitialModulus(layer); }), "Unknown TERRIX version");
    EXPECT_EQ(ErrorOf([&] { profile.GetPyData(layer); }), "TERRIX version undefined");
    EXPECT_EQ(ErrorOf([&] { profile.GetMthetaData(layer); }), "TERRIX version undefined");
    EXPECT_EQ(profile.GetSoilType(layer), Terrix::SoilType::Undefined);
    EXPECT_TRUE(profile.GetSkinCompression(layer).empty() && profile.GetSUz(layer).empty());
    EXPECT_FALSE(profile.GetInitialSoilShearModulus(layer) || profile.GetPoissonRatio(layer));
    EXPECT_FALSE(profile.GetZoneOfInfluenceTZ() || profile.GetCurveShapeFactorTZ());
}

// A layer a host cuts from a version 5 main layer has the main layer's axial
// values at its own levels, and the strengths at the main layer's levels.
// Curve data made and not filled have code 0 and no curves or factors.
TEST(ProfileApi, APieceOfAMainLayerAndCurveDataNotYetFilled) {
    const Terrix profile = Read(CaseText("round-trip/every-section-v5.terrix"));
    const auto numbers = [](const Terrix::StressByLevel& table) {
        Points points;
        for (const auto& [level, stress] : table) points[level.GetValue()] = stress.GetValue();
        return points;
    };
    const Layer piece = MakeLayer(2, 3, 1, 6.0, 9.0);
    EXPECT_EQ(numbers(profile.GetSkinCompression(piece)), (Points{{6.0, 20.0}, {9.0, 35.5}}));
    EXPECT_EQ(numbers(profile.GetSUz(piece)), (Points{{5.5, 40.0}, {12.0, 60.0}}));
    EXPECT_EQ(numbers(profile.GetSkinCompression(MakeLayer(2, 3, 1, 6.0, 6.0))), (Points{{6.0, 35.5}}));

    const PyData py;
    EXPECT_TRUE(py.code == 0 && py.manualCurves.empty() && py.modifications.empty());
    EXPECT_TRUE(TzData().code == 0 && QzData().code == 0);

    // A main layer table a host fills and has not yet settled the layout of
    // is one with AK.
    Terrix made(Version::V5);
    made.GetTerrixInputData().soilMainLayersAndPropertiesSection.records.resize(1);
    made.GetTerrixInputData().soilMainLayersAndPropertiesSection.records[0].MAIN = 2;
    made.GetTerrixInputData().soilMainLayersAndPropertiesSection.records[0].AK = 1.5;
    ASSERT_TRUE(made.GetInitialModulus(piece));
    EXPECT_EQ(made.GetInitialModulus(piece)->GetValue(), 1.5);
}

TEST(ProfileApi, AManualCurveIsTheFirstOfExactlyItsLayerAndDiameter) {
    ManualPyLateralResistanceDataSection section;
    section.records = {{3, Length(2.0), {0.0, 15.0, 30.0}, {0.0, 0.01, 0.02}},
                       {3, Length(2.0), {0.0, 99.0}, {0.0, 0.01}},
                       {4, Length(2.0), {0.0, 20.0, 40.0}, {0.0, 0.01}}};
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)).points, (Points{{0.0, 0.0}, {0.01, 15.0}, {0.02, 30.0}}));
    // No tolerance, and 0 is a diameter like any other.
    for (const double diameter : {0.0, std::nextafter(2.0, 3.0)})
        EXPECT_EQ(ErrorOf([&] { section.GetManualCurve(3, Length(diameter)); }), "Manual PY curve not defined");
    // Two lines filled unequally pair up to the shorter one.
    EXPECT_EQ(section.GetManualCurve(4, Length(2.0)).points, (Points{{0.0, 0.0}, {0.01, 20.0}}));

    // All diameters of a layer at once give the same curves; a NaN diameter
    // matches none, even first in the file, and a missing curve is an error
    // only when required.
    section.records.insert(section.records.begin(), {3, Length(std::nan("")), {1.0}, {1.0}});
    const std::vector<Length> diameters = {Length(2.0), Length(std::nan("")), Length(1.0)};
    const auto ofLayer = section.FindRecordsOfLayer(3);
    const auto curves = section.GetManualCurves(ofLayer, diameters, false);
    ASSERT_EQ(curves.size(), 1u);
    EXPECT_EQ(curves.at(Length(2.0)), section.GetManualCurve(3, Length(2.0)));
    EXPECT_EQ(ErrorOf([&] { section.GetManualCurves(ofLayer, diameters, true); }), "Manual PY curve not defined");
    PyLateralResistanceDataModificationSection rows;
    rows.records = {Row<PyLateralResistanceDataModificationSectionRecord>(1, 5, 2.0),
                    Row<PyLateralResistanceDataModificationSectionRecord>(3, 3, 0.0)};
    rows.records[1].modification.P_FACT = 0.5;
    const auto factors = rows.GetModifications(3, {Length(2.0), Length(1.0)});
    EXPECT_EQ(factors.at(Length(2.0)), rows.GetModification(3, Length(2.0)));
    EXPECT_EQ(factors.at(Length(1.0)).P_FACT, 0.5);
    EXPECT_EQ(ErrorOf([&] { rows.GetModifications(6, {Length(2.0)}); }), "Unable to find PY modifications");
}

TEST(ProfileApi, SectionCountsAndLookupsThatNoQueryAsksFor) {
    // With 10 layers and 3 diameters: "3 4" at every diameter covers 6 pairs,
    // "0 0" all 30, "5 3" none; a pair two rows cover counts twice.
    using PyRow = PyLateralResistanceDataModificationSectionRecord;
    PyLateralResistanceDataModificationSection py;
    py.records = {Row<PyRow>(3, 4, 0.0), Row<PyRow>(0, 0, 0.0), Row<PyRow>(5, 3, 1.0)};
    EXPECT_EQ(py.GetLayerCount(10, 3), 36u);
    // The first row of a layer whatever its diameter: here the row for every
    // layer, which stands before the row naming layer 6.
    using TzRow = TzSkinFrictionDataModificationSectionRecord;
    TzSkinFrictionDataModificationSection tz;
    EXPECT_FALSE(tz.GetModificationForLayer(6));
    tz.records = {Row<TzRow>(1, 2, 1.524), Row<TzRow>(0, 0, 0.0), Row<TzRow>(6, 6, 2.134)};
    EXPECT_TRUE(tz.GetModificationForLayer(6) == tz.records[1]);
    EXPECT_TRUE(tz.GetModificationForLayer(2) == tz.records[0]);

    // A division written backwards counts LAYER2 - LAYER1 + 1 in 64 bits,
    // wrapped to the unsigned count; a negative subdivision is sign-extended.
    using Division = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;
    EXPECT_EQ((Division{3, 2, 1, Length(1.0), 0, 293, 293}.GetSublayerCount()), 0u);
    EXPECT_EQ((Division{3, 1, 1, Length(1.0), 0, 293, 293}.GetLayer(Length(0.0)).layerCount), std::uint64_t(-1));
    EXPECT_EQ((MainLayersSubdivisionAndPyTzQzCodesSectionRecord{1, Length(5.0), -1, 0, 0, 0, 0, {}}
                   .GetLayer(1, Length(0.0))
                   .layerCount),
              std::uint64_t(-1));
    EXPECT_TRUE((Division{1, 1, 1, Length(1.0), 284, 0, 293}.HasManualCodes()));
    EXPECT_FALSE((Division{1, 1, 1, Length(1.0), 284, 293, 293}.HasManualCodes()));
    EXPECT_EQ(Read(CaseText("round-trip/every-section-v5.terrix"))
                  .GetTerrixInputData()
                  .mainLayersSubdivisionAndPyTzQzCodesSection.CountSubLayers(),
              4u);
    // A level row is part of a layer from its top to its bottom, both ends
    // included.
    SkinFrictionAndTipResistanceSectionV4Record level;
    for (const double z : {10.0, 16.0}) {
        level.ZLEV = Length(z);
        EXPECT_TRUE(level.IsPartOfLayer(MakeLayer(1, 1, 1, 10.0, 16.0)));
    }
    level.ZLEV = Length(std::nextafter(16.0, 17.0));
    EXPECT_FALSE(level.IsPartOfLayer(MakeLayer(1, 1, 1, 10.0, 16.0)));
}

// A profile set to the main layer table without AK reads only that layout.
TEST(ProfileApi, AProfileOfTheLayoutWithoutAKReadsNoTableWithAK) {
    Terrix profile(Version::V5, Revision::WithoutAK);
    std::istringstream text(CaseText("round-trip/every-section-v5.terrix"));
    EXPECT_NE(ErrorOf([&] { profile.Import(text, "kN", "m"); })
                  .find("Unable to find section\nWhile importing section: 'SOIL MAIN LAYERS AND PROPERTIES SECTION'"),
              std::string::npos);
}

// Each factor of a modification row is the member of its column: the rows
// "0 0" of every-section-v4 hold a different number in every column, and
// layer 4 at 1.524 m is covered by them alone.
TEST(ProfileApi, EachFactorOfAModificationRowIsTheMemberOfItsColumn) {
    const Terrix profile = Read(CaseText("round-trip/every-section-v4.terrix"));
    const Layer layer = MakeLayer(1, 4, 1, 16.0, 20.0);
    const Length diameter(1.524);
    using Factors = std::vector<double>;
    const PyModification py = profile.GetPyData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{py.P_FACT, py.Y_FACT, py.Y_GAP, py.P_PEAK_FCT, py.P_RES_FCT, py.Y_RES_FCT}),
              (Factors{1.1, 1.2, 0.03, 1.4, 1.5, 1.6}));
    const TzModification tz = profile.GetTzData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{tz.CMP_FCT, tz.TNS_FCT, tz.TZZ_FCT, tz.T_RES_FCT, tz.Z_RES_FCT}), (Factors{1.1, 1.2, 1.3, 1.4, 1.5}));
    const QzModification qz = profile.GetQzData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{qz.CMP_FCT, qz.TNS_FCT, qz.QZZ_FCT, qz.Q_RES_FCT, qz.Z_RES_FCT}), (Factors{1.1, 1.2, 1.3, 1.4, 1.5}));
    const MThetaModification mTheta = profile.GetMthetaData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{mTheta.M_FCT, mTheta.THETA_FCT}), (Factors{1.1, 1.2}));
    const BSYModification bsY = profile.GetBSyData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{bsY.BS_FCT, bsY.Y_FCT}), (Factors{1.1, 1.2}));
    const BMThetaModification bmTheta = profile.GetBMthetaData(layer).modifications.at(diameter);
    EXPECT_EQ((Factors{bmTheta.BM_FCT, bmTheta.THETA_FCT}), (Factors{1.1, 1.2}));
}

// An export writes what the profile holds, also what does not read back:
// divisions beyond NUMLAY, and lists of different lengths, of which NUMPNT
// and NUMFRC count the first.
TEST(ProfileApi, AnExportNeverDropsAValue) {
    Terrix profile = Read(CaseText("round-trip/every-section-v4.terrix"));
    TerrixInputData& data = profile.GetTerrixInputData();
    data.controlSection.NUMLAY = 1;
    data.manualPyLateralResistanceDataSection.records[0].resistances.push_back(200000.0);
    data.loadsAtSoilSurfaceSection.pointForces.push_back(210000.0);
    const std::string text = Written(profile);
    EXPECT_NE(text.find("         4         6         1      20.0       287       200       200\n"), std::string::npos);
    EXPECT_NE(text.find("         1     1.524         7\n"
                        "       0.0      42.4      61.1      91.3     131.6     182.5     200.0\n"
                        "       0.0   0.00762   0.02286    0.0762    0.2286    0.6096\n"),
              std::string::npos);
    EXPECT_NE(text.find("        21 NUMFRC"), std::string::npos);
    EXPECT_NE(text.find("     200.0     210.0 POINT FORCE VALUES\n"), std::string::npos);
}

// Import does not clear a profile first: each section read replaces what
// the profile held (no diameters for NUMDIA 0), a failure keeps the sections
// read before it, and the caller's stream keeps its own flags.
TEST(ProfileApi, AnImportReplacesTheSectionsItReadsAndKeepsThoseItReadBeforeAFailure) {
    Terrix profile = Read(CaseText("round-trip/every-section-v5.terrix"));
    std::istringstream newProfile(CaseText("round-trip/new-profile-v5.terrix"));
    profile.Import(newProfile, "kN", "m");
    EXPECT_TRUE(profile.GetTerrixInputData() == Read(CaseText("round-trip/new-profile-v5.terrix")).GetTerrixInputData());
    EXPECT_TRUE(newProfile.flags() & std::ios::skipws);

    std::string text = CaseText("round-trip/every-section-v4.terrix");
    text.replace(text.find("SOIL SURFACE AND"), 4, "SOYL");
    std::istringstream broken(text);
    Terrix partly(Version::V4);
    EXPECT_THROW(partly.Import(broken, "kN", "m"), ImportError);
    EXPECT_EQ(partly.GetTerrixInputData().materialCoefficientsSection.SFSU, 1.4);
    EXPECT_EQ(partly.GetDiameterCount(), 2u);
    EXPECT_EQ(partly.GetTerrixInputData().soilSurfaceAndGroundWaterSection.ZSURF, 0.0);
}

// Where the values of a file stand: each title, parameter and row at the line
// that holds it, whatever its line ends, after comment lines, in any profile
// of a stream, and for a table read again in its layout without AK.
TEST(ProfileApi, TheImporterNotesTheLineOfEachTitleParameterAndRow) {
    const auto linesOf = [](const std::string& text) {
        std::istringstream stream(text);
        TerrixMultipleSoilProfiles profiles;
        std::vector<SourceLines> lines;
        profiles.Import(stream, lines);
        return lines;
    };
    // Lines end at LF, CR LF or a lone CR, as the hand-written text has them.
    const auto lineOf = [](const std::string& text, const std::string& part, std::size_t from = 0) {
        std::uint64_t line = 1;
        for (std::size_t i = 0; i < text.find(part, from); ++i)
            line += text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n');
        return line;
    };
    const std::string byHand = CaseText("dump/hand-written-v4.terrix");
    const SourceLines handLines = linesOf(byHand).at(0);
    EXPECT_EQ(handLines.GetSectionLine("CONTROL SECTION"), lineOf(byHand, "CONTROL SECTION"));
    EXPECT_EQ(handLines.GetParameterLine("CONTROL SECTION", "CONFRC"), lineOf(byHand, "CONFRC"));
    EXPECT_EQ(handLines.GetRowLine("SOIL TYPE AND PROPERTY SECTION", 0), lineOf(byHand, "1.9\t19.5"));
    EXPECT_EQ(handLines.GetRowLine("MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION", 1), lineOf(byHand, "3 2.0 2"));
    EXPECT_EQ(handLines.GetRowLine("SOIL TYPE AND PROPERTY SECTION", 2), 0u);

    const std::string stream = CaseText("dump/stream-of-three-profiles.terrix");
    const std::vector<SourceLines> lines = linesOf(stream);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].GetRowLine("SOIL LAYER DIV ...", 3), lineOf(stream, "         4         6"));
    EXPECT_EQ(lines[1].GetParameterLine("CONTROL SECTION", "NUMLAYM"), lineOf(stream, " NUMLAYM "));
    EXPECT_EQ(lines[2].GetRowLine("SOIL MAIN LAYERS AND PROPERTIES SECTION", 1),
              lineOf(stream, "         2      12.0", stream.rfind("TERRIX Version")));
}

TEST(ProfileApi, TheColumnsThatNewUnitsWouldChangeAreNamedOnceInFileOrder) {
    std::vector<std::string> named;
    for (const UnitBoundColumn& column : FindUnitBoundColumns(ExampleProfile("north-sea-v4.terrix")))
        named.push_back(column.column + (column.meaning == ColumnMeaning::KeptAsWritten ? "" : " at a level"));
    EXPECT_EQ(named, (std::vector<std::string>{"SU.Z=100 at a level", "SKIN-CMP", "SKIN-TNS", "G0-SOIL", "SIG-TIP",
                                               "Y-GAP"}));
    // A new profile holds no value other than 0; a profile of no version
    // has no sections to describe.
    EXPECT_TRUE(FindUnitBoundColumns(Terrix(Version::V5)).empty());
    EXPECT_EQ(DescribeSections(Terrix(Version::Unknown)), Json::object());
}

TEST(ProfileApi, LayeringJoinsExactlyTheNeighboursWhoseGettersAgree) {
    // The layering finds the curves of all layers at once; the getters find
    // those of one layer. Pieces of a division are joined exactly where the
    // getters give the same curve data, and a failing getter fails both.
    for (const char* name : {"layering-v4", "queries-v4", "north-sea-v4", "north-sea-v4-py-rows-for-chosen-layers",
                             "every-section-v4", "manual-code-without-its-curves-v4"}) {
        const Terrix profile = Read(CaseText(std::string("dump/") + name + ".terrix"));
        auto same = [&](const Layer& a, const Layer& b) {
            return profile.GetPyData(a) == profile.GetPyData(b) && profile.GetTzData(a) == profile.GetTzData(b) &&
                   profile.GetQzData(a) == profile.GetQzData(b) &&
                   profile.GetMthetaData(a) == profile.GetMthetaData(b) &&
                   profile.GetBSyData(a) == profile.GetBSyData(b) &&
                   profile.GetBMthetaData(a) == profile.GetBMthetaData(b);
        };
        std::vector<Layer> expected;
        try {
            for (const Layer& division : profile.GetLayers(false))
                for (const Layer& piece : division.Split()) {
                    if (piece.firstLayer != division.firstLayer && same(expected.back(), piece))
                        expected.back().Merge(piece);
                    else
                        expected.push_back(piece);
                }
        } catch (const std::exception& error) {
            EXPECT_EQ(ErrorOf([&] { profile.GetLayers(true); }), error.what()) << name;
            continue;
        }
        EXPECT_EQ(profile.GetLayers(true), expected) << name;
    }
}

TEST(ProfileApi, TheAnswersOfAllLayersInOneCallAreTheGetters) {
    // One call indexes the sections for all the layers it is given; each
    // getter scans them for its one layer. Every answer and every error is
    // the same, split or not, in every profile of every dump case. A layer
    // the index was not built for is still found, by a scan.
    for (const std::string& path : CaseTexts("dump")) {
        TerrixMultipleSoilProfiles profiles;
        std::istringstream stream(FileText(path));
        profiles.Import(stream);
        for (const Terrix& profile : profiles.GetSoilProfiles())
            for (const bool split : {false, true}) {
                const auto layering = Testing::OutcomeOf([&] { return profile.GetLayers(split); });
                if (!layering.answer) continue;
                const std::vector<Layer>& layers = *layering.answer;
                EXPECT_EQ(Testing::FirstAnswerUnlikeTheGetters(profile, layers), "") << path << " split " << split;
                const std::vector<Layer> first(layers.begin(), layers.begin() + (layers.empty() ? 0 : 1));
                EXPECT_EQ(Testing::FirstAnswerUnlikeTheGetters(profile, layers, &first), "")
                    << path << " split " << split;
            }
    }
}
