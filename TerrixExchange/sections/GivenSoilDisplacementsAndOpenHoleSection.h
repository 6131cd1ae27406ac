#pragma once

#include <cstddef>
#include <vector>

#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// A Z-level with a prescribed soil displacement and an open hole, a row of
// the given soil displacements table. The members are the table's columns
// in the file's order, named by their column titles ("DSP-X" as DSP_X). All
// five are lengths and are converted between unit systems.
class GivenSoilDisplacementsAndOpenHoleSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    template <class Archive>
    void Serialize(Archive& archive);

    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZLEV;
    // The soil displacement given at ZLEV, in X, Y and Z.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DSP_X;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DSP_Y;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DSP_Z;
    // The diameter of the open hole at ZLEV.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> HOLE_DIAM;
};

bool operator==(const GivenSoilDisplacementsAndOpenHoleSectionRecord& left,
                const GivenSoilDisplacementsAndOpenHoleSectionRecord& right);
bool operator!=(const GivenSoilDisplacementsAndOpenHoleSectionRecord& left,
                const GivenSoilDisplacementsAndOpenHoleSectionRecord& right);

// "GIVEN SOIL DISPLACEMENTS AND OPEN HOLE SECTION", the last section of a
// profile in both versions: the rows in file order, whatever the order of
// their Z-levels. The file holds no count of its own: the control section's
// NUMDSP says how many rows there are.
class GivenSoilDisplacementsAndOpenHoleSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    std::vector<GivenSoilDisplacementsAndOpenHoleSectionRecord> records;
};

bool operator==(const GivenSoilDisplacementsAndOpenHoleSection& left,
                const GivenSoilDisplacementsAndOpenHoleSection& right);
bool operator!=(const GivenSoilDisplacementsAndOpenHoleSection& left,
                const GivenSoilDisplacementsAndOpenHoleSection& right);

}  // namespace TerrixExchange
