#pragma once

// A large version 4 profile for the benchmarks of the queries and of the
// Python module: LAYERCOUNT numbered soil layers in divisions of four, five
// soil types, a level row at every layer boundary, four pile diameters, and
// manual curves of all six kinds for every layer and diameter (every code
// 000). Two neighbouring layers share their curves, so each division comes
// back as two layers of two: the merge compares equal data as often as
// different data, and GetLayers(true) gives LAYERCOUNT / 2 layers.

#include <vector>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {
namespace Benchmarks {
namespace LayeredProfile {

using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

const int layersPerDivision = 4;
const int soilTypes = 5;
const double layerThickness = 0.5;
const std::vector<double> diameters = {1.524, 1.829, 2.134, 2.438};

// A curve of a few points, in N and m, the same for the two layers of a pair.
template <class Record>
Record ManualCurve(int layer, double diameter, double scale) {
    const double pair = (layer + 1) / 2;
    Record record;
    record.LAY = layer;
    record.DIAM = Length(diameter);
    record.displacements = {0.0, 0.001 * diameter, 0.005 * diameter, 0.02 * diameter, 0.1 * diameter};
    for (const double ratio : {0.0, 0.3, 0.7, 0.95, 1.0}) record.resistances.push_back(ratio * scale * (100.0 + pair));
    return record;
}

template <class Record>
Record EveryLayerAndDiameter() {
    return Record();  // 0 0 0.0 with the identity factors
}

inline Terrix GenerateLayeredProfile(int layerCount) {
    Terrix profile(Version::V4);
    TerrixInputData& data = profile.GetTerrixInputData();
    data.controlSection.NUMTYP = soilTypes;
    data.controlSection.NUMTQZ = layerCount + 1;
    data.controlSection.NUMLAY = layerCount;
    data.controlSection.NUMDM = layerCount * static_cast<int>(diameters.size());
    data.controlSection.NUMBS = *data.controlSection.NUMDM;
    data.controlSection.NUMBM = *data.controlSection.NUMDM;
    for (const double diameter : diameters)
        data.pileDiametersAndGroupEffectsSection.diameters.push_back(Length(diameter));

    for (int type = 1; type <= soilTypes; ++type) {
        SoilTypeAndPropertySectionRecord soil;
        soil.TYP = type;
        soil.GAMTOT = Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon>(18000.0 + 500.0 * type);
        soil.PHI = type % 2 == 1 ? 30.0 + type : 0.0;
        soil.SU_Z0 = type % 2 == 1 ? 0.0 : 10e3;
        soil.SU_Z100 = type % 2 == 1 ? 0.0 : 200e3;
        soil.EPSC = 0.01;
        soil.OCR = 1.0;
        soil.API_J = 0.5;
        soil.RPRAT = 0.7;
        soil.TZZRES = Length(0.02);
        data.soilTypeAndPropertySection.records.push_back(soil);
    }

    for (int level = 0; level <= layerCount; ++level) {
        SkinFrictionAndTipResistanceSectionV4Record row;
        row.ZLEV = Length(level * layerThickness);
        row.SKIN_CMP = row.SKIN_TNS = 1.0 + 0.2 * level;
        row.G0_SOIL = 20000.0 + 100.0 * level;
        row.DSPTZ_DIAM = 0.01;
        row.SIG_TIP = 1000.0 + 10.0 * level;
        row.POIS = 0.3;
        row.DSPQZ_DIAM = 0.1;
        data.skinFrictionAndTipResistanceSectionV4.records.push_back(row);
    }

    for (int first = 1; first <= layerCount; first += layersPerDivision) {
        SoilLayerDivisionsAndCodesForPyTzQzSectionRecord division;
        division.LAYER1 = first;
        division.LAYER2 = first + layersPerDivision - 1;
        division.TYP = 1 + (first / layersPerDivision) % soilTypes;
        division.ZBOTM = Length(division.LAYER2 * layerThickness);
        data.soilLayerDivisionsAndCodesForPyTzQzSection.records.push_back(division);  // codes 000
    }

    for (int layer = 1; layer <= layerCount; ++layer) {
        for (const double diameter : diameters) {
            data.manualPyLateralResistanceDataSection.records.push_back(
                ManualCurve<ManualPyLateralResistanceDataSectionRecord>(layer, diameter, 1e3));
            data.manualTzSkinFrictionDataSection.records.push_back(
                ManualCurve<ManualTzSkinFrictionDataSectionRecord>(layer, diameter, 0.5e3));
            data.manualQzPileTipResistanceDataSection.records.push_back(
                ManualCurve<ManualQzPileTipResistanceDataSectionRecord>(layer, diameter, 10e3));
            data.manualMthetaMomentDataSection.records.push_back(
                ManualCurve<ManualMthetaMomentDataSectionRecord>(layer, diameter, 2e3));
            data.manualBSYBaseShearDataSection.records.push_back(
                ManualCurve<ManualBSYBaseShearDataSectionRecord>(layer, diameter, 5e3));
            data.manualBMthetaMomentDataSection.records.push_back(
                ManualCurve<ManualBMthetaMomentDataSectionRecord>(layer, diameter, 8e3));
        }
    }

    data.pyLateralResistanceDataModificationSection.records = {
        EveryLayerAndDiameter<PyLateralResistanceDataModificationSectionRecord>()};
    data.tzSkinFrictionDataModificationSection.records = {
        EveryLayerAndDiameter<TzSkinFrictionDataModificationSectionRecord>()};
    data.qzPileTipResistanceDataModificationSection.records = {
        EveryLayerAndDiameter<QzPileTipResistanceDataModificationSectionRecord>()};
    data.mthetaMomentDataModificationSection.records = {
        EveryLayerAndDiameter<MthetaMomentDataModificationSectionRecord>()};
    data.bsyBaseShearDataModificationSection.records = {
        EveryLayerAndDiameter<BSYBaseShearDataModificationSectionRecord>()};
    data.bmThetaMomentDataModificationSection.records = {
        EveryLayerAndDiameter<BMthetaMomentDataModificationSectionRecord>()};
    return profile;
}

}  // namespace LayeredProfile

using LayeredProfile::GenerateLayeredProfile;

}  // namespace Benchmarks
}  // namespace TerrixExchange
