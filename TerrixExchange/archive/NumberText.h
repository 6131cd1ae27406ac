#pragma once

#include <string>

namespace TerrixExchange {

// The text of a real as the exporter writes it: the shortest text that reads
// back as the same double, in plain decimals with a decimal point when that
// fits `fieldWidth` characters, else in exponent form when that fits, else
// the shorter of the two (the column then widens; nothing is rounded away).
// NaN and infinities are written "NaN", "Inf" and "-Inf".
std::string FormatReal(double value, int fieldWidth);

// Reads a number token as the importer accepts it: an optional sign, digits
// with an optional decimal point, an optional exponent with "e", "E", "d" or
// "D", or NaN / Inf / Infinity in any case. The result is the correctly
// rounded double; false for anything else or a value out of range.
bool ParseReal(const std::string& text, double& value);

}  // namespace TerrixExchange
