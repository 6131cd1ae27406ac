// Whole TERRIX files of both versions: the examples shipped with the library
// import, export and import back unchanged, in any unit system.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <list>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "ProfileComparison.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

std::string ExampleText(const std::string& name) {
    std::ifstream file(std::string(TERRIX_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

Terrix Imported(const std::string& text, const std::string& force = "kN", const std::string& length = "m") {
    std::istringstream stream(text);
    Terrix profile;
    profile.Import(stream, force, length);
    return profile;
}

std::string Exported(Terrix& profile, const std::string& force = "kN", const std::string& length = "m",
                     bool writeEndLine = true) {
    std::ostringstream stream;
    profile.Export(stream, force, length, {"North Sea jacket NS-A12"}, writeEndLine);
    return stream.str();
}

std::size_t Occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// The number of the line on which `part` first stands.
int LineOf(const std::string& text, const std::string& part) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

}  // namespace

TEST(WholeFile, TheVersion4ExampleImportsWithEverySection) {
    const std::string text = ExampleText("north-sea-v4.terrix");
    std::string force, length;
    std::istringstream deduce(text);
    ASSERT_TRUE(Terrix::TryDeduceUnits(deduce, force, length));
    EXPECT_EQ(force, "kN");
    EXPECT_EQ(length, "m");

    const Terrix profile = Imported(text);
    EXPECT_EQ(profile.GetVersion(), Version::V4);
    EXPECT_EQ(profile.GetHeader(),
              "North Sea jacket NS-A12, leg A1: best estimate soil profile\n"
              "Site investigation 2007, borehole BH-A12-01, water depth 72 m");
    const TerrixInputData& data = profile.GetTerrixInputData();
    EXPECT_EQ(profile.GetDiameterCount(), 2u);
    EXPECT_EQ(data.soilTypeAndPropertySection.records.size(), 4u);
    EXPECT_EQ(data.soilLayerDivisionsAndCodesForPyTzQzSection.GetLayerCount(), 10u);
    // Three manual P-Y layers, two T-Z and three Q-Z, at two diameters each.
    EXPECT_EQ(data.manualPyLateralResistanceDataSection.records.size(), 6u);
    EXPECT_EQ(data.manualTzSkinFrictionDataSection.records.size(), 4u);
    EXPECT_EQ(data.manualQzPileTipResistanceDataSection.records.size(), 6u);
    EXPECT_EQ(data.manualMthetaMomentDataSection.records.size(), 2u);
    EXPECT_EQ(data.manualBSYBaseShearDataSection.records.size(), 2u);
    EXPECT_EQ(data.manualBMthetaMomentDataSection.records.size(), 2u);
    EXPECT_EQ(data.pyLateralResistanceDataModificationSection.records.size(), 3u);
    EXPECT_EQ(data.givenSoilDisplacementsAndOpenHoleSection.records.size(), 2u);

    // Values are held in newton and metre.
    const auto& firstCurve = data.manualPyLateralResistanceDataSection.records.front();
    EXPECT_EQ(firstCurve.LAY, 3);
    EXPECT_EQ(firstCurve.DIAM, Length(1.524));
    EXPECT_EQ(firstCurve.resistances[1], 42400.0);
    EXPECT_EQ(firstCurve.displacements[1], 0.00762);
    EXPECT_EQ(data.manualBMthetaMomentDataSection.GetManualCurve(10, Length(2.134)).points.at(0.02), 10690000.0);

    // The P-Y, T-Z and Q-Z factors of every layer and diameter are there.
    for (int layer = 1; layer <= 10; ++layer) {
        for (const Length& diameter : data.pileDiametersAndGroupEffectsSection.diameters) {
            EXPECT_NO_THROW(data.pyLateralResistanceDataModificationSection.GetModification(layer, diameter));
            EXPECT_NO_THROW(data.tzSkinFrictionDataModificationSection.GetModification(layer, diameter));
            EXPECT_NO_THROW(data.qzPileTipResistanceDataModificationSection.GetModification(layer, diameter));
        }
    }
    EXPECT_EQ(data.pyLateralResistanceDataModificationSection.GetModification(4, Length(2.134)).P_FACT, 0.9);
    EXPECT_EQ(data.pyLateralResistanceDataModificationSection.GetModification(4, Length(1.524)).P_FACT, 1.0);
    EXPECT_EQ(data.pyLateralResistanceDataModificationSection.GetModification(2, Length(1.524)).Y_GAP, 0.02);
}

TEST(WholeFile, TheVersion5ExampleImportsWithEverySection) {
    const Terrix profile = Imported(ExampleText("north-sea-v5.terrix"));
    EXPECT_EQ(profile.GetVersion(), Version::V5);
    const TerrixInputData& data = profile.GetTerrixInputData();
    EXPECT_EQ(data.controlSection.profileName, "NS-A12");
    EXPECT_EQ(data.mainLayersSubdivisionAndPyTzQzCodesSection.CountSubLayers(), 10u);
    EXPECT_EQ(data.manualPyLateralResistanceDataSection.records.size(), 6u);
    EXPECT_EQ(data.manualTzSkinFrictionDataSection.records.size(), 4u);
    EXPECT_EQ(data.manualQzPileTipResistanceDataSection.records.size(), 6u);
    EXPECT_EQ(data.manualMthetaMomentDataSection.records.size(), 2u);
    EXPECT_EQ(data.manualBSYBaseShearDataSection.records.size(), 2u);
    EXPECT_EQ(data.manualBMthetaMomentDataSection.records.size(), 2u);
    EXPECT_TRUE(data.manualBSYBaseShearDataSection.HasManualCurve(10, Length(2.438)));
    EXPECT_EQ(data.bsyBaseShearDataModificationSection.GetModification(10, Length(2.438)).BS_FCT, 1.1);
    EXPECT_EQ(data.bsyBaseShearDataModificationSection.GetModification(10, Length(1.829)).BS_FCT, 1.0);
}

TEST(WholeFile, ExportImportsBackToEqualSectionsAndTheSameText) {
    for (const std::string name : {"north-sea-v4.terrix", "north-sea-v5.terrix"}) {
        SCOPED_TRACE(name);
        Terrix profile = Imported(ExampleText(name));
        const std::string text = Exported(profile);
        Terrix back = Imported(text);
        ExpectSameSections(profile, back);
        EXPECT_EQ(Exported(back), text);
        EXPECT_EQ(Exported(profile), text);
        // Without the end line the text stops after the last section.
        const std::string withoutEnd = Exported(profile, "kN", "m", false);
        EXPECT_EQ(withoutEnd + "\nEND OF TERRIX INPUT FILE\n", text);
        ExpectSameSections(profile, Imported(withoutEnd));
    }
}

TEST(WholeFile, ConversionToNewtonMillimetreAndBackKeepsEveryValue) {
    for (const std::string name : {"north-sea-v4.terrix", "north-sea-v5.terrix"}) {
        SCOPED_TRACE(name);
        Terrix profile = Imported(ExampleText(name));
        const std::string metres = Exported(profile);
        const std::string millimetres = Exported(profile, "N", "mm");
        EXPECT_NE(millimetres, metres);
        // The unit weight of water in N/mm3 tells the units of the file.
        std::string force, length;
        std::istringstream deduce(millimetres);
        ASSERT_TRUE(Terrix::TryDeduceUnits(deduce, force, length));
        EXPECT_EQ(force + " " + length, "N mm");

        Terrix converted = Imported(millimetres, "N", "mm");
        ExpectSameSections(profile, converted);
        EXPECT_EQ(Exported(converted), metres);
    }
}

TEST(WholeFile, CrLfLineEndsImportLikeLineFeeds) {
    const std::string text = ExampleText("north-sea-v4.terrix");
    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
    }
    ExpectSameSections(Imported(text), Imported(crlf));
}

TEST(WholeFile, WithoutTheOptionalCountsTheOptionalSectionsAreAbsent) {
    Terrix profile = Imported(ExampleText("north-sea-v5.terrix"));
    ControlSection& control = profile.GetTerrixInputData().controlSection;
    control.NUMDM = boost::none;
    control.NUMBS = boost::none;
    control.NUMBM = boost::none;

    // Export: neither the sections nor their blank lines.
    const std::string text = Exported(profile);
    for (const char* part : {"NUMDM", "NUMBS", "NUMBM", "M-THETA", "BS-Y", "BM-THETA"})
        EXPECT_EQ(text.find(part), std::string::npos) << part;
    EXPECT_NE(text.find("         0         0       0.0       1.0       1.0       1.0       1.0       1.0\n"
                        "\n"
                        "*** GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION ***\n"),
              std::string::npos);

    // Import: such a file reads without them, and their members stay empty.
    const Terrix back = Imported(text);
    EXPECT_FALSE(back.GetTerrixInputData().controlSection.HasDMData());
    EXPECT_FALSE(back.GetTerrixInputData().controlSection.HasBSData());
    EXPECT_FALSE(back.GetTerrixInputData().controlSection.HasBMData());
    EXPECT_TRUE(back.GetTerrixInputData().manualMthetaMomentDataSection.records.empty());
    EXPECT_TRUE(back.GetTerrixInputData().bmThetaMomentDataModificationSection.records.empty());
    EXPECT_EQ(back.GetTerrixInputData().givenSoilDisplacementsAndOpenHoleSection.records.size(), 1u);

    // A file that has the sections but not the counts stops at the first of
    // them, where the given soil displacements section should stand.
    std::string withSections = ExampleText("north-sea-v5.terrix");
    for (const char* name : {"NUMDM", "NUMBS", "NUMBM"}) {
        const std::size_t at = withSections.find(std::string(" ") + name + " ");
        const std::size_t start = withSections.rfind('\n', at) + 1;
        withSections.erase(start, withSections.find('\n', at) + 1 - start);
    }
    const std::string title = "*** MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION ***";
    EXPECT_EQ(ImportErrorOf([&] { Imported(withSections); }),
              ImportErrorText(LineOf(withSections, title), "Unable to find section",
                              "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", title));
}

TEST(WholeFile, AManualSectionWithTooFewCurvesIsReportedAtTheBlankLine) {
    // The control section's NUMBS says three base shear curves; two follow.
    std::string text = ExampleText("north-sea-v4.terrix");
    const std::string count = "         2 NUMBS ";
    text.replace(text.find(count), count.size(), "         3 NUMBS ");
    const int blank = LineOf(text, "*** BS-Y (BASE SHEAR) DATA MODIFICATION SECTION ***") - 1;
    EXPECT_EQ(ImportErrorOf([&] { Imported(text); }),
              ImportErrorText(blank, "Error parsing argument: 0", "MANUAL BS-Y (BASE SHEAR) DATA SECTION", ""));
    EXPECT_EQ(Occurrences(text, " NUMBS "), 1u);
}
