#include "FileUnits.h"

#include <cmath>
#include <cstdio>
#include <initializer_list>

#include <TerrixExchange/archive/NumberText.h>

namespace TerrixTool {

std::string Compact(double value, std::size_t width) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Inf" : "-Inf";
    if (value == 0.0) return "0";  // also -0
    for (const auto form : {TerrixExchange::DecimalForm::Plain, TerrixExchange::DecimalForm::General}) {
        std::string text = TerrixExchange::ShortestDecimalText(value, form);
        if (text.size() <= width) return text;
    }
    char buffer[64];
    std::string text;
    for (int digits = 6; digits >= 1; --digits) {
        std::snprintf(buffer, sizeof buffer, "%.*g", digits, value);
        text = buffer;
        if (text.size() <= width) break;
    }
    return text;
}

bool IsError(const Json& answer) { return answer.is_object() && answer.contains("error"); }

bool IsFiniteNumber(const Json& value) { return value.is_number() && std::isfinite(value.get<double>()); }

std::string Other(const Json& value) {
    if (value.is_null()) return "-";
    if (value.is_number()) return NonFiniteText(value.get<double>());
    if (value.is_string()) return value.get<std::string>();
    if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
    return "";
}

std::string ErrorText(const Json& answer) { return "error: " + answer["error"].get<std::string>(); }

std::string Degrees(const Json& answer, std::size_t width) {
    return IsFiniteNumber(answer) ? Compact(answer.get<double>() * degreesPerRadian, width) : Other(answer);
}

namespace {
std::string Power(int power) { return power == 1 ? "" : std::to_string(power); }
}  // namespace

FileUnits::FileUnits(const TerrixExchange::Terrix& profile) : FileUnits(profile.GetUnitSystem()) {}

FileUnits::FileUnits(const TerrixExchange::Units::Runtime::UnitSystem& units)
    : units_(units), toFile_(TerrixExchange::Units::Runtime::GetDatabaseUnitSystem(), units_) {}

std::string FileUnits::Name(DynamicDimension dimension) const {
    std::string name;
    if (dimension.force != 0) name = units_.GetForceUnitName() + Power(dimension.force);
    if (dimension.length > 0) name += (name.empty() ? "" : " ") + units_.GetLengthUnitName() + Power(dimension.length);
    if (dimension.length < 0) name += "/" + units_.GetLengthUnitName() + Power(-dimension.length);
    return name;
}

std::string FileUnits::Number(const Json& value, DynamicDimension dimension, std::size_t width) const {
    return IsFiniteNumber(value) ? Number(value.get<double>(), dimension, width) : Other(value);
}

std::string FileUnits::Value(const Json& answer, DynamicDimension dimension) const {
    if (IsError(answer)) return ErrorText(answer);
    const std::string number = Number(answer, dimension, valueWidth);
    const std::string unit = Name(dimension);
    return IsFiniteNumber(answer) && !unit.empty() ? number + " " + unit : number;
}

}  // namespace TerrixTool
