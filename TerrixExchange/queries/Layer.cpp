#include <TerrixExchange/queries/Layer.h>

#include <stdexcept>

namespace TerrixExchange {

std::vector<Layer> Layer::Split() const {
    std::vector<Layer> pieces;
    const double n = static_cast<double>(layerCount);
    auto top = zTop;
    for (std::uint32_t i = 0; i < layerCount; ++i) {
        // Interpolated from both ends rather than by adding a thickness, so
        // that the last boundary is zBottom itself (t = 1).
        const double t = (i + 1) / n;
        const auto bottom = (1.0 - t) * zTop + t * zBottom;
        pieces.push_back(Layer{mainLayer, static_cast<std::int32_t>(firstLayer + i), 1, top, bottom});
        top = bottom;
    }
    return pieces;
}

void Layer::Merge(const Layer& other) {
    if (mainLayer != other.mainLayer)
        throw std::runtime_error("Unable to join layers with incompatible main layers");
    layerCount += other.layerCount;
    if (other.zBottom > zBottom) zBottom = other.zBottom;
}



}  // namespace TerrixExchange
