#pragma once

#include <array>

#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>
#include <TerrixPlatform/Units/Runtime/UnitRatio.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// Converts numbers of any dimension from one unit system to another.
class FastUnitConverter {
public:
    FastUnitConverter(const UnitSystem& from, const UnitSystem& to);

    const UnitSystem& GetFrom() const { return from_; }
    const UnitSystem& GetTo() const { return to_; }

    // The factor by which a number in the first system is multiplied to give
    // the same amount in the second.
    double GetConversionFactor(DynamicDimension dimension) const;

    // The number in the second system: of the doubles nearest to the exact
    // result, the one that converts back to exactly `value` when there is one,
    // so that a value read in a unit system and written in the same unit
    // system comes out unchanged.
    double Convert(double value, DynamicDimension dimension) const;

private:
    // The exact ratio of a dimension, when the whole numbers do not overflow.
    struct Ratio {
        DynamicDimension dimension;
        bool isExact = false;
        UnitRatio forward;
    };
    Ratio RatioOf(DynamicDimension dimension) const;

    UnitSystem from_;
    UnitSystem to_;
    // The ratios of the dimensions of the format's quantities, worked out
    // once: a converter converts many numbers of few dimensions.
    std::array<Ratio, 7> ratios_;
};

}}}  // namespace TerrixExchange::Units::Runtime
