// Several soil profiles in one stream, separated by "### New soil profile":
// the container a host keeps them in, finds them by name or index, and
// writes them back with one header and one end line.

#include <list>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Names = std::vector<std::string>;
using Units::Runtime::UnitSystem;

// Reads `text` into `profiles`, in the named units or, without them, in the
// units each profile's control section tells.
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

std::string Exported(TerrixMultipleSoilProfiles profiles, const std::list<std::string>& headerLines) {
    std::ostringstream stream;
    profiles.Export(stream, "kN", "m", headerLines);
    return stream.str();
}

void ExpectSameProfiles(const TerrixMultipleSoilProfiles& expected, const TerrixMultipleSoilProfiles& actual) {
    ASSERT_EQ(expected.GetSoilProfiles().size(), actual.GetSoilProfiles().size());
    for (std::size_t i = 0; i < expected.GetSoilProfiles().size(); ++i)
        EXPECT_TRUE(expected.GetSoilProfiles()[i].GetTerrixInputData() ==
                    actual.GetSoilProfiles()[i].GetTerrixInputData())
            << "profile " << i;
}

const std::string example = ExampleFileText("three-profiles.terrix");

}  // namespace

TEST(MultipleSoilProfiles, ProfilesAreFoundByTheirExactNameAndByIndex) {
    const TerrixMultipleSoilProfiles profiles = Imported(example);
    EXPECT_EQ(profiles.GetSoilProfileNames(), (Names{"NS-A12", "NS-B07", "NS-C03"}));
    EXPECT_EQ(profiles.TryGetSoilProfile("NS-B07"), &profiles.GetSoilProfiles()[1]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{2}), &profiles.GetSoilProfiles()[2]);
    EXPECT_EQ(profiles.TryGetSoilProfile(std::size_t{3}), nullptr);
    for (const char* name : {"ns-b07", "NS-B07 ", ""}) EXPECT_EQ(profiles.TryGetSoilProfile(name), nullptr) << name;
    // Named units read the same stream to the same profiles.
    ExpectSameProfiles(profiles, Imported(example, "kN", "m"));

    // Reading appends. A version 4 profile has no name: "" finds the first.
    const Terrix version4 = Read(ExampleFileText("north-sea-v4.terrix"));
    TerrixMultipleSoilProfiles mixed;
    mixed.AddSoilProfile(version4);
    ImportInto(mixed, example);
    mixed.AddSoilProfile(version4);
    EXPECT_EQ(mixed.TryGetSoilProfile(""), &mixed.GetSoilProfiles()[0]);
    EXPECT_EQ(mixed.GetSoilProfileNames(), (Names{"", "NS-A12", "NS-B07", "NS-C03", ""}));
}

TEST(MultipleSoilProfiles, ExportWritesOneHeaderAMarkerBetweenTwoProfilesAndOneEndLine) {
    const TerrixMultipleSoilProfiles profiles = Imported(example);
    const std::string text = Exported(profiles, {"Wind farm", "Three locations"});
    EXPECT_EQ(text, TestData("expected/multiple-soil-profiles-export.terrix"));
    const TerrixMultipleSoilProfiles back = Imported(text);
    ExpectSameProfiles(profiles, back);
    EXPECT_EQ(Exported(back, {"Wind farm", "Three locations"}), text);

    // No profile: nothing at all. One profile: no marker.
    EXPECT_EQ(Exported(TerrixMultipleSoilProfiles(), {"A header"}), "");
    TerrixMultipleSoilProfiles one;
    one.AddSoilProfile(back.GetSoilProfiles()[0]);
    EXPECT_EQ(Exported(one, {"Wind farm", "Three locations"}),
              text.substr(0, text.find("\n### New soil profile")) + "\nEND OF TERRIX INPUT FILE\n");
}

// A broken stream is never taken for a shorter one: the error reaches the
// caller, and the profiles read before it stay in the container.
TEST(MultipleSoilProfiles, TheProfilesBeforeAnErrorStay) {
    const std::string marker = "### New soil profile\n";
    const std::size_t lastMarker = example.rfind(marker);
    TerrixMultipleSoilProfiles withoutMarker;
    EXPECT_THROW(ImportInto(withoutMarker, example.substr(0, lastMarker) + example.substr(lastMarker + marker.size())),
                 ImportError);
    EXPECT_EQ(withoutMarker.GetSoilProfileNames(), (Names{"NS-A12", "NS-B07"}));

    // Water of the second profile five times too heavy for any unit: its
    // units cannot be deduced, but named units read the stream.
    std::string text = example;
    text.replace(text.find("   10.0518 GAMMAW", text.find(marker)), 17, "   50.0518 GAMMAW");
    TerrixMultipleSoilProfiles deduced;
    EXPECT_EQ(ErrorOf([&] { ImportInto(deduced, text); }), "Unable to deduce units");
    EXPECT_EQ(deduced.GetSoilProfileNames(), (Names{"NS-A12"}));
    EXPECT_EQ(Imported(text, "kN", "m").GetSoilProfiles().size(), 3u);
}

TEST(MultipleSoilProfiles, EachProfileIsWrittenBackWithItsOwnHeaderAndUnitsOrAllInTheUnitsGiven) {
    // A stream of a profile in kN m and one in N mm, each with its header.
    TerrixMultipleSoilProfiles profiles;
    profiles.AddSoilProfile(ExampleProfile("offshore-v5.terrix"));
    profiles.AddSoilProfile(Read(Written(ExampleProfile("north-sea-v4.terrix"), UnitSystem("N", "mm"))));
    std::ostringstream own;
    TerrixMultipleSoilProfiles(profiles).ExportWithOwnHeaders(own);
    const TerrixMultipleSoilProfiles back = Imported(own.str());
    ExpectSameProfiles(profiles, back);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(back.GetSoilProfiles()[i].GetHeader(), profiles.GetSoilProfiles()[i].GetHeader());
        EXPECT_EQ(back.GetSoilProfiles()[i].GetUnitSystem(), profiles.GetSoilProfiles()[i].GetUnitSystem());
    }
    EXPECT_EQ(back.GetSoilProfiles()[1].GetUnitSystem(), UnitSystem("N", "mm"));
    // The end line is written on demand; in the units given, all profiles
    // are written in those.
    std::ostringstream inFeet;
    TerrixMultipleSoilProfiles(profiles).ExportWithOwnHeaders(inFeet, UnitSystem("lbf", "ft"), false);
    EXPECT_EQ(inFeet.str().find("END OF TERRIX INPUT FILE"), std::string::npos);
    EXPECT_NE(own.str().find("\n\nEND OF TERRIX INPUT FILE\n"), std::string::npos);
    const TerrixMultipleSoilProfiles feet = Imported(inFeet.str());
    ExpectSameProfiles(profiles, feet);
    for (const Terrix& profile : feet.GetSoilProfiles()) EXPECT_EQ(profile.GetUnitSystem(), UnitSystem("lbf", "ft"));
}
