#pragma once

#include <cstddef>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// A Z-level with a prescribed soil displacement and an open hole, a row of
// the given soil displacements table. The members are the table's columns
// in the file's order, named by their column titles ("DSP-X" as DSP_X). All
// five are lengths, converted between unit systems and held in database
// units.
class GivenSoilDisplacementsAndOpenHoleSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(ZLEV, DSP_X, DSP_Y, DSP_Z, HOLE_DIAM); }

    template <class Archive>
    void Serialize(Archive& archive);

    double ZLEV = 0.0;
    // The soil displacement given at ZLEV, in X, Y and Z.
    double DSP_X = 0.0;
    double DSP_Y = 0.0;
    double DSP_Z = 0.0;
    // The diameter of the open hole at ZLEV.
    double HOLE_DIAM = 0.0;
};


// "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", the last section of a
// profile in both versions: the rows in file order, whatever the order of
// their Z-levels. The file holds no count of its own: the control section's
// NUMDSP says how many rows there are.
class GivenSoilDisplacementsAndOpenHoleSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(records); }

    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    std::vector<GivenSoilDisplacementsAndOpenHoleSectionRecord> records;
};


}  // namespace TerrixExchange
