// Numbers as the file writes them: every double comes back as itself through
// any unit system, a NaN keeps its sign, and what is no number is none. How
// each value is written in its column the round-trip cases show.

#include <cmath>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/NumberText.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

using namespace TerrixExchange;
using namespace TerrixExchange::Units::Runtime;

TEST(NumberText, EveryDoubleIsWrittenSoThatItReadsBackAsItselfInAnyUnitSystem) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> exponent(-12.0, 12.0);
    // lbf/km2 is a ratio of 61-bit whole numbers, past the digit loops' 64-bit way.
    for (const auto& [force, length] :
         {std::pair("kN", "m"), std::pair("N", "mm"), std::pair("lbf", "ft"), std::pair("lbf", "km")}) {
        const UnitRatio size = UnitSystem(force, length).GetSize(StressPhenomenon::dimension);
        for (int i = 0; i < 2000; ++i) {
            const double value = std::pow(10.0, exponent(random)) * (i % 2 ? 1 : -1);
            double back = 0.0;
            ASSERT_TRUE(ParseReal(FormatReal(value, 9, size), back, size)) << value;
            ASSERT_EQ(back, value) << force << " " << length << ": " << FormatReal(value, 9, size);
        }
    }
}

TEST(NumberText, ANaNKeepsItsSignAndTextThatIsNoNumberIsNone) {
    double value = 0.0;
    ASSERT_TRUE(ParseReal("-NaN", value));
    EXPECT_TRUE(std::isnan(value) && std::signbit(value));
    EXPECT_EQ(FormatReal(value, 9), "-NaN");
    EXPECT_EQ(FormatReal(std::nan(""), 6), "NaN");
    // A number glued to text, two points, an exponent without digits, a value
    // out of range, a hexadecimal number.
    for (const char* text : {"1.0ABC", "1.2.3", "1e", "1e400", "0x10"}) EXPECT_FALSE(ParseReal(text, value)) << text;
}

// A number of a few digits is read the short way; the same number written
// with enough zeros after its digits is read the long, exact way. Both must
// give the same double, at the edges of the range too.
TEST(NumberText, ShortAndLongTextsOfANumberReadAlike) {
    std::mt19937_64 random(7);
    std::uniform_int_distribution<long long> digits(0, 999999999999LL);
    std::uniform_int_distribution<int> exponent(-330, 310);
    const std::string zeros(60, '0');
    for (const auto& [force, length] : {std::pair("kN", "m"), std::pair("N", "mm"), std::pair("GN", "km"),
                                        std::pair("lbf", "ft"), std::pair("kgf", "in"), std::pair("kipf", "m")}) {
        const UnitRatio size = UnitSystem(force, length).GetSize(StressPhenomenon::dimension);
        for (int i = 0; i < 3000; ++i) {
            const std::string mantissa = (i % 3 ? "" : "-") + std::to_string(digits(random)) + "." +
                                         std::to_string(digits(random) % 1000);
            const std::string suffix = (i % 2 ? "e" : "D") + std::to_string(exponent(random));
            double shortValue = 0.0;
            double longValue = 0.0;
            const bool shortRead = ParseReal(mantissa + suffix, shortValue, size);
            ASSERT_EQ(shortRead, ParseReal(mantissa + zeros + suffix, longValue, size)) << mantissa + suffix;
            if (shortRead) {
                ASSERT_EQ(std::signbit(shortValue), std::signbit(longValue)) << mantissa + suffix;
                ASSERT_EQ(shortValue, longValue) << force << " " << length << ": " << mantissa + suffix;
            }
        }
    }
}
