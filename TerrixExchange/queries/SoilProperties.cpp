// The soil properties of a layer. Version 4 keeps them per soil type (the
// soil type table) and per depth level (the skin friction table); version 5
// per main layer (the main layer, skin friction and subdivision tables).

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/QuerySupport.h>

namespace TerrixExchange {

using namespace Units::Runtime;
using namespace QuerySupport;

namespace {

// The records of a layer in the tables of each version; "Unknown layer"
// when the table does not hold it.
const SoilTypeAndPropertySectionRecord& SoilTypeRecord(const Terrix& profile, const Layer& layer) {
    return FindLayerRecord(profile.GetTerrixInputData().soilTypeAndPropertySection, layer);
}

const SoilMainLayersAndPropertiesSectionRecord& MainLayerRecord(const Terrix& profile, const Layer& layer) {
    return FindLayerRecord(profile.GetTerrixInputData().soilMainLayersAndPropertiesSection, layer);
}

const SkinFrictionAndTipResistanceSectionV5Record& MainLayerAxialRecord(const Terrix& profile, const Layer& layer) {
    return FindLayerRecord(profile.GetTerrixInputData().skinFrictionAndTipResistanceSectionV5, layer);
}

const MainLayersSubdivisionAndPyTzQzCodesSectionRecord& SubdivisionRecord(const Terrix& profile, const Layer& layer) {
    return FindLayerRecord(profile.GetTerrixInputData().mainLayersSubdivisionAndPyTzQzCodesSection, layer);
}

// The version 4 level row from which a layer takes its axial soil values:
// the first of the rows that bracket the layer's middle. Null in any other
// version, and when the section has no rows.
const SkinFrictionAndTipResistanceSectionV4Record* FindLevelRecord(const Terrix& profile, const Layer& layer) {
    if (profile.GetVersion() != Version::V4) return nullptr;
    const auto range = profile.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4.EqualRange(layer);
    if (range.first == range.second) return nullptr;
    return &*range.first;
}

}  // namespace

Terrix::SoilType Terrix::GetSoilType(const Layer& layer) const {
    const StressByLevel strengths = GetSUz(layer);
    if (strengths.empty()) return SoilType::Undefined;
    // Any strength that is not exactly zero (a NaN is not) makes the soil a clay.
    for (const auto& strength : strengths)
        if (!(strength.second.GetValue() == 0.0)) return SoilType::Clay;
    return SoilType::Sand;
}

Quantity<AnglePhenomenon> Terrix::GetPhi(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return FromDegrees(SoilTypeRecord(*this, layer).PHI); },
        [&] { return FromDegrees(MainLayerRecord(*this, layer).PHI); });
}

double Terrix::GetEpsc(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).EPSC; },
        [&] { return MainLayerRecord(*this, layer).EPSC; });
}

boost::optional<double> Terrix::GetOverConsolidationRatio(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&]() -> boost::optional<double> { return SoilTypeRecord(*this, layer).OCR; },
        // The main layer table has no OCR column.
        []() -> boost::optional<double> { return boost::none; });
}

double Terrix::GetAPIJFactor(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).API_J; },
        [&] { return MainLayerRecord(*this, layer).API_J; });
}

// Both flags are options of the file where 1 means yes; any other value
// (0, 2, -1) means no.
bool Terrix::GetOpenGap(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).GAP == 1; },
        [&] { return SubdivisionRecord(*this, layer).OPEN_HOLE == 1; });
}

double Terrix::GetRPRatio(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).RPRAT; },
        [&] { return MainLayerAxialRecord(*this, layer).TRES_TMAX; });
}

Quantity<LengthPhenomenon> Terrix::GetTZCurveZDisplacement(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).TZZRES; },
        [&] { return AsStored<LengthPhenomenon>(MainLayerAxialRecord(*this, layer).TZZRES); });
}

Quantity<ForcePerUnitVolumePhenomenon> Terrix::GetLayerUnitWeight(const Layer& layer) const {
    return ByVersion(
        GetVersion(), [&] { return SoilTypeRecord(*this, layer).GAMTOT; },
        [&] { return AsStored<ForcePerUnitVolumePhenomenon>(MainLayerRecord(*this, layer).GAMTOT); });
}

boost::optional<Quantity<ForcePerUnitVolumePhenomenon>> Terrix::GetInitialModulus(const Layer& layer) const {
    using Modulus = boost::optional<Quantity<ForcePerUnitVolumePhenomenon>>;
    return ByVersion(
        GetVersion(), []() -> Modulus { return boost::none; },
        [&]() -> Modulus {
            // A table laid out without the AK column has no modulus to give,
            // whatever the layer.
            const SoilMainLayersAndPropertiesSection& section = inputData_.soilMainLayersAndPropertiesSection;
            if (section.layoutRevision == static_cast<int>(Revision::WithoutAK)) return boost::none;
            return AsStored<ForcePerUnitVolumePhenomenon>(MainLayerRecord(*this, layer).AK);
        });
}

boost::optional<Quantity<ForcePerUnitAreaPhenomenon>> Terrix::GetInitialSoilShearModulus(const Layer& layer) const {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(*this, layer);
    // A level row of seven numbers has no shear modulus.
    if (level == nullptr || !level->G0_SOIL) return boost::none;
    return AsStored<ForcePerUnitAreaPhenomenon>(*level->G0_SOIL);
}

boost::optional<double> Terrix::GetDSDiameterRatio(const Layer& layer) const {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(*this, layer);
    if (level == nullptr) return boost::none;
    return level->DSPTZ_DIAM;
}

boost::optional<double> Terrix::GetPoissonRatio(const Layer& layer) const {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(*this, layer);
    if (level == nullptr) return boost::none;
    return level->POIS;
}

boost::optional<double> Terrix::GetDTDiameterRatio(const Layer& layer) const {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(*this, layer);
    if (level == nullptr) return boost::none;
    return level->DSPQZ_DIAM;
}

}  // namespace TerrixExchange
