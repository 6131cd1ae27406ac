#include "Json.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace TerrixTool {

namespace {

// The shortest digits that read back as the same double (std::to_chars
// promises them; nlohmann's own writer does not), in plain decimals unless
// that takes more than 21 characters (400000 rather than 4e+05).
std::string ShortestText(double value) {
    char buffer[400];
    const auto fixed = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    if (fixed.ec == std::errc() && fixed.ptr - buffer <= 21) return std::string(buffer, fixed.ptr);
    const auto shortest = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, shortest.ptr);
}

void Write(const Json& value, int depth, std::string& text) {
    const std::string indent(2 * (depth + 1), ' ');
    const std::string closingIndent(2 * depth, ' ');
    switch (value.type()) {
        case Json::value_t::number_float: {
            const double number = value.get<double>();
            text += std::isfinite(number) ? ShortestText(number) : "\"" + NonFiniteText(number) + "\"";
            return;
        }
        case Json::value_t::array: {
            if (value.empty()) {
                text += "[]";
                return;
            }
            // A list of plain values (a vector, a pair of level and stress,
            // the factors of a row) stands on one line.
            if (std::none_of(value.begin(), value.end(), [](const Json& e) { return e.is_structured(); })) {
                text += "[";
                for (auto element = value.begin(); element != value.end(); ++element) {
                    if (element != value.begin()) text += ", ";
                    Write(*element, depth + 1, text);
                }
                text += "]";
                return;
            }
            text += "[\n";
            bool first = true;
            for (const Json& element : value) {
                if (!first) text += ",\n";
                first = false;
                text += indent;
                Write(element, depth + 1, text);
            }
            text += "\n" + closingIndent + "]";
            return;
        }
        case Json::value_t::object: {
            if (value.empty()) {
                text += "{}";
                return;
            }
            text += "{\n";
            bool first = true;
            for (auto member = value.begin(); member != value.end(); ++member) {
                if (!first) text += ",\n";
                first = false;
                text += indent + Json(member.key()).dump() + ": ";
                Write(member.value(), depth + 1, text);
            }
            text += "\n" + closingIndent + "}";
            return;
        }
        default:
            // Strings (escaped), integers, booleans and null as nlohmann
            // writes them; every string was made valid UTF-8 by JsonText.
            text += value.dump(-1, ' ', false, Json::error_handler_t::replace);
            return;
    }
}

}  // namespace

std::string NonFiniteText(double value) {
    if (std::isnan(value)) return "NaN";
    return value > 0 ? "Infinity" : "-Infinity";
}

std::string WriteJson(const Json& value) {
    std::string text;
    Write(value, 0, text);
    return text + "\n";
}

}  // namespace TerrixTool
