// The frame of a profile: "TERRIX", the header, the version line, the
// separators between sections and the end line.

#include <algorithm>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

std::string Export(Terrix profile, const std::list<std::string>& header, bool writeEndLine) {
    std::ostringstream out;
    profile.Export(out, "kN", "m", header, writeEndLine);
    return out.str();
}

Terrix Import(const std::string& text) {
    std::istringstream in(text);
    Terrix profile;
    profile.Import(in, "kN", "m");
    return profile;
}

// The line of `text` that starts at `position`, without its line break.
bool StartsWith(const std::string& text, const std::string& start) { return text.compare(0, start.size(), start) == 0; }

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

TEST(ProfileFrame, HeaderVersionLineAndEndLine) {
    Terrix profile(Version::V5);
    profile.GetTerrixInputData().controlSection.profileName = "SITE-A";
    const std::string text = Export(profile, {"Offshore wind farm", "Location A-07"}, true);
    EXPECT_TRUE(StartsWith(text,
                           "TERRIX\n"
                           "Offshore wind farm\n"
                           "Location A-07\n"
                           "TERRIX Version: 2009-09-01\n"
                           "\n"
                           "*** CONTROL SECTION           ***\n"))
        << text;
    EXPECT_TRUE(EndsWith(text, "HOLE-DIAM\n\nEND OF TERRIX INPUT FILE\n")) << text;

    const Terrix back = Import(text);
    EXPECT_EQ(back.GetVersion(), Version::V5);
    EXPECT_EQ(back.GetHeader(), "Offshore wind farm\nLocation A-07");
    EXPECT_EQ(back.GetTerrixInputData().controlSection.profileName, "SITE-A");
}

TEST(ProfileFrame, WithoutEndLineTheFileEndsAfterTheLastSection) {
    const std::string text = Export(Terrix(Version::V5), {}, false);
    EXPECT_EQ(text.find("END OF TERRIX INPUT FILE"), std::string::npos);
    // The given soil displacements section is the last: its header line ends
    // the file.
    EXPECT_TRUE(EndsWith(text, "\nZLEV  DSP-X  DSP-Y  DSP-Z  HOLE-DIAM\n")) << text;
    EXPECT_EQ(Import(text).GetVersion(), Version::V5);
    // A version-4 profile has no version line and reads back as version 4.
    const std::string version4 = Export(Terrix(Version::V4), {"Header"}, true);
    EXPECT_TRUE(StartsWith(version4, "TERRIX\nHeader\n\n*** CONTROL SECTION")) << version4;
    EXPECT_EQ(Import(version4).GetVersion(), Version::V4);
}

TEST(ProfileFrame, OnlyTheYear2009MakesAVersion5File) {
    std::string text = Export(Terrix(Version::V5), {}, true);
    text.replace(text.find("2009-09-01"), 10, "2009-01-15");
    EXPECT_EQ(Import(text).GetVersion(), Version::V5);
}

TEST(ProfileFrame, AFailedImportKeepsTheSectionsReadBeforeIt) {
    Terrix original(Version::V4);
    original.GetTerrixInputData().materialCoefficientsSection.SFSU = 1.25;
    std::string text = Export(original, {}, true);
    text.replace(text.find("SOIL SURFACE AND"), 4, "SOYL");
    std::istringstream in(text);
    Terrix profile(Version::V4);
    EXPECT_THROW(profile.Import(in, "kN", "m"), ImportError);
    EXPECT_EQ(profile.GetTerrixInputData().materialCoefficientsSection.SFSU, 1.25);
}

TEST(ProfileFrame, TheStreamKeepsItsOwnWhiteSpaceFlag) {
    std::istringstream in(Export(Terrix(Version::V4), {}, true));
    Terrix profile;
    profile.Import(in, "kN", "m");
    EXPECT_TRUE(in.flags() & std::ios::skipws);
}

TEST(ProfileFrame, ExamplesWrittenInPoundsAndFeetComeBackUnchanged) {
    for (const char* name : {"north-sea-v4.terrix", "north-sea-v5.terrix", "offshore-v5.terrix"}) {
        SCOPED_TRACE(name);
        std::ifstream file(std::string(TERRIX_EXAMPLES_DIR) + "/" + name);
        Terrix profile;
        profile.Import(file, "kN", "m");
        const std::string inKilonewtonMetre = Export(profile, {}, true);

        std::ostringstream inPoundsFeet;
        profile.Export(inPoundsFeet, "lbf", "ft", {}, true);
        std::istringstream back(inPoundsFeet.str());
        Terrix again;
        again.Import(back, "lbf", "ft");
        EXPECT_EQ(Export(again, {}, true), inKilonewtonMetre);
    }
}
