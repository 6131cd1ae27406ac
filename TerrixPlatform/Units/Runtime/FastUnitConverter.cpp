#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

#include <cmath>

namespace TerrixExchange { namespace Units { namespace Runtime {

namespace {

// from / to as an exact ratio; false when the whole numbers would overflow
// (only between two unit systems that both have odd units, never to or from
// the database unit system).
bool TryGetRatio(const UnitRatio& from, const UnitRatio& to, UnitRatio& ratio) {
    const long double limit = 1.0e36L;
    const long double numerator = static_cast<long double>(from.numerator) * static_cast<long double>(to.denominator);
    const long double denominator = static_cast<long double>(from.denominator) * static_cast<long double>(to.numerator);
    if (numerator > limit || denominator > limit) return false;
    ratio = UnitRatio::Reduced(from.numerator * to.denominator, from.denominator * to.numerator);
    return true;
}

}  // namespace

FastUnitConverter::FastUnitConverter(const UnitSystem& from, const UnitSystem& to) : from_(from), to_(to) {}

double FastUnitConverter::GetConversionFactor(DynamicDimension dimension) const {
    const UnitRatio from = from_.GetSize(dimension);
    const UnitRatio to = to_.GetSize(dimension);
    UnitRatio ratio;
    if (TryGetRatio(from, to, ratio)) return ratio.ToDouble();
    return from.ToDouble() / to.ToDouble();
}

double FastUnitConverter::Convert(double value, DynamicDimension dimension) const {
    UnitRatio forward;
    if (!TryGetRatio(from_.GetSize(dimension), to_.GetSize(dimension), forward))
        return value * GetConversionFactor(dimension);
    const double converted = forward.Apply(value);
    if (!std::isfinite(converted) || !std::isfinite(value)) return converted;
    const UnitRatio backward = forward.Inverse();
    if (backward.Apply(converted) == value) return converted;
    double below = converted;
    double above = converted;
    for (int step = 0; step < 8; ++step) {
        below = std::nextafter(below, -INFINITY);
        above = std::nextafter(above, INFINITY);
        if (backward.Apply(above) == value) return above;
        if (backward.Apply(below) == value) return below;
    }
    return converted;
}

}}}  // namespace TerrixExchange::Units::Runtime
