// Several soil profiles in one stream, separated by "### New soil profile".

#include <list>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "ProfileComparison.h"
#include "QueryTestSupport.h"
#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Names = std::vector<std::string>;

const std::string marker = "### New soil profile";

// Reads `text` into `profiles`, in the named units or, without them, in the
// units each profile's unit weight of water tells.
void ImportInto(TerrixMultipleSoilProfiles& profiles, const std::string& text, const std::string& force = "",
                const std::string& length = "") {
    std::istringstream stream(text);
    force.empty() ? profiles.Import(stream) : profiles.Import(stream, force, length);
}

TerrixMultipleSoilProfiles Imported(const std::string& text, const std::string& force = "",
                                    const std::string& length = "") {
    TerrixMultipleSoilProfiles profiles;
    ImportInto(profiles, text, force, length);
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

void ExpectSameProfiles(const TerrixMultipleSoilProfiles& expected, const TerrixMultipleSoilProfiles& actual) {
    ASSERT_EQ(expected.GetSoilProfiles().size(), actual.GetSoilProfiles().size());
    for (std::size_t i = 0; i < expected.GetSoilProfiles().size(); ++i) {
        SCOPED_TRACE("profile " + std::to_string(i));
        ExpectSameSections(expected.GetSoilProfiles()[i], actual.GetSoilProfiles()[i]);
    }
}

}  // namespace

TEST(MultipleSoilProfiles, ThreeProfilesAreFoundByNameAndByIndex) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    const TerrixMultipleSoilProfiles profiles = Imported(example);
    ASSERT_EQ(profiles.GetSoilProfiles().size(), 3u);
    EXPECT_EQ(profiles.GetSoilProfileNames(), (Names{"NS-A12", "NS-B07", "NS-C03"}));
    EXPECT_EQ(profiles.TryGetSoilProfile("NS-B07"), &profiles.GetSoilProfiles()[1]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{2}), &profiles.GetSoilProfiles()[2]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{3}), nullptr);
    for (const char* name : {"ns-b07", "NS-B07 ", ""}) EXPECT_EQ(profiles.TryGetSoilProfile(name), nullptr) << name;
    // The first carries the stream's header; the third has no optional curves.
    EXPECT_EQ(profiles.GetSoilProfiles()[0].GetHeader(),
              "North Sea wind farm, three jacket locations\nBest estimate profiles, CPT campaign 2011");
    EXPECT_EQ(profiles.GetSoilProfiles()[1].GetHeader(), "");
    EXPECT_TRUE(profiles.GetSoilProfiles()[1].GetTerrixInputData().controlSection.HasBMData());
    EXPECT_FALSE(profiles.GetSoilProfiles()[2].GetTerrixInputData().controlSection.HasBMData());

    // Named units read the same stream to the same profiles.
    ExpectSameProfiles(profiles, Imported(example, "kN", "m"));
}

TEST(MultipleSoilProfiles, ExportWritesOneHeaderTwoMarkersAndOneEndLine) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    TerrixMultipleSoilProfiles profiles = Imported(example);
    const std::string text = Exported(profiles, {"Wind farm", "Three locations"});
    // The header once, before the first profile; "### New soil profile"
    // after the empty line that ends each profile but the last; one end line.
    EXPECT_EQ(text, TestData("expected/multiple-soil-profiles-export.terrix"));

    const TerrixMultipleSoilProfiles back = Imported(text);
    ExpectSameProfiles(profiles, back);
    EXPECT_EQ(back.GetSoilProfiles()[0].GetHeader(), "Wind farm\nThree locations");
    TerrixMultipleSoilProfiles again = back;
    EXPECT_EQ(Exported(again, {"Wind farm", "Three locations"}), text);
}

TEST(MultipleSoilProfiles, EmptyAndSingleContainers) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    // An empty container writes nothing.
    TerrixMultipleSoilProfiles none;
    EXPECT_EQ(Exported(none, {"A header"}), "");
    EXPECT_EQ(none.TryGetSoilProfile(std::size_t{0}), nullptr);

    // One profile: no marker, one end line.
    const Terrix version4 = ExampleProfile("north-sea-v4.terrix");
    TerrixMultipleSoilProfiles one;
    one.AddSoilProfile(version4);
    const std::string text = Exported(one, {"One profile"});
    EXPECT_EQ(text.find("###"), std::string::npos);
    EXPECT_EQ(Occurrences(text, "END OF TERRIX INPUT FILE\n"), 1u);

    // Reading appends. A version 4 profile has no name: "" finds the first.
    TerrixMultipleSoilProfiles mixed;
    mixed.AddSoilProfile(version4);
    ImportInto(mixed, example);
    mixed.AddSoilProfile(version4);
    EXPECT_EQ(mixed.TryGetSoilProfile(""), &mixed.GetSoilProfiles()[0]);
    EXPECT_EQ(mixed.GetSoilProfileNames(), (Names{"", "NS-A12", "NS-B07", "NS-C03", ""}));
}

TEST(MultipleSoilProfiles, WhatMayFollowTheLastProfile) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    // No end line; or the end line with empty and comment lines after it;
    // with DOS line ends too.
    const std::string withoutEnd = example.substr(0, example.find("\nEND OF TERRIX INPUT FILE"));
    EXPECT_EQ(Imported(withoutEnd).GetSoilProfiles().size(), 3u);
    EXPECT_EQ(Imported(withoutEnd + "\n").GetSoilProfiles().size(), 3u);
    EXPECT_EQ(Imported(example + "\n\n* written by the site team\n\n").GetSoilProfiles().size(), 3u);
    ExpectSameProfiles(Imported(example), Imported(WithLineEnds(example, "\r\n")));
}

TEST(MultipleSoilProfiles, ABrokenStreamIsNeverTakenForAShorterOne) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    // A missing marker; the profiles before the error stay.
    const std::size_t lastMarker = example.rfind(marker);
    TerrixMultipleSoilProfiles profiles;
    const std::string withoutMarker = example.substr(0, lastMarker) + example.substr(lastMarker + marker.size() + 1);
    EXPECT_THROW(ImportInto(profiles, withoutMarker), ImportError);
    EXPECT_EQ(profiles.GetSoilProfileNames(), (Names{"NS-A12", "NS-B07"}));
}

TEST(MultipleSoilProfiles, EachProfileDeducesItsOwnUnits) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    // The second profile's water weighs five times too much for any unit.
    std::string text = example;
    const std::string water = "   10.0518 GAMMAW";
    text.replace(text.find(water, text.find(marker)), water.size(), "   50.0518 GAMMAW");
    TerrixMultipleSoilProfiles profiles;
    EXPECT_EQ(QueryErrorOf([&] { ImportInto(profiles, text); }), "Unable to deduce units");
    EXPECT_EQ(profiles.GetSoilProfileNames(), (Names{"NS-A12"}));

    // With named units the same stream reads.
    EXPECT_EQ(Imported(text, "kN", "m").GetSoilProfiles().size(), 3u);
}

TEST(MultipleSoilProfiles, EveryProfileReadsItsTitlesByTheirWordsAndTheMarkerMayHaveBlanks) {
    const std::string example = ExampleFileText("three-profiles.terrix");
    // A profile reads the titles of its optional curve sections by their
    // exact spelling; the next profile starts afresh, reading titles by their
    // words, whatever the blanks between them.
    std::string text = example;
    const std::string title = "*** CONTROL SECTION           ***";
    text.replace(text.find(title, text.find(marker)), title.size(), "***  CONTROL   SECTION  ***");
    // Blanks before, between and after the marker's parts, or none.
    text.replace(text.find(marker), marker.size(), "###New soil profile");
    text.replace(text.rfind(marker), marker.size(), "  ###   New soil profile\t ");
    ExpectSameProfiles(Imported(example), Imported(text));
}
