// The units of a TERRIX file: the names a caller gives, their exact sizes,
// conversion to the database units (N and m) and back, and the deduction of
// a file's units from its water unit weight and atmospheric pressure.

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace {

using namespace TerrixExchange;
using namespace TerrixExchange::Units::Runtime;

const std::vector<std::string> forceUnits = {"N", "kN", "MN", "GN", "mN", "lbf", "kipf", "kgf"};
const std::vector<std::string> lengthUnits = {"km", "m", "dm", "cm", "mm", "in", "ft"};

const DynamicDimension force = ForcePhenomenon::dimension;
const DynamicDimension length = LengthPhenomenon::dimension;
const DynamicDimension moment = MomentPhenomenon::dimension;
const DynamicDimension stress = StressPhenomenon::dimension;
const DynamicDimension unitWeight = ForcePerUnitVolumePhenomenon::dimension;
const DynamicDimension angle = AnglePhenomenon::dimension;

TEST(Units, EveryUnitNameHasItsExactSize) {
    const std::vector<std::pair<std::string, double>> forces = {
        {"N", 1.0},      {"kN", 1000.0},  {"MN", 1.0e6},   {"GN", 1.0e9},
        {"mN", 0.001},   {"lbf", 4.4482216152605}, {"kipf", 4448.2216152605}, {"kgf", 9.80665}};
    for (const auto& [name, size] : forces) {
        double found = 0.0;
        EXPECT_TRUE(TryGetForceUnitSize(name, found)) << name;
        EXPECT_EQ(found, size) << name;
        EXPECT_EQ(UnitSystem(name, "m").ConvertFromUnitSystem(1.0, force), size) << name;
    }
    const std::vector<std::pair<std::string, double>> lengths = {
        {"km", 1000.0}, {"m", 1.0}, {"dm", 0.1}, {"cm", 0.01}, {"mm", 0.001}, {"in", 0.0254}, {"ft", 0.3048}};
    for (const auto& [name, size] : lengths) {
        double found = 0.0;
        EXPECT_TRUE(TryGetLengthUnitSize(name, found)) << name;
        EXPECT_EQ(found, size) << name;
        EXPECT_EQ(UnitSystem("N", name).ConvertFromUnitSystem(1.0, length), size) << name;
    }
    // A force name is no length name and the other way round.
    double size = 0.0;
    EXPECT_FALSE(TryGetLengthUnitSize("kN", size));
    EXPECT_FALSE(TryGetForceUnitSize("m", size));

    // The database unit system is N and m.
    EXPECT_EQ(GetDatabaseUnitSystem(), UnitSystem("N", "m"));
    EXPECT_EQ(GetDatabaseUnitSystem().GetForceUnitName(), "N");
    EXPECT_EQ(GetDatabaseUnitSystem().GetLengthUnitName(), "m");
}

TEST(Units, AnUnknownUnitNameIsAnErrorThatNamesIt) {
    // Names are case-sensitive: "mN" and "MN" differ by a factor of 10^9.
    const std::vector<std::pair<std::pair<std::string, std::string>, std::string>> cases = {
        {{"kNN", "m"}, "Unknown force unit: 'kNN'"},
        {{"KN", "m"}, "Unknown force unit: 'KN'"},
        {{"", "m"}, "Unknown force unit: ''"},
        {{"kN", "furlong"}, "Unknown length unit: 'furlong'"},
        {{"kN", "M"}, "Unknown length unit: 'M'"},
    };
    for (const auto& [units, message] : cases) {
        try {
            UnitSystem system(units.first, units.second);
            ADD_FAILURE() << "no error for " << units.first << " " << units.second;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(std::string(error.what()), message);
        }
    }
    // The profile's entry points pass the error on.
    Terrix profile;
    std::ostringstream text;
    EXPECT_THROW(profile.Export(text, "kN", "furlong", {}, true), std::runtime_error);
    std::istringstream input("TERRIX\n");
    EXPECT_THROW(profile.Import(input, "pound", "ft"), std::runtime_error);
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
            const double written = toKNm.Convert(database, dimension);
            EXPECT_EQ(kNm.ConvertFromUnitSystem(written, dimension), database)
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
    const std::vector<std::pair<std::string, std::string>> systems = {
        {"kN", "m"}, {"N", "mm"}, {"lbf", "ft"}, {"kipf", "in"}, {"MN", "cm"}, {"kgf", "dm"}};
    for (const auto& [forceUnit, lengthUnit] : systems) {
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
            std::istringstream input(text);
            Terrix profile;
            profile.Import(input, forceUnit, lengthUnit);
            std::ostringstream output;
            profile.Export(output, forceUnit, lengthUnit, {}, true);
            EXPECT_EQ(output.str(), text) << forceUnit << " " << lengthUnit;

            // Written in other units, read back: the same values.
            std::stringstream other;
            profile.Export(other, "N", "mm", {}, true);
            Terrix back;
            back.Import(other, "N", "mm");
            const ControlSection& a = profile.GetTerrixInputData().controlSection;
            const ControlSection& b = back.GetTerrixInputData().controlSection;
            EXPECT_EQ(a.GAMMAW, b.GAMMAW);
            EXPECT_EQ(a.ATMPRS, b.ATMPRS);
            EXPECT_EQ(a.ZCYCL, b.ZCYCL);
            EXPECT_EQ(a.SUSTIF, b.SUSTIF);
        }
    }
}

TEST(Units, ConversionFactorsFromDatabaseUnitsForEachDimension) {
    const FastUnitConverter toKNm(GetDatabaseUnitSystem(), UnitSystem("kN", "m"));
    EXPECT_EQ(toKNm.GetConversionFactor(force), 0.001);
    EXPECT_EQ(toKNm.GetConversionFactor(length), 1.0);
    EXPECT_EQ(toKNm.GetConversionFactor(moment), 0.001);
    EXPECT_EQ(toKNm.GetConversionFactor(stress), 0.001);
    EXPECT_EQ(toKNm.GetConversionFactor(ForcePerUnitAreaPhenomenon::dimension), 0.001);
    EXPECT_EQ(toKNm.GetConversionFactor(unitWeight), 0.001);
    EXPECT_EQ(toKNm.GetConversionFactor(angle), 1.0);

    const FastUnitConverter toNmm(GetDatabaseUnitSystem(), UnitSystem("N", "mm"));
    EXPECT_EQ(toNmm.GetConversionFactor(force), 1.0);
    EXPECT_EQ(toNmm.GetConversionFactor(length), 1000.0);
    EXPECT_EQ(toNmm.GetConversionFactor(moment), 1000.0);
    EXPECT_EQ(toNmm.GetConversionFactor(stress), 1.0e-6);
    EXPECT_EQ(toNmm.GetConversionFactor(unitWeight), 1.0e-9);
    EXPECT_EQ(toNmm.GetConversionFactor(angle), 1.0);

    // Imperial units: the factors are the inverses of the exact sizes.
    const FastUnitConverter toKipIn(GetDatabaseUnitSystem(), UnitSystem("kipf", "in"));
    EXPECT_DOUBLE_EQ(toKipIn.GetConversionFactor(force), 1.0 / 4448.2216152605);
    EXPECT_DOUBLE_EQ(toKipIn.GetConversionFactor(length), 1.0 / 0.0254);
    EXPECT_DOUBLE_EQ(toKipIn.GetConversionFactor(moment), 1.0 / (4448.2216152605 * 0.0254));
    EXPECT_DOUBLE_EQ(toKipIn.GetConversionFactor(stress), 0.0254 * 0.0254 / 4448.2216152605);
    EXPECT_DOUBLE_EQ(toKipIn.GetConversionFactor(unitWeight), 0.0254 * 0.0254 * 0.0254 / 4448.2216152605);
    EXPECT_EQ(toKipIn.GetConversionFactor(angle), 1.0);

    // Between two file unit systems, and back.
    const FastUnitConverter lbfFtToKNm(UnitSystem("lbf", "ft"), UnitSystem("kN", "m"));
    const FastUnitConverter kNmToLbfFt(UnitSystem("kN", "m"), UnitSystem("lbf", "ft"));
    EXPECT_DOUBLE_EQ(lbfFtToKNm.GetConversionFactor(stress), 4.4482216152605 / 1000.0 / (0.3048 * 0.3048));
    EXPECT_DOUBLE_EQ(lbfFtToKNm.GetConversionFactor(unitWeight) * kNmToLbfFt.GetConversionFactor(unitWeight), 1.0);
}

// The units deduced from a profile whose control section is written in
// `forceUnit` and `lengthUnit`.
bool DeduceFromExport(const Terrix& profile, const std::string& forceUnit, const std::string& lengthUnit,
                      std::string& deducedForce, std::string& deducedLength) {
    Terrix copy = profile;
    std::stringstream text;
    copy.Export(text, forceUnit, lengthUnit, {"Written for the deduction"}, true);
    return Terrix::TryDeduceUnits(text, deducedForce, deducedLength);
}

// The units deduced from a control section that gives these two numbers.
bool DeduceFromNumbers(double gammaw, double atmprs, std::string& deducedForce, std::string& deducedLength) {
    Terrix profile(Version::V4);
    profile.GetTerrixInputData().controlSection.GAMMAW = Quantity<ForcePerUnitVolumePhenomenon>(gammaw);
    profile.GetTerrixInputData().controlSection.ATMPRS = Quantity<StressPhenomenon>(atmprs);
    // In N and m the numbers are written as they are held.
    return DeduceFromExport(profile, "N", "m", deducedForce, deducedLength);
}

TEST(UnitDeduction, EveryCandidatePairIsDeducedFromAControlSectionWrittenInIt) {
    for (Version version : {Version::V4, Version::V5}) {
        const Terrix profile(version);  // sea water 10.0518 kN/m3, air 101.3 kN/m2
        for (const std::string& forceUnit : forceUnits) {
            for (const std::string& lengthUnit : lengthUnits) {
                std::string deducedForce = "unset";
                std::string deducedLength = "unset";
                EXPECT_TRUE(DeduceFromExport(profile, forceUnit, lengthUnit, deducedForce, deducedLength))
                    << forceUnit << " " << lengthUnit;
                EXPECT_EQ(deducedForce, forceUnit);
                EXPECT_EQ(deducedLength, lengthUnit);
            }
        }
    }
}

TEST(UnitDeduction, FreshWaterWithinFivePerCentStillGivesTheUnits) {
    // 9.81 instead of 10.0518 makes the length factor 2.4 per cent smaller.
    const UnitSystem kNm("kN", "m");
    Terrix profile(Version::V5);
    profile.GetTerrixInputData().controlSection.GAMMAW = kNm.ConvertFromUnitSystem<ForcePerUnitVolumePhenomenon>(9.81);
    profile.GetTerrixInputData().controlSection.ATMPRS = kNm.ConvertFromUnitSystem<StressPhenomenon>(101.3);
    std::string deducedForce, deducedLength;
    EXPECT_TRUE(DeduceFromExport(profile, "kN", "m", deducedForce, deducedLength));
    EXPECT_EQ(deducedForce, "kN");
    EXPECT_EQ(deducedLength, "m");
    // The same water in pounds and feet.
    EXPECT_TRUE(DeduceFromExport(profile, "lbf", "ft", deducedForce, deducedLength));
    EXPECT_EQ(deducedForce, "lbf");
    EXPECT_EQ(deducedLength, "ft");

    // The text as an engineer writes it.
    std::istringstream text("TERRIX\nA header\n\n*** CONTROL SECTION ***\n"
                            "       1.0 CONFRC\n       1.0 CONLTH\n         0 NUMTYP\n         0 NUMTQZ\n"
                            "         0 NUMLAY\n         0 NUMDSP\n         1 MIDBOT\n"
                            "      9.81 GAMMAW  UNIT WEIGHT OF WATER (9.81 KN/M3 IN SI-UNITS)\n"
                            "     101.3 ATMPRS  ATMOSPHERIC PRESSURE (101.3 KN/M2 IN SI-UNITS)\n"
                            "       0.0 ZCYCL\n       0.0 SUSTIF\n         0 JPRINT\n         0 JECHO\n");
    deducedForce = deducedLength = "unset";
    EXPECT_TRUE(Terrix::TryDeduceUnits(text, deducedForce, deducedLength));
    EXPECT_EQ(deducedForce, "kN");
    EXPECT_EQ(deducedLength, "m");
}

TEST(UnitDeduction, NoPairWithinFivePerCentGivesFalse) {
    std::string deducedForce = "unset";
    std::string deducedLength = "unset";
    // No air pressure: no length factor.
    EXPECT_FALSE(DeduceFromNumbers(10051.8, 0.0, deducedForce, deducedLength));
    EXPECT_FALSE(DeduceFromNumbers(0.0, 0.0, deducedForce, deducedLength));
    EXPECT_FALSE(DeduceFromNumbers(-10051.8, 101300.0, deducedForce, deducedLength));
    // The names are left as they were.
    EXPECT_EQ(deducedForce, "unset");
    EXPECT_EQ(deducedLength, "unset");

    // A file written in N and a length unit of size s (in metres) gives
    // GAMMAW = 10051.8 s^3 and ATMPRS = 101300 s^2. The difference between
    // s and a candidate is measured relative to the candidate's size: 4.9 per
    // cent off the metre or the millimetre is that unit, 5.1 per cent off is
    // none (an absolute difference of 0.05 would take any small unit).
    auto deduceLength = [&](double s) {
        return DeduceFromNumbers(10051.8 * s * s * s, 101300.0 * s * s, deducedForce, deducedLength);
    };
    EXPECT_TRUE(deduceLength(1.049));
    EXPECT_EQ(deducedLength, "m");
    EXPECT_EQ(deducedForce, "N");
    EXPECT_TRUE(deduceLength(0.951));
    EXPECT_FALSE(deduceLength(1.051));
    EXPECT_FALSE(deduceLength(0.949));
    EXPECT_TRUE(deduceLength(0.001 * 1.049));
    EXPECT_EQ(deducedLength, "mm");
    EXPECT_FALSE(deduceLength(0.001 * 0.949));

    // A force unit of size f (in newtons) with the metre: GAMMAW = 10051.8 / f
    // and ATMPRS = 101300 / f.
    auto deduceForce = [&](double f) {
        return DeduceFromNumbers(10051.8 / f, 101300.0 / f, deducedForce, deducedLength);
    };
    EXPECT_TRUE(deduceForce(1000.0 * 1.049));
    EXPECT_EQ(deducedForce, "kN");
    EXPECT_EQ(deducedLength, "m");
    EXPECT_FALSE(deduceForce(1000.0 * 1.051));
    EXPECT_FALSE(deduceForce(0.001 * 0.949));
    EXPECT_FALSE(deduceForce(2.0));  // between N and lbf
}

}  // namespace
