#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

#include <stdexcept>

namespace TerrixExchange { namespace Units { namespace Runtime {

namespace {

struct NamedUnit {
    const char* name;
    long long numerator;
    long long denominator;
};

// Exact definitions: the inch is 25.4 mm, the foot 0.3048 m, the pound-force
// 4.4482216152605 N, the kip-force 1000 lbf, the kilogram-force 9.80665 N.
const NamedUnit lengthUnits[] = {
    {"km", 1000, 1}, {"m", 1, 1},         {"dm", 1, 10},        {"cm", 1, 100},
    {"mm", 1, 1000}, {"in", 254, 10000}, {"ft", 3048, 10000},
};
const NamedUnit forceUnits[] = {
    {"N", 1, 1},
    {"kN", 1000, 1},
    {"MN", 1000000, 1},
    {"GN", 1000000000, 1},
    {"mN", 1, 1000},
    {"lbf", 44482216152605LL, 10000000000000LL},
    {"kipf", 44482216152605LL, 10000000000LL},
    {"kgf", 980665, 100000},
};

template <std::size_t N>
const NamedUnit* Find(const NamedUnit (&units)[N], const std::string& name) {
    for (const NamedUnit& unit : units)
        if (name == unit.name) return &unit;
    return nullptr;
}

__int128 GreatestCommonDivisor(__int128 a, __int128 b) {
    while (b != 0) {
        const __int128 rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

UnitRatio Times(UnitRatio a, UnitRatio b) {
    return UnitRatio::Reduced(a.numerator * b.numerator, a.denominator * b.denominator);
}

UnitRatio Power(UnitRatio base, int exponent) {
    UnitRatio result;
    const UnitRatio factor = exponent < 0 ? base.Inverse() : base;
    for (int i = 0; i < (exponent < 0 ? -exponent : exponent); ++i) result = Times(result, factor);
    return result;
}

// 2^53: whole numbers up to it are exact doubles.
const __int128 exactLimit = static_cast<__int128>(1) << 53;

}  // namespace

UnitRatio UnitRatio::Reduced(__int128 numerator, __int128 denominator) {
    const __int128 divisor = GreatestCommonDivisor(numerator, denominator);
    return UnitRatio{numerator / divisor, denominator / divisor};
}

double UnitRatio::ToDouble() const {
    return static_cast<double>(static_cast<long double>(numerator) / static_cast<long double>(denominator));
}

bool UnitRatio::IsPowerOfTen(int& exponent) const {
    auto tens = [](__int128 number, int& count) {
        count = 0;
        while (number > 1 && number % 10 == 0) {
            number /= 10;
            ++count;
        }
        return number == 1;
    };
    int up = 0;
    int down = 0;
    if (!tens(numerator, up) || !tens(denominator, down)) return false;
    exponent = up - down;
    return true;
}

double UnitRatio::Apply(double value) const {
    if (numerator == denominator) return value;
    if (denominator == 1 && numerator < exactLimit) return value * static_cast<double>(numerator);
    if (numerator == 1 && denominator < exactLimit) return value / static_cast<double>(denominator);
    return value * ToDouble();
}

bool TryGetForceUnitSize(const std::string& name, double& size) {
    const NamedUnit* unit = Find(forceUnits, name);
    if (unit) size = UnitRatio{unit->numerator, unit->denominator}.ToDouble();
    return unit != nullptr;
}

bool TryGetLengthUnitSize(const std::string& name, double& size) {
    const NamedUnit* unit = Find(lengthUnits, name);
    if (unit) size = UnitRatio{unit->numerator, unit->denominator}.ToDouble();
    return unit != nullptr;
}

UnitSystem::UnitSystem() : forceUnit_("N"), lengthUnit_("m") {}

UnitSystem::UnitSystem(const std::string& forceUnit, const std::string& lengthUnit)
    : forceUnit_(forceUnit), lengthUnit_(lengthUnit) {
    const NamedUnit* force = Find(forceUnits, forceUnit);
    if (!force) throw std::runtime_error("Unknown force unit: '" + forceUnit + "'");
    const NamedUnit* length = Find(lengthUnits, lengthUnit);
    if (!length) throw std::runtime_error("Unknown length unit: '" + lengthUnit + "'");
    // Reduced once here, not at every conversion. The reduced terms are
    // no larger than the table's, so they fit again.
    const UnitRatio forceSize = UnitRatio::Reduced(force->numerator, force->denominator);
    const UnitRatio lengthSize = UnitRatio::Reduced(length->numerator, length->denominator);
    forceNumerator_ = static_cast<long long>(forceSize.numerator);
    forceDenominator_ = static_cast<long long>(forceSize.denominator);
    lengthNumerator_ = static_cast<long long>(lengthSize.numerator);
    lengthDenominator_ = static_cast<long long>(lengthSize.denominator);
}

UnitRatio UnitSystem::GetSize(DynamicDimension dimension) const {
    const UnitRatio force{forceNumerator_, forceDenominator_};
    const UnitRatio length{lengthNumerator_, lengthDenominator_};
    return Times(Power(force, dimension.force), Power(length, dimension.length));
}

double UnitSystem::ConvertFromUnitSystem(double value, DynamicDimension dimension) const {
    return GetSize(dimension).Apply(value);
}

UnitSystem GetDatabaseUnitSystem() { return UnitSystem(); }

}}}  // namespace TerrixExchange::Units::Runtime
