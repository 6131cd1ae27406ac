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

#include <TerrixExchange/document/Terrix.h>

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

template <class Visit>
void ForEachLayerQuery(Visit&& visit) {
    visit("SoilType", &Terrix::GetSoilType);
    visit("Phi", &Terrix::GetPhi);
    visit("Epsc", &Terrix::GetEpsc);
    visit("OverConsolidationRatio", &Terrix::GetOverConsolidationRatio);
    visit("APIJFactor", &Terrix::GetAPIJFactor);
    visit("OpenGap", &Terrix::GetOpenGap);
    visit("RPRatio", &Terrix::GetRPRatio);
    visit("TZCurveZDisplacement", &Terrix::GetTZCurveZDisplacement);
    visit("LayerUnitWeight", &Terrix::GetLayerUnitWeight);
    visit("InitialModulus", &Terrix::GetInitialModulus);
    visit("InitialSoilShearModulus", &Terrix::GetInitialSoilShearModulus);
    visit("DSDiameterRatio", &Terrix::GetDSDiameterRatio);
    visit("PoissonRatio", &Terrix::GetPoissonRatio);
    visit("DTDiameterRatio", &Terrix::GetDTDiameterRatio);
    visit("SUz", &Terrix::GetSUz);
    visit("SkinCompression", &Terrix::GetSkinCompression);
    visit("SkinTension", &Terrix::GetSkinTension);
    visit("TipResistance", &Terrix::GetTipResistance);
    visit("PyData", &Terrix::GetPyData);
    visit("TzData", &Terrix::GetTzData);
    visit("QzData", &Terrix::GetQzData);
    visit("MthetaData", &Terrix::GetMthetaData);
    visit("BSyData", &Terrix::GetBSyData);
    visit("BMthetaData", &Terrix::GetBMthetaData);
}

// "Sand", "Clay" or "Undefined": a soil type as the answers name it.
const char* SoilTypeName(Terrix::SoilType type);

}  // namespace TerrixExchange
