#pragma once

#include <map>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// A curve given point by point in a manual curve section: the resistance
// (line 1 of a curve record: P, T, Q, M, BS or BM) against the displacement
// (line 2: Y, Z or THETA), in ascending order of the displacement. Both are
// held in database units (newton, metre, radian), as the section holds them.
//
// The four kinds of curve have the same shape; the Kind only keeps a curve of
// one kind from being taken for a curve of another.
template <class Kind>
struct BasicManualCurve {
    TERRIX_ALLOCATION_OPERATORS

    // displacement -> resistance
    std::map<double, double> points;

    auto Fields() const { return std::tie(points); }
};

namespace ManualCurveKinds {
struct Resistance;         // P-Y, T-Z, Q-Z: force per area against length
struct DistributedMoment;  // M-theta: force x length per length against angle
struct Force;              // BS-Y: force against length
struct Moment;             // BM-theta: force x length against angle
}  // namespace ManualCurveKinds

using ManualCurve = BasicManualCurve<ManualCurveKinds::Resistance>;
using ManualDistributedMomentCurve = BasicManualCurve<ManualCurveKinds::DistributedMoment>;
using ManualForceCurve = BasicManualCurve<ManualCurveKinds::Force>;
using ManualMomentCurve = BasicManualCurve<ManualCurveKinds::Moment>;

}  // namespace TerrixExchange
