// The control section of both versions: its lines, its optional counts and
// the conversion of its quantities.

#include <gtest/gtest.h>

#include <TerrixExchange/sections/ControlSection.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

const std::string version4Text =
    "*** CONTROL SECTION           ***\n"
    "       1.0 CONFRC  OLD-FORCE-UNIT  = CONFRC * NEW-FORCE-UNIT  1MN  = 1000*1KN\n"
    "       1.0 CONLTH  OLD-LENGTH-UNIT = CONLTH * NEW-LENGTH-UNIT  1M  = 3.28*1FT\n"
    "         3 NUMTYP  NUMBER OF DIFFERENT SOIL TYPES\n"
    "         5 NUMTQZ  NUMBER OF LINES IN THE T - Z / Q - Z DATA TABLE BELOW\n"
    "        12 NUMLAY  NUMBER OF SOIL LAYERS\n"
    "         2 NUMDSP  NUMBER OF Z-LEVELS WITH GIVEN SOIL DISPLACEMENTS\n"
    "         2 MIDBOT  P - Y ETC COMPUTED AT : 1 = LAYER - MIDPOINT 2 = LAYER - BOTTOM\n"
    "   10.0518 GAMMAW  UNIT WEIGHT OF WATER (9.81 KN/M3 IN SI-UNITS)\n"
    "     101.3 ATMPRS  ATMOSPHERIC PRESSURE (101.3 KN/M2 IN SI-UNITS)\n"
    "     -15.0 ZCYCL   Z-LEVEL DOWN TO WHICH CYCLIC P-Y DATA SHALL BE GENERATED\n"
    "     100.0 SUSTIF  USE STIFF CLAY P-Y PROCEDURES IF SU.GT.SUSTF (API ONLY)\n"
    "         1 JPRINT  PRINTED OUTPUT DATA (0=NONE 1=SOME 2=FULL)\n"
    "         0 JECHO   ECHO PRINT OF INPUT FILE NF14 TO FILE NF16 (0=NO 1=YES)\n";

const std::string version5Text =
    "*** CONTROL SECTION           ***\n"
    " 'NORTH-01'          NAME OF THIS SOIL PROFILE, MAX 10 CHARACTERS\n"
    "       1.0 CONFRC  OLD-FORCE-UNIT  = CONFRC * NEW-FORCE-UNIT  1MN  = 1000*1KN\n"
    "       1.0 CONLTH  OLD-LENGTH-UNIT = CONLTH * NEW-LENGTH-UNIT  1M  = 3.28*1FT\n"
    "         4 NUMLAYM NUMBER OF MAIN SOIL LAYERS\n"
    "         0 NUMDSP  NUMBER OF Z-LEVELS WITH GIVEN SOIL DISPLACEMENTS\n"
    "   10.0518 GAMMAW  UNIT WEIGHT OF WATER (9.81 KN/M3 IN SI-UNITS)\n"
    "     101.3 ATMPRS  ATMOSPHERIC PRESSURE (101.3 KN/M2 IN SI-UNITS)\n"
    "       0.0 ZCYCL   Z-LEVEL DOWN TO WHICH CYCLIC P-Y DATA SHALL BE GENERATED\n"
    "      96.0 SUSTIF  USE STIFF CLAY P-Y PROCEDURES IF SU.GT.SUSTF (API ONLY)\n"
    "         2 JPRINT  PRINTED OUTPUT DATA (0=NONE 1=SOME 2=FULL)\n"
    "         1 JECHO   ECHO PRINT OF INPUT FILE NF14 TO FILE NF16 (0=NO 1=YES)\n"
    "         2 NUMDM   NUMBER OF LAYERS WITH DISTRIBUTED MOMENT. THIS FLAG IS OPTIONAL\n"
    "         0 NUMBS   NUMBER OF LAYERS WITH BASE SHEAR. THIS FLAG IS OPTIONAL\n";

ControlSection Read(Version version, const std::string& text, const std::string& force = "kN",
                    const std::string& length = "m") {
    ControlSection section(version);
    ReadText(text, [&](Importer& importer) { section.Serialize(importer); }, force, length);
    return section;
}

std::string Write(ControlSection section, const std::string& force = "kN", const std::string& length = "m") {
    return WriteText([&](Exporter& exporter) { section.Serialize(exporter); }, force, length);
}

}  // namespace

TEST(ControlSection, Version4ReadsItsCountsAndConvertsItsQuantities) {
    const ControlSection section = Read(Version::V4, version4Text);
    EXPECT_EQ(section.CONFRC, 1.0);
    EXPECT_EQ(section.NUMTYP, 3);
    EXPECT_EQ(section.NUMTQZ, 5);
    EXPECT_EQ(section.NUMLAY, 12);
    EXPECT_EQ(section.NUMDSP, 2);
    EXPECT_EQ(section.MIDBOT, 2);
    EXPECT_EQ(section.GAMMAW.GetValue(), 10051.8);
    EXPECT_EQ(section.ATMPRS.GetValue(), 101300.0);
    EXPECT_EQ(section.ZCYCL, -15.0);
    EXPECT_EQ(section.SUSTIF, 100000.0);
    EXPECT_EQ(section.JPRINT, 1);
    EXPECT_FALSE(section.HasDMData() || section.HasBSData() || section.HasBMData());
    EXPECT_EQ(Write(section), version4Text);
}

TEST(ControlSection, Version5HasTheProfileNameAndOptionalCounts) {
    const ControlSection section = Read(Version::V5, version5Text);
    EXPECT_EQ(section.profileName, "NORTH-01");
    EXPECT_EQ(section.NUMLAYM, 4);
    EXPECT_EQ(section.MIDBOT, 1);
    EXPECT_TRUE(section.HasDMData());
    EXPECT_EQ(*section.NUMDM, 2);
    // A count given as 0 is given.
    EXPECT_TRUE(section.HasBSData());
    EXPECT_EQ(*section.NUMBS, 0);
    EXPECT_FALSE(section.HasBMData());
    EXPECT_EQ(Write(section), version5Text);
}

TEST(ControlSection, ValuesSurviveOtherUnitSystems) {
    const ControlSection original = Read(Version::V5, version5Text);
    const std::string inNewtonMillimetre = Write(original, "N", "mm");
    EXPECT_NE(inNewtonMillimetre.find("1.00518e-05 GAMMAW"), std::string::npos) << inNewtonMillimetre;
    EXPECT_NE(inNewtonMillimetre.find("    0.1013 ATMPRS"), std::string::npos) << inNewtonMillimetre;
    const ControlSection back = Read(Version::V5, inNewtonMillimetre, "N", "mm");
    EXPECT_EQ(back.GAMMAW, original.GAMMAW);
    EXPECT_EQ(back.ATMPRS, original.ATMPRS);
    EXPECT_EQ(back.SUSTIF, original.SUSTIF);
    EXPECT_EQ(Write(back), version5Text);
    // CONFRC and CONLTH are factors, never converted.
    EXPECT_EQ(Read(Version::V4, Write(Read(Version::V4, version4Text), "lbf", "ft"), "lbf", "ft").CONFRC, 1.0);
}

TEST(ControlSection, EachVersionWritesOnlyItsOwnLines) {
    ControlSection version5(Version::V5);
    const std::string text = Write(version5);
    EXPECT_EQ(text.find("MIDBOT"), std::string::npos);
    EXPECT_EQ(text.find("NUMTYP"), std::string::npos);
    EXPECT_EQ(text.find("NUMDM"), std::string::npos);
    EXPECT_EQ(version5.MIDBOT, 1);
    EXPECT_EQ(Write(ControlSection(Version::V4)).find("NUMLAYM"), std::string::npos);
    // A new section holds sea water and the atmosphere in newton and metre.
    EXPECT_EQ(version5.GAMMAW.GetValue(), 10051.8);
    EXPECT_EQ(version5.ATMPRS.GetValue(), 101300.0);
}

