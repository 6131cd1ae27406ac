#pragma once

#include <cstdint>
#include <map>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/sections/BMthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/BSYBaseShearDataModificationSection.h>
#include <TerrixExchange/sections/ManualCurve.h>
#include <TerrixExchange/sections/MthetaMomentDataModificationSection.h>
#include <TerrixExchange/sections/PyLateralResistanceDataModificationSection.h>
#include <TerrixExchange/sections/QzPileTipResistanceDataModificationSection.h>
#include <TerrixExchange/sections/TzSkinFrictionDataModificationSection.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// What a profile says about one kind of pile-soil curve for one layer, per
// pile diameter: the curves given point by point in the manual curve
// section, and the factors of the modification section. The library does
// not generate curves; it reports what the file gives.
//
// Comparison is exact: equal codes, maps of equal size with equal diameters
// and equal numbers in key order. A NaN anywhere is never equal, not even to
// itself, so layers whose data hold one are never taken for the same.

// The P-Y, T-Z and Q-Z data carry the layer's curve code: 0 (written 000)
// takes the manual curves; any other code names a method by which the
// generator makes the curve (100+N, 200, 214, 284, 287, 293, 380, 404) and is
// passed through unchanged. A default-built value has code 0 and empty maps.
template <class Curve, class Modification>
struct BasicCodedCurveData {
    TERRIX_ALLOCATION_OPERATORS

    std::int32_t code = 0;
    // pile diameter -> the manual curve of the layer at that diameter
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Curve> manualCurves;
    // pile diameter -> the factors that apply to the layer at that diameter
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Modification> modifications;

    auto Fields() const { return std::tie(code, manualCurves, modifications); }
};

// The M-theta, BS-Y and BM-theta data have no code: a layer has a manual
// curve wherever the file gives one.
template <class Curve, class Modification>
struct BasicCurveData {
    TERRIX_ALLOCATION_OPERATORS

    // pile diameter -> the manual curve of the layer at that diameter
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Curve> manualCurves;
    // pile diameter -> the factors that apply to the layer at that diameter
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Modification> modifications;

    auto Fields() const { return std::tie(manualCurves, modifications); }
};

// P-Y (lateral resistance).
using PyData = BasicCodedCurveData<ManualCurve, PyModification>;
// T-Z (skin friction).
using TzData = BasicCodedCurveData<ManualCurve, TzModification>;
// Q-Z (pile tip resistance).
using QzData = BasicCodedCurveData<ManualCurve, QzModification>;
// M-theta (distributed moment).
using MThetaData = BasicCurveData<ManualDistributedMomentCurve, MThetaModification>;
// BS-Y (base shear).
using BSYData = BasicCurveData<ManualForceCurve, BSYModification>;
// BM-theta (base moment).
using BMThetaData = BasicCurveData<ManualMomentCurve, BMThetaModification>;

}  // namespace TerrixExchange
