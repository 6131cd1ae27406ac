// A profile that a host builds or edits is written as it stands; whether it
// reads back as the same profile is for the host to ask before Export.

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Messages = std::vector<std::string>;

}  // namespace

TEST(Inconsistencies, ImportedProfilesHaveNoneAndEachEditThatBreaksTheReadingBackIsNamed) {
    for (const char* name : {"north-sea-v4.terrix", "north-sea-v5.terrix", "offshore-v5.terrix"})
        EXPECT_EQ(ExampleProfile(name).FindInconsistencies(), Messages()) << name;

    // Version 4: a soil type and a level added without their counts, a
    // division covering layer 11 beyond NUMLAY, a curve lost, one point and
    // one distance too many, a displacement level too few, and M-theta
    // curves whose count is gone.
    Terrix v4 = ExampleProfile("north-sea-v4.terrix");
    TerrixInputData& data = v4.GetTerrixInputData();
    data.soilTypeAndPropertySection.records.emplace_back();
    data.skinFrictionAndTipResistanceSectionV4.records.emplace_back();
    data.soilLayerDivisionsAndCodesForPyTzQzSection.records.push_back({11, 11, 4, Length(50.0), 287, 293, 293});
    data.manualQzPileTipResistanceDataSection.records.pop_back();
    data.manualPyLateralResistanceDataSection.records[1].resistances.push_back(1.0);
    data.loadsAtSoilSurfaceSection.distances.emplace_back(4.0);
    data.givenSoilDisplacementsAndOpenHoleSection.records.pop_back();
    data.controlSection.NUMDM = boost::none;
    EXPECT_EQ(v4.FindInconsistencies(),
              (Messages{"NUMTYP is 4 but 'SOIL TYPE AND PROPERTY SECTION' holds 5 records",
                        "NUMTQZ is 6 but 'SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION' holds 7 records",
                        "NUMLAY is 10 but the first 4 of the 5 divisions of 'SOIL LAYER DIV ...' cover it: the others "
                        "are not read back",
                        "'MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION' holds 5 curves but is read with 6: one per "
                        "manual Q-Z layer and pile diameter",
                        "'MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION' holds 2 curves but NUMDM is not given: "
                        "they are not written",
                        "'M-THETA (DISTRIBUTED MOMENT) DATA MODIFICATION SECTION' holds 1 row but NUMDM is not "
                        "given: they are not written",
                        "Curve 2 of 'MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION' has 7 values on its first line but "
                        "6 on its second",
                        "'LOADS AT SOIL SURFACE SECTION' holds 2 point forces but 3 distances",
                        "NUMDSP is 2 but 'GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION' holds 1 record"}));
    // The counts follow their tables; what no count can mend stays.
    Terrix counted = v4;
    counted.SetCountsFromTables();
    const ControlSection& control = counted.GetTerrixInputData().controlSection;
    EXPECT_EQ(std::vector<int>({control.NUMTYP, control.NUMTQZ, control.NUMLAY, control.NUMDSP, *control.NUMDM}),
              std::vector<int>({5, 7, 11, 1, 2}));
    EXPECT_EQ(counted.FindInconsistencies(),
              (Messages{"'MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION' holds 5 curves but is read with 6: one per "
                        "manual Q-Z layer and pile diameter",
                        "Curve 2 of 'MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION' has 7 values on its first line but "
                        "6 on its second",
                        "'LOADS AT SOIL SURFACE SECTION' holds 2 point forces but 3 distances"}));
    data.soilLayerDivisionsAndCodesForPyTzQzSection.records.resize(3);
    EXPECT_EQ(v4.FindInconsistencies()[2], "NUMLAY is 10 but the divisions of 'SOIL LAYER DIV ...' cover 7 layers");

    // Version 5: a main layer too few in one of its three tables, AK values
    // a layout without AK drops, a name that would break its line, and a
    // version of its own in the control section.
    Terrix v5 = ExampleProfile("north-sea-v5.terrix");
    v5.GetTerrixInputData().skinFrictionAndTipResistanceSectionV5.records.pop_back();
    v5.SetRevision(Revision::WithoutAK);
    v5.GetTerrixInputData().controlSection.profileName = "NS\nA12";
    v5.GetTerrixInputData().controlSection.version = Version::V4;
    EXPECT_EQ(v5.FindInconsistencies(),
              (Messages{"The control section is of version 4 but the profile of version 5",
                        "The profile name holds a line break",
                        "NUMLAYM is 4 but 'SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION' holds 3 records",
                        "'SOIL MAIN LAYERS AND PROPERTIES SECTION' is laid out without AK, but main layer 4 holds an "
                        "AK: it is not written"}));
    // NUMLAYM follows the main layer table; the tables that disagree with it
    // are not mended.
    v5.SetCountsFromTables();
    EXPECT_EQ(v5.FindInconsistencies()[2],
              "NUMLAYM is 4 but 'SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION' holds 3 records");
    EXPECT_EQ(Terrix(Version::Unknown).FindInconsistencies(),
              Messages{"The version is neither 4 nor 5: no section is written"});
}
