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

#include <stdexcept>

#include <TerrixExchange/document/Terrix.h>

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
CurveCodes FindCodesIn(const Section& section, const Layer& layer) {
    const auto record = section.FindLayer(layer);
    if (record == section.records.end()) throw std::runtime_error("Could not find layer");
    return CurveCodes{record->PYCODE, record->TZCODE, record->QZCODE};
}

CurveCodes FindCurveCodes(const Terrix& profile, const Layer& layer) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    if (profile.GetVersion() == Version::V4) return FindCodesIn(data.soilLayerDivisionsAndCodesForPyTzQzSection, layer);
    if (profile.GetVersion() == Version::V5) return FindCodesIn(data.mainLayersSubdivisionAndPyTzQzCodesSection, layer);
    throw std::runtime_error("TERRIX version undefined");
}

const std::vector<Quantity<LengthPhenomenon>>& Diameters(const Terrix& profile) {
    return profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters;
}

// For every diameter, the factors of the first row that covers the layer at
// that diameter.
template <class Data, class ModificationSection>
void AddModifications(Data& data, const Terrix& profile, const Layer& layer, const ModificationSection& modifications) {
    data.modifications = modifications.GetModifications(layer.firstLayer, Diameters(profile));
}

// P-Y, T-Z and Q-Z. A diameter listed twice keeps its last entry.
template <class Data, class ManualSection, class ModificationSection>
Data CodedCurveData(const Terrix& profile, const Layer& layer, std::int32_t CurveCodes::*kind,
                    const ManualSection& manualCurves, const ModificationSection& modifications) {
    Data data;
    data.code = FindCurveCodes(profile, layer).*kind;
    if (data.code == manualCode)
        data.manualCurves = manualCurves.GetManualCurves(layer.firstLayer, Diameters(profile), true);
    AddModifications(data, profile, layer, modifications);
    return data;
}

// M-theta, BS-Y and BM-theta: no code, but the layer must have its division
// all the same.
template <class Data, class ManualSection, class ModificationSection>
Data UncodedCurveData(const Terrix& profile, const Layer& layer, const ManualSection& manualCurves,
                      const ModificationSection& modifications) {
    FindCurveCodes(profile, layer);
    Data data;
    data.manualCurves = manualCurves.GetManualCurves(layer.firstLayer, Diameters(profile), false);
    AddModifications(data, profile, layer, modifications);
    return data;
}

}  // namespace

PyData Terrix::GetPyData(const Layer& layer) const {
    return CodedCurveData<PyData>(*this, layer, &CurveCodes::py, inputData_.manualPyLateralResistanceDataSection,
                                  inputData_.pyLateralResistanceDataModificationSection);
}

TzData Terrix::GetTzData(const Layer& layer) const {
    return CodedCurveData<TzData>(*this, layer, &CurveCodes::tz, inputData_.manualTzSkinFrictionDataSection,
                                  inputData_.tzSkinFrictionDataModificationSection);
}

QzData Terrix::GetQzData(const Layer& layer) const {
    return CodedCurveData<QzData>(*this, layer, &CurveCodes::qz, inputData_.manualQzPileTipResistanceDataSection,
                                  inputData_.qzPileTipResistanceDataModificationSection);
}

MThetaData Terrix::GetMthetaData(const Layer& layer) const {
    return UncodedCurveData<MThetaData>(*this, layer, inputData_.manualMthetaMomentDataSection,
                                        inputData_.mthetaMomentDataModificationSection);
}

BSYData Terrix::GetBSyData(const Layer& layer) const {
    return UncodedCurveData<BSYData>(*this, layer, inputData_.manualBSYBaseShearDataSection,
                                     inputData_.bsyBaseShearDataModificationSection);
}

BMThetaData Terrix::GetBMthetaData(const Layer& layer) const {
    return UncodedCurveData<BMThetaData>(*this, layer, inputData_.manualBMthetaMomentDataSection,
                                         inputData_.bmThetaMomentDataModificationSection);
}

}  // namespace TerrixExchange
