#pragma once

#include <cstdint>

namespace TerrixExchange {

// The format version of a TERRIX file. A file with the line
// "TERRIX Version: 2009-..." is version 5; any other file is version 4.
// Unknown stands for a profile that has not been given a version (a profile
// of a multi-profile stream before its import).
enum class Version : std::int32_t {
    Unknown = 0,
    V4 = 4,
    V5 = 5,
};

// Revisions of the layout of the soil main layers and properties table of
// version 5: with or without its last column "AK". Unsettled is written with
// the column and read with or without it.
enum class Revision : std::int32_t {
    Unsettled = 0,
    WithoutAK = 1,
    WithAK = 2,
};

}  // namespace TerrixExchange
