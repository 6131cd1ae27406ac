#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL BS-Y (BASE SHEAR) DATA SECTION".
// BS-Y (base shear) curves, one per layer and pile diameter that has one. BS
// (line 1) is a force, Y (line 2) a length.
struct ManualBSYCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL BS-Y (BASE SHEAR) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : BS-VALUES (F)  LINE2 : Y-VALUES (L)";
    static constexpr const char* line1 = "BS-VALUES";
    static constexpr const char* line2 = "Y-VALUES";
    static constexpr const char* missingCurve = "Manual Base Shear curve not defined";
    using Resistance = Units::Runtime::ForcePhenomenon;
    using Displacement = Units::Runtime::LengthPhenomenon;
    using Curve = ManualForceCurve;
};

using ManualBSYBaseShearDataSectionRecord = BasicManualCurveSectionRecord<ManualBSYCurves>;

class ManualBSYBaseShearDataSection : public BasicManualCurveSection<ManualBSYCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Whether the section gives a curve for this layer and diameter: such
    // curves are taken wherever the file gives one, whatever the layer's codes.
    using BasicManualCurveSection::HasManualCurve;

    // Reads or writes `count` curves: NUMBS of the control section.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
