#pragma once

#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>
#include <TerrixExchange/sections/ControlSection.h>
#include <TerrixExchange/sections/GivenSoilDisplacementsAndOpenHoleSection.h>
#include <TerrixExchange/sections/LoadsAtSoilSurfaceSection.h>
#include <TerrixExchange/sections/MainLayersSubdivisionAndPyTzQzCodesSection.h>
#include <TerrixExchange/sections/ManualBMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualBSYBaseShearDataSection.h>
#include <TerrixExchange/sections/ManualMthetaMomentDataSection.h>
#include <TerrixExchange/sections/ManualPyLateralResistanceDataSection.h>
#include <TerrixExchange/sections/ManualQzPileTipResistanceDataSection.h>
#include <TerrixExchange/sections/ManualTzSkinFrictionDataSection.h>
#include <TerrixExchange/sections/MaterialCoefficientsSection.h>
#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/PileDiametersAndGroupEffectsSection.h>
#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>
#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>
#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV4.h>
#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV5.h>
#include <TerrixExchange/sections/SoilLayerDivisionsAndCodesForPyTzQzSection.h>
#include <TerrixExchange/sections/SoilMainLayersAndPropertiesSection.h>
#include <TerrixExchange/sections/SoilSurfaceAndGroundWaterSection.h>
#include <TerrixExchange/sections/SoilTypeAndPropertySection.h>
#include <TerrixExchange/sections/TzSkinFrictionDataModificationSection.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// Every section of a profile. Both versions' sections are members of every
// profile; only those of the profile's version are read and written.
struct TerrixInputData {
    TERRIX_ALLOCATION_OPERATORS

    // Every section, for == and != (exact: a NaN equals nothing).
    auto Fields() const {
        return std::tie(controlSection, skinFrictionAndTipResistanceSectionV4, soilTypeAndPropertySection,
                        soilLayerDivisionsAndCodesForPyTzQzSection, skinFrictionAndTipResistanceSectionV5,
                        mainLayersSubdivisionAndPyTzQzCodesSection, soilMainLayersAndPropertiesSection,
                        materialCoefficientsSection, pileDiametersAndGroupEffectsSection,
                        soilSurfaceAndGroundWaterSection, loadsAtSoilSurfaceSection,
                        manualPyLateralResistanceDataSection, pyLateralResistanceDataModificationSection,
                        manualTzSkinFrictionDataSection, tzSkinFrictionDataModificationSection,
                        manualQzPileTipResistanceDataSection, qzPileTipResistanceDataModificationSection,
                        givenSoilDisplacementsAndOpenHoleSection, manualBMthetaMomentDataSection,
                        bmThetaMomentDataModificationSection, manualBSYBaseShearDataSection,
                        bsyBaseShearDataModificationSection, manualMthetaMomentDataSection,
                        mthetaMomentDataModificationSection);
    }

    ControlSection controlSection;
    SkinFrictionAndTipResistanceSectionV4 skinFrictionAndTipResistanceSectionV4;
    SoilTypeAndPropertySection soilTypeAndPropertySection;
    SoilLayerDivisionsAndCodesForPyTzQzSection soilLayerDivisionsAndCodesForPyTzQzSection;
    SkinFrictionAndTipResistanceSectionV5 skinFrictionAndTipResistanceSectionV5;
    MainLayersSubdivisionAndPyTzQzCodesSection mainLayersSubdivisionAndPyTzQzCodesSection;
    SoilMainLayersAndPropertiesSection soilMainLayersAndPropertiesSection;
    MaterialCoefficientsSection materialCoefficientsSection;
    PileDiametersAndGroupEffectsSection pileDiametersAndGroupEffectsSection;
    SoilSurfaceAndGroundWaterSection soilSurfaceAndGroundWaterSection;
    LoadsAtSoilSurfaceSection loadsAtSoilSurfaceSection;
    ManualPyLateralResistanceDataSection manualPyLateralResistanceDataSection;
    PyLateralResistanceDataModificationSection pyLateralResistanceDataModificationSection;
    ManualTzSkinFrictionDataSection manualTzSkinFrictionDataSection;
    TzSkinFrictionDataModificationSection tzSkinFrictionDataModificationSection;
    ManualQzPileTipResistanceDataSection manualQzPileTipResistanceDataSection;
    QzPileTipResistanceDataModificationSection qzPileTipResistanceDataModificationSection;
    GivenSoilDisplacementsAndOpenHoleSection givenSoilDisplacementsAndOpenHoleSection;
    ManualBMthetaMomentDataSection manualBMthetaMomentDataSection;
    BMthetaMomentDataModificationSection bmThetaMomentDataModificationSection;
    ManualBSYBaseShearDataSection manualBSYBaseShearDataSection;
    BSYBaseShearDataModificationSection bsyBaseShearDataModificationSection;
    ManualMthetaMomentDataSection manualMthetaMomentDataSection;
    MthetaMomentDataModificationSection mthetaMomentDataModificationSection;
};

}  // namespace TerrixExchange
