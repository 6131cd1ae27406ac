#pragma once

#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// "SOIL SURFACE AND GROUND WATER SECTION": where the soil starts, how deep
// it is scoured and where the ground water stands. The same lines in every
// version.
class SoilSurfaceAndGroundWaterSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(ZSURF, SCRGEN, SCRLOC, SLOPE, ZGRWT, GAMPWP); }

    // Ground water weighs as sea water (the control section's default for
    // GAMMAW) until a file says otherwise; every level and depth is 0.
    SoilSurfaceAndGroundWaterSection();

    template <class Archive>
    void Serialize(Archive& archive);

    // Levels and depths are converted as lengths, GAMPWP as a force per
    // volume; all are held in database units.

    // Z-level of the soil surface before scour; the first layer starts here.
    double ZSURF = 0.0;
    // Depths of general and of local scour below ZSURF.
    double SCRGEN = 0.0;
    double SCRLOC = 0.0;
    // Side slope of local scour holes, in degrees as the file gives it:
    // degrees are the same in every unit system, so it is never converted.
    double SLOPE = 0.0;
    // Z-level of the ground water table.
    double ZGRWT = 0.0;
    // Unit weight of the ground water, from which pore pressures follow.
    double GAMPWP;
};


}  // namespace TerrixExchange
