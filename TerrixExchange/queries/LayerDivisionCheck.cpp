#include <TerrixExchange/queries/LayerDivisionCheck.h>

namespace TerrixExchange {

std::string LineFinding::WithLine() const { return "line " + std::to_string(line) + ": " + text; }

boost::optional<LineFinding> FindLayerDivisionError(const Terrix& profile, const SourceLines& lines) {
    if (profile.GetVersion() != Version::V4) return boost::none;
    const auto& divisions = profile.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.records;
    std::uint64_t covered = 0;
    for (std::size_t i = 0; i < divisions.size(); ++i) {
        const auto& division = divisions[i];
        const std::uint64_t line = lines.GetRowLine("SOIL LAYER DIV ...", i);
        if (division.LAYER2 < division.LAYER1)
            return LineFinding{line, "layer division " + std::to_string(division.LAYER1) + " " +
                                         std::to_string(division.LAYER2) +
                                         " runs backwards: LAYER2 is less than LAYER1"};
        covered += division.GetSublayerCount();
        if (covered > maximumNumberedLayers)
            return LineFinding{line, "the layer divisions cover " + std::to_string(covered) +
                                         " numbered layers up to this one, more than the " +
                                         std::to_string(maximumNumberedLayers) + " a profile can have"};
    }
    return boost::none;
}

}  // namespace TerrixExchange
