#pragma once

// Internal to the unit library and the archives.

#include <cmath>
#include <cstdint>

namespace TerrixExchange { namespace Units { namespace Runtime {

// A whole number below 2^128 in two 64-bit halves. The exact size of a unit
// made of pounds-force and feet outgrows 64 bits (a pound-force per cubic foot
// is 8896443230521 x 1250^3 / (2 x 10^12 x 381^3)), and standard C++ has no
// wider integer on every platform. Arithmetic wraps modulo 2^128, as that of
// the unsigned built-in types does.
class Unsigned128 {
public:
    constexpr Unsigned128(std::uint64_t low = 0) : high_(0), low_(low) {}
    constexpr Unsigned128(std::uint64_t high, std::uint64_t low) : high_(high), low_(low) {}

    constexpr std::uint64_t High() const { return high_; }
    constexpr std::uint64_t Low() const { return low_; }

    // The low 64 bits, as a conversion of a built-in integer keeps them.
    explicit constexpr operator std::uint64_t() const { return low_; }
    // The nearest double (halfway: the even one).
    explicit operator double() const {
        if (high_ == 0) return static_cast<double>(low_);
        // The top 64 bits with every bit below them folded into the last one:
        // it lies below the rounding place of a double, so it only breaks ties.
        const int shift = BitLength() - 64;
        const Unsigned128 top = *this >> shift;
        const bool lost = (top << shift) != *this;
        return std::ldexp(static_cast<double>(top.low_ | (lost ? 1u : 0u)), shift);
    }
    // high x 2^64 + low with one rounding where long double is narrower.
    explicit operator long double() const {
        return std::ldexp(static_cast<long double>(high_), 64) + static_cast<long double>(low_);
    }

    int BitLength() const {
        int bits = 0;
        for (std::uint64_t top = high_ != 0 ? high_ : low_; top != 0; top >>= 1) ++bits;
        return high_ != 0 ? bits + 64 : bits;
    }

    friend bool operator==(const Unsigned128& a, const Unsigned128& b) {
        return a.high_ == b.high_ && a.low_ == b.low_;
    }
    friend bool operator!=(const Unsigned128& a, const Unsigned128& b) { return !(a == b); }
    friend bool operator<(const Unsigned128& a, const Unsigned128& b) {
        return a.high_ != b.high_ ? a.high_ < b.high_ : a.low_ < b.low_;
    }
    friend bool operator>(const Unsigned128& a, const Unsigned128& b) { return b < a; }
    friend bool operator<=(const Unsigned128& a, const Unsigned128& b) { return !(b < a); }
    friend bool operator>=(const Unsigned128& a, const Unsigned128& b) { return !(a < b); }

    friend Unsigned128 operator+(const Unsigned128& a, const Unsigned128& b) {
        const std::uint64_t low = a.low_ + b.low_;
        return Unsigned128(a.high_ + b.high_ + (low < a.low_ ? 1u : 0u), low);
    }
    friend Unsigned128 operator-(const Unsigned128& a, const Unsigned128& b) {
        return Unsigned128(a.high_ - b.high_ - (a.low_ < b.low_ ? 1u : 0u), a.low_ - b.low_);
    }
    friend Unsigned128 operator*(const Unsigned128& a, const Unsigned128& b) {
        Unsigned128 product = Product(a.low_, b.low_);
        product.high_ += a.high_ * b.low_ + a.low_ * b.high_;
        return product;
    }
    friend Unsigned128 operator/(const Unsigned128& a, const Unsigned128& b) {
        Unsigned128 remainder;
        return Divide(a, b, remainder);
    }
    friend Unsigned128 operator%(const Unsigned128& a, const Unsigned128& b) {
        Unsigned128 remainder;
        Divide(a, b, remainder);
        return remainder;
    }
    friend Unsigned128 operator<<(const Unsigned128& a, int bits) {
        if (bits == 0) return a;
        if (bits >= 64) return Unsigned128(a.low_ << (bits - 64), 0);
        return Unsigned128((a.high_ << bits) | (a.low_ >> (64 - bits)), a.low_ << bits);
    }
    friend Unsigned128 operator>>(const Unsigned128& a, int bits) {
        if (bits == 0) return a;
        if (bits >= 64) return Unsigned128(0, a.high_ >> (bits - 64));
        return Unsigned128(a.high_ >> bits, (a.low_ >> bits) | (a.high_ << (64 - bits)));
    }
    Unsigned128& operator+=(const Unsigned128& b) { return *this = *this + b; }
    Unsigned128& operator-=(const Unsigned128& b) { return *this = *this - b; }
    Unsigned128& operator*=(const Unsigned128& b) { return *this = *this * b; }
    Unsigned128& operator/=(const Unsigned128& b) { return *this = *this / b; }
    Unsigned128& operator%=(const Unsigned128& b) { return *this = *this % b; }
    Unsigned128& operator<<=(int bits) { return *this = *this << bits; }
    Unsigned128& operator>>=(int bits) { return *this = *this >> bits; }

    // a x b in full, from four products of 32-bit halves.
    static Unsigned128 Product(std::uint64_t a, std::uint64_t b) {
        const std::uint64_t mask = 0xffffffffu;
        const std::uint64_t lowLow = (a & mask) * (b & mask);
        const std::uint64_t highLow = (a >> 32) * (b & mask);
        const std::uint64_t lowHigh = (a & mask) * (b >> 32);
        const std::uint64_t highHigh = (a >> 32) * (b >> 32);
        const std::uint64_t middle = (lowLow >> 32) + (highLow & mask) + (lowHigh & mask);
        return Unsigned128(highHigh + (highLow >> 32) + (lowHigh >> 32) + (middle >> 32),
                           (middle << 32) | (lowLow & mask));
    }

    // a / b and a % b. A divisor of 32 bits (ten, for digits) takes 64-bit
    // divisions; a wider one one step per bit of the quotient.
    static Unsigned128 Divide(const Unsigned128& a, const Unsigned128& b, Unsigned128& remainder) {
        if (a.high_ == 0 && b.high_ == 0) {
            remainder = Unsigned128(a.low_ % b.low_);
            return Unsigned128(a.low_ / b.low_);
        }
        if (b.high_ == 0 && b.low_ <= 0xffffffffu) {
            const std::uint64_t divisor = b.low_;
            const std::uint64_t high = a.high_ / divisor;
            std::uint64_t rest = a.high_ % divisor;
            const std::uint64_t upper = ((rest << 32) | (a.low_ >> 32)) / divisor;
            rest = ((rest << 32) | (a.low_ >> 32)) % divisor;
            const std::uint64_t lower = ((rest << 32) | (a.low_ & 0xffffffffu)) / divisor;
            remainder = Unsigned128(((rest << 32) | (a.low_ & 0xffffffffu)) % divisor);
            return Unsigned128(high, (upper << 32) | lower);
        }
        Unsigned128 quotient;
        remainder = a;
        if (a < b) return quotient;
        int shift = a.BitLength() - b.BitLength();
        for (Unsigned128 divisor = b << shift; shift >= 0; --shift, divisor >>= 1) {
            quotient <<= 1;
            if (remainder >= divisor) {
                remainder -= divisor;
                quotient.low_ |= 1u;
            }
        }
        return quotient;
    }

private:
    friend Unsigned128 operator|(const Unsigned128& a, std::uint64_t b) { return Unsigned128(a.high_, a.low_ | b); }

    std::uint64_t high_;
    std::uint64_t low_;
};

}}}  // namespace TerrixExchange::Units::Runtime
