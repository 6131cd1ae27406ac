#pragma once

#include <string>

#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// An exact ratio of two whole numbers, the size of a unit relative to another.
// Unit sizes are exact decimals (25.4 mm to the inch, 4.4482216152605 N to
// the pound-force), so conversions are made from exact ratios rather than
// from products of rounded factors.
struct UnitRatio {
    __int128 numerator = 1;
    __int128 denominator = 1;

    // value x numerator / denominator with as few roundings as the ratio allows:
    // one for whole factors and whole divisors (1000, 1e-9 as /1e9).
    double Apply(double value) const;
    double ToDouble() const;
    // True when the ratio is 10^exponent: such a conversion moves the decimal
    // point of a written number and needs no rounding.
    bool IsPowerOfTen(int& exponent) const;
    UnitRatio Inverse() const { return UnitRatio{denominator, numerator}; }
    // numerator / denominator in lowest terms.
    static UnitRatio Reduced(__int128 numerator, __int128 denominator);
};

// A unit system of a TERRIX file: one force unit and one length unit, named
// as a user names them ("kN", "m"). Known names: length km m dm cm mm in ft;
// force N kN MN GN mN lbf kipf kgf. Any other name is a std::runtime_error
// that names it.
class UnitSystem {
public:
    // Newton and metre.
    UnitSystem();
    UnitSystem(const std::string& forceUnit, const std::string& lengthUnit);

    const std::string& GetForceUnitName() const { return forceUnit_; }
    const std::string& GetLengthUnitName() const { return lengthUnit_; }

    // The size of one unit of the dimension in database units, exactly.
    UnitRatio GetSize(DynamicDimension dimension) const;

    // A number written in this unit system, in database units.
    double ConvertFromUnitSystem(double value, DynamicDimension dimension) const;
    template <class Phenomenon>
    Quantity<Phenomenon> ConvertFromUnitSystem(double value) const {
        return Quantity<Phenomenon>(ConvertFromUnitSystem(value, Phenomenon::dimension));
    }

    friend bool operator==(const UnitSystem& a, const UnitSystem& b) {
        return a.forceUnit_ == b.forceUnit_ && a.lengthUnit_ == b.lengthUnit_;
    }
    friend bool operator!=(const UnitSystem& a, const UnitSystem& b) { return !(a == b); }

private:
    std::string forceUnit_;
    std::string lengthUnit_;
    UnitRatio forceSize_;
    UnitRatio lengthSize_;
};

// Newton and metre: the unit system in which every quantity is held.
UnitSystem GetDatabaseUnitSystem();

// The size of a named unit in newton or metre; false for an unknown name.
bool TryGetForceUnitSize(const std::string& name, double& size);
bool TryGetLengthUnitSize(const std::string& name, double& size);

}}}  // namespace TerrixExchange::Units::Runtime
