#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>
#include <tuple>


#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// One division of a version 4 file: the numbered soil layers LAYER1 to
// LAYER2 (inclusive), their soil type, the bottom of the division and the
// codes that generate their curves (000 = manual, 100+N = automatic).
class SoilLayerDivisionsAndCodesForPyTzQzSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(LAYER1, LAYER2, TYP, ZBOTM, PYCODE, TZCODE, QZCODE); }

    // The division as one layer from `top` down to ZBOTM; the soil type
    // stands in the layer's main-layer slot, since version 4 looks soil
    // properties up by type.
    Layer GetLayer(Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> top) const;
    // LAYER2 - LAYER1 + 1, unchecked: a division written backwards gives 0
    // or a wrapped-around count.
    std::size_t GetSublayerCount() const;
    // Whether one of the three curves is given by hand (code 0).
    bool HasManualCodes() const;

    template <class Archive>
    void Serialize(Archive& archive);

    std::int32_t LAYER1 = 0;
    std::int32_t LAYER2 = 0;
    std::int32_t TYP = 0;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZBOTM;
    std::int32_t PYCODE = 0;
    std::int32_t TZCODE = 0;
    std::int32_t QZCODE = 0;
};


// "SOIL LAYER DIV ...": the layers of a version 4 file, top to bottom. The
// file gives no count of divisions; the table ends when its divisions cover
// the number of soil layers of the control section (NUMLAY).
class SoilLayerDivisionsAndCodesForPyTzQzSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(records); }

    using Record = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;
    using const_iterator = std::vector<Record>::const_iterator;

    // One layer per division, each starting where the one above ends and the
    // first at `top` (the seafloor).
    std::vector<Layer> GetLayers(Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> top) const;
    // The first division that holds the layer's first numbered layer; end()
    // when none does.
    const_iterator FindLayer(const Layer& layer) const;
    // The numbered soil layers the divisions cover.
    std::size_t GetLayerCount() const;
    // The numbered layers that need a manual curve of each kind, and so the
    // number of curves the manual sections hold per pile diameter.
    std::size_t GetManualPYRecordCount() const;
    std::size_t GetManualTZRecordCount() const;
    std::size_t GetManualQZRecordCount() const;

    // `layerCount`: the number of soil layers the divisions must cover.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t layerCount);

    std::vector<Record> records;
};


}  // namespace TerrixExchange
