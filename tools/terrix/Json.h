#pragma once

// The JSON of terrix dump. Objects keep their keys in the order they are
// added, so a section's parameters stand in the order of the file.

#include <string>

#include <TerrixExchange/archive/JsonArchive.h>

namespace TerrixTool {

using TerrixExchange::Json;
using TerrixExchange::JsonNumber;
using TerrixExchange::JsonNumbers;
using TerrixExchange::JsonText;

// The text of a JSON value, indented by two blanks per level, a list of
// plain values on one line ("[0.9, 1, 0]"), each real written with the
// shortest text that reads back as the same double; NaN and the infinities,
// which JSON has no numbers for, as the strings "NaN", "Infinity" and
// "-Infinity".
std::string WriteJson(const Json& value);

// "NaN", "Infinity" or "-Infinity": how the tool spells a number that is
// not finite.
std::string NonFiniteText(double value);

}  // namespace TerrixTool
