#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION".
// P-Y (lateral resistance) curves of the layers whose P-Y code is 000: one
// curve per manual layer and pile diameter. P (line 1) is a force per area, Y
// (line 2) a length.
struct ManualPyCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL P-Y (LATERAL RESISTANCE) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : P-VALUES (F/L**2)  LINE2 : Y-VALUES (L)";
    static constexpr const char* line1 = "P-VALUES";
    static constexpr const char* line2 = "Y-VALUES";
    static constexpr const char* missingCurve = "Manual PY curve not defined";
    using Resistance = Units::Runtime::ForcePerUnitAreaPhenomenon;
    using Displacement = Units::Runtime::LengthPhenomenon;
    using Curve = ManualCurve;
};

using ManualPyLateralResistanceDataSectionRecord = BasicManualCurveSectionRecord<ManualPyCurves>;

class ManualPyLateralResistanceDataSection : public BasicManualCurveSection<ManualPyCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Reads or writes `count` curves: the manual P-Y layers times the pile diameters.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
