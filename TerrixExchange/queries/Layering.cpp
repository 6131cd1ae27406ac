// The computational layers of a profile. They are not stored: every call
// derives them from the layer division section of the profile's version.
//
// A version 4 division covers a range of numbered soil layers. Split, it is
// cut into its numbered layers of equal thickness, and neighbouring pieces
// whose curve data are exactly the same are joined again, so that a layer
// stands apart only where the file says something different about it (a
// manual curve or a modification of its own). Pieces of two divisions are
// never joined: a division is a layer the file's author drew on purpose.

#include <iterator>
#include <utility>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

std::vector<Layer> Terrix::GetLayers(bool split) const {
    if (GetVersion() == Version::V4) {
        std::vector<Layer> layers = inputData_.soilLayerDivisionsAndCodesForPyTzQzSection.GetLayers(GetZSeafloor());
        return split ? ConditionallySplitLayers(std::move(layers)) : layers;
    }
    // A version 5 main layer is one layer whatever its subdivision.
    if (GetVersion() == Version::V5)
        return inputData_.mainLayersSubdivisionAndPyTzQzCodesSection.GetLayers(GetZSeafloor());
    return {};
}

std::vector<Layer> Terrix::ConditionallySplitLayers(std::vector<Layer> layers) const {
    std::vector<Layer> result;
    for (const Layer& layer : layers) {
        std::vector<Layer> pieces = ConditionallyMergeLayers(layer.Split());
        result.insert(result.end(), std::make_move_iterator(pieces.begin()), std::make_move_iterator(pieces.end()));
    }
    return result;
}

std::vector<Layer> Terrix::ConditionallyMergeLayers(std::vector<Layer> layers) const {
    std::vector<Layer> result;
    for (Layer& layer : layers) {
        if (!result.empty() && HasSameProperties(result.back(), layer))
            result.back().Merge(layer);
        else
            result.push_back(std::move(layer));
    }
    return result;
}

// The main layer first, so that Merge never meets two main layers, then the
// six kinds of curve data, stopping at the first that differs. An error of a
// curve-data query (a layer without its manual curve, say) passes out as it
// is.
bool Terrix::HasSameProperties(const Layer& a, const Layer& b) const {
    if (a.mainLayer != b.mainLayer) return false;
    if (!(GetPyData(a) == GetPyData(b))) return false;
    if (!(GetTzData(a) == GetTzData(b))) return false;
    if (GetQzData(a) != GetQzData(b)) return false;
    if (GetMthetaData(a) != GetMthetaData(b)) return false;
    if (GetBSyData(a) != GetBSyData(b)) return false;
    if (GetBMthetaData(a) != GetBMthetaData(b)) return false;
    return true;
}

}  // namespace TerrixExchange
