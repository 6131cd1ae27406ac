#pragma once

#include <TerrixPlatform/Units/Runtime/Phenomena.h>

namespace TerrixExchange { namespace Units { namespace Runtime {

// A number of a given phenomenon, held in the database unit system (newton
// and metre; angles in radians). Comparisons are exact.
template <class Phenomenon>
class Quantity {
public:
    using PhenomenonType = Phenomenon;

    constexpr Quantity() = default;
    // The value in database units.
    constexpr explicit Quantity(double databaseValue) : value_(databaseValue) {}

    constexpr double GetValue() const { return value_; }
    static constexpr DynamicDimension GetDimension() { return Phenomenon::dimension; }

    constexpr Quantity operator-() const { return Quantity(-value_); }
    constexpr Quantity& operator+=(Quantity other) { value_ += other.value_; return *this; }
    constexpr Quantity& operator-=(Quantity other) { value_ -= other.value_; return *this; }
    constexpr Quantity& operator*=(double factor) { value_ *= factor; return *this; }
    constexpr Quantity& operator/=(double divisor) { value_ /= divisor; return *this; }

    friend constexpr Quantity operator+(Quantity a, Quantity b) { return Quantity(a.value_ + b.value_); }
    friend constexpr Quantity operator-(Quantity a, Quantity b) { return Quantity(a.value_ - b.value_); }
    friend constexpr Quantity operator*(Quantity a, double factor) { return Quantity(a.value_ * factor); }
    friend constexpr Quantity operator*(double factor, Quantity a) { return Quantity(factor * a.value_); }
    friend constexpr Quantity operator/(Quantity a, double divisor) { return Quantity(a.value_ / divisor); }
    friend constexpr double operator/(Quantity a, Quantity b) { return a.value_ / b.value_; }

    friend constexpr bool operator==(Quantity a, Quantity b) { return a.value_ == b.value_; }
    friend constexpr bool operator!=(Quantity a, Quantity b) { return a.value_ != b.value_; }
    friend constexpr bool operator<(Quantity a, Quantity b) { return a.value_ < b.value_; }
    friend constexpr bool operator>(Quantity a, Quantity b) { return a.value_ > b.value_; }
    friend constexpr bool operator<=(Quantity a, Quantity b) { return a.value_ <= b.value_; }
    friend constexpr bool operator>=(Quantity a, Quantity b) { return a.value_ >= b.value_; }

private:
    double value_ = 0.0;
};

}}}  // namespace TerrixExchange::Units::Runtime
