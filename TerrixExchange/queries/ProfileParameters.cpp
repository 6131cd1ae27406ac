// The profile-wide parameters of the general sections, and the axial
// capacity tables of a layer (skin friction, tip resistance, undrained shear
// strength against level).

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/LayerLookup.h>
#include <TerrixExchange/queries/QuerySupport.h>

namespace TerrixExchange {

using namespace Units::Runtime;
using namespace QuerySupport;

namespace {

using V4Record = SkinFrictionAndTipResistanceSectionV4Record;
using V5Record = SkinFrictionAndTipResistanceSectionV5Record;

// One axial table of a layer: `column` of the version 4 level rows, or the
// `top` and `bottom` columns of the version 5 main layer row.
Terrix::StressByLevel AxialTable(const LayerLookup& lookup, const Layer& layer, double V4Record::*column,
                                 double V5Record::*top, double V5Record::*bottom) {
    const Terrix& profile = lookup.GetProfile();
    const TerrixInputData& data = profile.GetTerrixInputData();
    Terrix::StressByLevel table;
    if (profile.GetVersion() == Version::V4) {
        // The level rows that bracket the layer's middle, at their own
        // levels; a level given twice keeps its later row.
        const auto range = lookup.EqualRange(data.skinFrictionAndTipResistanceSectionV4, layer);
        for (auto record = range.first; record != range.second; ++record)
            table[record->ZLEV] = AsStored<StressPhenomenon>((*record).*column);
    } else if (profile.GetVersion() == Version::V5) {
        // The main layer's values at the boundaries of the computational
        // layer, so that every piece of a split main layer reports the main
        // layer's top and bottom values. A layer of no thickness keeps the
        // bottom value.
        const SkinFrictionAndTipResistanceSectionV5& section = data.skinFrictionAndTipResistanceSectionV5;
        const auto record = lookup.Find(section, layer);
        if (record != section.records.end()) {
            table[layer.zTop] = AsStored<StressPhenomenon>((*record).*top);
            table[layer.zBottom] = AsStored<StressPhenomenon>((*record).*bottom);
        }
    }
    return table;
}

}  // namespace

Quantity<ForcePerUnitVolumePhenomenon> Terrix::GetWaterUnitWeight() const { return inputData_.controlSection.GAMMAW; }

Quantity<LengthPhenomenon> Terrix::GetLowestLevelWithCyclicPY() const {
    return Quantity<LengthPhenomenon>(inputData_.controlSection.ZCYCL);
}

Quantity<StressPhenomenon> Terrix::GetLowestShearStiff() const {
    return Quantity<StressPhenomenon>(inputData_.controlSection.SUSTIF);
}

double Terrix::GetTanPhiCoeff() const { return inputData_.materialCoefficientsSection.SFTPHI; }

double Terrix::GetShearStrengthCoeff() const { return inputData_.materialCoefficientsSection.SFSU; }

double Terrix::GetSkinFrictionCoeff() const { return inputData_.materialCoefficientsSection.SFSKF; }

double Terrix::GetPileTipResistanceCoeff() const { return inputData_.materialCoefficientsSection.SFSIGT; }

Quantity<ForcePerUnitAreaPhenomenon> Terrix::GetModulusOfElasticity() const {
    return Quantity<ForcePerUnitAreaPhenomenon>(inputData_.pileDiametersAndGroupEffectsSection.ESOL0);
}

Quantity<ForcePerUnitVolumePhenomenon> Terrix::GetModulusOfElasticitySlope() const {
    return Quantity<ForcePerUnitVolumePhenomenon>(inputData_.pileDiametersAndGroupEffectsSection.ESOL1);
}

double Terrix::GetAveragePoissonRatio() const { return inputData_.pileDiametersAndGroupEffectsSection.POSAVR; }

Quantity<LengthPhenomenon> Terrix::GetZSeafloor() const {
    return Quantity<LengthPhenomenon>(inputData_.soilSurfaceAndGroundWaterSection.ZSURF);
}

Quantity<LengthPhenomenon> Terrix::GetDepthOfScour() const {
    return Quantity<LengthPhenomenon>(inputData_.soilSurfaceAndGroundWaterSection.SCRGEN);
}

Quantity<LengthPhenomenon> Terrix::GetDepthOfLocalScour() const {
    return Quantity<LengthPhenomenon>(inputData_.soilSurfaceAndGroundWaterSection.SCRLOC);
}

Quantity<AnglePhenomenon> Terrix::GetSideSlope() const {
    return FromDegrees(inputData_.soilSurfaceAndGroundWaterSection.SLOPE);
}

Quantity<StressPhenomenon> Terrix::GetVerticalStressAtSurface() const {
    return Quantity<StressPhenomenon>(inputData_.loadsAtSoilSurfaceSection.SIGSRF);
}

Quantity<StressPhenomenon> Terrix::GetVerticalStressUnderEmbankment() const {
    return Quantity<StressPhenomenon>(inputData_.loadsAtSoilSurfaceSection.DPEMB);
}

Quantity<LengthPhenomenon> Terrix::GetWidthOfEmbankmentSlopingPart() const {
    return Quantity<LengthPhenomenon>(inputData_.loadsAtSoilSurfaceSection.AEMB);
}

Quantity<LengthPhenomenon> Terrix::GetDistancePileToEmbankmentToe() const {
    return Quantity<LengthPhenomenon>(inputData_.loadsAtSoilSurfaceSection.BEMB);
}

Quantity<StressPhenomenon> Terrix::GetVerticalStressUnderCircularLoadedArea() const {
    return Quantity<StressPhenomenon>(inputData_.loadsAtSoilSurfaceSection.DPCIRC);
}

Quantity<LengthPhenomenon> Terrix::GetRadiusOfCircularLoadedArea() const {
    return Quantity<LengthPhenomenon>(inputData_.loadsAtSoilSurfaceSection.RADIUS);
}

// Only the version 4 skin friction section has the two T-Z parameters.
boost::optional<double> Terrix::GetZoneOfInfluenceTZ() const {
    if (GetVersion() != Version::V4) return boost::none;
    return inputData_.skinFrictionAndTipResistanceSectionV4.ZONINF;
}

boost::optional<double> Terrix::GetCurveShapeFactorTZ() const {
    if (GetVersion() != Version::V4) return boost::none;
    return inputData_.skinFrictionAndTipResistanceSectionV4.RFTZ;
}

Terrix::StressByLevel PerLayer::GetSkinCompression(const LayerLookup& lookup, const Layer& layer) {
    return AxialTable(lookup, layer, &V4Record::SKIN_CMP, &V5Record::SKINC_TOP, &V5Record::SKINC_BOT);
}

Terrix::StressByLevel PerLayer::GetSkinTension(const LayerLookup& lookup, const Layer& layer) {
    return AxialTable(lookup, layer, &V4Record::SKIN_TNS, &V5Record::SKINT_TOP, &V5Record::SKINT_BOT);
}

Terrix::StressByLevel PerLayer::GetTipResistance(const LayerLookup& lookup, const Layer& layer) {
    return AxialTable(lookup, layer, &V4Record::SIG_TIP, &V5Record::SIGTIP_TOP, &V5Record::SIGTIP_BOT);
}

Terrix::StressByLevel PerLayer::GetSUz(const LayerLookup& lookup, const Layer& layer) {
    const Terrix& profile = lookup.GetProfile();
    const TerrixInputData& data = profile.GetTerrixInputData();
    Terrix::StressByLevel strengths;
    if (profile.GetVersion() == Version::V4) {
        // A soil type gives its strength at level 0 and at level 100, 100 in
        // the length unit the file is written in (100 m, or 100 ft).
        const SoilTypeAndPropertySectionRecord& soil = FindLayerRecord(lookup, data.soilTypeAndPropertySection, layer);
        strengths[Quantity<LengthPhenomenon>(0.0)] = AsStored<StressPhenomenon>(soil.SU_Z0);
        strengths[profile.GetUnitSystem().ConvertFromUnitSystem<LengthPhenomenon>(100.0)] =
            AsStored<StressPhenomenon>(soil.SU_Z100);
    } else if (profile.GetVersion() == Version::V5) {
        // A main layer gives its strength at its own top and bottom: its top
        // is the bottom of the main layer above it, or the seafloor for the
        // first. These are the main layer's levels, not the computational
        // layer's.
        const SoilMainLayersAndPropertiesSection& section = data.soilMainLayersAndPropertiesSection;
        const auto main = lookup.Find(section, layer);
        if (main == section.records.end()) return strengths;
        strengths[main->ZBOTM] = AsStored<StressPhenomenon>(main->SUBOT);
        const Quantity<LengthPhenomenon> top =
            main == section.records.begin() ? profile.GetZSeafloor() : (main - 1)->ZBOTM;
        strengths[top] = AsStored<StressPhenomenon>(main->SUTOP);
    }
    return strengths;
}

}  // namespace TerrixExchange
