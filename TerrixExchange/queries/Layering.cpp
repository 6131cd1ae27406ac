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
#include <TerrixExchange/queries/CurveDataQueries.h>

namespace TerrixExchange {

namespace {

// The curve data of one layer, each kind asked of the profile only when a
// comparison first needs it and then kept for the rest of the call: a layer
// is compared with the one before it and with the one after it, and its
// data are asked once, not twice.
class CurveDataOfLayer {
public:
    CurveDataOfLayer(const Terrix& profile, const ManualCurveIndex& index, const Layer& layer)
        : profile_(&profile), index_(&index), layer_(layer) {}

    const Layer& GetLayer() const { return layer_; }
    const PyData& Py() { return Ask(py_, PyDataOf, index_->py); }
    const TzData& Tz() { return Ask(tz_, TzDataOf, index_->tz); }
    const QzData& Qz() { return Ask(qz_, QzDataOf, index_->qz); }
    const MThetaData& Mtheta() { return Ask(mtheta_, MthetaDataOf, index_->mtheta); }
    const BSYData& BSy() { return Ask(bsy_, BSyDataOf, index_->bsy); }
    const BMThetaData& BMtheta() { return Ask(bmtheta_, BMthetaDataOf, index_->bmtheta); }

private:
    template <class Data, class Index>
    const Data& Ask(boost::optional<Data>& data, Data (*query)(const Terrix&, const Layer&, const Index&),
                    const Index& index) {
        if (!data) data = query(*profile_, layer_, index);
        return *data;
    }

    const Terrix* profile_;
    const ManualCurveIndex* index_;
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

// The manual curves of all layers are indexed once for the whole call, not
// searched for again for every piece.
std::vector<Layer> Terrix::ConditionallySplitLayers(std::vector<Layer> layers) const {
    const ManualCurveIndex index(inputData_);
    std::vector<Layer> result;
    for (const Layer& layer : layers) {
        std::vector<Layer> pieces = ConditionallyMergeLayers(layer.Split(), index);
        result.insert(result.end(), std::make_move_iterator(pieces.begin()), std::make_move_iterator(pieces.end()));
    }
    return result;
}

// A joined layer keeps the first layer of its first piece, by which its
// curve data are found, so the data of the last layer of the result are
// those of that piece and are kept as they were asked.
std::vector<Layer> Terrix::ConditionallyMergeLayers(std::vector<Layer> layers, const ManualCurveIndex& index) const {
    std::vector<Layer> result;
    boost::optional<CurveDataOfLayer> last;
    for (Layer& layer : layers) {
        CurveDataOfLayer next(*this, index, layer);
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
