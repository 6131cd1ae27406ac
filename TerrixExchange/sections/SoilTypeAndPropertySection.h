#pragma once

#include <cstddef>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// One soil type of a version 4 profile, a row of the soil type table. The
// members are the table's columns in the file's order, named by their column
// titles ("SU.Z=0" as SU_Z0, "API-J" as API_J). A row takes two lines in the
// file: TYP to API-J, then GAP, RPRAT and TZZRES.
class SoilTypeAndPropertySectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(TYP, GAMTOT, PHI, SU_Z0, SU_Z100, EPSC, OCR, API_J, GAP, RPRAT, TZZRES); }

    template <class Archive>
    void Serialize(Archive& archive);

    // The soil type number, by which layers refer to the row.
    int TYP = 0;
    // Total unit weight of the soil.
    Units::Runtime::Quantity<Units::Runtime::ForcePerUnitVolumePhenomenon> GAMTOT;
    // Friction angle, in degrees.
    double PHI = 0.0;
    // Undrained shear strength at Z = 0 and at Z = 100 (100 in the file's
    // own length unit), converted as forces per area.
    double SU_Z0 = 0.0;
    double SU_Z100 = 0.0;
    // P-Y parameters: strain at half the peak strength, over-consolidation
    // ratio, and the API constant J. Plain numbers, never converted.
    double EPSC = 0.0;
    double OCR = 0.0;
    double API_J = 0.0;
    // Gap option (1 = a gap opens behind the pile) and RPRAT, stored as read.
    int GAP = 0;
    double RPRAT = 0.0;
    // The Z-displacement TZZRES of the T-Z curves.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> TZZRES;
};


// "SOIL TYPE AND PROPERTY SECTION" of a version 4 profile: the soil types in
// file order. The file holds no count of its own: the control section's
// NUMTYP says how many rows there are.
class SoilTypeAndPropertySection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(records); }

    using const_iterator = std::vector<SoilTypeAndPropertySectionRecord>::const_iterator;

    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    // The first row whose TYP is the layer's soil type (a version 4 layer
    // carries its soil type as mainLayer); end() of the records when none.
    const_iterator FindLayer(const Layer& layer) const;

    std::vector<SoilTypeAndPropertySectionRecord> records;
};


}  // namespace TerrixExchange
