#include <TerrixExchange/archive/NumberText.h>

#include <TerrixExchange/archive/ExactDecimal.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <system_error>
#include <vector>

namespace TerrixExchange {

using Units::Runtime::UnitRatio;

namespace {

using namespace ExactDecimal;

// Whole numbers of up to 128 bits: a unit's numerator and denominator, and
// a digit step with one of them.
using Wide = Units::Runtime::Unsigned128;

// The low 64 bits of a whole number of either width the digit loops use.
std::uint64_t LowBits(std::uint64_t value) { return value; }
std::uint64_t LowBits(const Wide& value) { return value.Low(); }

// Significant digits kept where a conversion by an odd ratio divides: far
// more than the 17 a double needs, so that the double nearest to them is the
// double nearest to the exact quotient or one of its neighbours.
const std::size_t divisionDigits = 40;

Decimal ShortestDecimal(double value, int precision = -1) {
    const Scientific scientific = ToScientific(value, precision);
    Decimal decimal;
    decimal.negative = scientific.negative;
    decimal.digits.assign(scientific.digits, static_cast<std::size_t>(scientific.count));
    decimal.exponent = scientific.exponent;
    Normalize(decimal);
    return decimal;
}

// The written token as a decimal; false when it is no finite number.
bool ToDecimal(const char* first, const char* last, Decimal& decimal) {
    decimal = Decimal{};
    if (first != last && (*first == '+' || *first == '-')) decimal.negative = *first++ == '-';
    return ReadDecimal(first, last, true, decimal) == last;
}

// A number as files write it, of a few significant digits: M x 10^E with M
// below 10^19.
struct ShortDecimal {
    bool negative = false;
    std::uint64_t mantissa = 0;
    long exponent = 0;
};

// The number token as a short decimal; false for a token of more than 19
// significant digits, an exponent of more than four digits or no digits,
// which the exact way of digit strings reads (and bounds).
bool ToShortDecimal(const char* at, const char* last, ShortDecimal& decimal) {
    decimal = ShortDecimal{};
    if (at != last && (*at == '+' || *at == '-')) decimal.negative = *at++ == '-';
    int significant = 0;
    bool hasDigit = false;
    bool afterPoint = false;
    for (; at != last; ++at) {
        if (*at == '.' && !afterPoint) {
            afterPoint = true;
            continue;
        }
        if (*at < '0' || *at > '9') break;
        hasDigit = true;
        if (afterPoint) --decimal.exponent;
        if (decimal.mantissa == 0 && *at == '0') continue;
        if (++significant > 19) return false;
        decimal.mantissa = decimal.mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
    }
    if (!hasDigit) return false;
    if (at != last) {
        if (*at != 'e' && *at != 'E' && *at != 'd' && *at != 'D') return false;
        const char* digits = at + 1;
        if (digits != last && *digits == '+') ++digits;
        if (digits == last || last - digits > 5) return false;
        long written = 0;
        const std::from_chars_result parsed = std::from_chars(digits, last, written);
        if (parsed.ec != std::errc() || parsed.ptr != last || written > 9999 || written < -9999) return false;
        decimal.exponent += written;
    }
    return true;
}

// M x 10^(E + shift) rounded once, by from_chars; false, with nothing
// decided, for a result out of range, which the exact way settles.
bool NearestDouble(const ShortDecimal& decimal, int shift, double& value) {
    if (decimal.mantissa == 0) {
        value = decimal.negative ? -0.0 : 0.0;
        return true;
    }
    char text[48];
    char* at = text;
    if (decimal.negative) *at++ = '-';
    // A sign and at most 20 digits go before the exponent.
    at = std::to_chars(at, text + 21, decimal.mantissa).ptr;
    *at++ = 'e';
    at = std::to_chars(at, text + sizeof text, decimal.exponent + shift).ptr;
    const std::from_chars_result parsed = FromChars(text, at, value);
    return parsed.ec == std::errc() && parsed.ptr == at;
}

// The usual number of a file in a unit that is a power of ten: the written
// digits with the exponent moved by the unit's power, rounded once by
// from_chars, the double the exact way gives.
bool ParseShortDecimal(const char* first, const char* last, int shift, double& value) {
    ShortDecimal decimal;
    return ToShortDecimal(first, last, decimal) && NearestDouble(decimal, shift, value);
}

// The double nearest to the decimal (correctly rounded by from_chars).
bool ToDouble(const Decimal& decimal, double& value) {
    const std::string text = (decimal.negative ? "-" : "") + decimal.digits.substr(0, 1) + "." +
                             decimal.digits.substr(1) + "e" + std::to_string(decimal.exponent);
    double result = 0.0;
    const std::from_chars_result parsed = FromChars(text.data(), text.data() + text.size(), result);
    // A number too small for a double reads as zero; one too large is no value.
    if (parsed.ec == std::errc::result_out_of_range) {
        if (decimal.exponent > 0) return false;
        result = decimal.negative ? -0.0 : 0.0;
    } else if (parsed.ec != std::errc()) {
        return false;
    }
    value = result;
    return true;
}

// Below this, a factor or divisor times ten plus a digit fits 64 bits, and
// the digit loops run in 64-bit integers, whose division by ten the
// processor does; in 128 bits each step is a call.
const Wide narrowLimit = Wide{1} << 59;

// decimal x factor, exactly. The digits are worked out from the last one and
// each is written once, so the time is linear in the number of digits.
template <class Integer>
Decimal MultiplyIn(const Decimal& decimal, Integer factor) {
    const std::size_t count = decimal.digits.size();
    std::string digits(count + 40, '0');
    std::size_t out = digits.size();
    Integer carry = 0;
    for (std::size_t i = count; i-- > 0;) {
        const Integer step = static_cast<Integer>(decimal.digits[i] - '0') * factor + carry;
        digits[--out] = static_cast<char>('0' + static_cast<int>(LowBits(step % 10)));
        carry = step / 10;
    }
    while (carry > 0) {
        digits[--out] = static_cast<char>('0' + static_cast<int>(LowBits(carry % 10)));
        carry /= 10;
    }
    Decimal product;
    product.negative = decimal.negative;
    product.digits = digits.substr(out);
    product.exponent = decimal.exponent + static_cast<long>(product.digits.size() - count);
    Normalize(product);
    return product;
}

Decimal Multiply(const Decimal& decimal, Wide factor) {
    if (factor < narrowLimit) return MultiplyIn<std::uint64_t>(decimal, static_cast<std::uint64_t>(factor));
    return MultiplyIn<Wide>(decimal, factor);
}

// decimal / divisor to `count` significant digits, by long division from the
// first digit; a last digit 1 stands for any remainder, so that the digits
// never fall on a rounding boundary that the exact quotient does not.
template <class Integer>
Decimal DivideIn(const Decimal& decimal, Integer divisor, std::size_t count) {
    Decimal quotient;
    quotient.negative = decimal.negative;
    Integer remainder = 0;
    std::size_t i = 0;
    for (;; ++i) {
        const bool pastDigits = i >= decimal.digits.size();
        if (quotient.digits.size() >= count || (pastDigits && remainder == 0)) break;
        remainder = remainder * 10 + (pastDigits ? 0 : static_cast<Integer>(decimal.digits[i] - '0'));
        const int digit = static_cast<int>(LowBits(remainder / divisor));
        remainder %= divisor;
        // The quotient digit of step i stands for 10^(exponent - i).
        if (quotient.digits.empty() && digit != 0) quotient.exponent = decimal.exponent - static_cast<long>(i);
        if (!quotient.digits.empty() || digit != 0) quotient.digits += static_cast<char>('0' + digit);
    }
    if (remainder != 0 || i < decimal.digits.size()) quotient.digits += '1';
    if (quotient.digits.empty()) quotient.digits = "0";
    Normalize(quotient);
    return quotient;
}

Decimal Divide(const Decimal& decimal, Wide divisor, std::size_t count) {
    if (divisor < narrowLimit) return DivideIn<std::uint64_t>(decimal, static_cast<std::uint64_t>(divisor), count);
    return DivideIn<Wide>(decimal, divisor, count);
}

// A first guess at decimal x numerator / denominator: the leading digits are
// enough to land on the double nearest to the exact value or on a neighbour.
bool Guess(const Decimal& decimal, const UnitRatio& ratio, double& value) {
    Decimal leading;
    leading.negative = decimal.negative;
    leading.digits = decimal.digits.substr(0, divisionDigits + 20);
    leading.exponent = decimal.exponent;
    return ToDouble(Divide(Multiply(leading, ratio.numerator), ratio.denominator, divisionDigits), value);
}

// decimal x numerator / denominator rounded once, exactly, to the nearest
// double. The comparison with a point is x numerator against the point x
// denominator, both exact decimals, so it takes time linear in the number
// of digits however many digits agree.
bool MultiplyDivideExactly(const Decimal& decimal, const UnitRatio& ratio, double guess, double& value) {
    if (IsZero(decimal)) {
        value = decimal.negative ? -0.0 : 0.0;
        return true;
    }
    const Wide denominator = ratio.denominator;
    const Decimal product = Multiply(decimal, ratio.numerator);
    auto side = [&](const Binary& point) { return CompareMagnitudes(product, Times(point, denominator)); };
    return RoundExactly(guess, decimal.negative, side, value);
}

// --- Short numbers in units that are no power of ten ---
//
// A number as files write it has a few significant digits: M x 10^E with M
// below 10^19. Its value M x 10^E x numerator / denominator is compared with
// the points between doubles in whole numbers of at most 2,048 bits, with no
// digit strings and no allocation.

// A whole number of up to 2,048 bits, little-endian in 32-bit limbs. An
// operation that needs more marks it as overflowed, and the caller then
// takes the way of digit strings.
class FixedNatural {
public:
    explicit FixedNatural(Wide value) {
        for (; value != 0; value >>= 32) Push(static_cast<std::uint32_t>(value.Low()));
    }
    FixedNatural(const FixedNatural& other) { *this = other; }
    // Only the limbs in use are copied.
    FixedNatural& operator=(const FixedNatural& other) {
        size_ = other.size_;
        overflowed_ = other.overflowed_;
        std::copy(other.limbs_, other.limbs_ + size_, limbs_);
        return *this;
    }

    bool Overflowed() const { return overflowed_; }

    void Multiply(std::uint32_t factor) {
        std::uint64_t carry = 0;
        for (int i = 0; i < size_; ++i) {
            const std::uint64_t step = std::uint64_t{limbs_[i]} * factor + carry;
            limbs_[i] = static_cast<std::uint32_t>(step);
            carry = step >> 32;
        }
        if (carry != 0) Push(static_cast<std::uint32_t>(carry));
    }

    // this x factor, schoolbook.
    void Multiply(const FixedNatural& factor) {
        if (size_ + factor.size_ > capacity) {
            overflowed_ = true;
            return;
        }
        std::uint32_t product[capacity];
        std::fill(product, product + size_ + factor.size_, 0u);
        for (int j = 0; j < factor.size_; ++j) {
            std::uint64_t carry = 0;
            for (int i = 0; i < size_; ++i) {
                const std::uint64_t step = std::uint64_t{limbs_[i]} * factor.limbs_[j] + product[i + j] + carry;
                product[i + j] = static_cast<std::uint32_t>(step);
                carry = step >> 32;
            }
            product[size_ + j] = static_cast<std::uint32_t>(carry);
        }
        size_ += factor.size_;
        overflowed_ = overflowed_ || factor.overflowed_;
        std::copy(product, product + size_, limbs_);
        Trim();
    }

    void MultiplyByPowerOfFive(int count) {
        for (; count >= 13; count -= 13) Multiply(std::uint32_t{1220703125});  // 5^13
        std::uint32_t rest = 1;
        for (; count > 0; --count) rest *= 5;
        Multiply(rest);
    }

    void ShiftLeft(int bits) {
        const int whole = bits / 32;
        const int part = bits % 32;
        if (size_ == 0) return;
        if (size_ + whole + 1 > capacity) {
            overflowed_ = true;
            return;
        }
        for (int i = size_; i-- > 0;) {
            const std::uint64_t wide = std::uint64_t{limbs_[i]} << part;
            limbs_[i + whole + 1] =
                (i == size_ - 1 ? 0u : limbs_[i + whole + 1]) | static_cast<std::uint32_t>(wide >> 32);
            limbs_[i + whole] = static_cast<std::uint32_t>(wide);
        }
        std::fill(limbs_, limbs_ + whole, 0u);
        size_ += whole + 1;
        Trim();
    }

    int BitLength() const {
        if (size_ == 0) return 0;
        int bits = 32 * (size_ - 1);
        for (std::uint32_t top = limbs_[size_ - 1]; top != 0; top >>= 1) ++bits;
        return bits;
    }

    friend int Compare(const FixedNatural& a, const FixedNatural& b) {
        if (a.size_ != b.size_) return a.size_ < b.size_ ? -1 : 1;
        for (int i = a.size_; i-- > 0;)
            if (a.limbs_[i] != b.limbs_[i]) return a.limbs_[i] < b.limbs_[i] ? -1 : 1;
        return 0;
    }

private:
    static const int capacity = 64;

    void Push(std::uint32_t limb) {
        if (size_ == capacity) overflowed_ = true;
        else limbs_[size_++] = limb;
    }

    void Trim() {
        while (size_ > 0 && limbs_[size_ - 1] == 0) --size_;
    }

    // Only the first size_ limbs hold the number.
    std::uint32_t limbs_[capacity];
    int size_ = 0;
    bool overflowed_ = false;
};

// -1, 0, 1: a x 2^aExponent below, at or beyond b x 2^bExponent.
int CompareScaled(FixedNatural a, int aExponent, FixedNatural b, int bExponent, bool& overflowed) {
    const int aTop = a.BitLength() + aExponent;
    const int bTop = b.BitLength() + bExponent;
    if (aTop != bTop) return aTop < bTop ? -1 : 1;
    if (aExponent > bExponent) a.ShiftLeft(aExponent - bExponent);
    else b.ShiftLeft(bExponent - aExponent);
    overflowed = overflowed || a.Overflowed() || b.Overflowed();
    return Compare(a, b);
}

// The neighbour of a positive normal double below the largest, one step
// down (-1) or up (1): the next bit pattern.
double NextPositive(double value, int direction) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    bits = direction < 0 ? bits - 1 : bits + 1;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// 10^0 to 10^27, each exact in 64 bits (5^27 is below 2^64).
struct PowersOfTen {
    long double values[28];
};
constexpr PowersOfTen ExactPowersOfTen() {
    PowersOfTen powers{};
    powers.values[0] = 1.0L;
    for (int i = 1; i < 28; ++i) powers.values[i] = powers.values[i - 1] * 10.0L;
    return powers;
}
constexpr PowersOfTen exactPowersOfTen = ExactPowersOfTen();

// M x 10^E x numerator / denominator in 64-bit precision, where the platform
// has it (x86's long double). M and a power of ten up to 10^27 are exact;
// the product or quotient, the unit's numerator and denominator, their
// ratio and the product with it add at most five roundings of 2^-64 each, so the result
// lies within 2^-61 of the exact value, relatively. Unless that leaves it
// near the point halfway between two doubles, the double nearest to it is
// the double nearest to the exact value; false when it might not be.
bool NearestInExtendedPrecision(const ShortDecimal& decimal, const UnitScale& scale, double& value) {
    if constexpr (std::numeric_limits<long double>::digits < 64) {
        return false;
    } else {
        const long exponent = decimal.exponent;
        if (exponent > 27 || exponent < -27) return false;
        const long double power = exactPowersOfTen.values[exponent < 0 ? -exponent : exponent];
        long double exact = static_cast<long double>(decimal.mantissa);
        exact = exponent < 0 ? exact / power : exact * power;
        exact *= scale.ratio;
        const double nearest = static_cast<double>(exact);
        if (!(nearest > 1e-290 && nearest < 1e290)) return false;
        const long double below = (static_cast<long double>(nearest) + NextPositive(nearest, -1)) / 2;
        const long double above = (static_cast<long double>(nearest) + NextPositive(nearest, 1)) / 2;
        const long double margin = exact * 0x1p-59L;
        if (!(exact - margin > below && exact + margin < above)) return false;
        value = decimal.negative ? -nearest : nearest;
        return true;
    }
}

// A decimal of up to 19 digits read so (its digits d1 d2 ... dn stand for
// d1.d2...dn x 10^exponent); false when that does not decide its double.
bool ReadInExtendedPrecision(const Decimal& decimal, const UnitScale& scale, double& value) {
    if (decimal.digits.size() > 19) return false;
    ShortDecimal shortDecimal;
    shortDecimal.negative = decimal.negative;
    for (const char digit : decimal.digits)
        shortDecimal.mantissa = shortDecimal.mantissa * 10 + static_cast<std::uint64_t>(digit - '0');
    shortDecimal.exponent = decimal.exponent - static_cast<long>(decimal.digits.size()) + 1;
    return NearestInExtendedPrecision(shortDecimal, scale, value);
}

// M x 10^E x numerator / denominator, rounded once to the nearest double, for
// a number whose result is a normal double well inside the range; false,
// with nothing decided, for anything else.
bool NearestInRatio(const ShortDecimal& decimal, const UnitScale& scale, double& value) {
    const bool negative = decimal.negative;
    const std::uint64_t mantissa = decimal.mantissa;
    const long exponent = decimal.exponent;
    if (mantissa == 0) {
        value = negative ? -0.0 : 0.0;
        return true;
    }
    if (NearestInExtendedPrecision(decimal, scale, value)) return true;
    // The written number rounded once, times the unit's size rounded once: a
    // guess within a few doubles of the result, which is walked to at most
    // eight steps (anything else is left to the way of digit strings).
    double written = 0.0;
    if (exponent > 300 || exponent < -300 || !NearestDouble(decimal, 0, written)) return false;
    const double guess = written * scale.factor;
    if (!(std::fabs(guess) > 1e-290 && std::fabs(guess) < 1e290)) return false;
    // M x numerator x 10^E against point x denominator: the powers of five of
    // 10^E go to the side where they multiply, its powers of two are exponents.
    FixedNatural left(static_cast<Wide>(mantissa));
    left.Multiply(FixedNatural(scale.size.numerator));
    FixedNatural right(scale.size.denominator);
    if (exponent > 0) left.MultiplyByPowerOfFive(static_cast<int>(exponent));
    else right.MultiplyByPowerOfFive(static_cast<int>(-exponent));
    bool overflowed = left.Overflowed() || right.Overflowed();
    auto side = [&](const Binary& point) {
        FixedNatural scaled = right;
        scaled.Multiply(FixedNatural(static_cast<Wide>(point.mantissa)));
        return CompareScaled(left, static_cast<int>(exponent), scaled, point.exponent, overflowed);
    };
    double result = 0.0;
    if (!RoundExactly(guess, negative, side, result, 8) || overflowed) return false;
    value = result;
    return true;
}

bool ParseShortInRatio(const char* first, const char* last, const UnitScale& scale, double& value) {
    ShortDecimal decimal;
    return ToShortDecimal(first, last, decimal) && NearestInRatio(decimal, scale, value);
}

bool Convert(const Decimal& written, const UnitRatio& unitSize, double& value) {
    int shift = 0;
    if (unitSize.IsPowerOfTen(shift)) {
        Decimal shifted = written;
        if (!IsZero(shifted)) shifted.exponent += shift;
        return ToDouble(shifted, value);
    }
    double guess = 0.0;
    if (!Guess(written, unitSize, guess)) guess = std::numeric_limits<double>::max();
    return MultiplyDivideExactly(written, unitSize, guess, value);
}

// Whether `digits` (of a quotient) rounded to `count` digits surely falls
// outside the numbers that read back as a normal double, as the next four
// digits tell: rounding moves it by at least min(f, 1 - f) x 10^-count of
// itself, f being the digits that follow as a fraction, while those numbers
// lie within 2^-53 of it relatively (a quarter of that is kept as a margin,
// for the digits of the quotient not worked out). Most values are told so
// for every length short of 16 digits, without a reading.
bool RoundedTooFar(const char* digits, std::size_t size, std::size_t count) {
    // floor(10^(count + 4) x 2^-51)
    static const unsigned limits[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 44, 444, 4440};
    if (count > 15 || size <= count) return false;
    unsigned following = 0;
    for (std::size_t i = count; i < count + 4; ++i)
        following = following * 10 + (i < size ? static_cast<unsigned>(digits[i] - '0') : 0);
    return std::min(following, 9999 - following) > limits[count];
}

Decimal ToDecimal(const ShortDecimal& number) {
    Decimal decimal;
    decimal.negative = number.negative;
    char digits[24];
    decimal.digits.assign(digits, std::to_chars(digits, digits + sizeof digits, number.mantissa).ptr);
    decimal.exponent = number.exponent + static_cast<long>(decimal.digits.size()) - 1;
    Normalize(decimal);
    return decimal;
}

// Whether a decimal in the unit reads back as `value`. Reading in 64-bit
// precision decides most; of the rest, the guess rules out most cheaply, and
// the exact reading decides for those it leaves.
bool ReadsBackAs(const Decimal& candidate, const UnitScale& scale, double value) {
    double back = 0.0;
    if (ReadInExtendedPrecision(candidate, scale, back)) return back == value;
    double guess = 0.0;
    if (!Guess(candidate, scale.size, guess) || std::nextafter(guess, value) != value) return false;
    return MultiplyDivideExactly(candidate, scale.size, guess, back) && back == value;
}

// The shortest decimal that reads back as `value` in a unit of the size: of
// the exact quotient of value and unit rounded to 1, 2, 3, ... digits (a
// half up), the first that reads back.
//
// Where long double has 64 bits, the quotient's first 19 digits are worked
// out in it, within a few units of the last, which settles every rounding to
// 17 digits or fewer unless the quotient lies that near a half: then it is
// decided exactly. Where the platform has no such long double, and for
// values far out of a file's range, ShortestWritten works from the exact
// quotient's first 40 digits. The two give the same digits.
// 10^0 to 10^19.
constexpr std::uint64_t WholePowerOfTen(int exponent) { return exponent == 0 ? 1 : 10 * WholePowerOfTen(exponent - 1); }
constexpr std::uint64_t wholePowersOfTen[20] = {
    WholePowerOfTen(0),  WholePowerOfTen(1),  WholePowerOfTen(2),  WholePowerOfTen(3),  WholePowerOfTen(4),
    WholePowerOfTen(5),  WholePowerOfTen(6),  WholePowerOfTen(7),  WholePowerOfTen(8),  WholePowerOfTen(9),
    WholePowerOfTen(10), WholePowerOfTen(11), WholePowerOfTen(12), WholePowerOfTen(13), WholePowerOfTen(14),
    WholePowerOfTen(15), WholePowerOfTen(16), WholePowerOfTen(17), WholePowerOfTen(18), WholePowerOfTen(19)};

// -1, 0, 1: the exact quotient of `magnitude` and the unit, times
// 10^shift, below, at or beyond the whole number `point`: magnitude x
// denominator x 10^shift against point x numerator, in whole numbers.
int CompareQuotient(double magnitude, const UnitScale& scale, long shift, std::uint64_t point, bool& overflowed) {
    const Binary binary = Decompose(magnitude);
    FixedNatural left(Wide{binary.mantissa});
    left.Multiply(FixedNatural(scale.size.denominator));
    FixedNatural right(Wide{point});
    right.Multiply(FixedNatural(scale.size.numerator));
    if (shift > 0) left.MultiplyByPowerOfFive(static_cast<int>(shift));
    else right.MultiplyByPowerOfFive(static_cast<int>(-shift));
    overflowed = left.Overflowed() || right.Overflowed();
    return CompareScaled(left, binary.exponent + static_cast<int>(shift), right, 0, overflowed);
}

bool ShortestInExtendedPrecision(double value, const UnitScale& scale, Scientific& shortest) {
    if constexpr (std::numeric_limits<long double>::digits < 64) {
        return false;
    } else {
        const double magnitude = std::fabs(value);
        shortest.negative = std::signbit(value);
        if (magnitude == 0.0) {
            shortest.digits[0] = '0';
            shortest.count = 1;
            shortest.exponent = 0;
            return true;
        }
        if (!(magnitude > 1e-250 && magnitude < 1e250)) return false;
        const long double quotient = static_cast<long double>(magnitude) * scale.inverse;
        // 19 digits M = quotient x 10^shift, 10^18 <= M < 10^19, of the
        // first digit's exponent 18 - shift.
        // log10(2) x the binary exponent: the decimal one, or one below it.
        // (The quotient is a normal double: its binary exponent is that of its
        // 53-bit mantissa plus 52.)
        long shift = 18 - ((Decompose(static_cast<double>(quotient)).exponent + 52L) * 30103L) / 100000L;
        long double scaled = 0.0L;
        for (int attempt = 0;; ++attempt) {
            if (attempt == 3 || shift > 54 || shift < -54) return false;
            // 10^|shift| as one or two exact powers.
            const long size = shift < 0 ? -shift : shift;
            const long double power = exactPowersOfTen.values[std::min(size, 27L)];
            const long double rest = exactPowersOfTen.values[size - std::min(size, 27L)];
            scaled = shift < 0 ? quotient / power / rest : quotient * power * rest;
            if (scaled < 1e18L) ++shift;
            else if (scaled >= 1e19L) --shift;
            else break;
        }
        // At most six roundings of 2^-64 relatively and the last to a whole
        // number: within 3.8 of the exact M. A rounding nearer a half than that is
        // decided exactly.
        // M rounded, a half up: below 2^63 long double keeps halves, so the
        // half added is exact; from 2^63 on M is whole. (llroundl would not
        // do: M may pass the largest long long.)
        const std::uint64_t leading = scaled >= 0x1p63L ? static_cast<std::uint64_t>(scaled)
                                                        : static_cast<std::uint64_t>(scaled + 0.5L);
        const std::uint64_t tolerance = 4;
        char digits[24];
        const char* end = std::to_chars(digits, digits + sizeof digits, leading).ptr;
        if (end - digits != 19) return false;
        const bool isNormal = magnitude >= std::numeric_limits<double>::min();
        for (std::size_t count = 1; count <= 17; ++count) {
            if (isNormal && RoundedTooFar(digits, 19, count)) continue;
            const std::uint64_t unit = wholePowersOfTen[19 - count];
            const std::uint64_t rest = leading % unit;
            const std::uint64_t half = unit / 2;
            bool up = rest > half;
            if ((up ? rest - half : half - rest) <= tolerance) {
                bool overflowed = false;
                up = CompareQuotient(magnitude, scale, shift, leading - rest + half, overflowed) >= 0;
                if (overflowed) return false;
            }
            // M rounded to `count` digits, as a whole number times a power of ten.
            ShortDecimal candidate;
            candidate.negative = value < 0;
            candidate.mantissa = leading / unit + (up ? 1 : 0);
            candidate.exponent = static_cast<long>(19 - count) - shift;
            double back = 0.0;
            if (NearestInRatio(candidate, scale, back) ? back != value : !ReadsBackAs(ToDecimal(candidate), scale, value))
                continue;
            shortest.count = std::to_chars(shortest.digits, shortest.digits + sizeof shortest.digits, candidate.mantissa).ptr -
                             shortest.digits;
            shortest.exponent = candidate.exponent + shortest.count - 1;
            while (shortest.count > 1 && shortest.digits[shortest.count - 1] == '0') --shortest.count;
            return true;
        }
        return false;
    }
}

Decimal ShortestWritten(double value, const UnitScale& scale) {
    if (scale.isPowerOfTen) {
        Decimal decimal = ShortestDecimal(value);
        if (!IsZero(decimal)) decimal.exponent -= scale.powerOfTen;
        return decimal;
    }
    const UnitRatio& unitSize = scale.size;
    const Decimal exact = Divide(Multiply(ShortestDecimal(value, static_cast<int>(divisionDigits)), unitSize.denominator),
                                 unitSize.numerator, divisionDigits);
    const bool isNormal = std::fabs(value) >= std::numeric_limits<double>::min();
    for (std::size_t count = 1; count < divisionDigits; ++count) {
        if (isNormal && RoundedTooFar(exact.digits.data(), exact.digits.size(), count)) continue;
        const Decimal candidate = Rounded(exact, count, Halfway::Up);
        if (ReadsBackAs(candidate, scale, value)) return candidate;
    }
    return exact;
}

// --- Texts of a decimal ---

// The digits of a decimal and the exponent of the first, wherever they are
// kept: a number is written for every value of a file, and its text is made
// from the digits where they stand, into a string whose room is used again.
struct DigitsView {
    bool negative;
    const char* digits;
    long count;
    long exponent;
};

DigitsView ViewOf(const Decimal& decimal) {
    return DigitsView{decimal.negative, decimal.digits.data(), static_cast<long>(decimal.digits.size()),
                      decimal.exponent};
}

DigitsView ViewOf(const Scientific& scientific) {
    return DigitsView{scientific.negative, scientific.digits, scientific.count, scientific.exponent};
}

// Plain decimals: "100.0", "12.5", "0.25". `compact` leaves out a zero that
// only marks the place of the point: "100.", ".25".
void AppendPlain(std::string& text, const DigitsView& decimal, bool compact) {
    const char* digits = decimal.digits;
    const long count = decimal.count;
    const long e = decimal.exponent;
    if (decimal.negative) text += '-';
    if (e >= count - 1) {
        text.append(digits, static_cast<std::size_t>(count));
        text.append(static_cast<std::size_t>(e - (count - 1)), '0');
        text += compact ? "." : ".0";
    } else if (e >= 0) {
        text.append(digits, static_cast<std::size_t>(e) + 1);
        text += '.';
        text.append(digits + e + 1, static_cast<std::size_t>(count - e - 1));
    } else {
        text += compact ? "." : "0.";
        text.append(static_cast<std::size_t>(-e - 1), '0');
        text.append(digits, static_cast<std::size_t>(count));
    }
}

// Exponent form with the point after `before` digits (0: in front of them;
// all of them: no point): "2.5e+12" when `padded` (a sign and at least two
// exponent digits), else "2.5e12", "25e11", ".25e13".
void AppendExponential(std::string& text, const DigitsView& decimal, long before, bool padded) {
    if (decimal.negative) text += '-';
    text.append(decimal.digits, static_cast<std::size_t>(before));
    if (before < decimal.count) {
        text += '.';
        text.append(decimal.digits + before, static_cast<std::size_t>(decimal.count - before));
    }
    const long exponent = decimal.exponent - (before - 1);
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof digits, std::labs(exponent)).ptr;
    text += 'e';
    if (exponent < 0) text += '-';
    else if (padded) text += '+';
    if (padded && end - digits < 2) text += '0';
    text.append(digits, static_cast<std::size_t>(end - digits));
}

// Plain decimals only for exponents that keep them short; far beyond a
// column either way.
bool HasPlainForm(long exponent) { return std::labs(exponent) < 40; }

// The lengths of the two texts above, worked out without making them: a
// value narrowed into its column is measured in several forms and made in
// one.
std::size_t DigitCount(long number) {
    std::size_t count = 1;
    for (number = std::labs(number); number >= 10; number /= 10) ++count;
    return count;
}

std::size_t PlainLength(const DigitsView& decimal, bool compact) {
    const long count = decimal.count;
    const long e = decimal.exponent;
    const long pointAndZero = compact ? 1 : 2;
    const long length = e >= count - 1 ? e + 1 + pointAndZero : e >= 0 ? count + 1 : pointAndZero - e - 1 + count;
    return static_cast<std::size_t>(length) + (decimal.negative ? 1 : 0);
}

std::size_t ExponentialLength(const DigitsView& decimal, long before, bool padded) {
    const long exponent = decimal.exponent - (before - 1);
    const std::size_t exponentDigits = std::max<std::size_t>(DigitCount(exponent), padded ? 2 : 1);
    return static_cast<std::size_t>((decimal.negative ? 1 : 0) + decimal.count + (before < decimal.count ? 1 : 0) + 1 +
                                    (exponent < 0 || padded ? 1 : 0)) +
           exponentDigits;
}

// The place of the point that gives the shortest exponent form (moving the
// point can save an exponent digit: "12.3e9" rather than "1.23e10"); the
// first of equally short ones, from a point after the first digit on.
long ShortestExponentialPoint(const DigitsView& decimal) {
    long best = 1;
    for (long before = 0; before <= decimal.count; ++before)
        if (ExponentialLength(decimal, before, false) < ExponentialLength(decimal, best, false)) best = before;
    return best;
}

// The text of a decimal in a column of `width`, in place of `text`: the usual
// forms first; in a column too narrow for them, shorter texts of the same
// number, so that the column widens only when none fits.
void InColumn(const DigitsView& decimal, std::size_t width, std::string& text) {
    text.clear();
    const bool hasPlain = HasPlainForm(decimal.exponent);
    const std::size_t none = std::numeric_limits<std::size_t>::max();
    const std::size_t plain = hasPlain ? PlainLength(decimal, false) : none;
    if (plain <= width) return AppendPlain(text, decimal, false);
    const std::size_t exponential = ExponentialLength(decimal, 1, true);
    // Every form holds the digits and the sign at least: when they alone are
    // wider than the column (17 digits of a value in feet), none fits.
    if (static_cast<std::size_t>(decimal.count + (decimal.negative ? 1 : 0)) <= width) {
        if (exponential <= width) return AppendExponential(text, decimal, 1, true);
        const std::size_t compactPlain = hasPlain ? PlainLength(decimal, true) : none;
        if (compactPlain <= width) return AppendPlain(text, decimal, true);
        if (ExponentialLength(decimal, 1, false) <= width) return AppendExponential(text, decimal, 1, false);
        const bool isWhole = decimal.exponent >= decimal.count - 1;
        if (hasPlain && isWhole && compactPlain - 1 <= width) {
            AppendPlain(text, decimal, true);
            text.pop_back();  // "123456789": the point too left out
            return;
        }
        const long before = ShortestExponentialPoint(decimal);
        if (ExponentialLength(decimal, before, false) <= width) return AppendExponential(text, decimal, before, false);
    }
    if (plain <= exponential) return AppendPlain(text, decimal, false);
    AppendExponential(text, decimal, 1, true);
}

}  // namespace

std::string ShortestDecimalText(double value, DecimalForm form) {
    if (!std::isfinite(value)) return FormatReal(value, 0);
    const Scientific shortest = ToScientific(value);
    const DigitsView decimal = ViewOf(shortest);
    if (form == DecimalForm::General)
        form = decimal.exponent < -4 || decimal.exponent >= 6 ? DecimalForm::Scientific : DecimalForm::Plain;
    std::string text;
    if (form == DecimalForm::Scientific) {
        AppendExponential(text, decimal, 1, true);
    } else if (decimal.exponent >= decimal.count - 1) {
        // A whole number without a point, as fixed writes it.
        AppendPlain(text, decimal, true);
        text.pop_back();
    } else {
        AppendPlain(text, decimal, false);
    }
    return text;
}

std::string FormatReal(double value, int fieldWidth, const UnitRatio& unitSize) {
    return FormatReal(value, fieldWidth, UnitScale(unitSize));
}

std::string FormatReal(double value, int fieldWidth, const UnitScale& scale) {
    std::string text;
    FormatReal(value, fieldWidth, scale, text);
    return text;
}

void FormatReal(double value, int fieldWidth, const UnitScale& scale, std::string& text) {
    if (std::isnan(value)) {
        text = std::signbit(value) ? "-NaN" : "NaN";
        return;
    }
    if (std::isinf(value)) {
        text = value > 0 ? "Inf" : "-Inf";
        return;
    }
    const std::size_t width = fieldWidth > 0 ? static_cast<std::size_t>(fieldWidth) : 0;
    Scientific shortest;
    if (scale.isPowerOfTen) {
        // The usual case, a plain text that fits, made from the shortest
        // digits shifted by the power of ten; anything else the general way.
        shortest = ToScientific(value);
        const bool isZero = shortest.count == 1 && shortest.digits[0] == '0';
        if (!isZero) shortest.exponent -= scale.powerOfTen;
        const DigitsView digits = ViewOf(shortest);
        if (HasPlainForm(digits.exponent) && PlainLength(digits, false) <= width) {
            text.clear();
            return AppendPlain(text, digits, false);
        }
    } else if (ShortestInExtendedPrecision(value, scale, shortest)) {
        return InColumn(ViewOf(shortest), width, text);
    }
    InColumn(ViewOf(ShortestWritten(value, scale)), width, text);
}

bool ParseReal(const char* first, const char* last, double& value, const UnitScale& scale) {
    if (scale.isPowerOfTen ? ParseShortDecimal(first, last, scale.powerOfTen, value)
                           : ParseShortInRatio(first, last, scale, value))
        return true;
    Decimal decimal;
    if (ToDecimal(first, last, decimal)) return Convert(decimal, scale.size, value);
    // NaN and infinities have no unit.
    double special = 0.0;
    if (first != last && *first == '+') ++first;
    const std::from_chars_result parsed = FromChars(first, last, special);
    if (parsed.ec != std::errc() || parsed.ptr != last || std::isfinite(special)) return false;
    value = special;
    return true;
}

bool ParseReal(const std::string& text, double& value, const UnitRatio& unitSize) {
    return ParseReal(text.data(), text.data() + text.size(), value, UnitScale(unitSize));
}

}  // namespace TerrixExchange
