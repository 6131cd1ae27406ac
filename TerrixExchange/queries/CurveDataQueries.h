#pragma once

// Internal to the queries: the curve data of a layer computed from the
// manual curves indexed beforehand, so that a query that asks many layers
// (the layering) finds each layer's curves without a pass over every section
// per layer. The getters index the one layer they are asked; either way the
// answers are those of the file-order scans (the first record wins).

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

// The manual curve records of every layer, one index per kind, for one call.
struct ManualCurveIndex {
    explicit ManualCurveIndex(const TerrixInputData& data);

    ManualPyLateralResistanceDataSection::RecordIndex py;
    ManualTzSkinFrictionDataSection::RecordIndex tz;
    ManualQzPileTipResistanceDataSection::RecordIndex qz;
    ManualMthetaMomentDataSection::RecordIndex mtheta;
    ManualBSYBaseShearDataSection::RecordIndex bsy;
    ManualBMthetaMomentDataSection::RecordIndex bmtheta;
};

PyData PyDataOf(const Terrix& profile, const Layer& layer, const ManualPyLateralResistanceDataSection::RecordIndex& index);
TzData TzDataOf(const Terrix& profile, const Layer& layer, const ManualTzSkinFrictionDataSection::RecordIndex& index);
QzData QzDataOf(const Terrix& profile, const Layer& layer,
                const ManualQzPileTipResistanceDataSection::RecordIndex& index);
MThetaData MthetaDataOf(const Terrix& profile, const Layer& layer,
                        const ManualMthetaMomentDataSection::RecordIndex& index);
BSYData BSyDataOf(const Terrix& profile, const Layer& layer, const ManualBSYBaseShearDataSection::RecordIndex& index);
BMThetaData BMthetaDataOf(const Terrix& profile, const Layer& layer,
                          const ManualBMthetaMomentDataSection::RecordIndex& index);

}  // namespace TerrixExchange
