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

// One main soil layer of a version 5 file: its bottom, into how many
// computational layers it is divided, the codes that generate its curves
// (000 = manual, 100+N = automatic; kept as written, not checked) and the
// open hole flag. The columns are named after their two header lines.
class MainLayersSubdivisionAndPyTzQzCodesSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const {
        return std::tie(MAIN_LAYER, ZBOTM, SUBDIVISION, PYCODE, TZCODE, QZCODE, OPEN_HOLE, MISC_VALUES);
    }

    // The main layer as one layer from `top` down to ZBOTM, its numbered
    // layers starting at `firstLayer`.
    Layer GetLayer(int firstLayer, Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> top) const;

    template <class Archive>
    void Serialize(Archive& archive);

    std::int32_t MAIN_LAYER = 0;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZBOTM;
    // 0 = automatic (from the pile nodes), 1 = none (one layer), N = N layers.
    std::int32_t SUBDIVISION = 0;
    std::int32_t PYCODE = 0;
    std::int32_t TZCODE = 0;
    std::int32_t QZCODE = 0;
    std::int32_t OPEN_HOLE = 0;
    // The miscellaneous soil layer values: all numbers after OPEN HOLE to the
    // end of the line (five by the header, but any number is kept).
    std::vector<double> MISC_VALUES;
};


// "MAIN LAYERS SUBDIVISION AND P-Y/T-Z/Q-Z CODES SECTION": the layers of a
// version 5 file, one record per main soil layer, top to bottom. The file
// gives no record count; the control section's NUMLAYM does.
class MainLayersSubdivisionAndPyTzQzCodesSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(NUMPIL, records); }

    using Record = MainLayersSubdivisionAndPyTzQzCodesSectionRecord;
    using const_iterator = std::vector<Record>::const_iterator;

    // One layer per main layer (not per computational layer: Layer::Split
    // cuts it up), each starting where the one above ends, the first at
    // `top` (the seafloor). Numbered layers run on from 1 over the
    // subdivisions, so subdivisions 3, 1, 2 start at layers 1, 4 and 5.
    std::vector<Layer> GetLayers(Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> top) const;
    // The sum of the subdivisions.
    std::size_t CountSubLayers() const;
    // The first record of the layer's main layer; end() when there is none.
    const_iterator FindLayer(const Layer& layer) const;
    // The computational layers that need a manual curve of each kind: the
    // subdivisions of the main layers with code 0. An automatic subdivision
    // (0) adds none.
    int GetManualPYRecordCount() const;
    int GetManualTZRecordCount() const;
    int GetManualQZRecordCount() const;

    // `count`: the number of main layers (records) to read.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    // The pile whose nodes decide automatic subdivisions.
    std::int32_t NUMPIL = 0;
    std::vector<Record> records;
};


}  // namespace TerrixExchange
