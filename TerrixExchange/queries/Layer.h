#pragma once

#include <cstdint>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// One computational soil layer of a profile. The layer-division sections
// build layers from their rows; the profile splits them into single numbered
// layers and merges neighbours whose curve data agree.
//
// Levels are depths that grow downwards, so zBottom > zTop for a layer of
// positive thickness. A layer covers the numbered soil layers firstLayer to
// firstLayer + layerCount - 1; the first of them stands for all when soil
// properties and curve data are looked up.
struct Layer {
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(mainLayer, firstLayer, layerCount, zTop, zBottom); }

    // The key of the layer's soil properties: the soil type number (column
    // TYP) in a version 4 file, the main layer number (column MAIN) in a
    // version 5 file.
    std::int32_t mainLayer = 0;
    // The number of the top numbered soil layer this layer covers; layers are
    // numbered consecutively from the top.
    std::int32_t firstLayer = 0;
    // How many consecutive numbered soil layers this layer covers.
    std::uint64_t layerCount = 0;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> zTop;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> zBottom;

    // The layer cut into layerCount layers of one numbered layer each, of
    // equal thickness and numbered on from firstLayer; the last piece ends
    // exactly at zBottom. A layer that covers no numbered layer gives none.
    std::vector<Layer> Split() const;

    // Extends this layer by `other`, the layer directly below it: the counts
    // add up and the bottom becomes the deeper of the two. Throws
    // std::runtime_error "Unable to join layers with incompatible main layers"
    // when the main layers differ, and leaves this layer unchanged then.
    void Merge(const Layer& other);
};


}  // namespace TerrixExchange
