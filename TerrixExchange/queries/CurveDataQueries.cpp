// The curve data of a layer: for each pile diameter, the manual curve and
// the modification factors the file gives for the layer. The six kinds of
// curve come in two groups, kept apart on purpose:
//
// - P-Y, T-Z and Q-Z have a curve code per layer. Only code 0 (manual) takes
//   manual curves, and then every diameter must have one; a manual curve
//   given for a layer with another code is not used. Their modification
//   sections must cover every layer and diameter.
// - M-theta, BS-Y and BM-theta have no code. A layer takes a manual curve
//   wherever the file gives one, and identity factors where no
//   modification row applies.
//
// The manual curves and modifications are looked up by the layer's first
// numbered layer, which stands for all the layers it covers.

#include <TerrixExchange/queries/LayerLookup.h>

#include <stdexcept>

namespace TerrixExchange {

using namespace Units::Runtime;

namespace {

// The curve code that marks a manual curve (000 in the file).
const std::int32_t manualCode = 0;

// The P-Y, T-Z and Q-Z codes of a layer's division (version 4) or main layer
// (version 5).
struct CurveCodes {
    std::int32_t py = 0;
    std::int32_t tz = 0;
    std::int32_t qz = 0;
};

// Every kind of curve first makes sure the layer has its division: the
// codes live there, and a layer without one has no curves at all.
template <class Section>
CurveCodes FindCodesIn(const LayerLookup& lookup, const Section& section, const Layer& layer) {
    const auto record = lookup.Find(section, layer);
    if (record == section.records.end()) throw std::runtime_error("Could not find layer");
    return CurveCodes{record->PYCODE, record->TZCODE, record->QZCODE};
}

CurveCodes FindCurveCodes(const LayerLookup& lookup, const Layer& layer) {
    const Terrix& profile = lookup.GetProfile();
    const TerrixInputData& data = profile.GetTerrixInputData();
    if (profile.GetVersion() == Version::V4)
        return FindCodesIn(lookup, data.soilLayerDivisionsAndCodesForPyTzQzSection, layer);
    if (profile.GetVersion() == Version::V5)
        return FindCodesIn(lookup, data.mainLayersSubdivisionAndPyTzQzCodesSection, layer);
    throw std::runtime_error("TERRIX version undefined");
}

const std::vector<Quantity<LengthPhenomenon>>& Diameters(const LayerLookup& lookup) {
    return lookup.GetProfile().GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters;
}

// The layer's manual curve of each diameter; a diameter without one throws
// when `required` and is left out otherwise.
template <class ManualSection>
auto ManualCurvesOf(const LayerLookup& lookup, const ManualSection& section, const Layer& layer, bool required) {
    return section.GetManualCurves(lookup.ManualCurves(section, layer), Diameters(lookup), required);
}

// For every diameter, the factors of the first row that covers the layer at
// that diameter.
template <class ModificationSection>
auto ModificationsOf(const LayerLookup& lookup, const ModificationSection& section, const Layer& layer) {
    return section.ModificationsOf(lookup.FirstModificationRows(section, layer), Diameters(lookup));
}

// P-Y, T-Z and Q-Z. A diameter listed twice keeps its last entry.
template <class Data, class ManualSection, class ModificationSection>
Data CodedCurveData(const LayerLookup& lookup, const Layer& layer, std::int32_t CurveCodes::*kind,
                    const ManualSection& manualCurves, const ModificationSection& modifications) {
    Data data;
    data.code = FindCurveCodes(lookup, layer).*kind;
    if (data.code == manualCode) data.manualCurves = ManualCurvesOf(lookup, manualCurves, layer, true);
    data.modifications = ModificationsOf(lookup, modifications, layer);
    return data;
}

// M-theta, BS-Y and BM-theta: no code, but the layer must have its division
// all the same.
template <class Data, class ManualSection, class ModificationSection>
Data UncodedCurveData(const LayerLookup& lookup, const Layer& layer, const ManualSection& manualCurves,
                      const ModificationSection& modifications) {
    FindCurveCodes(lookup, layer);
    Data data;
    data.manualCurves = ManualCurvesOf(lookup, manualCurves, layer, false);
    data.modifications = ModificationsOf(lookup, modifications, layer);
    return data;
}

const TerrixInputData& DataOf(const LayerLookup& lookup) { return lookup.GetProfile().GetTerrixInputData(); }

}  // namespace

PyData PerLayer::GetPyData(const LayerLookup& lookup, const Layer& layer) {
    return CodedCurveData<PyData>(lookup, layer, &CurveCodes::py, DataOf(lookup).manualPyLateralResistanceDataSection,
                                  DataOf(lookup).pyLateralResistanceDataModificationSection);
}

TzData PerLayer::GetTzData(const LayerLookup& lookup, const Layer& layer) {
    return CodedCurveData<TzData>(lookup, layer, &CurveCodes::tz, DataOf(lookup).manualTzSkinFrictionDataSection,
                                  DataOf(lookup).tzSkinFrictionDataModificationSection);
}

QzData PerLayer::GetQzData(const LayerLookup& lookup, const Layer& layer) {
    return CodedCurveData<QzData>(lookup, layer, &CurveCodes::qz,
                                  DataOf(lookup).manualQzPileTipResistanceDataSection,
                                  DataOf(lookup).qzPileTipResistanceDataModificationSection);
}

MThetaData PerLayer::GetMthetaData(const LayerLookup& lookup, const Layer& layer) {
    return UncodedCurveData<MThetaData>(lookup, layer, DataOf(lookup).manualMthetaMomentDataSection,
                                        DataOf(lookup).mthetaMomentDataModificationSection);
}

BSYData PerLayer::GetBSyData(const LayerLookup& lookup, const Layer& layer) {
    return UncodedCurveData<BSYData>(lookup, layer, DataOf(lookup).manualBSYBaseShearDataSection,
                                     DataOf(lookup).bsyBaseShearDataModificationSection);
}

BMThetaData PerLayer::GetBMthetaData(const LayerLookup& lookup, const Layer& layer) {
    return UncodedCurveData<BMThetaData>(lookup, layer, DataOf(lookup).manualBMthetaMomentDataSection,
                                         DataOf(lookup).bmThetaMomentDataModificationSection);
}

}  // namespace TerrixExchange
