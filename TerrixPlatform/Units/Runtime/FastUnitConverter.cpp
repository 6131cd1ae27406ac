#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

#include <TerrixPlatform/Units/Runtime/UnitRatio.h>

#include <cmath>

namespace TerrixExchange { namespace Units { namespace Runtime {

namespace {

// a x b is at most 10^36, which leaves room in 128 bits for the reduction.
bool IsBelowLimit(const Unsigned128& a, const Unsigned128& b) {
    // Of a bits and b bits, a product has fewer than a + b bits.
    if (a.BitLength() + b.BitLength() > 128) return false;
    const Unsigned128 limit = Unsigned128(1000000000000000000u) * Unsigned128(1000000000000000000u);
    return a * b <= limit;
}

// from / to as an exact ratio; false when the whole numbers would overflow
// (only between two unit systems that both have odd units, never to or from
// the database unit system).
bool TryGetRatio(const UnitRatio& from, const UnitRatio& to, UnitRatio& ratio) {
    if (!IsBelowLimit(from.numerator, to.denominator) || !IsBelowLimit(from.denominator, to.numerator)) return false;
    ratio = UnitRatio::Reduced(from.numerator * to.denominator, from.denominator * to.numerator);
    return true;
}

}  // namespace

FastUnitConverter::FastUnitConverter(const UnitSystem& from, const UnitSystem& to) : from_(from), to_(to) {
    const DynamicDimension dimensions[] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {1, -1}, {1, -2}, {1, -3}};
    for (std::size_t i = 0; i < ratios_.size(); ++i) {
        ratios_[i].dimension = dimensions[i];
        ratios_[i].isExact = TryGetRatio(from_.GetSize(dimensions[i]), to_.GetSize(dimensions[i]), ratios_[i].forward);
    }
}

FastUnitConverter::Ratio FastUnitConverter::RatioOf(DynamicDimension dimension) const {
    for (const Ratio& ratio : ratios_)
        if (ratio.dimension == dimension) return ratio;
    Ratio ratio{dimension, false, UnitRatio()};
    ratio.isExact = TryGetRatio(from_.GetSize(dimension), to_.GetSize(dimension), ratio.forward);
    return ratio;
}

double FastUnitConverter::GetConversionFactor(DynamicDimension dimension) const {
    const Ratio ratio = RatioOf(dimension);
    if (ratio.isExact) return ratio.forward.ToDouble();
    return from_.GetSize(dimension).ToDouble() / to_.GetSize(dimension).ToDouble();
}

double FastUnitConverter::Convert(double value, DynamicDimension dimension) const {
    const Ratio ratio = RatioOf(dimension);
    if (!ratio.isExact) return value * GetConversionFactor(dimension);
    const UnitRatio& forward = ratio.forward;
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
