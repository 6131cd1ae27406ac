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

// The axial soil data of one main layer of a version 5 file, with values at
// the top and the bottom of the main layer. The columns are named after
// their two header lines; the values are kept as written.
class SkinFrictionAndTipResistanceSectionV5Record {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const {
        return std::tie(MAIN_LAYER, CALC_METH, SKINC_TOP, SKINC_BOT, SKINT_TOP, SKINT_BOT, SIGTIP_TOP, SIGTIP_BOT,
                        G0_FACT, TRES_TMAX, TZZRES);
    }

    template <class Archive>
    void Serialize(Archive& archive);

    // The main layer the record belongs to.
    std::int32_t MAIN_LAYER = 0;
    // 0 = given values, 1 = API-93, 2 = ICP-05, 3 = NGI-05.
    std::int32_t CALC_METH = 0;
    // Skin friction in compression, at the top and the bottom.
    double SKINC_TOP = 0.0;
    double SKINC_BOT = 0.0;
    // Skin friction in tension.
    double SKINT_TOP = 0.0;
    double SKINT_BOT = 0.0;
    // Tip resistance.
    double SIGTIP_TOP = 0.0;
    double SIGTIP_BOT = 0.0;
    // A factor on the soil shear modulus.
    double G0_FACT = 0.0;
    // Residual over maximum skin friction.
    double TRES_TMAX = 0.0;
    double TZZRES = 0.0;
};


// "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION" of a version 5 file:
// the pile of the axial capacity calculation, then axial soil data per main
// layer. The file gives no record count; the control section's NUMLAYM does.
class SkinFrictionAndTipResistanceSectionV5 {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(DIAMP, WALL, ZTIP, MATPIL, records); }

    using Record = SkinFrictionAndTipResistanceSectionV5Record;
    using const_iterator = std::vector<Record>::const_iterator;

    // The first record of the layer's main layer; end() when there is none.
    const_iterator FindLayer(const Layer& layer) const;

    // `count`: the number of main layers (records) to read.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    // The pile's outside diameter, tip wall thickness and tip level.
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DIAMP;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> WALL;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZTIP;
    // The pile wall material: 1 = steel, 2 = concrete.
    std::int32_t MATPIL = 0;
    std::vector<Record> records;
};


}  // namespace TerrixExchange
