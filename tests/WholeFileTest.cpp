// Whole TERRIX files of both versions: the examples shipped with the library
// import, export and import back unchanged, in any unit system.

#include <cstring>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "ProfileComparison.h"
#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

std::string Exported(Terrix& profile, const std::string& force = "kN", const std::string& length = "m",
                     bool writeEndLine = true) {
    std::ostringstream stream;
    profile.Export(stream, force, length, {"North Sea jacket NS-A12"}, writeEndLine);
    return stream.str();
}

}  // namespace

TEST(WholeFile, TheExamplesImportWithEverySection) {
    const std::string text = ExampleFileText("north-sea-v4.terrix");
    std::string force, length;
    std::istringstream deduce(text);
    ASSERT_TRUE(Terrix::TryDeduceUnits(deduce, force, length));
    EXPECT_EQ(force + " " + length, "kN m");

    const Terrix v4 = ImportedText(text);
    EXPECT_EQ(v4.GetVersion(), Version::V4);
    EXPECT_EQ(v4.GetHeader(),
              "North Sea jacket NS-A12, leg A1: best estimate soil profile\n"
              "Site investigation 2007, borehole BH-A12-01, water depth 72 m");
    EXPECT_EQ(v4.GetTerrixInputData().soilTypeAndPropertySection.records.size(), 4u);
    EXPECT_EQ(v4.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.GetLayerCount(), 10u);
    EXPECT_EQ(v4.GetTerrixInputData().givenSoilDisplacementsAndOpenHoleSection.records.size(), 2u);
    const Terrix v5 = ExampleProfile("north-sea-v5.terrix");
    EXPECT_EQ(v5.GetVersion(), Version::V5);
    EXPECT_EQ(v5.GetTerrixInputData().controlSection.profileName, "NS-A12");
    EXPECT_EQ(v5.GetTerrixInputData().mainLayersSubdivisionAndPyTzQzCodesSection.CountSubLayers(), 10u);

    // Three manual P-Y layers, two T-Z and three Q-Z, and layer 10 of each
    // optional kind, at two diameters each.
    for (const Terrix* profile : {&v4, &v5}) {
        const TerrixInputData& sections = profile->GetTerrixInputData();
        EXPECT_EQ(sections.manualPyLateralResistanceDataSection.records.size(), 6u);
        EXPECT_EQ(sections.manualTzSkinFrictionDataSection.records.size(), 4u);
        EXPECT_EQ(sections.manualQzPileTipResistanceDataSection.records.size(), 6u);
        EXPECT_EQ(sections.manualMthetaMomentDataSection.records.size(), 2u);
        EXPECT_EQ(sections.manualBSYBaseShearDataSection.records.size(), 2u);
        EXPECT_EQ(sections.manualBMthetaMomentDataSection.records.size(), 2u);
    }
}

TEST(WholeFile, ExportImportsBackToEqualSectionsAndTheSameTextInAnyUnits) {
    for (const std::string name : {"north-sea-v4.terrix", "north-sea-v5.terrix", "offshore-v5.terrix"}) {
        SCOPED_TRACE(name);
        Terrix profile = ExampleProfile(name);
        const std::string text = Exported(profile);
        Terrix back = ImportedText(text);
        ExpectSameSections(profile, back);
        EXPECT_EQ(Exported(back), text);
        // Without the end line the text stops after the last section.
        const std::string withoutEnd = Exported(profile, "kN", "m", false);
        EXPECT_EQ(withoutEnd + "\nEND OF TERRIX INPUT FILE\n", text);
        ExpectSameSections(profile, ImportedText(withoutEnd));

        // In N and mm: the unit weight of water tells the file's units, and
        // every value comes back.
        const std::string millimetres = Exported(profile, "N", "mm");
        EXPECT_NE(millimetres, text);
        std::string force, length;
        std::istringstream deduce(millimetres);
        ASSERT_TRUE(Terrix::TryDeduceUnits(deduce, force, length));
        EXPECT_EQ(force + " " + length, "N mm");
        Terrix converted = ImportedText(millimetres, "N", "mm");
        ExpectSameSections(profile, converted);
        EXPECT_EQ(Exported(converted), text);
    }
}

TEST(WholeFile, AnyLineEndsAndTabsImportLikeLineFeedsAndBlanks) {
    // Every "\n" as "\r\n" (DOS) or a lone "\r" (old Mac files), and the
    // first three blanks of every value line as a tab.
    const std::string text = ExampleFileText("north-sea-v4.terrix");
    for (const char* lineEnd : {"\r\n", "\r"}) {
        std::string other = WithLineEnds(text, lineEnd);
        const std::string valueLine = std::string(lineEnd) + "   ";
        for (std::size_t at = other.find(valueLine); at != std::string::npos; at = other.find(valueLine, at))
            other.replace(at += std::strlen(lineEnd), 3, "\t");
        ASSERT_NE(other.find(std::string(lineEnd) + "\t"), std::string::npos);
        const Terrix read = ImportedText(other);
        ExpectSameSections(ImportedText(text), read);
        EXPECT_EQ(read.GetHeader(), ImportedText(text).GetHeader());
    }
    // A lone carriage return inside a header line ends that line.
    Terrix split = ImportedText(Replaced(text, "BH-A12-01, water", "BH-A12-01,\rwater"));
    EXPECT_EQ(split.GetHeader(),
              "North Sea jacket NS-A12, leg A1: best estimate soil profile\n"
              "Site investigation 2007, borehole BH-A12-01,\n"
              "water depth 72 m");
}

TEST(WholeFile, WithoutTheOptionalCountsTheOptionalSectionsAreAbsent) {
    Terrix profile = ExampleProfile("north-sea-v5.terrix");
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
    const TerrixInputData back = ImportedText(text).GetTerrixInputData();
    EXPECT_FALSE(back.controlSection.HasDMData());
    EXPECT_FALSE(back.controlSection.HasBSData());
    EXPECT_FALSE(back.controlSection.HasBMData());
    EXPECT_TRUE(back.manualMthetaMomentDataSection.records.empty());
    EXPECT_TRUE(back.bmThetaMomentDataModificationSection.records.empty());
    EXPECT_EQ(back.givenSoilDisplacementsAndOpenHoleSection.records.size(), 1u);
}
