#pragma once

// The JSON of terrix dump. Objects keep their keys in the order they are
// added, so a section's parameters stand in the order of the file.

#include <cstdint>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <TerrixExchange/archive/JsonArchive.h>

#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixTool {

using TerrixExchange::Json;
using TerrixExchange::JsonNumber;
using TerrixExchange::JsonText;

// A quantity by its value in database units (N and m).
template <class Phenomenon>
Json JsonNumber(TerrixExchange::Units::Runtime::Quantity<Phenomenon> value) {
    return JsonNumber(value.GetValue());
}
inline Json JsonNumber(int value) { return Json(value); }
inline Json JsonNumber(std::uint64_t value) { return Json(value); }
// An empty optional is null.
template <class Value>
Json JsonNumber(const boost::optional<Value>& value) {
    return value ? JsonNumber(*value) : Json(nullptr);
}

// A list of numbers (a vector of the file, a line of a curve) as a JSON array.
template <class Value>
Json JsonNumbers(const std::vector<Value>& values) {
    Json list = Json::array();
    for (const Value& value : values) list.push_back(JsonNumber(value));
    return list;
}

// The text of a JSON value, indented by two blanks per level, a list of
// plain values on one line ("[0.9, 1, 0]"), each real written with the
// shortest text that reads back as the same double.
std::string WriteJson(const Json& value);

}  // namespace TerrixTool
