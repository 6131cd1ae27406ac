#include <TerrixExchange/archive/NumberText.h>

#include <charconv>
#include <cmath>
#include <system_error>

namespace TerrixExchange {

namespace {

std::string ToChars(double value, std::chars_format format) {
    char buffer[400];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value, format);
    return std::string(buffer, result.ptr);
}

}  // namespace

std::string FormatReal(double value, int fieldWidth) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Inf" : "-Inf";
    const std::size_t width = fieldWidth > 0 ? static_cast<std::size_t>(fieldWidth) : 0;
    std::string fixed = ToChars(value, std::chars_format::fixed);
    if (fixed.find('.') == std::string::npos) fixed += ".0";
    if (fixed.size() <= width) return fixed;
    const std::string scientific = ToChars(value, std::chars_format::scientific);
    if (scientific.size() <= width) return scientific;
    return scientific.size() < fixed.size() ? scientific : fixed;
}

bool ParseReal(const std::string& text, double& value) {
    std::string normal;
    normal.reserve(text.size());
    for (char c : text) {
        if (c == '+' && (normal.empty() || normal.back() == 'e')) continue;
        normal += (c == 'd' || c == 'D' || c == 'E') ? 'e' : c;
    }
    if (normal.empty()) return false;
    const char* first = normal.data();
    const char* last = normal.data() + normal.size();
    double result = 0.0;
    const std::from_chars_result parsed = std::from_chars(first, last, result);
    if (parsed.ec != std::errc() || parsed.ptr != last) return false;
    value = result;
    return true;
}

}  // namespace TerrixExchange
