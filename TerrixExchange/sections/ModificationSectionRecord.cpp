#include <TerrixExchange/sections/ModificationSectionRecord.h>

#include <limits>

namespace TerrixExchange {

using namespace Units::Runtime;

bool ModificationSectionRecord::HasLayer(int layer) const {
    const std::pair<int, int> range = GetLayerRange();
    return range.first <= layer && layer <= range.second;
}

std::pair<int, int> ModificationSectionRecord::GetLayerRange() const {
    if (IsAllLayers()) return {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    return {LAY1, LAY2};
}

bool ModificationSectionRecord::HasDiameter(Quantity<LengthPhenomenon> diameter) const {
    return DIAM == Quantity<LengthPhenomenon>(0.0) || DIAM == diameter;
}

std::size_t ModificationSectionRecord::GetLayerCount(std::size_t layerCount, std::size_t diameterCount) const {
    std::size_t layers = layerCount;
    if (!IsAllLayers()) {
        const long long range = static_cast<long long>(LAY2) - static_cast<long long>(LAY1) + 1;
        layers = range > 0 ? static_cast<std::size_t>(range) : 0;
    }
    const std::size_t diameters = DIAM == Quantity<LengthPhenomenon>(0.0) ? diameterCount : 1;
    return layers * diameters;
}

}  // namespace TerrixExchange
