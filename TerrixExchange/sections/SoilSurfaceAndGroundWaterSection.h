#pragma once

#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// "SOIL SURFACE AND GROUND WATER SECTION": where the soil starts, how deep
// it is scoured and where the ground water stands. The same lines in every
// version.
class SoilSurfaceAndGroundWaterSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Ground water weighs as sea water (the control section's default for
    // GAMMAW) until a file says otherwise; every level and depth is 0.
    SoilSurfaceAndGroundWaterSection();

    template <class Archive>
    void Serialize(Archive& archive);

    // Z-level of the soil surface before scour; the first layer starts here.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZSURF;
    // Depths of general and of local scour below ZSURF.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> SCRGEN;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> SCRLOC;
    // Side slope of local scour holes, in degrees as the file gives it:
    // degrees are the same in every unit system, so it is never converted.
    double SLOPE = 0.0;
    // Z-level of the ground water table.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZGRWT;
    // Unit weight of the ground water, from which pore pressures follow.
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GAMPWP;
};

bool operator==(const SoilSurfaceAndGroundWaterSection& left, const SoilSurfaceAndGroundWaterSection& right);
bool operator!=(const SoilSurfaceAndGroundWaterSection& left, const SoilSurfaceAndGroundWaterSection& right);

}  // namespace TerrixExchange
