#pragma once

#include <string>
#include <utility>
#include <vector>

#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

namespace TerrixExchange {

// Numbers as the TERRIX file writes them, read and written without any
// rounding between the text and the double that is held.
//
// A value is held in database units; the file writes it in its own unit,
// whose size is an exact ratio of database units (`unitSize`: 1000 for kN,
// 0.3048 for ft). Reading multiplies the written decimal number by that ratio
// exactly and rounds once to the nearest double. Writing gives the shortest
// decimal text that reads back to exactly the value held, so a file read in
// one unit system and written in another (and back) keeps every value.

// The text of a real as the exporter writes it, in a field of `fieldWidth`
// characters: plain decimals with a decimal point ("100.0", "0.25") when that
// fits, else exponent form ("2.5e+12"); in a field too narrow for both,
// shorter texts of the same number ("12345678.", ".25", "1.2345e-5",
// "123456789", "12.3e9"), so that a value stays within its field whenever
// some text that reads back exactly fits. Only when none fits does the field
// widen, with the shorter of the two usual forms (nothing is rounded away).
// NaN and infinities are written "NaN" ("-NaN" with its sign bit set), "Inf"
// and "-Inf".
std::string FormatReal(double value, int fieldWidth,
                       const Units::Runtime::UnitRatio& unitSize = Units::Runtime::UnitRatio{});

// The shortest decimal digits that read back as `value`, the digits
// std::to_chars finds, written in one of the forms it writes them in:
// `Plain` as fixed writes them ("0.001", "100000000000000000000", "2.5"),
// `Scientific` as scientific ("1e-03", "2.5e+00"), `General` as general, in
// the style of printf's "%g" (scientific for an exponent below -4 or from 6
// on: "123456", "1.234567e+06"). The same text on every platform, whether
// or not its standard library converts doubles. NaN and the infinities as
// FormatReal writes them.
enum class DecimalForm { Plain, Scientific, General };
std::string ShortestDecimalText(double value, DecimalForm form);

// Reads a number token: an optional sign, digits with an optional decimal
// point, an optional exponent with "e", "E", "d" or "D", or NaN / Inf /
// Infinity in any case. The result is the double nearest to the number times
// `unitSize` (halfway: the even one), found in time linear in the length of
// the token; false for anything else or a value out of range.
bool ParseReal(const std::string& text, double& value,
               const Units::Runtime::UnitRatio& unitSize = Units::Runtime::UnitRatio{});

// A unit's size with what reading a number in it needs, worked out once: a
// power of ten only moves the decimal point.
struct UnitScale {
    Units::Runtime::UnitRatio size;
    bool isPowerOfTen = true;
    int powerOfTen = 0;
    double factor = 1.0;
    // numerator / denominator and its inverse in long double, for the fast
    // ways: a multiplication where a multiplication and a division would
    // take as many roundings and much longer.
    long double ratio = 1.0L;
    long double inverse = 1.0L;

    UnitScale() = default;
    explicit UnitScale(const Units::Runtime::UnitRatio& unitSize)
        : size(unitSize),
          ratio(static_cast<long double>(unitSize.numerator) / static_cast<long double>(unitSize.denominator)),
          inverse(static_cast<long double>(unitSize.denominator) / static_cast<long double>(unitSize.numerator)) {
        isPowerOfTen = unitSize.IsPowerOfTen(powerOfTen);
        factor = unitSize.ToDouble();
    }
};
bool ParseReal(const char* first, const char* last, double& value, const UnitScale& scale);
std::string FormatReal(double value, int fieldWidth, const UnitScale& scale);
// The same text into `text`, whose room is used again: a writer keeps one
// string for every number of a file, and texts longer than a string holds
// in place (17 digits of a value in feet) are made without an allocation.
void FormatReal(double value, int fieldWidth, const UnitScale& scale, std::string& text);

// The scales of one unit system for the dimensions a text uses, each worked
// out at its first number (a file has a handful of dimensions).
class UnitScales {
public:
    explicit UnitScales(const Units::Runtime::UnitSystem& units) : units_(units) {}
    const UnitScale& Of(Units::Runtime::DynamicDimension dimension) {
        for (const auto& known : known_)
            if (known.first == dimension) return known.second;
        known_.emplace_back(dimension, UnitScale(units_.GetSize(dimension)));
        return known_.back().second;
    }

private:
    Units::Runtime::UnitSystem units_;
    std::vector<std::pair<Units::Runtime::DynamicDimension, UnitScale>> known_;
};

}  // namespace TerrixExchange
