#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL T-Z (SKIN FRICTION) DATA SECTION".
// T-Z (skin friction) curves of the layers whose T-Z code is 000: one curve
// per manual layer and pile diameter. T (line 1) is a force per area, Z (line
// 2) a length.
struct ManualTzCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL T-Z (SKIN FRICTION) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : T-VALUES (F/L**2)  LINE2 : Z-VALUES (L)";
    static constexpr const char* line1 = "T-VALUES";
    static constexpr const char* line2 = "Z-VALUES";
    static constexpr const char* missingCurve = "Manual TZ curve not defined";
    using Resistance = Units::Runtime::ForcePerUnitAreaPhenomenon;
    using Displacement = Units::Runtime::LengthPhenomenon;
    using Curve = ManualCurve;
};

using ManualTzSkinFrictionDataSectionRecord = BasicManualCurveSectionRecord<ManualTzCurves>;

class ManualTzSkinFrictionDataSection : public BasicManualCurveSection<ManualTzCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Reads or writes `count` curves: the manual T-Z layers times the pile diameters.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
