// The units of a TERRIX file: the names a caller gives, their exact sizes,
// conversion to the database units (N and m) and back, and the deduction of
// a file's units from its water unit weight and atmospheric pressure.

#include <cstdlib>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/NumberText.h>
#include <TerrixExchange/document/Terrix.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

#include "TestSupport.h"

namespace {

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

Terrix ImportedText(const std::string& text, const std::string& forceUnit, const std::string& lengthUnit) {
    std::istringstream stream(text);
    Terrix profile;
    profile.Import(stream, forceUnit, lengthUnit);
    return profile;
}

const DynamicDimension force = ForcePhenomenon::dimension;
const DynamicDimension length = LengthPhenomenon::dimension;
const DynamicDimension moment = MomentPhenomenon::dimension;
const DynamicDimension stress = StressPhenomenon::dimension;
const DynamicDimension unitWeight = ForcePerUnitVolumePhenomenon::dimension;
const DynamicDimension angle = AnglePhenomenon::dimension;

// The unit names a caller may give, with their exact sizes in N and m.
const std::vector<std::pair<std::string, double>> forceUnits = {
    {"N", 1.0},    {"kN", 1000.0}, {"MN", 1.0e6},   {"GN", 1.0e9},
    {"mN", 0.001}, {"lbf", 4.4482216152605}, {"kipf", 4448.2216152605}, {"kgf", 9.80665}};
const std::vector<std::pair<std::string, double>> lengthUnits = {
    {"km", 1000.0}, {"m", 1.0}, {"dm", 0.1}, {"cm", 0.01}, {"mm", 0.001}, {"in", 0.0254}, {"ft", 0.3048}};

TEST(Units, EveryUnitNameHasItsExactSize) {
    double found = 0.0;
    for (const auto& [name, size] : forceUnits) {
        EXPECT_TRUE(TryGetForceUnitSize(name, found) && found == size) << name;
        EXPECT_EQ(UnitSystem(name, "m").ConvertFromUnitSystem(1.0, force), size) << name;
    }
    for (const auto& [name, size] : lengthUnits) {
        EXPECT_TRUE(TryGetLengthUnitSize(name, found) && found == size) << name;
        EXPECT_EQ(UnitSystem("N", name).ConvertFromUnitSystem(1.0, length), size) << name;
    }
    // A force name is no length name and the other way round.
    EXPECT_FALSE(TryGetLengthUnitSize("kN", found));
    EXPECT_FALSE(TryGetForceUnitSize("m", found));
    // The database unit system is N and m.
    EXPECT_EQ(GetDatabaseUnitSystem(), UnitSystem("N", "m"));
}

TEST(Units, AnUnknownUnitNameIsAnErrorThatNamesIt) {
    // Names are case-sensitive: "mN" and "MN" differ by a factor of 10^9.
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"kNN", "m", "Unknown force unit: 'kNN'"},         {"KN", "m", "Unknown force unit: 'KN'"},
        {"", "m", "Unknown force unit: ''"},               {"kN", "furlong", "Unknown length unit: 'furlong'"},
        {"kN", "M", "Unknown length unit: 'M'"}};
    for (const auto& [forceUnit, lengthUnit, message] : cases)
        EXPECT_EQ(ErrorOf([&] { UnitSystem(forceUnit, lengthUnit); }), message);
    // The profile's entry points pass the error on.
    Terrix profile;
    std::ostringstream text;
    EXPECT_EQ(ErrorOf([&] { profile.Export(text, "kN", "furlong", {}, true); }),
              "Unknown length unit: 'furlong'");
    std::istringstream input("TERRIX\n");
    EXPECT_EQ(ErrorOf([&] { profile.Import(input, "pound", "ft"); }), "Unknown force unit: 'pound'");
}

// Decimal numbers as a file gives them, in the exporter's shortest text:
// "6.137", "-0.5", "12.0".
std::vector<std::string> DecimalTexts() {
    std::vector<std::string> texts;
    for (int i = 0; i < 400; ++i) {
        std::string fraction = std::to_string(1000 + (i * 7919) % 1000).substr(1);
        while (fraction.size() > 1 && fraction.back() == '0') fraction.pop_back();
        texts.push_back((i % 5 == 0 ? "-" : "") + std::to_string((i * 37) % 997) + "." + fraction);
    }
    return texts;
}

// A value read from a file in kN and m, held in N and m, and converted for
// writing back to kN and m converts to the same value it was read as.
TEST(Units, KilonewtonMetreValuesConvertToDatabaseUnitsAndBackExactly) {
    const UnitSystem kNm("kN", "m");
    const FastUnitConverter toKNm(GetDatabaseUnitSystem(), kNm);
    for (DynamicDimension dimension : {force, length, moment, stress, unitWeight, angle}) {
        for (const std::string& text : DecimalTexts()) {
            const double database = kNm.ConvertFromUnitSystem(std::stod(text), dimension);
            EXPECT_EQ(kNm.ConvertFromUnitSystem(toKNm.Convert(database, dimension), dimension), database)
                << text << " of dimension F^" << dimension.force << " L^" << dimension.length;
        }
    }
    // The sizes themselves: 1 kN/m2 is 1000 Pa, 1 kN/m3 is 1000 N/m3.
    EXPECT_EQ(kNm.ConvertFromUnitSystem(101.3, stress), 101300.0);
    EXPECT_EQ(kNm.ConvertFromUnitSystem(10.0518, unitWeight), 10051.8);
    EXPECT_EQ(kNm.ConvertFromUnitSystem(2.5, moment), 2500.0);
    EXPECT_EQ(kNm.ConvertFromUnitSystem(0.7, angle), 0.7);
    EXPECT_EQ(toKNm.Convert(101300.0, stress), 101.3);
    EXPECT_EQ(toKNm.Convert(10051.8, unitWeight), 10.0518);
}

// A file read in its units and written back in the same units gives the
// same text, and a profile written in any units reads back to equal values.
TEST(Units, DecimalValuesComeBackAsTheSameTextInEveryUnitSystem) {
    const std::vector<std::string> texts = DecimalTexts();
    for (const auto& [forceUnit, lengthUnit] : std::vector<std::pair<std::string, std::string>>{
             {"kN", "m"}, {"N", "mm"}, {"lbf", "ft"}, {"kipf", "in"}, {"MN", "cm"}, {"kgf", "dm"}}) {
        // Every text in kN and m, a share of them in the other systems.
        const std::size_t count = forceUnit == "kN" ? texts.size() : texts.size() / 8;
        for (std::size_t i = 0; i + 3 < count; i += 4) {
            // The control section's four quantities hold four of the texts.
            std::ostringstream written;
            Terrix(Version::V4).Export(written, forceUnit, lengthUnit, {}, true);
            std::string text = written.str();
            std::size_t t = i;
            for (const char* name : {" GAMMAW ", " ATMPRS ", " ZCYCL ", " SUSTIF "}) {
                const std::size_t nameAt = text.find(name);
                ASSERT_NE(nameAt, std::string::npos) << name;
                const std::size_t lineStart = text.rfind('\n', nameAt) + 1;
                text.replace(lineStart, nameAt - lineStart, std::string(10 - texts[t].size(), ' ') + texts[t]);
                ++t;
            }
            const Terrix profile = ImportedText(text, forceUnit, lengthUnit);
            std::ostringstream output;
            Terrix(profile).Export(output, forceUnit, lengthUnit, {}, true);
            EXPECT_EQ(output.str(), text) << forceUnit << " " << lengthUnit;

            // Written in other units, read back: the same values.
            std::ostringstream other;
            Terrix(profile).Export(other, "N", "mm", {}, true);
            EXPECT_TRUE(profile.GetTerrixInputData().controlSection ==
                        ImportedText(other.str(), "N", "mm").GetTerrixInputData().controlSection);
        }
    }
}

// A written number times the size of its unit is rounded once, exactly, to
// the nearest double, however many of its digits agree with the point
// halfway between two doubles, and in time linear in its length.
TEST(Units, NumbersNextToARoundingBoundaryReadAsTheNearestDouble) {
    std::istringstream cases(TestData("numbers-near-rounding-boundaries.txt"));
    std::string line;
    while (std::getline(cases, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string force, length, number, expected, flag;
        DynamicDimension dimension;
        fields >> force >> length >> dimension.force >> dimension.length >> number >> expected >> flag;
        const UnitRatio size = UnitSystem(force, length).GetSize(dimension);
        for (const std::string& text : {number, flag == "long" ? number + std::string(400000, '0') + "1" : ""}) {
            if (text.empty()) continue;
            double value = 0.0;
            const bool read = ParseReal(text, value, size);
            if (expected == "out-of-range") {
                EXPECT_FALSE(read) << line;
            } else {
                EXPECT_TRUE(read) << line;
                EXPECT_EQ(value, std::strtod(expected.c_str(), nullptr)) << line << (text.size() > number.size() ? " long" : "");
            }
        }
    }
}

TEST(Units, ConversionFactorsFromDatabaseUnitsForEachDimension) {
    const FastUnitConverter toKNm(GetDatabaseUnitSystem(), UnitSystem("kN", "m"));
    const FastUnitConverter toNmm(GetDatabaseUnitSystem(), UnitSystem("N", "mm"));
    const DynamicDimension forcePerArea = ForcePerUnitAreaPhenomenon::dimension;
    const std::vector<std::tuple<DynamicDimension, double, double>> factors = {
        // dimension, to kN and m, to N and mm
        {force, 0.001, 1.0},        {length, 1.0, 1000.0},        {moment, 0.001, 1000.0},
        {stress, 0.001, 1.0e-6},    {forcePerArea, 0.001, 1.0e-6}, {unitWeight, 0.001, 1.0e-9},
        {angle, 1.0, 1.0}};
    for (const auto& [dimension, kNm, Nmm] : factors) {
        EXPECT_EQ(toKNm.GetConversionFactor(dimension), kNm) << "F^" << dimension.force << " L^" << dimension.length;
        EXPECT_EQ(toNmm.GetConversionFactor(dimension), Nmm) << "F^" << dimension.force << " L^" << dimension.length;
    }

    // Between two file unit systems in imperial and metric units, and back.
    const FastUnitConverter lbfFtToKNm(UnitSystem("lbf", "ft"), UnitSystem("kN", "m"));
    const FastUnitConverter kNmToLbfFt(UnitSystem("kN", "m"), UnitSystem("lbf", "ft"));
    EXPECT_DOUBLE_EQ(lbfFtToKNm.GetConversionFactor(stress), 4.4482216152605 / 1000.0 / (0.3048 * 0.3048));
    EXPECT_DOUBLE_EQ(lbfFtToKNm.GetConversionFactor(unitWeight) * kNmToLbfFt.GetConversionFactor(unitWeight), 1.0);
}

// Whether units are deduced from a profile whose control section is written
// in `forceUnit` and `lengthUnit`, and the names as the deduction leaves them
// (given as "unset").
using Deduction = std::tuple<bool, std::string, std::string>;
Deduction Deduced(const Terrix& profile, const std::string& forceUnit, const std::string& lengthUnit) {
    std::stringstream text;
    Terrix(profile).Export(text, forceUnit, lengthUnit, {"Written for the deduction"}, true);
    Deduction deduction(false, "unset", "unset");
    std::get<0>(deduction) = Terrix::TryDeduceUnits(text, std::get<1>(deduction), std::get<2>(deduction));
    return deduction;
}

const Deduction none(false, "unset", "unset");

// A profile whose control section holds these two numbers, in N and m.
Terrix WithWaterAndAir(double gammaw, double atmprs) {
    Terrix profile(Version::V4);
    profile.GetTerrixInputData().controlSection.GAMMAW = Quantity<ForcePerUnitVolumePhenomenon>(gammaw);
    profile.GetTerrixInputData().controlSection.ATMPRS = Quantity<StressPhenomenon>(atmprs);
    return profile;
}

TEST(UnitDeduction, EveryCandidatePairIsDeducedFromAControlSectionWrittenInIt) {
    for (Version version : {Version::V4, Version::V5}) {
        const Terrix profile(version);  // sea water 10.0518 kN/m3, air 101.3 kN/m2
        for (const auto& forceUnit : forceUnits)
            for (const auto& lengthUnit : lengthUnits)
                EXPECT_EQ(Deduced(profile, forceUnit.first, lengthUnit.first),
                          Deduction(true, forceUnit.first, lengthUnit.first));
    }
}

TEST(UnitDeduction, FreshWaterWithinFivePerCentStillGivesTheUnits) {
    // 9.81 instead of 10.0518 makes the length factor 2.4 per cent smaller,
    // in kN and m as in pounds and feet.
    const Terrix freshWater = WithWaterAndAir(9810.0, 101300.0);
    EXPECT_EQ(Deduced(freshWater, "kN", "m"), Deduction(true, "kN", "m"));
    EXPECT_EQ(Deduced(freshWater, "lbf", "ft"), Deduction(true, "lbf", "ft"));

    // A file as an engineer writes it.
    std::istringstream text(Replaced(ExampleFileText("north-sea-v4.terrix"), "   10.0518 GAMMAW", "      9.81 GAMMAW"));
    std::string deducedForce = "unset", deducedLength = "unset";
    EXPECT_TRUE(Terrix::TryDeduceUnits(text, deducedForce, deducedLength));
    EXPECT_EQ(deducedForce, "kN");
    EXPECT_EQ(deducedLength, "m");
}

TEST(UnitDeduction, NoPairWithinFivePerCentGivesFalse) {
    // No air pressure (no length factor), no water, water that weighs less
    // than nothing. The names are left as they were.
    EXPECT_EQ(Deduced(WithWaterAndAir(10051.8, 0.0), "N", "m"), none);
    EXPECT_EQ(Deduced(WithWaterAndAir(0.0, 0.0), "N", "m"), none);
    EXPECT_EQ(Deduced(WithWaterAndAir(-10051.8, 101300.0), "N", "m"), none);

    // A file written in N and a length unit of size s (in metres) gives
    // GAMMAW = 10051.8 s^3 and ATMPRS = 101300 s^2. The difference between
    // s and a candidate is measured relative to the candidate's size: 4.9 per
    // cent off the metre or the millimetre is that unit, 5.1 per cent off is
    // none (an absolute difference of 0.05 would take any small unit).
    auto withLength = [](double s) {
        return Deduced(WithWaterAndAir(10051.8 * s * s * s, 101300.0 * s * s), "N", "m");
    };
    EXPECT_EQ(withLength(1.049), Deduction(true, "N", "m"));
    EXPECT_EQ(withLength(0.951), Deduction(true, "N", "m"));
    EXPECT_EQ(withLength(1.051), none);
    EXPECT_EQ(withLength(0.949), none);
    EXPECT_EQ(withLength(0.001 * 1.049), Deduction(true, "N", "mm"));
    EXPECT_EQ(withLength(0.001 * 0.949), none);

    // A force unit of size f (in newtons) with the metre: GAMMAW = 10051.8 / f
    // and ATMPRS = 101300 / f. The length is found first and its name is
    // written even when no force unit matches.
    auto withForce = [](double f) { return Deduced(WithWaterAndAir(10051.8 / f, 101300.0 / f), "N", "m"); };
    const Deduction lengthOnly(false, "unset", "m");
    EXPECT_EQ(withForce(1000.0 * 1.049), Deduction(true, "kN", "m"));
    EXPECT_EQ(withForce(1000.0 * 1.051), lengthOnly);
    EXPECT_EQ(withForce(0.001 * 0.949), lengthOnly);
    EXPECT_EQ(withForce(2.0), lengthOnly);  // between N and lbf
}

}  // namespace
