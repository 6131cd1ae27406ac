#pragma once

#include <string>

#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// The exact size of a unit (see UnitRatio.h, which a caller of GetSize
// includes).
struct UnitRatio;

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
    // The sizes of the two units in newton and metre, as exact ratios in
    // lowest terms.
    long long forceNumerator_ = 1;
    long long forceDenominator_ = 1;
    long long lengthNumerator_ = 1;
    long long lengthDenominator_ = 1;
};

// Newton and metre: the unit system in which every quantity is held.
UnitSystem GetDatabaseUnitSystem();

// The size of a named unit in newton or metre; false for an unknown name.
bool TryGetForceUnitSize(const std::string& name, double& size);
bool TryGetLengthUnitSize(const std::string& name, double& size);

}}}  // namespace TerrixExchange::Units::Runtime
