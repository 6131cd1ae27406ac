#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace TerrixExchange { namespace Units { namespace Runtime {

namespace {

struct NamedUnit {
    const char* name;
    std::uint64_t numerator;
    std::uint64_t denominator;
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
    {"lbf", 44482216152605u, 10000000000000u},
    {"kipf", 44482216152605u, 10000000000u},
    {"kgf", 980665, 100000},
};

template <std::size_t N>
const NamedUnit* Find(const NamedUnit (&units)[N], const std::string& name) {
    for (const NamedUnit& unit : units)
        if (name == unit.name) return &unit;
    return nullptr;
}

Unsigned128 GreatestCommonDivisor(Unsigned128 a, Unsigned128 b) {
    while (b != 0) {
        const Unsigned128 rest = a % b;
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
const Unsigned128 exactLimit = Unsigned128(1) << 53;

}  // namespace

UnitRatio UnitRatio::Reduced(Unsigned128 numerator, Unsigned128 denominator) {
    const Unsigned128 divisor = GreatestCommonDivisor(numerator, denominator);
    return UnitRatio{numerator / divisor, denominator / divisor};
}

double UnitRatio::ToDouble() const {
    // The quotient in binary, by long division, to 64 significant bits; a bit
    // below them stands for any remainder that is left, so that the one
    // rounding to 53 bits is that of the exact quotient.
    Unsigned128 remainder;
    Unsigned128 scaled = Unsigned128::Divide(numerator, denominator, remainder);
    int fractionBits = 0;
    for (; scaled.BitLength() < 64; ++fractionBits) {
        remainder <<= 1;
        scaled <<= 1;
        if (remainder >= denominator) {
            remainder -= denominator;
            scaled += 1;
        }
    }
    if (remainder != 0) scaled = scaled << 1 | 1;
    else scaled <<= 1;
    return std::ldexp(static_cast<double>(scaled), -fractionBits - 1);
}

bool UnitRatio::IsPowerOfTen(int& exponent) const {
    auto tens = [](Unsigned128 number, int& count) {
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
    forceNumerator_ = static_cast<long long>(forceSize.numerator.Low());
    forceDenominator_ = static_cast<long long>(forceSize.denominator.Low());
    lengthNumerator_ = static_cast<long long>(lengthSize.numerator.Low());
    lengthDenominator_ = static_cast<long long>(lengthSize.denominator.Low());
}

UnitRatio UnitSystem::GetSize(DynamicDimension dimension) const {
    const UnitRatio force{static_cast<std::uint64_t>(forceNumerator_), static_cast<std::uint64_t>(forceDenominator_)};
    const UnitRatio length{static_cast<std::uint64_t>(lengthNumerator_),
                           static_cast<std::uint64_t>(lengthDenominator_)};
    return Times(Power(force, dimension.force), Power(length, dimension.length));
}

double UnitSystem::ConvertFromUnitSystem(double value, DynamicDimension dimension) const {
    return GetSize(dimension).Apply(value);
}

UnitSystem GetDatabaseUnitSystem() { return UnitSystem(); }

}}}  // namespace TerrixExchange::Units::Runtime
