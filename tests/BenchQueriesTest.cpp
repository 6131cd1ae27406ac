// What check --strict and diff ask of the library, asked as a host asks it:
// the findings of a profile edited in code, which has no source lines (each
// finding at line 0), and the differences between two profiles.

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/ProfileComparison.h>
#include <TerrixExchange/queries/SoundnessCheck.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

std::vector<std::string> TextsOf(const std::vector<SoundnessFinding>& findings) {
    std::vector<std::string> texts;
    for (const SoundnessFinding& finding : findings)
        texts.push_back(std::to_string(finding.line) +
                        (finding.severity == SoundnessFinding::Severity::Error ? " error: " : " warning: ") +
                        finding.text);
    return texts;
}

}  // namespace

TEST(BenchQueries, AProfileEditedInCodeHasTheFindingsOfWhatWasChanged) {
    Terrix profile = ExampleProfile("north-sea-v4.terrix");
    EXPECT_EQ(TextsOf(FindUnsoundValues(profile, SourceLines())), std::vector<std::string>{});

    auto& diameters = profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters;
    std::swap(diameters.front(), diameters.back());
    profile.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.records[2].LAYER1 += 1;
    EXPECT_EQ(TextsOf(FindUnsoundValues(profile, SourceLines())),
              (std::vector<std::string>{
                  "0 error: NUMLAY is 10 but the divisions of 'SOIL LAYER DIV ...' cover 9 layers",
                  "0 error: 'MANUAL T-Z (SKIN FRICTION) DATA SECTION' holds 4 curves but is read with 2: one per "
                  "manual T-Z layer and pile diameter",
                  "0 error: layer division 7 7 leaves a gap: layer 6 has no division",
                  "0 error: pile diameter 2, 1.524, is not larger than the one before it, 2.134"}));
}

TEST(BenchQueries, UnitsGivenByHandThatTheControlSectionDoesNotFitAreAWarning) {
    TerrixMultipleSoilProfiles profiles;
    std::istringstream text(ExampleFileText("north-sea-v4.terrix"));
    profiles.Import(text, "lbf", "ft");
    EXPECT_EQ(TextsOf(FindUnsoundValues(profiles.GetSoilProfiles().at(0), SourceLines())),
              std::vector<std::string>{"0 warning: GAMMAW 10.0518 and ATMPRS 101.3 are those of kN m, not of the "
                                       "units the file was read in, lbf ft"});
}

TEST(BenchQueries, ProfilesDifferInTheValuesTheyMeanNotInTheirUnits) {
    const Terrix a = ExampleProfile("offshore-v5.terrix");
    Terrix b = Read(Written(a, Units::Runtime::UnitSystem("lbf", "in")));
    EXPECT_TRUE(CompareProfiles(a, b).empty());

    b.GetTerrixInputData().soilMainLayersAndPropertiesSection.records.at(1).PHI += 1.0;
    const std::vector<ValueDifference> differences = CompareProfiles(a, b);
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0].section, "SOIL MAIN LAYERS AND PROPERTIES SECTION");
    EXPECT_EQ(differences[0].record, 1u);
    EXPECT_EQ(differences[0].column, "PHI");
    EXPECT_EQ(differences[0].element, ValueDifference::none);
    EXPECT_EQ(differences[0].b.get<double>(), differences[0].a.get<double>() + 1.0);
}
