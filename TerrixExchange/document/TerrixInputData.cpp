#include <TerrixExchange/document/TerrixInputData.h>

#include <tuple>

namespace TerrixExchange {

namespace {

auto Sections(const TerrixInputData& data) {
    return std::tie(data.controlSection, data.skinFrictionAndTipResistanceSectionV4, data.soilTypeAndPropertySection,
                    data.soilLayerDivisionsAndCodesForPyTzQzSection, data.skinFrictionAndTipResistanceSectionV5,
                    data.mainLayersSubdivisionAndPyTzQzCodesSection, data.soilMainLayersAndPropertiesSection,
                    data.materialCoefficientsSection, data.pileDiametersAndGroupEffectsSection,
                    data.soilSurfaceAndGroundWaterSection, data.loadsAtSoilSurfaceSection,
                    data.manualPyLateralResistanceDataSection, data.pyLateralResistanceDataModificationSection,
                    data.manualTzSkinFrictionDataSection, data.tzSkinFrictionDataModificationSection,
                    data.manualQzPileTipResistanceDataSection, data.qzPileTipResistanceDataModificationSection,
                    data.givenSoilDisplacementsAndOpenHoleSection, data.manualBMthetaMomentDataSection,
                    data.bmThetaMomentDataModificationSection, data.manualBSYBaseShearDataSection,
                    data.bsyBaseShearDataModificationSection, data.manualMthetaMomentDataSection,
                    data.mthetaMomentDataModificationSection);
}

}  // namespace

bool operator==(const TerrixInputData& left, const TerrixInputData& right) { return Sections(left) == Sections(right); }

bool operator!=(const TerrixInputData& left, const TerrixInputData& right) { return !(left == right); }

}  // namespace TerrixExchange
