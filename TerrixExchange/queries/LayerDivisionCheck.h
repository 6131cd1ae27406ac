#pragma once

// Layer divisions that the file format allows but no profile can be split
// into. Version 4 cuts each layer division into its numbered layers; a
// division that runs backwards counts LAYER2 - LAYER1 + 1 layers in an
// unsigned number, which wraps to some 18 billion billion, and splitting
// that would never end. The library takes such divisions as written (they
// import, and GetLayers(false) gives them); a program that splits layers
// asks this first and reports the division at its line instead.

#include <cstdint>
#include <string>

#include <boost/optional.hpp>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

// What is wrong at a line of the file.
struct LineFinding {
    std::uint64_t line;
    std::string text;

    // "line 87: TEXT".
    std::string WithLine() const;
};

// More numbered layers than any real profile has: a few thousand at most.
const std::uint64_t maximumNumberedLayers = 1000000;

// The first layer division of a version 4 profile that runs backwards
// (LAYER2 less than LAYER1), or at which the divisions come to cover more
// than maximumNumberedLayers numbered layers, at its line of `lines`; none
// when there is neither.
boost::optional<LineFinding> FindLayerDivisionError(const Terrix& profile, const SourceLines& lines);

}  // namespace TerrixExchange
