#pragma once

// Two profiles compared by what they mean, not by their text: comments,
// blanks, column widths and the units the files were written in do not
// count. Every section is walked as it describes itself (the JSON archive:
// parameters by name, tables by record and column), and every value is
// compared in database units (N and m), exactly: a profile converted to
// other units and back compares equal to itself only where its numbers
// survived the round trip.

#include <cstddef>
#include <string>
#include <vector>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>

namespace TerrixExchange {

class Terrix;

// One value that differs. `section` is a section title ("CONTROL SECTION"),
// or "" for the profile's own version and header; `record` the place of a
// table's record from 0, or none for a parameter; `column` the parameter's
// or column's name; `element` the place within a list of values (a vector,
// a curve's line), or none. A value the other profile lacks is null.
struct ValueDifference {
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    std::string section;
    std::size_t record = none;
    std::string column;
    std::size_t element = none;
    Json a;
    Json b;
    // Of the values as numbers; [0, 0] for plain numbers and texts.
    Units::Runtime::DynamicDimension dimension;
};

// Every value of `a` and `b` that differs, in the order of a's sections. A
// NaN equals a NaN here: both files say the same thing.
std::vector<ValueDifference> CompareProfiles(const Terrix& a, const Terrix& b);

}  // namespace TerrixExchange
