#pragma once

namespace TerrixExchange { namespace Units { namespace Runtime {

// A physical dimension as powers of force and length. A TERRIX file names no
// units, only a force unit and a length unit are ever chosen, so every
// quantity of the file is force^force x length^length (angles are pure numbers).
struct DynamicDimension {
    int force = 0;
    int length = 0;

    friend constexpr bool operator==(DynamicDimension a, DynamicDimension b) {
        return a.force == b.force && a.length == b.length;
    }
    friend constexpr bool operator!=(DynamicDimension a, DynamicDimension b) { return !(a == b); }
};

}}}  // namespace TerrixExchange::Units::Runtime
