#pragma once

#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// "PILE DIAMETERS AND GROUP EFFECTS SECTION": the pile diameters for which
// curve data are wanted, and the soil stiffness of the group-effect
// calculation. The number of diameters sizes the manual-curve and
// modification tables further down the file.
class PileDiametersAndGroupEffectsSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(diameters, ESOL0, ESOL1, EVHRAT, POSAVR); }

    // The file's NUMDIA is not kept: it is the number of diameters. EVHRAT
    // is a line of version 5 files only.
    template <class Archive>
    void Serialize(Archive& archive, bool isVersion5);

    // In the order the file gives them (increasing, by the file's comment;
    // neither checked nor sorted).
    std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>> diameters;
    // Soil modulus for the group effect: ESOIL(Z) = ESOL0 + ESOL1 * Z, a
    // force per area and a force per volume, in database units.
    double ESOL0 = 0.0;
    double ESOL1 = 0.0;
    // EV(Z) / EH(Z), the vertical over the horizontal soil modulus for the
    // axial group effect; 1.0 (isotropic soil) until a file says otherwise.
    double EVHRAT = 1.0;
    // The soil's average Poisson ratio for group effects.
    double POSAVR = 0.0;
};


}  // namespace TerrixExchange
