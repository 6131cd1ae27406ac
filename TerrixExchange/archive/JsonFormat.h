#pragma once

// The JSON text of a profile, as terrix dump writes it and every reader of
// it reads it back: each double with the shortest text that reads back as
// the same double, and NaN and the infinities, for which JSON has no
// numbers, as the strings "NaN", "Infinity" and "-Infinity".

#include <string>
#include <string_view>

#include <TerrixExchange/archive/JsonExporter.h>

namespace TerrixExchange {

// Whether a text is JSON rather than TERRIX text: its first character that
// is no blank, tab or line break is '{'. (A TERRIX file starts "TERRIX".)
bool IsJsonText(std::string_view text);

// The JSON value of a text. Malformed JSON is a JsonImportError that names
// the line and column ("Malformed JSON at line 3, column 7: ..."), and so is
// a key that stands twice in one object, whose second value would silently
// win.
Json ParseJson(std::string_view text);

// The text of a JSON value, indented by two blanks per level, a list of
// plain values on one line ("[0.9, 1, 0]"), each real written with the
// shortest text that reads back as the same double (-0 as "-0.0", which
// reads back as a real), NaN and the infinities as their strings.
std::string WriteJson(const Json& value);

// "NaN", "Infinity" or "-Infinity": how a number that is not finite is spelt.
std::string NonFiniteText(double value);

// A number of the JSON: a JSON number, or one of the three strings above.
bool ReadNumber(const Json& value, double& number);

}  // namespace TerrixExchange
