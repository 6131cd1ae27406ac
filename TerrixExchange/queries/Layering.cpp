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

#include <boost/optional.hpp>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/LayerLookup.h>

namespace TerrixExchange {

namespace {

// The curve data of one layer, each kind asked of the profile only when a
// comparison first needs it and then kept for the rest of the call: a layer
// is compared with the one before it and with the one after it, and its
// data are asked once, not twice.
class CurveDataOfLayer {
public:
    CurveDataOfLayer(const LayerLookup& lookup, const Layer& layer) : lookup_(&lookup), layer_(layer) {}

    const Layer& GetLayer() const { return layer_; }
    const PyData& Py() { return Ask(py_, PerLayer::GetPyData); }
    const TzData& Tz() { return Ask(tz_, PerLayer::GetTzData); }
    const QzData& Qz() { return Ask(qz_, PerLayer::GetQzData); }
    const MThetaData& Mtheta() { return Ask(mtheta_, PerLayer::GetMthetaData); }
    const BSYData& BSy() { return Ask(bsy_, PerLayer::GetBSyData); }
    const BMThetaData& BMtheta() { return Ask(bmtheta_, PerLayer::GetBMthetaData); }

private:
    template <class Data>
    const Data& Ask(boost::optional<Data>& data, Data (*query)(const LayerLookup&, const Layer&)) {
        if (!data) data = query(*lookup_, layer_);
        return *data;
    }

    const LayerLookup* lookup_;
    Layer layer_;
    boost::optional<PyData> py_;
    boost::optional<TzData> tz_;
    boost::optional<QzData> qz_;
    boost::optional<MThetaData> mtheta_;
    boost::optional<BSYData> bsy_;
    boost::optional<BMThetaData> bmtheta_;
};

// The main layer first, so that Merge never meets two main layers, then the
// six kinds of curve data, stopping at the first that differs. An error of a
// curve-data query (a layer without its manual curve, say) passes out as it
// is.
bool HaveSameProperties(CurveDataOfLayer& a, CurveDataOfLayer& b) {
    if (a.GetLayer().mainLayer != b.GetLayer().mainLayer) return false;
    if (a.Py() != b.Py()) return false;
    if (a.Tz() != b.Tz()) return false;
    if (a.Qz() != b.Qz()) return false;
    if (a.Mtheta() != b.Mtheta()) return false;
    if (a.BSy() != b.BSy()) return false;
    if (a.BMtheta() != b.BMtheta()) return false;
    return true;
}

}  // namespace

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

// The divisions are cut first, so that the sections are indexed once for
// all the pieces, not searched again for every piece.
std::vector<Layer> Terrix::ConditionallySplitLayers(std::vector<Layer> layers) const {
    std::vector<std::vector<Layer>> divisions;
    std::vector<Layer> pieces;
    for (const Layer& layer : layers) {
        divisions.push_back(layer.Split());
        pieces.insert(pieces.end(), divisions.back().begin(), divisions.back().end());
    }
    const LayerLookup lookup(*this, pieces);
    std::vector<Layer> result;
    for (std::vector<Layer>& division : divisions) {
        std::vector<Layer> merged = ConditionallyMergeLayers(std::move(division), lookup);
        result.insert(result.end(), std::make_move_iterator(merged.begin()), std::make_move_iterator(merged.end()));
    }
    return result;
}

// A joined layer keeps the first layer of its first piece, by which its
// curve data are found, so the data of the last layer of the result are
// those of that piece and are kept as they were asked.
std::vector<Layer> Terrix::ConditionallyMergeLayers(std::vector<Layer> layers, const LayerLookup& lookup) const {
    std::vector<Layer> result;
    boost::optional<CurveDataOfLayer> last;
    for (Layer& layer : layers) {
        CurveDataOfLayer next(lookup, layer);
        if (last && HaveSameProperties(*last, next)) {
            result.back().Merge(layer);
        } else {
            result.push_back(std::move(layer));
            last = std::move(next);
        }
    }
    return result;
}

}  // namespace TerrixExchange
