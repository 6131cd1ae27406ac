// The soil properties of a layer. Version 4 keeps them per soil type (the
// soil type table) and per depth level (the skin friction table); version 5
// per main layer (the main layer, skin friction and subdivision tables).

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/LayerLookup.h>
#include <TerrixExchange/queries/QuerySupport.h>

namespace TerrixExchange {

using namespace Units::Runtime;
using namespace QuerySupport;

namespace {

// The records of a layer in the tables of each version; "Unknown layer"
// when the table does not hold it.
const SoilTypeAndPropertySectionRecord& SoilTypeRecord(const LayerLookup& lookup, const Layer& layer) {
    return FindLayerRecord(lookup, lookup.GetProfile().GetTerrixInputData().soilTypeAndPropertySection, layer);
}

const SoilMainLayersAndPropertiesSectionRecord& MainLayerRecord(const LayerLookup& lookup, const Layer& layer) {
    return FindLayerRecord(lookup, lookup.GetProfile().GetTerrixInputData().soilMainLayersAndPropertiesSection, layer);
}

const SkinFrictionAndTipResistanceSectionV5Record& MainLayerAxialRecord(const LayerLookup& lookup, const Layer& layer) {
    return FindLayerRecord(lookup, lookup.GetProfile().GetTerrixInputData().skinFrictionAndTipResistanceSectionV5,
                           layer);
}

const MainLayersSubdivisionAndPyTzQzCodesSectionRecord& SubdivisionRecord(const LayerLookup& lookup,
                                                                          const Layer& layer) {
    return FindLayerRecord(lookup, lookup.GetProfile().GetTerrixInputData().mainLayersSubdivisionAndPyTzQzCodesSection,
                           layer);
}

// The version 4 level row from which a layer takes its axial soil values:
// the first of the rows that bracket the layer's middle. Null in any other
// version, and when the section has no rows.
const SkinFrictionAndTipResistanceSectionV4Record* FindLevelRecord(const LayerLookup& lookup, const Layer& layer) {
    const Terrix& profile = lookup.GetProfile();
    if (profile.GetVersion() != Version::V4) return nullptr;
    const auto range = lookup.EqualRange(profile.GetTerrixInputData().skinFrictionAndTipResistanceSectionV4, layer);
    if (range.first == range.second) return nullptr;
    return &*range.first;
}

}  // namespace

Terrix::SoilType PerLayer::GetSoilType(const LayerLookup& lookup, const Layer& layer) {
    const Terrix::StressByLevel strengths = GetSUz(lookup, layer);
    if (strengths.empty()) return Terrix::SoilType::Undefined;
    // Any strength that is not exactly zero (a NaN is not) makes the soil a clay.
    for (const auto& strength : strengths)
        if (!(strength.second.GetValue() == 0.0)) return Terrix::SoilType::Clay;
    return Terrix::SoilType::Sand;
}

Quantity<AnglePhenomenon> PerLayer::GetPhi(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return FromDegrees(SoilTypeRecord(lookup, layer).PHI); },
        [&] { return FromDegrees(MainLayerRecord(lookup, layer).PHI); });
}

double PerLayer::GetEpsc(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).EPSC; },
        [&] { return MainLayerRecord(lookup, layer).EPSC; });
}

boost::optional<double> PerLayer::GetOverConsolidationRatio(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(),
        [&]() -> boost::optional<double> { return SoilTypeRecord(lookup, layer).OCR; },
        // The main layer table has no OCR column.
        []() -> boost::optional<double> { return boost::none; });
}

double PerLayer::GetAPIJFactor(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).API_J; },
        [&] { return MainLayerRecord(lookup, layer).API_J; });
}

// Both flags are options of the file where 1 means yes; any other value
// (0, 2, -1) means no.
bool PerLayer::GetOpenGap(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).GAP == 1; },
        [&] { return SubdivisionRecord(lookup, layer).OPEN_HOLE == 1; });
}

double PerLayer::GetRPRatio(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).RPRAT; },
        [&] { return MainLayerAxialRecord(lookup, layer).TRES_TMAX; });
}

Quantity<LengthPhenomenon> PerLayer::GetTZCurveZDisplacement(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).TZZRES; },
        [&] { return AsStored<LengthPhenomenon>(MainLayerAxialRecord(lookup, layer).TZZRES); });
}

Quantity<ForcePerUnitVolumePhenomenon> PerLayer::GetLayerUnitWeight(const LayerLookup& lookup, const Layer& layer) {
    return ByVersion(
        lookup.GetProfile().GetVersion(), [&] { return SoilTypeRecord(lookup, layer).GAMTOT; },
        [&] { return AsStored<ForcePerUnitVolumePhenomenon>(MainLayerRecord(lookup, layer).GAMTOT); });
}

boost::optional<Quantity<ForcePerUnitVolumePhenomenon>> PerLayer::GetInitialModulus(const LayerLookup& lookup, const Layer& layer) {
    using Modulus = boost::optional<Quantity<ForcePerUnitVolumePhenomenon>>;
    return ByVersion(
        lookup.GetProfile().GetVersion(), []() -> Modulus { return boost::none; },
        [&]() -> Modulus {
            // A table laid out without the AK column has no modulus to give,
            // whatever the layer.
            const SoilMainLayersAndPropertiesSection& section = lookup.GetProfile().GetTerrixInputData().soilMainLayersAndPropertiesSection;
            if (section.layoutRevision == static_cast<int>(Revision::WithoutAK)) return boost::none;
            return AsStored<ForcePerUnitVolumePhenomenon>(MainLayerRecord(lookup, layer).AK);
        });
}

boost::optional<Quantity<ForcePerUnitAreaPhenomenon>> PerLayer::GetInitialSoilShearModulus(const LayerLookup& lookup, const Layer& layer) {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(lookup, layer);
    // A level row of seven numbers has no shear modulus.
    if (level == nullptr || !level->G0_SOIL) return boost::none;
    return AsStored<ForcePerUnitAreaPhenomenon>(*level->G0_SOIL);
}

boost::optional<double> PerLayer::GetDSDiameterRatio(const LayerLookup& lookup, const Layer& layer) {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(lookup, layer);
    if (level == nullptr) return boost::none;
    return level->DSPTZ_DIAM;
}

boost::optional<double> PerLayer::GetPoissonRatio(const LayerLookup& lookup, const Layer& layer) {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(lookup, layer);
    if (level == nullptr) return boost::none;
    return level->POIS;
}

boost::optional<double> PerLayer::GetDTDiameterRatio(const LayerLookup& lookup, const Layer& layer) {
    const SkinFrictionAndTipResistanceSectionV4Record* level = FindLevelRecord(lookup, layer);
    if (level == nullptr) return boost::none;
    return level->DSPQZ_DIAM;
}

}  // namespace TerrixExchange
