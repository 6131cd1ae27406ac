#pragma once

#include <cstddef>

#include <TerrixExchange/sections/ManualCurveSection.h>

namespace TerrixExchange {

// "MANUAL BM-THETA (BASE MOMENT) DATA SECTION".
// BM-theta (base moment) curves, one per layer and pile diameter that has one.
// BM (line 1) is a moment, force x length; THETA (line 2) is in radians.
struct ManualBMthetaCurves {
    TERRIX_ALLOCATION_OPERATORS

    static constexpr const char* title = "MANUAL BM-THETA (BASE MOMENT) DATA SECTION";
    static constexpr const char* header =
        "LAY       DIAM      NUMPNT  LINE1 : BM-VALUES (F*L)  LINE2 : THETA-VALUES (RAD)";
    static constexpr const char* line1 = "BM-VALUES";
    static constexpr const char* line2 = "THETA-VALUES";
    static constexpr const char* missingCurve = "Manual Base Moment curve not defined";
    using Resistance = Units::Runtime::MomentPhenomenon;
    using Displacement = Units::Runtime::AnglePhenomenon;
    using Curve = ManualMomentCurve;
};

using ManualBMthetaMomentDataSectionRecord = BasicManualCurveSectionRecord<ManualBMthetaCurves>;

class ManualBMthetaMomentDataSection : public BasicManualCurveSection<ManualBMthetaCurves> {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Whether the section gives a curve for this layer and diameter: such
    // curves are taken wherever the file gives one, whatever the layer's codes.
    using BasicManualCurveSection::HasManualCurve;

    // Reads or writes `count` curves: NUMBM of the control section.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);
};

}  // namespace TerrixExchange
