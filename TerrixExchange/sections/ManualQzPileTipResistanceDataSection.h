#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION".
// Q-Z (pile tip resistance) curves of the layers whose Q-Z code is 000: one
// curve per manual layer and pile diameter. Q (line 1) is a force per area, Z
// (line 2) a length.
struct ManualQzCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL Q-Z (PILE TIP RESISTANCE) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : Q-VALUES (F/L**2)  LINE2 : Z-VALUES (L)";
    static constexpr const char* line1 = "Q-VALUES";
    static constexpr const char* line2 = "Z-VALUES";
    static constexpr const char* missingCurve = "Manual QZ curve not defined";
    using Resistance = Units::Runtime::ForcePerUnitAreaPhenomenon;
    using Displacement = Units::Runtime::LengthPhenomenon;
    using Curve = ManualCurve;
};

using ManualQzPileTipResistanceDataSectionRecord = BasicManualCurveSectionRecord<ManualQzCurves>;

class ManualQzPileTipResistanceDataSection : public BasicManualCurveSection<ManualQzCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Reads or writes `count` curves: the manual Q-Z layers times the pile diameters.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
