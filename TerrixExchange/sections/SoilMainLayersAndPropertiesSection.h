#pragma once

#include <cstddef>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// One main soil layer of a version 5 profile, a row of the main layer
// table. The members are the table's columns in the file's order, named by
// their column titles ("API-J" as API_J). A row takes two lines in the file:
// MAIN to SUTOP, then SUBOT, IP, EPSC, API-J and, in the table with that
// column, AK.
//
// Only ZBOTM is converted between unit systems. The other columns are kept
// as the file gives them: the file does not say in which units they are.
class SoilMainLayersAndPropertiesSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const {
        return std::tie(MAIN, ZBOTM, GAMTOT, CPTTOP, CPTBOT, PHI, DR, SUTOP, SUBOT, IP, EPSC, API_J, AK);
    }

    template <class Archive>
    void Serialize(Archive& archive, bool withAK);

    // The main layer number, by which layers refer to the row.
    int MAIN = 0;
    // Z-level of the bottom of the main layer.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZBOTM;
    // Total unit weight.
    double GAMTOT = 0.0;
    // CPT values at the top and the bottom of the layer.
    double CPTTOP = 0.0;
    double CPTBOT = 0.0;
    // Friction angle, in degrees.
    double PHI = 0.0;
    double DR = 0.0;
    // Undrained shear strength at the top and the bottom of the layer.
    double SUTOP = 0.0;
    double SUBOT = 0.0;
    int IP = 0;
    // P-Y parameters: strain at half the peak strength and the API constant J.
    double EPSC = 0.0;
    double API_J = 0.0;
    // 0.0 when the table has no AK column.
    double AK = 0.0;
};


// "SOIL MAIN LAYERS AND PROPERTIES SECTION" of a version 5 profile: the main
// layers in file order. The file holds no count of its own: the control
// section's NUMLAYM says how many rows there are.
//
// The table comes in two layouts, with a last column AK and without it;
// layoutRevision says which one the section holds (the values of Revision:
// 1 without AK, 2 with AK, 0 not yet settled). An unsettled or AK section is
// written with AK; on import it is read with AK if the text allows, and
// without AK otherwise.
class SoilMainLayersAndPropertiesSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(records, layoutRevision); }

    using const_iterator = std::vector<SoilMainLayersAndPropertiesSectionRecord>::const_iterator;

    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    // The first row whose MAIN is the layer's main layer; end() of the
    // records when none.
    const_iterator FindLayer(const Layer& layer) const;

    std::vector<SoilMainLayersAndPropertiesSectionRecord> records;
    int layoutRevision = 0;

private:
    // The header lines and rows in the layout of layoutRevision.
    template <class Archive>
    void SerializeTable(Archive& archive, std::size_t count);
};


}  // namespace TerrixExchange
