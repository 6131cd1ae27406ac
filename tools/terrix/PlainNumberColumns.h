#pragma once

#include <string>
#include <vector>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixTool {

// A column that carries a physical dimension (a stress, a unit weight, a
// length) but that the format keeps as the plain number the file gives: the
// library does not convert it between unit systems, so a file written in
// other units holds it unchanged, in the old units.
struct PlainNumberColumn {
    std::string section;
    std::string column;
};

// The columns of the profile's version that hold such values and at least
// one value other than zero, in file order, each named once.
std::vector<PlainNumberColumn> NonZeroPlainNumberColumns(const TerrixExchange::Terrix& profile);

}  // namespace TerrixTool
