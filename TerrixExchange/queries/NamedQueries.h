#pragma once

// Every query of a profile under one name: the getter's name without "Get"
// ("WaterUnitWeight", "SoilType", "PyData"). A program that hands out all
// the answers of a profile (terrix dump, the Python module) walks these
// lists, so that each of them asks the same getters under the same names, in
// the same order: the profile-wide ones in the order of the file's sections,
// the per-layer ones soil properties first, then the axial tables and the
// six kinds of curve data.
//
// `visit(name, getter)` is called once per query, `getter` a pointer to the
// const member function of Terrix that answers it (no argument for a
// profile-wide query, the Layer for a per-layer one). Each getter has its
// own return type, so `visit` is generic: [&](const char* name, auto getter).

#include <vector>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/LayerLookup.h>

namespace TerrixExchange {

template <class Visit>
void ForEachProfileQuery(Visit&& visit) {
    visit("WaterUnitWeight", &Terrix::GetWaterUnitWeight);
    visit("LowestLevelWithCyclicPY", &Terrix::GetLowestLevelWithCyclicPY);
    visit("LowestShearStiff", &Terrix::GetLowestShearStiff);
    visit("TanPhiCoeff", &Terrix::GetTanPhiCoeff);
    visit("ShearStrengthCoeff", &Terrix::GetShearStrengthCoeff);
    visit("SkinFrictionCoeff", &Terrix::GetSkinFrictionCoeff);
    visit("PileTipResistanceCoeff", &Terrix::GetPileTipResistanceCoeff);
    visit("DiameterCount", &Terrix::GetDiameterCount);
    visit("ModulusOfElasticity", &Terrix::GetModulusOfElasticity);
    visit("ModulusOfElasticitySlope", &Terrix::GetModulusOfElasticitySlope);
    visit("AveragePoissonRatio", &Terrix::GetAveragePoissonRatio);
    visit("ZSeafloor", &Terrix::GetZSeafloor);
    visit("DepthOfScour", &Terrix::GetDepthOfScour);
    visit("DepthOfLocalScour", &Terrix::GetDepthOfLocalScour);
    visit("SideSlope", &Terrix::GetSideSlope);
    visit("VerticalStressAtSurface", &Terrix::GetVerticalStressAtSurface);
    visit("VerticalStressUnderEmbankment", &Terrix::GetVerticalStressUnderEmbankment);
    visit("WidthOfEmbankmentSlopingPart", &Terrix::GetWidthOfEmbankmentSlopingPart);
    visit("DistancePileToEmbankmentToe", &Terrix::GetDistancePileToEmbankmentToe);
    visit("VerticalStressUnderCircularLoadedArea", &Terrix::GetVerticalStressUnderCircularLoadedArea);
    visit("RadiusOfCircularLoadedArea", &Terrix::GetRadiusOfCircularLoadedArea);
    visit("ZoneOfInfluenceTZ", &Terrix::GetZoneOfInfluenceTZ);
    visit("CurveShapeFactorTZ", &Terrix::GetCurveShapeFactorTZ);
}

// The per-layer queries, each as the getter of Terrix and as the function
// that answers it through a LayerLookup.
template <class Visit>
void ForEachLayerQueryWithLookup(Visit&& visit) {
    visit("SoilType", &Terrix::GetSoilType, &PerLayer::GetSoilType);
    visit("Phi", &Terrix::GetPhi, &PerLayer::GetPhi);
    visit("Epsc", &Terrix::GetEpsc, &PerLayer::GetEpsc);
    visit("OverConsolidationRatio", &Terrix::GetOverConsolidationRatio, &PerLayer::GetOverConsolidationRatio);
    visit("APIJFactor", &Terrix::GetAPIJFactor, &PerLayer::GetAPIJFactor);
    visit("OpenGap", &Terrix::GetOpenGap, &PerLayer::GetOpenGap);
    visit("RPRatio", &Terrix::GetRPRatio, &PerLayer::GetRPRatio);
    visit("TZCurveZDisplacement", &Terrix::GetTZCurveZDisplacement, &PerLayer::GetTZCurveZDisplacement);
    visit("LayerUnitWeight", &Terrix::GetLayerUnitWeight, &PerLayer::GetLayerUnitWeight);
    visit("InitialModulus", &Terrix::GetInitialModulus, &PerLayer::GetInitialModulus);
    visit("InitialSoilShearModulus", &Terrix::GetInitialSoilShearModulus, &PerLayer::GetInitialSoilShearModulus);
    visit("DSDiameterRatio", &Terrix::GetDSDiameterRatio, &PerLayer::GetDSDiameterRatio);
    visit("PoissonRatio", &Terrix::GetPoissonRatio, &PerLayer::GetPoissonRatio);
    visit("DTDiameterRatio", &Terrix::GetDTDiameterRatio, &PerLayer::GetDTDiameterRatio);
    visit("SUz", &Terrix::GetSUz, &PerLayer::GetSUz);
    visit("SkinCompression", &Terrix::GetSkinCompression, &PerLayer::GetSkinCompression);
    visit("SkinTension", &Terrix::GetSkinTension, &PerLayer::GetSkinTension);
    visit("TipResistance", &Terrix::GetTipResistance, &PerLayer::GetTipResistance);
    visit("PyData", &Terrix::GetPyData, &PerLayer::GetPyData);
    visit("TzData", &Terrix::GetTzData, &PerLayer::GetTzData);
    visit("QzData", &Terrix::GetQzData, &PerLayer::GetQzData);
    visit("MthetaData", &Terrix::GetMthetaData, &PerLayer::GetMthetaData);
    visit("BSyData", &Terrix::GetBSyData, &PerLayer::GetBSyData);
    visit("BMthetaData", &Terrix::GetBMthetaData, &PerLayer::GetBMthetaData);
}

template <class Visit>
void ForEachLayerQuery(Visit&& visit) {
    ForEachLayerQueryWithLookup([&](const char* name, auto getter, auto) { visit(name, getter); });
}

// Every per-layer answer of many layers in one call: for each layer of
// `layers` in order, and each per-layer query in the order above,
// `visit(layer, name, answer)`, where `answer()` gives what the getter gives
// for that layer, or throws what it throws. The sections are indexed once
// for all the layers (LayerLookup), so the call grows with the size of the
// profile, not with its square as a getter per layer and query does;
// `answer` is valid only during its visit.
template <class Visit>
void ForEachLayerAnswer(const Terrix& profile, const std::vector<Layer>& layers, Visit&& visit) {
    const LayerLookup lookup(profile, layers);
    for (const Layer& layer : layers)
        ForEachLayerQueryWithLookup([&](const char* name, auto, auto query) {
            visit(layer, name, [&] { return query(lookup, layer); });
        });
}

// "Sand", "Clay" or "Undefined": a soil type as the answers name it.
const char* SoilTypeName(Terrix::SoilType type);

}  // namespace TerrixExchange
