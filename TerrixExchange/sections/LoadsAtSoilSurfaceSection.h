#pragma once

#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// "LOADS AT SOIL SURFACE SECTION": loads on the soil surface that raise the
// vertical stress in the soil: a uniform stress, an embankment, a circular
// loaded area around the pile and vertical point forces. The same lines in
// every version.
class LoadsAtSoilSurfaceSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(SIGSRF, DPEMB, AEMB, BEMB, DPCIRC, RADIUS, pointForces, distances); }

    // The file's NUMFRC is not kept: it is the number of point forces, and
    // the file gives as many distances. Both vectors are to have the same
    // length when the section is written.
    template <class Archive>
    void Serialize(Archive& archive);

    // Stresses are converted as forces per area, widths, positions and radii
    // as lengths; all are held in database units.

    // Vertical stress at the surface.
    double SIGSRF = 0.0;
    // Embankment: the vertical stress under it, the width A of its sloping
    // part, and the pile's position from its toe (positive outside).
    double DPEMB = 0.0;
    double AEMB = 0.0;
    double BEMB = 0.0;
    // Circular loaded area with the pile in its centre: the vertical stress
    // under it and its radius.
    double DPCIRC = 0.0;
    double RADIUS = 0.0;
    // Vertical point forces (converted as forces) and their horizontal
    // distances to the pile axis, one distance per force.
    std::vector<double> pointForces;
    std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>> distances;
};


}  // namespace TerrixExchange
