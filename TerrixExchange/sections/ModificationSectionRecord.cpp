#include <TerrixExchange/sections/ModificationSectionRecord.h>

namespace TerrixExchange {

using namespace Units::Runtime;

bool ModificationSectionRecord::HasLayer(int layer) const {
    return IsAllLayers() || (LAY1 <= layer && layer <= LAY2);
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
