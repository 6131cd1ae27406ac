#pragma once

// Compares two profiles section by section, so that a failed round trip
// names the section that changed.

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange { namespace Testing {

inline void ExpectSameControlSection(const ControlSection& expected, const ControlSection& actual) {
    EXPECT_EQ(expected.version, actual.version);
    EXPECT_EQ(expected.profileName, actual.profileName);
    EXPECT_EQ(expected.CONFRC, actual.CONFRC);
    EXPECT_EQ(expected.CONLTH, actual.CONLTH);
    EXPECT_EQ(expected.NUMTYP, actual.NUMTYP);
    EXPECT_EQ(expected.NUMTQZ, actual.NUMTQZ);
    EXPECT_EQ(expected.NUMLAY, actual.NUMLAY);
    EXPECT_EQ(expected.MIDBOT, actual.MIDBOT);
    EXPECT_EQ(expected.NUMLAYM, actual.NUMLAYM);
    EXPECT_EQ(expected.NUMDSP, actual.NUMDSP);
    EXPECT_EQ(expected.GAMMAW, actual.GAMMAW);
    EXPECT_EQ(expected.ATMPRS, actual.ATMPRS);
    EXPECT_EQ(expected.ZCYCL, actual.ZCYCL);
    EXPECT_EQ(expected.SUSTIF, actual.SUSTIF);
    EXPECT_EQ(expected.JPRINT, actual.JPRINT);
    EXPECT_EQ(expected.JECHO, actual.JECHO);
    EXPECT_EQ(expected.NUMDM, actual.NUMDM);
    EXPECT_EQ(expected.NUMBS, actual.NUMBS);
    EXPECT_EQ(expected.NUMBM, actual.NUMBM);
}

// Every section of the two profiles' version.
inline void ExpectSameSections(const Terrix& expectedProfile, const Terrix& actualProfile) {
    ASSERT_EQ(expectedProfile.GetVersion(), actualProfile.GetVersion());
    const TerrixInputData& expected = expectedProfile.GetTerrixInputData();
    const TerrixInputData& actual = actualProfile.GetTerrixInputData();
#define TERRIX_EXPECT_SAME_SECTION(member) EXPECT_TRUE(expected.member == actual.member) << #member " differs"
    ExpectSameControlSection(expected.controlSection, actual.controlSection);
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
