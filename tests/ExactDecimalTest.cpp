// The portable arithmetic under the numbers: the 128-bit whole number that
// holds unit sizes, a unit's size as the nearest double, and the exact
// conversions between a double and decimal text that stand in for the
// standard library's where it has none. Where the standard library has its
// own, the exact ones are held to give the very same results; the fixed
// expectations hold on every platform.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/ExactDecimal.h>
#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/archive/NumberText.h>
#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

namespace {

using namespace TerrixExchange::ExactDecimal;
using TerrixExchange::Units::Runtime::UnitRatio;
using TerrixExchange::Units::Runtime::Unsigned128;
using TerrixExchange::ParseJson;
using TerrixExchange::WriteJson;
using TerrixExchange::DecimalForm;
using TerrixExchange::ShortestDecimalText;

std::string Text(const Scientific& scientific) {
    return (scientific.negative ? "-" : "") + std::string(scientific.digits, static_cast<std::size_t>(scientific.count)) +
           "e" + std::to_string(scientific.exponent);
}

std::uint64_t Bits(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

double FromBits(std::uint64_t bits) {
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// What a reading gives: the double's bits, the error, and how far it read.
struct Reading {
    std::uint64_t bits;
    std::errc error;
    std::ptrdiff_t length;
    bool operator==(const Reading& other) const {
        return bits == other.bits && error == other.error && length == other.length;
    }
};

template <class FromCharsFunction>
Reading Read(const std::string& text, FromCharsFunction fromChars) {
    double value = 1.25;  // left as it is on an error
    const std::from_chars_result result = fromChars(text.data(), text.data() + text.size(), value);
    return Reading{Bits(value), result.ec, result.ptr - text.data()};
}

Reading ReadExactly(const std::string& text) { return Read(text, ExactFromChars); }

TEST(Unsigned128, ProductsQuotientsAndRemaindersPastSixtyFourBits) {
    const std::uint64_t all = ~std::uint64_t{0};
    // (2^64 - 1)^2 = 2^128 - 2^65 + 1
    const Unsigned128 square = Unsigned128(all) * Unsigned128(all);
    EXPECT_EQ(square.High(), all - 1);
    EXPECT_EQ(square.Low(), 1u);
    EXPECT_EQ(square / Unsigned128(all), Unsigned128(all));
    EXPECT_EQ(square % Unsigned128(all), Unsigned128(0));
    // By ten, as the digit loops divide: 2^100 = 1267650600228229401496703205376.
    const Unsigned128 power = Unsigned128(1) << 100;
    EXPECT_EQ(power / 10 * 10 + power % 10, power);
    EXPECT_EQ(power % 10, Unsigned128(6));
    EXPECT_EQ((power / 1000000000000000000u).Low(), 1267650600228u);
    // By a divisor of more than 64 bits: a quotient of one digit.
    const Unsigned128 divisor = (Unsigned128(1) << 90) + 12345;
    EXPECT_EQ((divisor * 7 + 5) / divisor, Unsigned128(7));
    EXPECT_EQ((divisor * 7 + 5) % divisor, Unsigned128(5));
    EXPECT_EQ(Unsigned128(3) - Unsigned128(5) + Unsigned128(2), Unsigned128(0));  // wraps as unsigned types do
    EXPECT_EQ(power.BitLength(), 101);
    EXPECT_LT(Unsigned128(all), Unsigned128(1, 0));
}

TEST(Unsigned128, ADoubleOfMoreThanSixtyFourBitsIsRoundedOnceToTheNearest) {
    const Unsigned128 base = Unsigned128(1) << 64;
    EXPECT_EQ(static_cast<double>(base), 0x1p64);
    // Halfway between 2^64 and the next double, 2^64 + 2^12: the even one.
    EXPECT_EQ(static_cast<double>(base + (Unsigned128(1) << 11)), 0x1p64);
    EXPECT_EQ(static_cast<double>(base + (Unsigned128(1) << 11) + 1), 0x1.0000000000001p64);
    EXPECT_EQ(static_cast<double>(base + (Unsigned128(3) << 11)), 0x1.0000000000002p64);
    EXPECT_EQ(static_cast<double>(Unsigned128(~std::uint64_t{0}, ~std::uint64_t{0})), 0x1p128);
}

TEST(UnitRatio, AUnitSizeIsTheDoubleNearestToItsRatioOfWholeNumbers) {
    // Quotients of doubles below 2^53 are rounded once by IEEE division; the
    // same ratio scaled past 64 bits must give the same double.
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t numerator = (random() >> 11) | 1;
        const std::uint64_t denominator = (random() >> (11 + i % 40)) | 1;
        const double expected = static_cast<double>(numerator) / static_cast<double>(denominator);
        ASSERT_EQ(UnitRatio({numerator, denominator}).ToDouble(), expected) << numerator << "/" << denominator;
        const int shift = 10 + i % 64;
        ASSERT_EQ(UnitRatio({Unsigned128(numerator) << shift, Unsigned128(denominator) << shift}).ToDouble(), expected)
            << numerator << "/" << denominator << " x 2^" << shift;
    }
    EXPECT_EQ(UnitRatio({8896443230521u, 2000000000000u}).ToDouble(), 4.4482216152605);  // the pound-force in N
}

TEST(ExactDecimal, ShortestAndRoundedDigitsOfHardValues) {
    EXPECT_EQ(Text(ExactScientific(0.0)), "0e0");
    EXPECT_EQ(Text(ExactScientific(-0.0)), "-0e0");
    EXPECT_EQ(Text(ExactScientific(0.1)), "1e-1");
    EXPECT_EQ(Text(ExactScientific(5e-324)), "5e-324");                              // the smallest subnormal
    EXPECT_EQ(Text(ExactScientific(2.2250738585072014e-308)), "22250738585072014e-308");  // the smallest normal
    EXPECT_EQ(Text(ExactScientific(1.7976931348623157e308)), "17976931348623157e308");    // the largest
    EXPECT_EQ(Text(ExactScientific(9007199254740993.0)), "9007199254740992e15");
    EXPECT_EQ(Text(ExactScientific(1e23)), "1e23");
    // 2^-44: near a power of two the closest digits may not read back.
    EXPECT_EQ(Text(ExactScientific(0x1p-44)), "5684341886080802e-14");
    // 0.1 is 0.1000000000000000055511151231257827021181583404541015625.
    EXPECT_EQ(Text(ExactScientific(0.1, 40)), "10000000000000000555111512312578270211816e-1");
    // Halfway: the even digit.
    EXPECT_EQ(Text(ExactScientific(2.5, 0)), "2e0");
    EXPECT_EQ(Text(ExactScientific(3.5, 0)), "4e0");
    EXPECT_EQ(Text(ExactScientific(-0.125, 1)), "-12e-1");
    EXPECT_EQ(Text(ExactScientific(9.5, 0)), "1e1");
    EXPECT_EQ(Text(ExactScientific(1.0, 3)), "1000e0");
}

TEST(ExactDecimal, TextReadsAsTheNearestDoubleAndFromCharsStopsWhereItDoes) {
    const double smallest = 5e-324;
    EXPECT_EQ(ReadExactly("1e23"), (Reading{Bits(1e23), std::errc(), 4}));
    EXPECT_EQ(ReadExactly("9007199254740993"), (Reading{Bits(9007199254740992.0), std::errc(), 16}));
    EXPECT_EQ(ReadExactly("9007199254740995"), (Reading{Bits(9007199254740996.0), std::errc(), 16}));
    // Half the smallest subnormal is 2.4703282292062327208...e-324.
    EXPECT_EQ(ReadExactly("2.4703282292062328e-324"), (Reading{Bits(smallest), std::errc(), 23}));
    EXPECT_EQ(ReadExactly("2.4703282292062327e-324"), (Reading{Bits(1.25), std::errc::result_out_of_range, 23}));
    EXPECT_EQ(ReadExactly("1.7976931348623158e308"), (Reading{Bits(1.7976931348623157e308), std::errc(), 22}));
    EXPECT_EQ(ReadExactly("1.7976931348623159e308"), (Reading{Bits(1.25), std::errc::result_out_of_range, 22}));
    EXPECT_EQ(ReadExactly("1e-99999999999999999999"), (Reading{Bits(1.25), std::errc::result_out_of_range, 23}));
    EXPECT_EQ(ReadExactly("-0"), (Reading{Bits(-0.0), std::errc(), 2}));
    EXPECT_EQ(ReadExactly("00.0e5"), (Reading{Bits(0.0), std::errc(), 6}));
    EXPECT_EQ(ReadExactly(".5"), (Reading{Bits(0.5), std::errc(), 2}));
    EXPECT_EQ(ReadExactly("5."), (Reading{Bits(5.0), std::errc(), 2}));
    EXPECT_EQ(ReadExactly("1.5e"), (Reading{Bits(1.5), std::errc(), 3}));
    EXPECT_EQ(ReadExactly("1.5e+x"), (Reading{Bits(1.5), std::errc(), 3}));
    EXPECT_EQ(ReadExactly("0x1p3"), (Reading{Bits(0.0), std::errc(), 1}));
    EXPECT_EQ(ReadExactly("-Infinity"), (Reading{Bits(-HUGE_VAL), std::errc(), 9}));
    EXPECT_EQ(ReadExactly("infin"), (Reading{Bits(HUGE_VAL), std::errc(), 3}));
    EXPECT_EQ(ReadExactly("+1"), (Reading{Bits(1.25), std::errc::invalid_argument, 0}));
    EXPECT_EQ(ReadExactly("."), (Reading{Bits(1.25), std::errc::invalid_argument, 0}));
    EXPECT_EQ(ReadExactly("nan(x_1)").length, 8);
    EXPECT_EQ(ReadExactly("nan(x-1)").length, 3);
    EXPECT_TRUE(std::signbit(FromBits(ReadExactly("-NaN").bits)));
}

// Bits of every kind: random ones (every exponent), subnormals, and doubles
// next to powers of two, where the neighbours lie unevenly.
std::vector<double> HardDoubles() {
    std::vector<double> values;
    std::mt19937_64 random(11);
    for (int i = 0; i < 5000; ++i) {
        const double value = FromBits(random());
        if (std::isfinite(value)) values.push_back(value);
        values.push_back(FromBits(random() >> 12));  // subnormal
    }
    for (int exponent = -1074; exponent < 1024; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        values.push_back(power);
        values.push_back(std::nextafter(power, 0.0));
        values.push_back(std::nextafter(power, HUGE_VAL));
    }
    return values;
}

// Texts that are hard to read: the points halfway between two doubles (as a
// round-half-even reading must tell), one digit either side of them, and
// 17-digit values.
std::vector<std::string> HardTexts(const std::vector<double>& values) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < values.size(); i += 7) {
        const double value = std::fabs(values[i]);
        const double next = std::nextafter(value, HUGE_VAL);
        if (!std::isfinite(next)) continue;
        const Decimal halfway = Times(Midpoint(Decompose(value), Decompose(next)), 1);
        const std::string exponent = "e" + std::to_string(halfway.exponent);
        const std::string digits = halfway.digits.substr(0, 1) + "." + halfway.digits.substr(1);
        texts.push_back(digits + exponent);
        texts.push_back(digits + "1" + exponent);
        texts.push_back(Text(ExactScientific(value, 16)));
        texts.push_back(digits.substr(0, 18) + exponent);
    }
    return texts;
}

TEST(ExactDecimal, GivesWhatTheStandardLibraryGivesOnHardValues) {
    if (!HasStandardToChars() || !HasStandardFromChars())
        GTEST_SKIP() << "the standard library has no floating-point to_chars or from_chars: the exact way is the only one";
    const std::vector<double> values = HardDoubles();
    for (const double value : values)
        for (const int precision : {-1, 40, 16, 0})
            ASSERT_EQ(Text(ExactScientific(value, precision)), Text(ToScientific(value, precision)))
                << std::hexfloat << value << " to " << precision;
    for (const std::string& text : HardTexts(values))
        ASSERT_EQ(ReadExactly(text), Read(text, FromChars)) << text;
}

// The numbers of terrix dump: the shortest digits, in plain decimals unless
// the scientific form is shorter and plain ones take more than 21 characters;
// each reads back as the very double.
TEST(ExactDecimal, JsonNumbersAreTheShortestTextsThatReadBack) {
    const std::vector<std::pair<double, std::string>> written = {
        {0.0, "0"}, {-0.0, "-0.0"}, {0.1, "0.1"}, {-2.5, "-2.5"}, {400000.0, "400000"}, {1e20, "100000000000000000000"},
        {1e21, "1e+21"}, {1.2345678901234568e21, "1234567890123456800000"}, {1.5e-7, "0.00000015"}, {1.5e-20, "1.5e-20"},
        {0.000012345678901234568, "1.2345678901234568e-05"}, {5e-324, "5e-324"}, {1.7976931348623157e308, "1.7976931348623157e+308"}};
    for (const auto& [value, text] : written) EXPECT_EQ(WriteJson(value), text + "\n") << std::hexfloat << value;
    for (const double value : HardDoubles())
        ASSERT_EQ(Bits(ParseJson(WriteJson(value)).get<double>()), Bits(value)) << WriteJson(value);
}

// The shortest digits in the three forms of to_chars, which the tool prints
// its figures with: the same texts where the standard library has no
// floating-point to_chars.
TEST(ExactDecimal, ShortestTextsInTheFormsOfToChars) {
    struct Texts {
        double value;
        std::string plain, scientific, general;
    };
    const std::vector<Texts> written = {
        {123456.0, "123456", "1.23456e+05", "123456"},
        {1234567.5, "1234567.5", "1.2345675e+06", "1.2345675e+06"},
        {0.0001234, "0.0001234", "1.234e-04", "0.0001234"},
        {1.25e-5, "0.0000125", "1.25e-05", "1.25e-05"},
        {1e20, "100000000000000000000", "1e+20", "1e+20"},
        {-0.0, "-0", "-0e+00", "-0"},
        {2.5, "2.5", "2.5e+00", "2.5"},
        {-std::nan(""), "-NaN", "-NaN", "-NaN"}};
    for (const Texts& texts : written) {
        EXPECT_EQ(ShortestDecimalText(texts.value, DecimalForm::Plain), texts.plain);
        EXPECT_EQ(ShortestDecimalText(texts.value, DecimalForm::Scientific), texts.scientific);
        EXPECT_EQ(ShortestDecimalText(texts.value, DecimalForm::General), texts.general);
    }
}

}  // namespace
