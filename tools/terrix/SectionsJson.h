#pragma once

#include <TerrixExchange/document/Terrix.h>

#include "Json.h"

namespace TerrixTool {

// Every section of the profile's version that the profile holds, in file
// order, keyed by its title without the decoration of the title line:
// parameters keyed by their names as the file writes them ("CONFRC"),
// vectors by a plain name ("diameters"), tables as "records", each record
// keyed by its column titles. Every number is the library's own value in
// database units.
Json SectionsJson(const TerrixExchange::Terrix& profile);

}  // namespace TerrixTool
