// The units of a TERRIX file: the names a caller gives, numbers read and
// written in them without a rounding away, the converter between two unit
// systems, and the deduction of a file's units from its unit weight of water
// and atmospheric pressure.

#include <cstdlib>
#include <ios>
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

const DynamicDimension force = ForcePhenomenon::dimension;

const std::vector<std::string> forceUnits = {"N", "kN", "MN", "GN", "mN", "lbf", "kipf", "kgf"};
const std::vector<std::string> lengthUnits = {"km", "m", "dm", "cm", "mm", "in", "ft"};

TEST(Units, AnUnknownUnitNameIsAnErrorThatNamesIt) {
    // Names are case-sensitive: "mN" and "MN" differ by a factor of 10^9.
    EXPECT_EQ(ErrorOf([] { UnitSystem("KN", "m"); }), "Unknown force unit: 'KN'");
    EXPECT_EQ(ErrorOf([] { UnitSystem("", "m"); }), "Unknown force unit: ''");
    EXPECT_EQ(ErrorOf([] { UnitSystem("kN", "M"); }), "Unknown length unit: 'M'");
    Terrix profile;
    std::ostringstream text;
    EXPECT_EQ(ErrorOf([&] { profile.Export(text, "kN", "furlong", {}, true); }), "Unknown length unit: 'furlong'");
    std::istringstream input("TERRIX\n");
    EXPECT_EQ(ErrorOf([&] { profile.Import(input, "pound", "ft"); }), "Unknown force unit: 'pound'");
}

// Decimal numbers as a file gives them, "6.137", "-0.5", "12.0", read in
// any unit system and written in the same one, are the same text again.
TEST(Units, DecimalsReadAndWrittenInOneUnitSystemKeepTheirText) {
    const std::vector<DynamicDimension> dimensions = {force, LengthPhenomenon::dimension, MomentPhenomenon::dimension,
                                                      StressPhenomenon::dimension,
                                                      ForcePerUnitVolumePhenomenon::dimension};
    for (const auto& [forceUnit, lengthUnit] : std::vector<std::pair<std::string, std::string>>{
             {"kN", "m"}, {"N", "mm"}, {"lbf", "ft"}, {"kipf", "in"}, {"MN", "cm"}, {"kgf", "dm"}}) {
        for (const DynamicDimension dimension : dimensions) {
            const UnitRatio size = UnitSystem(forceUnit, lengthUnit).GetSize(dimension);
            for (int i = 0; i < 400; ++i) {
                std::string fraction = std::to_string(1000 + (i * 7919) % 1000).substr(1);
                while (fraction.size() > 1 && fraction.back() == '0') fraction.pop_back();
                const std::string text = (i % 5 == 0 ? "-" : "") + std::to_string((i * 37) % 997) + "." + fraction;
                double value = 0.0;
                ASSERT_TRUE(ParseReal(text, value, size)) << text;
                ASSERT_EQ(FormatReal(value, 9, size), text) << forceUnit << " " << lengthUnit << " F^"
                                                            << dimension.force << " L^" << dimension.length;
            }
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
        std::string forceUnit, lengthUnit, number, expected, flag;
        DynamicDimension dimension;
        fields >> forceUnit >> lengthUnit >> dimension.force >> dimension.length >> number >> expected >> flag;
        const UnitRatio size = UnitSystem(forceUnit, lengthUnit).GetSize(dimension);
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

// Of the two doubles next to the exact result, the converter gives the one
// that converts back to the value it was given. The double nearest one
// pound-force, 4.4482216152605 N, lies 3.6e-16 N below the exact pound-force
// s = 4.4482216152605 N, so the exact quotient value / s is 1 - 8.1e-17:
// between 0x1.fffffffffffffp-1 = 1 - 1.1e-16, which is nearer, and 1.0. Only
// 1.0 gives the value back (1.0 x s rounds to it, 0x1.fffffffffffffp-1 x s to
// 4.448221615260499), so the converter gives 1.0 where a product with the
// rounded factor 1 / s gives the other.
TEST(Units, TheConverterGivesTheNeighbourOfTheExactResultThatConvertsBack) {
    const FastUnitConverter toPounds(GetDatabaseUnitSystem(), UnitSystem("lbf", "m"));
    const double onePound = 4.4482216152605;
    EXPECT_EQ(onePound * toPounds.GetConversionFactor(force), 0x1.fffffffffffffp-1);
    EXPECT_EQ(toPounds.Convert(onePound, force), 1.0) << std::hexfloat << toPounds.Convert(onePound, force);
    // A unit that is a power of ten moves the decimal point.
    const FastUnitConverter toKilonewtonMetre(GetDatabaseUnitSystem(), UnitSystem("kN", "m"));
    EXPECT_EQ(toKilonewtonMetre.Convert(101300.0, StressPhenomenon::dimension), 101.3);
    EXPECT_EQ(toKilonewtonMetre.Convert(10051.8, ForcePerUnitVolumePhenomenon::dimension), 10.0518);
}

// Whether units are deduced from a profile whose control section is written
// in `forceUnit` and `lengthUnit`, and the names as the deduction leaves them.
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
    for (Version version : {Version::V4, Version::V5})
        for (const std::string& forceUnit : forceUnits)
            for (const std::string& lengthUnit : lengthUnits)
                EXPECT_EQ(Deduced(Terrix(version), forceUnit, lengthUnit), Deduction(true, forceUnit, lengthUnit));
}

TEST(UnitDeduction, FreshWaterWithinFivePerCentStillGivesTheUnits) {
    // 9.81 instead of 10.0518 makes the length factor 2.4 per cent smaller.
    const Terrix freshWater = WithWaterAndAir(9810.0, 101300.0);
    EXPECT_EQ(Deduced(freshWater, "kN", "m"), Deduction(true, "kN", "m"));
    EXPECT_EQ(Deduced(freshWater, "lbf", "ft"), Deduction(true, "lbf", "ft"));
}

TEST(UnitDeduction, TheStreamIsReadAgainFromItsStartAfterTheDeduction) {
    // As a host does it: deduce, go back to the start, import in those units.
    std::istringstream file(ExampleFileText("north-sea-v4.terrix"));
    std::string forceUnit, lengthUnit;
    ASSERT_TRUE(Terrix::TryDeduceUnits(file, forceUnit, lengthUnit));
    file.clear();
    file.seekg(0);
    Terrix profile;
    profile.Import(file, forceUnit, lengthUnit);
    EXPECT_TRUE(profile.GetTerrixInputData() == ExampleProfile("north-sea-v4.terrix").GetTerrixInputData());
}

TEST(UnitDeduction, AControlSectionThatDoesNotReadGivesItsImportError) {
    std::istringstream text(CaseText("import-errors/misspelt-parameter-name.terrix"));
    std::string forceUnit, lengthUnit;
    EXPECT_EQ(ErrorOf([&] { Terrix::TryDeduceUnits(text, forceUnit, lengthUnit); }),
              CaseText("import-errors/misspelt-parameter-name.error"));
}

TEST(UnitDeduction, NoPairWithinFivePerCentGivesFalse) {
    // No air pressure, no water, water that weighs less than nothing.
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
