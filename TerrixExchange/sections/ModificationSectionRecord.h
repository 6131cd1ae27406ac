#pragma once

#include <cstddef>
#include <tuple>
#include <utility>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// The start of every row of a modification section: the range of layers and
// the pile diameter that the row's factors apply to. The value 0 is a
// wildcard here, and only here in the file: LAY1 = LAY2 = 0 is every layer,
// DIAM = 0 every diameter.
class ModificationSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // True for the all-layers row (0 0); otherwise when LAY1 <= layer <= LAY2.
    // A row such as 0 5 is an ordinary range, from layer 0 to layer 5.
    bool HasLayer(int layer) const;
    // The layers HasLayer holds, first and last: every int for the
    // all-layers row, an empty range (first > last) when LAY2 < LAY1.
    std::pair<int, int> GetLayerRange() const;
    // True for DIAM 0; otherwise when DIAM equals `diameter` exactly.
    bool HasDiameter(Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> diameter) const;
    // How many (layer, diameter) pairs the row covers in a profile of
    // `layerCount` layers and `diameterCount` pile diameters. A range whose
    // LAY2 is below its LAY1 covers none.
    std::size_t GetLayerCount(std::size_t layerCount, std::size_t diameterCount) const;

    int LAY1 = 0;
    int LAY2 = 0;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DIAM;

    // The columns that every modification row starts with, for == and !=.
    auto Fields() const { return std::tie(LAY1, LAY2, DIAM); }

private:
    bool IsAllLayers() const { return LAY1 == 0 && LAY2 == 0; }
};

}  // namespace TerrixExchange
