#include <TerrixExchange/archive/ExactDecimal.h>

#include <algorithm>
#include <cstring>
#include <system_error>
#include <vector>

namespace TerrixExchange { namespace ExactDecimal {

using Wide = Unsigned128;

namespace {

// A whole number of any size, little-endian in 32-bit limbs: just what the
// exact choice between two doubles needs.
class Natural {
public:
    explicit Natural(Wide value) {
        for (; value != 0; value >>= 32) limbs_.push_back(static_cast<std::uint32_t>(value.Low()));
    }

    void Multiply(std::uint64_t factor) {
        Wide carry = 0;
        for (std::uint32_t& limb : limbs_) {
            const Wide step = static_cast<Wide>(limb) * factor + carry;
            limb = static_cast<std::uint32_t>(step.Low());
            carry = step >> 32;
        }
        for (; carry != 0; carry >>= 32) limbs_.push_back(static_cast<std::uint32_t>(carry.Low()));
    }

    void ShiftLeft(unsigned bits) {
        for (; bits >= 32; bits -= 32) limbs_.insert(limbs_.begin(), 0u);
        if (bits > 0) Multiply(std::uint64_t{1} << bits);
    }

    // The decimal digits, most significant first ("0" for zero).
    std::string Digits() const {
        std::vector<std::uint32_t> rest = limbs_;
        std::string reversed;
        while (!rest.empty()) {
            std::uint64_t remainder = 0;
            for (std::size_t i = rest.size(); i-- > 0;) {
                const std::uint64_t current = (remainder << 32) | rest[i];
                rest[i] = static_cast<std::uint32_t>(current / 1000000000u);
                remainder = current % 1000000000u;
            }
            while (!rest.empty() && rest.back() == 0) rest.pop_back();
            for (int k = 0; k < 9 && (remainder != 0 || !rest.empty()); ++k, remainder /= 10)
                reversed += static_cast<char>('0' + remainder % 10);
        }
        return reversed.empty() ? "0" : std::string(reversed.rbegin(), reversed.rend());
    }

private:
    std::vector<std::uint32_t> limbs_;
};

// 10^0 to 10^22: each an exact double.
struct ExactPowers {
    double values[23];
};
constexpr ExactPowers ExactPowersOfTen() {
    ExactPowers powers{};
    powers.values[0] = 1.0;
    for (int i = 1; i < 23; ++i) powers.values[i] = powers.values[i - 1] * 10.0;
    return powers;
}
constexpr ExactPowers powersOfTen = ExactPowersOfTen();

// A first guess at a positive decimal, from its leading 19 digits scaled by
// exact powers of ten: within a few dozen doubles of the nearest one, for
// the exact rounding to walk from.
double Guess(const Decimal& decimal) {
    const std::size_t count = std::min<std::size_t>(decimal.digits.size(), 19);
    std::uint64_t mantissa = 0;
    for (std::size_t i = 0; i < count; ++i) mantissa = mantissa * 10 + static_cast<std::uint64_t>(decimal.digits[i] - '0');
    long power = decimal.exponent - static_cast<long>(count - 1);
    double guess = static_cast<double>(mantissa);
    for (; power >= 22; power -= 22) guess *= powersOfTen.values[22];
    for (; power <= -22; power += 22) guess /= powersOfTen.values[22];
    guess = power >= 0 ? guess * powersOfTen.values[power] : guess / powersOfTen.values[-power];
    return std::min(guess, std::numeric_limits<double>::max());
}

// A positive decimal plus (1) or minus (-1) one unit of its digit of 10^unit,
// the place of its last digit or one right of it.
Decimal Step(const Decimal& decimal, long unit, int direction) {
    Decimal result = decimal;
    result.digits.resize(static_cast<std::size_t>(decimal.exponent - unit + 1), '0');
    std::size_t i = result.digits.size();
    while (i-- > 0) {
        char& digit = result.digits[i];
        if (direction > 0 ? digit != '9' : digit != '0') {
            digit = static_cast<char>(digit + direction);
            break;
        }
        digit = direction > 0 ? '0' : '9';
    }
    if (i == static_cast<std::size_t>(-1)) {  // 99...9 + 1
        result.digits.insert(result.digits.begin(), '1');
        ++result.exponent;
    }
    Normalize(result);
    return result;
}

// The shortest decimal that reads back as a positive finite double: of the
// fewest digits, the nearest to it (halfway: the even one), as to_chars
// chooses. A decimal reads back when it lies between the points halfway to
// the two neighbours, or on one of them when the double is even.
Decimal Shortest(double magnitude) {
    const Binary point = Decompose(magnitude);
    const double largest = std::numeric_limits<double>::max();
    const Decimal exact = Times(point, 1);
    const Decimal low = Times(Midpoint(Decompose(std::nextafter(magnitude, 0.0)), point), 1);
    const Decimal high =
        Times(Midpoint(point, magnitude == largest ? pastLargest : Decompose(std::nextafter(magnitude, largest))), 1);
    const bool boundsReadBack = IsEven(magnitude);
    auto readsBack = [&](const Decimal& candidate) {
        const int fromLow = CompareMagnitudes(candidate, low);
        const int fromHigh = CompareMagnitudes(candidate, high);
        return (fromLow > 0 || (fromLow == 0 && boundsReadBack)) && (fromHigh < 0 || (fromHigh == 0 && boundsReadBack));
    };
    for (std::size_t count = 1;; ++count) {
        const Decimal nearest = Rounded(exact, count, Halfway::ToEven);
        if (readsBack(nearest)) return nearest;
        // Near a power of two the points halfway lie unevenly about the
        // double: the neighbour on the other side may read back.
        const long unit = exact.exponent - static_cast<long>(count) + 1;
        const Decimal other = Step(nearest, unit, CompareMagnitudes(nearest, exact) < 0 ? 1 : -1);
        if (readsBack(other)) return other;
    }
}

bool EqualsIgnoringCase(const char* first, const char* last, const char* word) {
    for (; *word != '\0'; ++first, ++word)
        if (first == last || (*first | 0x20) != *word) return false;
    return true;
}

// "inf", "infinity", "nan" or "nan(letters, digits, _)" in any case: where
// it ends, or nullptr.
const char* ReadSpecial(const char* first, const char* last, double& value) {
    if (EqualsIgnoringCase(first, last, "infinity")) {
        value = std::numeric_limits<double>::infinity();
        return first + 8;
    }
    if (EqualsIgnoringCase(first, last, "inf")) {
        value = std::numeric_limits<double>::infinity();
        return first + 3;
    }
    if (!EqualsIgnoringCase(first, last, "nan")) return nullptr;
    value = std::numeric_limits<double>::quiet_NaN();
    const char* end = first + 3;
    if (end == last || *end != '(') return end;
    for (const char* at = end + 1; at != last; ++at) {
        if (*at == ')') return at + 1;
        const bool isWordCharacter = (*at >= '0' && *at <= '9') || ((*at | 0x20) >= 'a' && (*at | 0x20) <= 'z') || *at == '_';
        if (!isWordCharacter) break;
    }
    return end;
}

}  // namespace

bool IsZero(const Decimal& decimal) { return decimal.digits == "0"; }

void Normalize(Decimal& decimal) {
    const std::size_t leading = decimal.digits.find_first_not_of('0');
    if (leading == std::string::npos) {
        decimal.digits = "0";
        decimal.exponent = 0;
        return;
    }
    decimal.digits.erase(0, leading);
    decimal.exponent -= static_cast<long>(leading);
    const std::size_t last = decimal.digits.find_last_not_of('0');
    decimal.digits.erase(last + 1);
}

int CompareMagnitudes(const Decimal& a, const Decimal& b) {
    if (IsZero(a) || IsZero(b)) return IsZero(a) == IsZero(b) ? 0 : IsZero(a) ? -1 : 1;
    if (a.exponent != b.exponent) return a.exponent < b.exponent ? -1 : 1;
    // Without trailing zeros, a text that is a prefix of the other is the smaller number.
    const int order = a.digits.compare(b.digits);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

Decimal Rounded(const Decimal& decimal, std::size_t count, Halfway halfway) {
    if (decimal.digits.size() <= count) return decimal;
    Decimal result = decimal;
    result.digits.erase(count);
    // Normalized, the digits end in no zero: a 5 followed by none is halfway.
    const char first = decimal.digits[count];
    const bool isHalfway = first == '5' && decimal.digits.size() == count + 1;
    const bool up = first > '5' || (first == '5' && (!isHalfway || halfway == Halfway::Up ||
                                                     (result.digits.back() - '0') % 2 == 1));
    if (up) result = Step(result, decimal.exponent - static_cast<long>(count) + 1, 1);
    Normalize(result);
    return result;
}

const char* ReadDecimal(const char* first, const char* last, bool fortranExponent, Decimal& decimal) {
    decimal.digits.clear();
    long pointPosition = -1;
    long digitCount = 0;
    const char* at = first;
    for (; at != last; ++at) {
        if (*at >= '0' && *at <= '9') {
            decimal.digits += *at;
            ++digitCount;
        } else if (*at == '.' && pointPosition < 0) {
            pointPosition = digitCount;
        } else {
            break;
        }
    }
    if (digitCount == 0) return nullptr;
    long exponent = 0;
    const bool isMark = at != last && (*at == 'e' || *at == 'E' || (fortranExponent && (*at == 'd' || *at == 'D')));
    if (isMark) {
        const char* digits = at + 1;
        const bool negative = digits != last && *digits == '-';
        if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
        if (digits != last && *digits >= '0' && *digits <= '9') {
            for (; digits != last && *digits >= '0' && *digits <= '9'; ++digits)
                exponent = std::min(exponent * 10 + (*digits - '0'), 1000000L);
            if (negative) exponent = -exponent;
            at = digits;
        }
    }
    // d1 d2 ... with the point after `pointPosition` digits: the exponent of
    // d1.d2... is pointPosition - 1.
    decimal.exponent = (pointPosition < 0 ? digitCount : pointPosition) - 1 + exponent;
    Normalize(decimal);
    return at;
}

Binary Decompose(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const int biased = static_cast<int>(bits >> 52);
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
    if (biased == 0) return Binary{fraction, -1074};
    return Binary{fraction | (std::uint64_t{1} << 52), biased - 1075};
}

bool IsEven(double value) { return (Decompose(value).mantissa & 1) == 0; }

Binary Midpoint(const Binary& low, const Binary& high) {
    return Binary{low.mantissa + (high.mantissa << (high.exponent - low.exponent)), low.exponent - 1};
}

Decimal Times(const Binary& point, Wide factor) {
    Natural number(factor);
    number.Multiply(point.mantissa);
    long shift = 0;
    if (point.exponent >= 0) {
        number.ShiftLeft(static_cast<unsigned>(point.exponent));
    } else {
        // 2^-k = 5^k / 10^k
        for (int k = -point.exponent; k > 0; k -= 27) {
            std::uint64_t power = 1;
            for (int j = 0; j < std::min(k, 27); ++j) power *= 5;
            number.Multiply(power);
        }
        shift = point.exponent;
    }
    Decimal decimal;
    decimal.digits = number.Digits();
    decimal.exponent = static_cast<long>(decimal.digits.size()) - 1 + shift;
    Normalize(decimal);
    return decimal;
}

Scientific ExactScientific(double value, int precision) {
    const double magnitude = std::fabs(value);
    Decimal decimal;
    decimal.digits = "0";
    if (magnitude != 0.0)
        decimal = precision < 0 ? Shortest(magnitude)
                                : Rounded(Times(Decompose(magnitude), 1), static_cast<std::size_t>(precision) + 1,
                                          Halfway::ToEven);
    Scientific scientific;
    scientific.negative = std::signbit(value);
    scientific.count = precision < 0 ? static_cast<long>(decimal.digits.size()) : precision + 1;
    for (long i = 0; i < scientific.count; ++i)
        scientific.digits[i] = static_cast<std::size_t>(i) < decimal.digits.size() ? decimal.digits[i] : '0';
    scientific.exponent = decimal.exponent;
    return scientific;
}

std::from_chars_result ExactFromChars(const char* first, const char* last, double& value) {
    const bool negative = first != last && *first == '-';
    const char* at = negative ? first + 1 : first;
    double special = 0.0;
    if (const char* end = ReadSpecial(at, last, special)) {
        value = negative ? -special : special;
        return {end, std::errc()};
    }
    Decimal decimal;
    const char* end = ReadDecimal(at, last, false, decimal);
    if (end == nullptr) return {first, std::errc::invalid_argument};
    double result = 0.0;
    if (!IsZero(decimal)) {
        // Beyond these the value is past the largest double or below half the
        // smallest one, whatever its digits.
        if (decimal.exponent > 309 || decimal.exponent < -325) return {end, std::errc::result_out_of_range};
        auto side = [&](const Binary& point) { return CompareMagnitudes(decimal, Times(point, 1)); };
        if (!RoundExactly(Guess(decimal), false, side, result) || result == 0.0)
            return {end, std::errc::result_out_of_range};
    }
    value = negative ? -result : result;
    return {end, std::errc()};
}

Scientific ToScientific(double value, int precision) {
#if TERRIX_STANDARD_TO_CHARS
    char text[128];
    const char* end =
        (precision < 0 ? std::to_chars(text, text + sizeof text, value, std::chars_format::scientific)
                       : std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, precision))
            .ptr;
    Scientific scientific;
    const char* at = text;
    if (*at == '-') {
        scientific.negative = true;
        ++at;
    }
    for (; at != end && *at != 'e'; ++at)
        if (*at != '.') scientific.digits[scientific.count++] = *at;
    std::from_chars(at + 1 + (at[1] == '+'), end, scientific.exponent);
    return scientific;
#else
    return ExactScientific(value, precision);
#endif
}

std::from_chars_result FromChars(const char* first, const char* last, double& value) {
#if TERRIX_STANDARD_FROM_CHARS
    return std::from_chars(first, last, value);
#else
    return ExactFromChars(first, last, value);
#endif
}

bool HasStandardToChars() { return TERRIX_STANDARD_TO_CHARS != 0; }
bool HasStandardFromChars() { return TERRIX_STANDARD_FROM_CHARS != 0; }

}}  // namespace TerrixExchange::ExactDecimal
