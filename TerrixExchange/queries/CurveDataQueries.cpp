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

#include <TerrixExchange/queries/CurveDataQueries.h>

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

// The records of the layer's first numbered layer in the index; null when
// it has none.
template <class Index>
const typename Index::mapped_type* RecordsOf(const Index& index, const Layer& layer) {
    const auto found = index.find(layer.firstLayer);
    return found == index.end() ? nullptr : &found->second;
}

// P-Y, T-Z and Q-Z. A diameter listed twice keeps its last entry.
template <class Data, class ManualSection, class ModificationSection>
Data CodedCurveData(const Terrix& profile, const Layer& layer, std::int32_t CurveCodes::*kind,
                    const ManualSection& manualCurves, const typename ManualSection::RecordIndex& index,
                    const ModificationSection& modifications) {
    Data data;
    data.code = FindCurveCodes(profile, layer).*kind;
    if (data.code == manualCode)
        data.manualCurves = manualCurves.GetManualCurves(RecordsOf(index, layer), Diameters(profile), true);
    AddModifications(data, profile, layer, modifications);
    return data;
}

// M-theta, BS-Y and BM-theta: no code, but the layer must have its division
// all the same.
template <class Data, class ManualSection, class ModificationSection>
Data UncodedCurveData(const Terrix& profile, const Layer& layer, const ManualSection& manualCurves,
                      const typename ManualSection::RecordIndex& index, const ModificationSection& modifications) {
    FindCurveCodes(profile, layer);
    Data data;
    data.manualCurves = manualCurves.GetManualCurves(RecordsOf(index, layer), Diameters(profile), false);
    AddModifications(data, profile, layer, modifications);
    return data;
}

}  // namespace

ManualCurveIndex::ManualCurveIndex(const TerrixInputData& data)
    : py(data.manualPyLateralResistanceDataSection.IndexRecords(nullptr)),
      tz(data.manualTzSkinFrictionDataSection.IndexRecords(nullptr)),
      qz(data.manualQzPileTipResistanceDataSection.IndexRecords(nullptr)),
      mtheta(data.manualMthetaMomentDataSection.IndexRecords(nullptr)),
      bsy(data.manualBSYBaseShearDataSection.IndexRecords(nullptr)),
      bmtheta(data.manualBMthetaMomentDataSection.IndexRecords(nullptr)) {}

PyData PyDataOf(const Terrix& profile, const Layer& layer, const ManualPyLateralResistanceDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return CodedCurveData<PyData>(profile, layer, &CurveCodes::py, data.manualPyLateralResistanceDataSection, index,
                                  data.pyLateralResistanceDataModificationSection);
}

TzData TzDataOf(const Terrix& profile, const Layer& layer, const ManualTzSkinFrictionDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return CodedCurveData<TzData>(profile, layer, &CurveCodes::tz, data.manualTzSkinFrictionDataSection, index,
                                  data.tzSkinFrictionDataModificationSection);
}

QzData QzDataOf(const Terrix& profile, const Layer& layer,
                const ManualQzPileTipResistanceDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return CodedCurveData<QzData>(profile, layer, &CurveCodes::qz, data.manualQzPileTipResistanceDataSection, index,
                                  data.qzPileTipResistanceDataModificationSection);
}

MThetaData MthetaDataOf(const Terrix& profile, const Layer& layer,
                        const ManualMthetaMomentDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return UncodedCurveData<MThetaData>(profile, layer, data.manualMthetaMomentDataSection, index,
                                        data.mthetaMomentDataModificationSection);
}

BSYData BSyDataOf(const Terrix& profile, const Layer& layer, const ManualBSYBaseShearDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return UncodedCurveData<BSYData>(profile, layer, data.manualBSYBaseShearDataSection, index,
                                     data.bsyBaseShearDataModificationSection);
}

BMThetaData BMthetaDataOf(const Terrix& profile, const Layer& layer,
                          const ManualBMthetaMomentDataSection::RecordIndex& index) {
    const TerrixInputData& data = profile.GetTerrixInputData();
    return UncodedCurveData<BMThetaData>(profile, layer, data.manualBMthetaMomentDataSection, index,
                                         data.bmThetaMomentDataModificationSection);
}

// A getter asks one layer: it indexes that layer's records alone.
PyData Terrix::GetPyData(const Layer& layer) const {
    return PyDataOf(*this, layer, inputData_.manualPyLateralResistanceDataSection.IndexRecords(&layer.firstLayer));
}

TzData Terrix::GetTzData(const Layer& layer) const {
    return TzDataOf(*this, layer, inputData_.manualTzSkinFrictionDataSection.IndexRecords(&layer.firstLayer));
}

QzData Terrix::GetQzData(const Layer& layer) const {
    return QzDataOf(*this, layer, inputData_.manualQzPileTipResistanceDataSection.IndexRecords(&layer.firstLayer));
}

MThetaData Terrix::GetMthetaData(const Layer& layer) const {
    return MthetaDataOf(*this, layer, inputData_.manualMthetaMomentDataSection.IndexRecords(&layer.firstLayer));
}

BSYData Terrix::GetBSyData(const Layer& layer) const {
    return BSyDataOf(*this, layer, inputData_.manualBSYBaseShearDataSection.IndexRecords(&layer.firstLayer));
}

BMThetaData Terrix::GetBMthetaData(const Layer& layer) const {
    return BMthetaDataOf(*this, layer, inputData_.manualBMthetaMomentDataSection.IndexRecords(&layer.firstLayer));
}

}  // namespace TerrixExchange
