#pragma once

#include <string>
#include <vector>

#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// A row of pile-soil-pile interaction and pile scour data: a number, a text
// and a value. The library neither reads nor writes this data in a TERRIX
// file; a host keeps it with a profile's sections.
class PileSoilPileInteractionAndPileScourSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    int number = 0;
    std::string text;
    double value = 0.0;
};

bool operator==(const PileSoilPileInteractionAndPileScourSectionRecord& left,
                const PileSoilPileInteractionAndPileScourSectionRecord& right);
bool operator!=(const PileSoilPileInteractionAndPileScourSectionRecord& left,
                const PileSoilPileInteractionAndPileScourSectionRecord& right);

// Pile-soil-pile interaction and pile scour data: its rows in the order
// they were given. It has no place in the file layout, so no Serialize.
class PileSoilPileInteractionAndPileScourSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    std::vector<PileSoilPileInteractionAndPileScourSectionRecord> records;
};

bool operator==(const PileSoilPileInteractionAndPileScourSection& left,
                const PileSoilPileInteractionAndPileScourSection& right);
bool operator!=(const PileSoilPileInteractionAndPileScourSection& left,
                const PileSoilPileInteractionAndPileScourSection& right);

}  // namespace TerrixExchange
