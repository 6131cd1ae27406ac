#pragma once

// Internal to the archives: decimals and doubles compared exactly, in whole
// numbers, and the two conversions between a double and its decimal text
// that the number code builds on.

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include <TerrixPlatform/Units/Runtime/Unsigned128.h>

namespace TerrixExchange { namespace ExactDecimal {

using Units::Runtime::Unsigned128;

// A decimal number: sign, significant digits d1 d2 ... dn and the exponent e
// of d1.d2...dn x 10^e. Zero has the digits "0".
struct Decimal {
    bool negative = false;
    std::string digits;
    long exponent = 0;
};

bool IsZero(const Decimal& decimal);
// Without leading and trailing zeros.
void Normalize(Decimal& decimal);
// The order of two decimals by their magnitude: -1, 0 or 1.
int CompareMagnitudes(const Decimal& a, const Decimal& b);

// How a decimal is rounded to fewer digits when it lies halfway.
enum class Halfway { Up, ToEven };
// The decimal rounded to `count` significant digits.
Decimal Rounded(const Decimal& decimal, std::size_t count, Halfway halfway);

// Reads digits with an optional decimal point, then an exponent after "e" or
// "E" (and "d" or "D" when `fortranExponent`) if digits follow it; the
// written exponent is held to within 10^6, far past the range of doubles.
// Where the number ends, or nullptr when it has no digit.
const char* ReadDecimal(const char* first, const char* last, bool fortranExponent, Decimal& decimal);

// A non-negative double, or a point between two of them, as mantissa x
// 2^exponent.
struct Binary {
    std::uint64_t mantissa;
    int exponent;
};

Binary Decompose(double value);
bool IsEven(double value);
// The point halfway between two neighbouring doubles `low` < `high`.
Binary Midpoint(const Binary& low, const Binary& high);
// 2^1024, the first power of two past the largest double: a number at or
// beyond the point halfway to it rounds to infinity.
const Binary pastLargest{std::uint64_t{1} << 53, 971};
// point x factor, exactly, as a decimal.
Decimal Times(const Binary& point, Unsigned128 factor);

// From a guess at a positive result, the double nearest to the exact value
// (halfway: the even one), told by `side` (-1, 0, 1: the exact value below,
// at or beyond a point between two doubles). The result moves to a neighbour
// while the exact value lies beyond the point halfway to it, at most
// `maxSteps` times. False when it rounds to infinity or needs more steps.
template <class Side>
bool RoundExactly(double guess, bool negative, const Side& side, double& value,
                  long maxSteps = std::numeric_limits<long>::max()) {
    const double largest = std::numeric_limits<double>::max();
    double result = std::fabs(guess);
    for (long step = 0;; ++step) {
        if (step > maxSteps) return false;
        if (result > 0.0) {
            const double lower = std::nextafter(result, 0.0);
            const int below = side(Midpoint(Decompose(lower), Decompose(result)));
            if (below < 0) {
                result = lower;
                continue;
            }
            if (below == 0) {
                if (IsEven(lower)) result = lower;
                break;
            }
        }
        const Binary upper = result == largest ? pastLargest : Decompose(std::nextafter(result, largest));
        const int above = side(Midpoint(Decompose(result), upper));
        if (above < 0 || (above == 0 && IsEven(result))) break;
        // Past the largest double the number rounds to infinity: no value.
        if (result == largest) return false;
        result = std::nextafter(result, largest);
        if (above == 0) break;
    }
    value = negative ? -result : result;
    return true;
}

// --- A double and its decimal text ---
//
// std::to_chars and std::from_chars for doubles where the standard library
// has them (the build finds out), else the same results worked out exactly
// in whole numbers: libc++ 14 has neither for floating point.

// A finite double as to_chars writes it in scientific form: the shortest
// digits that read back as it (precision < 0), or the value correctly
// rounded to `precision` digits after the point; its sign, its digits
// without the point, and the exponent of the first digit.
struct Scientific {
    bool negative = false;
    char digits[64];
    long count = 0;
    long exponent = 0;
};
Scientific ToScientific(double value, int precision = -1);

// from_chars for a double in the general format: a '-', digits with an
// optional point and exponent, or "inf", "infinity", "nan" and "nan(...)" in
// any case.
std::from_chars_result FromChars(const char* first, const char* last, double& value);

// The exact ways, on every platform: what the two above are without the
// standard library's, and what the tests hold them to.
Scientific ExactScientific(double value, int precision = -1);
std::from_chars_result ExactFromChars(const char* first, const char* last, double& value);

// Whether this build has the standard library's own (then the tests compare).
bool HasStandardToChars();
bool HasStandardFromChars();

}}  // namespace TerrixExchange::ExactDecimal
