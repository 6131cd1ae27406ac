#pragma once

#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// "MATERIAL COEFFICIENTS SECTION": the four material (safety) coefficients of
// the profile. They are plain factors and are never unit-converted. A new
// profile holds 1.0 in each, the coefficient that leaves a value as it is.
class MaterialCoefficientsSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(SFTPHI, SFSU, SFSKF, SFSIGT); }

    template <class Archive>
    void Serialize(Archive& archive);

    double SFTPHI = 1.0;  // on tan(phi)
    double SFSU = 1.0;    // on the undrained shear strength
    double SFSKF = 1.0;   // on the pile skin friction
    double SFSIGT = 1.0;  // on the pile tip resistance
};


}  // namespace TerrixExchange
