#include <TerrixExchange/archive/NumberText.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace TerrixExchange {

using Units::Runtime::UnitRatio;

namespace {

// A decimal number: sign, significant digits d1 d2 ... dn and the exponent e
// of d1.d2...dn x 10^e. Zero has the digits "0".
struct Decimal {
    bool negative = false;
    std::string digits;
    long exponent = 0;
};

// Significant digits kept where a conversion by an odd ratio divides: far
// more than the 17 a double needs, so that rounding the result to a double
// is rounding the exact quotient.
const std::size_t divisionDigits = 40;

void Normalize(Decimal& decimal) {
    std::size_t leading = decimal.digits.find_first_not_of('0');
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

Decimal ShortestDecimal(double value, int precision = -1) {
    char buffer[128];
    const std::to_chars_result result =
        precision < 0 ? std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific)
                      : std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, precision);
    const std::string text(buffer, result.ptr);
    Decimal decimal;
    std::size_t i = 0;
    if (text[i] == '-') {
        decimal.negative = true;
        ++i;
    }
    for (; i < text.size() && text[i] != 'e'; ++i)
        if (text[i] != '.') decimal.digits += text[i];
    decimal.exponent = std::atol(text.c_str() + i + 1);
    Normalize(decimal);
    return decimal;
}

// The written token as a decimal; false when it is no finite number.
bool ToDecimal(const std::string& text, Decimal& decimal) {
    decimal = Decimal{};
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) decimal.negative = text[i++] == '-';
    long pointPosition = -1;
    long digitCount = 0;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            decimal.digits += c;
            ++digitCount;
        } else if (c == '.' && pointPosition < 0) {
            pointPosition = digitCount;
        } else {
            break;
        }
    }
    if (digitCount == 0) return false;
    long exponent = 0;
    if (i < text.size()) {
        const char c = text[i];
        if (c != 'e' && c != 'E' && c != 'd' && c != 'D') return false;
        const char* first = text.c_str() + i + 1;
        if (*first == '+') ++first;
        const char* last = text.c_str() + text.size();
        if (first == last) return false;
        const std::from_chars_result parsed = std::from_chars(first, last, exponent);
        if (parsed.ec != std::errc() || parsed.ptr != last) return false;
        if (exponent > 100000 || exponent < -100000) return false;
    }
    // d1 d2 ... with the point after `pointPosition` digits: the exponent of
    // d1.d2... is pointPosition - 1.
    decimal.exponent = (pointPosition < 0 ? digitCount : pointPosition) - 1 + exponent;
    Normalize(decimal);
    return true;
}

bool ToDouble(const Decimal& decimal, double& value) {
    const std::string text = (decimal.negative ? "-" : "") + decimal.digits.substr(0, 1) + "." +
                             decimal.digits.substr(1) + "e" + std::to_string(decimal.exponent);
    double result = 0.0;
    const std::from_chars_result parsed = std::from_chars(text.data(), text.data() + text.size(), result);
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

// decimal x numerator / denominator, to `divisionDigits` significant digits;
// a last digit 1 stands for any remainder, so that the digits never fall on
// a rounding boundary that the exact quotient does not.
Decimal MultiplyDivide(const Decimal& decimal, __int128 numerator, __int128 denominator) {
    // Multiply the digit string by the numerator.
    std::string product;
    __int128 carry = 0;
    for (std::size_t i = decimal.digits.size(); i-- > 0;) {
        const __int128 step = static_cast<__int128>(decimal.digits[i] - '0') * numerator + carry;
        product.insert(product.begin(), static_cast<char>('0' + static_cast<int>(step % 10)));
        carry = step / 10;
    }
    long exponent = decimal.exponent;
    while (carry > 0) {
        product.insert(product.begin(), static_cast<char>('0' + static_cast<int>(carry % 10)));
        carry /= 10;
        ++exponent;
    }
    // Long division by the denominator, going on past the product's digits.
    Decimal result;
    result.negative = decimal.negative;
    __int128 remainder = 0;
    bool started = false;
    long position = 0;
    for (std::size_t i = 0; result.digits.size() < divisionDigits; ++i, ++position) {
        if (i >= product.size() && remainder == 0) break;
        remainder = remainder * 10 + (i < product.size() ? product[i] - '0' : 0);
        const int digit = static_cast<int>(remainder / denominator);
        remainder %= denominator;
        if (digit != 0) started = true;
        if (started) {
            if (result.digits.empty()) result.exponent = exponent - position;
            result.digits += static_cast<char>('0' + digit);
        }
    }
    if (remainder != 0) result.digits += '1';
    if (result.digits.empty()) result.digits = "0";
    // The product's first digit stands for 10^exponent.
    Normalize(result);
    return result;
}

bool Convert(const Decimal& written, const UnitRatio& unitSize, double& value) {
    int shift = 0;
    if (unitSize.IsPowerOfTen(shift)) {
        Decimal shifted = written;
        if (shifted.digits != "0") shifted.exponent += shift;
        return ToDouble(shifted, value);
    }
    return ToDouble(MultiplyDivide(written, unitSize.numerator, unitSize.denominator), value);
}

// The decimal rounded half up to `count` significant digits.
Decimal Rounded(const Decimal& decimal, std::size_t count) {
    if (decimal.digits.size() <= count) return decimal;
    Decimal result = decimal;
    result.digits.erase(count);
    if (decimal.digits[count] >= '5') {
        std::size_t i = count;
        while (i > 0) {
            --i;
            if (result.digits[i] == '9') {
                result.digits[i] = '0';
            } else {
                ++result.digits[i];
                break;
            }
            if (i == 0) {
                result.digits.insert(result.digits.begin(), '1');
                ++result.exponent;
            }
        }
    }
    Normalize(result);
    return result;
}

// The shortest decimal that reads back as `value` in a unit of the size.
Decimal ShortestWritten(double value, const UnitRatio& unitSize) {
    int shift = 0;
    if (unitSize.IsPowerOfTen(shift)) {
        Decimal decimal = ShortestDecimal(value);
        if (decimal.digits != "0") decimal.exponent -= shift;
        return decimal;
    }
    const Decimal exact = MultiplyDivide(ShortestDecimal(value, static_cast<int>(divisionDigits)), unitSize.denominator,
                                         unitSize.numerator);
    for (std::size_t count = 1; count < divisionDigits; ++count) {
        const Decimal candidate = Rounded(exact, count);
        double back = 0.0;
        if (Convert(candidate, unitSize, back) && back == value) return candidate;
    }
    return exact;
}

std::string Fixed(const Decimal& decimal) {
    const long count = static_cast<long>(decimal.digits.size());
    std::string text = decimal.negative ? "-" : "";
    if (decimal.exponent >= count - 1) {
        text += decimal.digits + std::string(static_cast<std::size_t>(decimal.exponent - (count - 1)), '0') + ".0";
    } else if (decimal.exponent >= 0) {
        text += decimal.digits.substr(0, static_cast<std::size_t>(decimal.exponent) + 1) + "." +
                decimal.digits.substr(static_cast<std::size_t>(decimal.exponent) + 1);
    } else {
        text += "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
    }
    return text;
}

std::string Scientific(const Decimal& decimal) {
    std::string text = decimal.negative ? "-" : "";
    text += decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
    const std::string digits = std::to_string(std::labs(decimal.exponent));
    text += std::string("e") + (decimal.exponent < 0 ? "-" : "+") + (digits.size() < 2 ? "0" : "") + digits;
    return text;
}

}  // namespace

std::string FormatReal(double value, int fieldWidth, const UnitRatio& unitSize) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Inf" : "-Inf";
    const std::size_t width = fieldWidth > 0 ? static_cast<std::size_t>(fieldWidth) : 0;
    const Decimal decimal = ShortestWritten(value, unitSize);
    // Very large and very small exponents are never written in plain decimals.
    const std::string fixed = std::labs(decimal.exponent) < 40 ? Fixed(decimal) : std::string(400, ' ');
    if (fixed.size() <= width) return fixed;
    const std::string scientific = Scientific(decimal);
    if (scientific.size() <= width) return scientific;
    return scientific.size() < fixed.size() ? scientific : fixed;
}

bool ParseReal(const std::string& text, double& value, const UnitRatio& unitSize) {
    Decimal decimal;
    if (ToDecimal(text, decimal)) return Convert(decimal, unitSize, value);
    // NaN and infinities have no unit.
    double special = 0.0;
    const char* first = text.c_str();
    if (*first == '+') ++first;
    const char* last = text.c_str() + text.size();
    const std::from_chars_result parsed = std::from_chars(first, last, special);
    if (parsed.ec != std::errc() || parsed.ptr != last || std::isfinite(special)) return false;
    value = special;
    return true;
}

}  // namespace TerrixExchange
