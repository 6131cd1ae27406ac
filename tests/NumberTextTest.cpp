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
    for (const auto& [force, length] : {std::pair("kN", "m"), std::pair("N", "mm"), std::pair("lbf", "ft")}) {
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
