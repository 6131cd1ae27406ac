// Several soil profiles in one stream, separated by "### New soil profile".

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "ProfileComparison.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

std::string ExampleText(const std::string& name) {
    std::ifstream file(std::string(TERRIX_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

TerrixMultipleSoilProfiles Imported(const std::string& text) {
    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    return profiles;
}

std::string Exported(TerrixMultipleSoilProfiles& profiles, const std::list<std::string>& headerLines) {
    std::ostringstream stream;
    profiles.Export(stream, "kN", "m", headerLines);
    return stream.str();
}

std::size_t Occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

int LineOf(const std::string& text, const std::string& part) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

std::string MessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "(nothing thrown)";
}

void ExpectSameProfiles(const TerrixMultipleSoilProfiles& expected, const TerrixMultipleSoilProfiles& actual) {
    ASSERT_EQ(expected.GetSoilProfiles().size(), actual.GetSoilProfiles().size());
    for (std::size_t i = 0; i < expected.GetSoilProfiles().size(); ++i) {
        SCOPED_TRACE("profile " + std::to_string(i));
        ExpectSameSections(expected.GetSoilProfiles()[i], actual.GetSoilProfiles()[i]);
    }
}

}  // namespace

TEST(MultipleSoilProfiles, ThreeProfilesAreFoundByNameAndByIndex) {
    const TerrixMultipleSoilProfiles profiles = Imported(ExampleText("three-profiles.terrix"));
    ASSERT_EQ(profiles.GetSoilProfiles().size(), 3u);
    EXPECT_EQ(profiles.GetSoilProfileNames(), (std::vector<std::string>{"NS-A12", "NS-B07", "NS-C03"}));
    EXPECT_EQ(profiles.TryGetSoilProfile("NS-B07"), &profiles.GetSoilProfiles()[1]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{2}), &profiles.GetSoilProfiles()[2]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{3}), nullptr);
    EXPECT_EQ(profiles.TryGetSoilProfile("ns-b07"), nullptr);
    EXPECT_EQ(profiles.TryGetSoilProfile("NS-B07 "), nullptr);
    EXPECT_EQ(profiles.TryGetSoilProfile(""), nullptr);
    // The first carries the stream's header; the third has no optional curves.
    EXPECT_EQ(profiles.GetSoilProfiles()[0].GetHeader(),
              "North Sea wind farm, three jacket locations\nBest estimate profiles, CPT campaign 2011");
    EXPECT_EQ(profiles.GetSoilProfiles()[1].GetHeader(), "");
    EXPECT_TRUE(profiles.GetSoilProfiles()[1].GetTerrixInputData().controlSection.HasBMData());
    EXPECT_FALSE(profiles.GetSoilProfiles()[2].GetTerrixInputData().controlSection.HasBMData());
    // The profiles differ in their strengths.
    EXPECT_FALSE(profiles.GetSoilProfiles()[0].GetTerrixInputData().soilMainLayersAndPropertiesSection ==
                 profiles.GetSoilProfiles()[1].GetTerrixInputData().soilMainLayersAndPropertiesSection);

    // Named units read the same stream to the same profiles.
    std::istringstream stream(ExampleText("three-profiles.terrix"));
    TerrixMultipleSoilProfiles named;
    named.Import(stream, "kN", "m");
    ExpectSameProfiles(profiles, named);
}

TEST(MultipleSoilProfiles, ExportWritesOneHeaderTwoMarkersAndOneEndLine) {
    TerrixMultipleSoilProfiles profiles = Imported(ExampleText("three-profiles.terrix"));
    const std::string text = Exported(profiles, {"Wind farm", "Three locations"});

    EXPECT_EQ(text.rfind("TERRIX\nWind farm\nThree locations\nTERRIX Version: 2009-09-01\n\n*** CONTROL SECTION", 0),
              0u);
    EXPECT_EQ(Occurrences(text, "Wind farm\n"), 1u);
    EXPECT_EQ(Occurrences(text, "TERRIX Version: 2009-09-01\n"), 3u);
    EXPECT_EQ(Occurrences(text, "### New soil profile"), 2u);
    EXPECT_EQ(Occurrences(text, "\n\n### New soil profile\nTERRIX\nTERRIX Version: 2009-09-01\n\n*** CONTROL SECTION"),
              2u);
    EXPECT_EQ(Occurrences(text, "END OF TERRIX INPUT FILE"), 1u);
    const std::string end = "\n\nEND OF TERRIX INPUT FILE\n";
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    EXPECT_GT(LineOf(text, "### New soil profile"), LineOf(text, "'NS-A12'"));
    EXPECT_LT(LineOf(text, "### New soil profile"), LineOf(text, "'NS-B07'"));

    const TerrixMultipleSoilProfiles back = Imported(text);
    ExpectSameProfiles(profiles, back);
    EXPECT_EQ(back.GetSoilProfileNames(), profiles.GetSoilProfileNames());
    EXPECT_EQ(back.GetSoilProfiles()[0].GetHeader(), "Wind farm\nThree locations");
    EXPECT_NE(back.TryGetSoilProfile("NS-C03"), nullptr);
    TerrixMultipleSoilProfiles again = back;
    EXPECT_EQ(Exported(again, {"Wind farm", "Three locations"}), text);
}

TEST(MultipleSoilProfiles, EmptyAndSingleContainers) {
    TerrixMultipleSoilProfiles none;
    EXPECT_EQ(Exported(none, {"A header"}), "");
    EXPECT_TRUE(none.GetSoilProfileNames().empty());
    EXPECT_EQ(none.TryGetSoilProfile(std::size_t{0}), nullptr);
    // Nothing at all is no stream of profiles.
    EXPECT_EQ(ImportErrorOf([] { Imported(""); }), ImportErrorText(1, "Unable to find section", "TERRIX", ""));

    std::istringstream stream(ExampleText("north-sea-v4.terrix"));
    Terrix version4;
    version4.Import(stream, "kN", "m");
    TerrixMultipleSoilProfiles one;
    one.AddSoilProfile(version4);
    const std::string text = Exported(one, {"One profile"});
    EXPECT_EQ(text.find("###"), std::string::npos);
    EXPECT_EQ(Occurrences(text, "END OF TERRIX INPUT FILE\n"), 1u);

    // A version 4 profile has no name: "" finds the first of them.
    TerrixMultipleSoilProfiles mixed = Imported(ExampleText("three-profiles.terrix"));
    mixed.AddSoilProfile(version4);
    mixed.AddSoilProfile(version4);
    EXPECT_EQ(mixed.TryGetSoilProfile(""), &mixed.GetSoilProfiles()[3]);
    EXPECT_EQ(mixed.GetSoilProfileNames(), (std::vector<std::string>{"NS-A12", "NS-B07", "NS-C03", "", ""}));
}

TEST(MultipleSoilProfiles, WhatMayFollowTheLastProfile) {
    const std::string text = ExampleText("three-profiles.terrix");
    // No end line; or the end line with empty and comment lines after it.
    const std::string withoutEnd = text.substr(0, text.find("\nEND OF TERRIX INPUT FILE"));
    EXPECT_EQ(Imported(withoutEnd).GetSoilProfiles().size(), 3u);
    EXPECT_EQ(Imported(withoutEnd + "\n").GetSoilProfiles().size(), 3u);
    EXPECT_EQ(Imported(text + "\n\n* written by the site team\n\n").GetSoilProfiles().size(), 3u);

    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
    }
    ExpectSameProfiles(Imported(text), Imported(crlf));

    // Anything else after the last profile is reported on its own line.
    const std::string trailing = text + "\nleft over\n";
    const int line = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 2;
    EXPECT_EQ(ImportErrorOf([&] { Imported(trailing); }),
              ImportErrorText(line, "Expected: ### New soil profile", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION",
                              "left over"));
}

TEST(MultipleSoilProfiles, AMissingMarkerIsAnError) {
    std::string text = ExampleText("three-profiles.terrix");
    const std::string marker = "### New soil profile\n";
    const std::size_t second = text.find(marker, text.find(marker) + 1);
    text.erase(second, marker.size());
    const int line = LineOf(text.substr(second), "TERRIX") + LineOf(text, text.substr(second)) - 1;

    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    EXPECT_EQ(ImportErrorOf([&] { profiles.Import(stream); }),
              ImportErrorText(line, "Expected: ### New soil profile", "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION",
                              "TERRIX"));
    // The profiles before the error stay.
    EXPECT_EQ(profiles.GetSoilProfileNames(), (std::vector<std::string>{"NS-A12", "NS-B07"}));
}

TEST(MultipleSoilProfiles, AStreamCutShortIsNeverAShorterStream) {
    const std::string text = ExampleText("three-profiles.terrix");
    // Cut inside the third profile's manual P-Y curves.
    const std::size_t third = text.rfind("### New soil profile");
    const std::string cut = text.substr(0, text.find("*** P-Y (LATERAL RESISTANCE) DATA MODIFICATION", third));
    const int line = LineOf(cut + "@", "@");
    EXPECT_EQ(ImportErrorOf([&] { Imported(cut); }),
              ImportErrorText(line, "Unable to find section", "P-Y (LATERAL RESISTANCE) DATA MODIFICATION SECTION", ""));

    // A marker with no profile after it.
    const std::string dangling = text.substr(0, third) + "### New soil profile\n";
    EXPECT_EQ(ImportErrorOf([&] { Imported(dangling); }),
              ImportErrorText(LineOf(dangling + "@", "@"), "Unable to find section", "TERRIX", ""));
}

TEST(MultipleSoilProfiles, UnitsThatCannotBeDeducedAreAnError) {
    std::string text = ExampleText("three-profiles.terrix");
    // The second profile's water weighs five times too much for any unit.
    const std::size_t second = text.find("### New soil profile");
    const std::string water = "   10.0518 GAMMAW";
    text.replace(text.find(water, second), water.size(), "   50.0518 GAMMAW");

    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    EXPECT_EQ(MessageOf([&] { profiles.Import(stream); }), "Unable to deduce units");
    EXPECT_EQ(profiles.GetSoilProfileNames(), (std::vector<std::string>{"NS-A12"}));

    // With named units the same stream reads.
    std::istringstream named(text);
    TerrixMultipleSoilProfiles all;
    all.Import(named, "kN", "m");
    EXPECT_EQ(all.GetSoilProfiles().size(), 3u);
}

TEST(MultipleSoilProfiles, EveryProfileReadsItsTitlesByTheirWords) {
    // A profile reads the titles of its optional curve sections by their
    // exact spelling; the next profile starts afresh, reading titles by their
    // words, whatever the blanks between them.
    std::string text = ExampleText("three-profiles.terrix");
    const std::size_t second = text.find("### New soil profile");
    const std::string title = "*** CONTROL SECTION           ***";
    text.replace(text.find(title, second), title.size(), "***  CONTROL   SECTION  ***");
    const TerrixMultipleSoilProfiles profiles = Imported(text);
    ExpectSameProfiles(Imported(ExampleText("three-profiles.terrix")), profiles);
}

TEST(MultipleSoilProfiles, TheMarkerMayHaveBlanksAroundItsParts) {
    const std::string text = ExampleText("three-profiles.terrix");
    const std::string marker = "### New soil profile";
    std::string spaced = text;
    spaced.replace(spaced.find(marker), marker.size(), "###New soil profile");
    spaced.replace(spaced.rfind(marker), marker.size(), "  ###   New soil profile\t ");
    ExpectSameProfiles(Imported(text), Imported(spaced));

    std::string misspelt = text;
    const std::size_t at = misspelt.find(marker);
    misspelt.replace(at, marker.size(), "### New soil profiles");
    EXPECT_EQ(ImportErrorOf([&] { Imported(misspelt); }),
              ImportErrorText(LineOf(misspelt, "### New soil profiles"), "Expected: ### New soil profile",
                              "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", "### New soil profiles"));
}
