#pragma once

// Internal to the unit library and the archives: a host includes
// UnitSystem.h, which needs none of this.

#include <TerrixPlatform/Units/Runtime/UnitSystem.h>
#include <TerrixPlatform/Units/Runtime/Unsigned128.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// An exact ratio of two whole numbers, the size of a unit relative to another.
// Unit sizes are exact decimals (25.4 mm to the inch, 4.4482216152605 N to
// the pound-force), so conversions are made from exact ratios rather than
// from products of rounded factors.
struct UnitRatio {
    Unsigned128 numerator = 1;
    Unsigned128 denominator = 1;

    // value x numerator / denominator with as few roundings as the ratio allows:
    // one for whole factors and whole divisors (1000, 1e-9 as /1e9).
    double Apply(double value) const;
    // The double nearest to the ratio, worked out in whole numbers, so that it
    // is the same on every platform whatever its long double.
    double ToDouble() const;
    // True when the ratio is 10^exponent: such a conversion moves the decimal
    // point of a written number and needs no rounding.
    bool IsPowerOfTen(int& exponent) const;
    UnitRatio Inverse() const { return UnitRatio{denominator, numerator}; }
    // numerator / denominator in lowest terms.
    static UnitRatio Reduced(Unsigned128 numerator, Unsigned128 denominator);
};

}}}  // namespace TerrixExchange::Units::Runtime
