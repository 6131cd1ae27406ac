#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION".
// M-theta (distributed moment) curves, one per layer and pile diameter that
// has one. M (line 1) is a moment per length of pile (force x length /
// length), so it converts as a force; THETA (line 2) is in radians.
struct ManualMthetaCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL M-THETA (DISTRIBUTED MOMENT) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : M-VALUES (F*L/L)  LINE2 : THETA-VALUES (RAD)";
    static constexpr const char* line1 = "M-VALUES";
    static constexpr const char* line2 = "THETA-VALUES";
    static constexpr const char* missingCurve = "Manual M-Theta curve not defined";
    using Resistance = Units::Runtime::ForcePhenomenon;
    using Displacement = Units::Runtime::AnglePhenomenon;
    using Curve = ManualDistributedMomentCurve;
};

using ManualMthetaMomentDataSectionRecord = BasicManualCurveSectionRecord<ManualMthetaCurves>;

class ManualMthetaMomentDataSection : public BasicManualCurveSection<ManualMthetaCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Whether the section gives a curve for this layer and diameter: such
    // curves are taken wherever the file gives one, whatever the layer's codes.
    using BasicManualCurveSection::HasManualCurve;

    // Reads or writes `count` curves: NUMDM of the control section.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
