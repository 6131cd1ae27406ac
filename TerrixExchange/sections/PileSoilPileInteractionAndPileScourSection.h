#pragma once

#include <string>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// A row of pile-soil-pile interaction and pile scour data: a number, a text
// and a value. The library neither reads nor writes this data in a TERRIX
// file; a host keeps it with a profile's sections.
class PileSoilPileInteractionAndPileScourSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(number, text, value); }

    int number = 0;
    std::string text;
    double value = 0.0;
};


// Pile-soil-pile interaction and pile scour data: its rows in the order
// they were given. It has no place in the file layout, so no Serialize.
class PileSoilPileInteractionAndPileScourSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(records); }

    std::vector<PileSoilPileInteractionAndPileScourSectionRecord> records;
};


}  // namespace TerrixExchange
