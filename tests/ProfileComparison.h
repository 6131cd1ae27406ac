#pragma once

// Compares two profiles section by section, so that a failed round trip
// names the section that changed.

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange { namespace Testing {

// Every section of the two profiles' version.
inline void ExpectSameSections(const Terrix& expectedProfile, const Terrix& actualProfile) {
    ASSERT_EQ(expectedProfile.GetVersion(), actualProfile.GetVersion());
    const TerrixInputData& expected = expectedProfile.GetTerrixInputData();
    const TerrixInputData& actual = actualProfile.GetTerrixInputData();
#define TERRIX_EXPECT_SAME_SECTION(member) EXPECT_TRUE(expected.member == actual.member) << #member " differs"
    TERRIX_EXPECT_SAME_SECTION(controlSection);
    TERRIX_EXPECT_SAME_SECTION(materialCoefficientsSection);
    TERRIX_EXPECT_SAME_SECTION(pileDiametersAndGroupEffectsSection);
    TERRIX_EXPECT_SAME_SECTION(soilSurfaceAndGroundWaterSection);
    TERRIX_EXPECT_SAME_SECTION(loadsAtSoilSurfaceSection);
    if (expectedProfile.GetVersion() == Version::V4) {
        TERRIX_EXPECT_SAME_SECTION(soilTypeAndPropertySection);
        TERRIX_EXPECT_SAME_SECTION(skinFrictionAndTipResistanceSectionV4);
        TERRIX_EXPECT_SAME_SECTION(soilLayerDivisionsAndCodesForPyTzQzSection);
    } else {
        TERRIX_EXPECT_SAME_SECTION(soilMainLayersAndPropertiesSection);
        TERRIX_EXPECT_SAME_SECTION(skinFrictionAndTipResistanceSectionV5);
        TERRIX_EXPECT_SAME_SECTION(mainLayersSubdivisionAndPyTzQzCodesSection);
    }
    TERRIX_EXPECT_SAME_SECTION(manualPyLateralResistanceDataSection);
    TERRIX_EXPECT_SAME_SECTION(pyLateralResistanceDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(manualTzSkinFrictionDataSection);
    TERRIX_EXPECT_SAME_SECTION(tzSkinFrictionDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(manualQzPileTipResistanceDataSection);
    TERRIX_EXPECT_SAME_SECTION(qzPileTipResistanceDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(manualMthetaMomentDataSection);
    TERRIX_EXPECT_SAME_SECTION(mthetaMomentDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(manualBSYBaseShearDataSection);
    TERRIX_EXPECT_SAME_SECTION(bsyBaseShearDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(manualBMthetaMomentDataSection);
    TERRIX_EXPECT_SAME_SECTION(bmThetaMomentDataModificationSection);
    TERRIX_EXPECT_SAME_SECTION(givenSoilDisplacementsAndOpenHoleSection);
#undef TERRIX_EXPECT_SAME_SECTION
}

}}  // namespace TerrixExchange::Testing
