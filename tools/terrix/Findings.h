#pragma once

// What a profile holds that the file format allows but the tool will not
// work with, each finding at the line of the file it comes from.

#include <cstdint>
#include <string>

#include <boost/optional.hpp>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/document/Terrix.h>

namespace TerrixTool {

struct Finding {
    std::uint64_t line;
    std::string text;
};

// More numbered layers than any real profile has. Version 4 cuts each layer
// division into its numbered layers; a division that runs backwards counts
// LAYER2 - LAYER1 + 1 layers in an unsigned number, which wraps to some
// 18 billion billion, and splitting that would never end.
const std::uint64_t maximumNumberedLayers = 1000000;

// The first layer division of a version 4 profile that runs backwards
// (LAYER2 less than LAYER1), or at which the divisions come to cover more
// than maximumNumberedLayers numbered layers; none when there is neither.
boost::optional<Finding> FindLayerDivisionError(const TerrixExchange::Terrix& profile,
                                                const TerrixExchange::SourceLines& lines);

// "line 87: TEXT".
std::string WithLine(const Finding& finding);

}  // namespace TerrixTool
