#pragma once

#include <cstddef>
#include <utility>
#include <vector>
#include <tuple>

#include <boost/optional.hpp>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// The axial soil data of a version 4 file at one depth level. The columns
// are named after the header line; only the level is converted between unit
// systems, the other values are kept as written.
class SkinFrictionAndTipResistanceSectionV4Record {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(ZLEV, SKIN_CMP, SKIN_TNS, G0_SOIL, DSPTZ_DIAM, SIG_TIP, POIS, DSPQZ_DIAM); }

    // Where the level stands against the middle of a layer, (zTop + zBottom)
    // / 2. A level exactly at the middle is neither above nor below it.
    bool IsAboveMiddleOfLayer(const Layer& layer) const;
    bool IsBelowMiddleOfLayer(const Layer& layer) const;
    // zTop <= ZLEV <= zBottom, both ends included.
    bool IsPartOfLayer(const Layer& layer) const;

    template <class Archive>
    void Serialize(Archive& archive);

    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> ZLEV;
    // Skin friction in compression and in tension.
    double SKIN_CMP = 0.0;
    double SKIN_TNS = 0.0;
    // The soil shear modulus; a row of seven values leaves it out.
    boost::optional<double> G0_SOIL;
    // The T-Z displacement as a fraction of the pile diameter.
    double DSPTZ_DIAM = 0.0;
    // The tip resistance.
    double SIG_TIP = 0.0;
    // Poisson's ratio.
    double POIS = 0.0;
    // The Q-Z displacement as a fraction of the pile diameter.
    double DSPQZ_DIAM = 0.0;
};


// "SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION" of a version 4 file:
// axial soil data at depth levels, in file order (by increasing depth). A
// layer takes its values from the levels that bracket its middle. The file
// gives no count of levels; the control section's NUMTQZ does.
class SkinFrictionAndTipResistanceSectionV4 {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Every member, for == and != (exact: a NaN equals nothing).
    auto Fields() const { return std::tie(ZONINF, RFTZ, records); }

    using Record = SkinFrictionAndTipResistanceSectionV4Record;
    using const_iterator = std::vector<Record>::const_iterator;

    // The records that bracket the layer's middle, as a half-open range: from
    // the last record above the middle to the first record below it, both
    // included (with whatever lies between them in file order). With levels
    // on one side only, the one nearest record on that side; with no records,
    // an empty range. The records are taken in file order, not sorted; should
    // the levels stand out of depth order so that the first record below the
    // middle comes before the last one above it, the range is empty.
    std::pair<const_iterator, const_iterator> EqualRange(const Layer& layer) const;
    // The range EqualRange gives from the last record above the middle and
    // the first record below it (either the end when there is none), however
    // the two were found.
    std::pair<const_iterator, const_iterator> RangeBetween(const_iterator lastAbove, const_iterator firstBelow) const;

    // `count`: the number of levels to read.
    template <class Archive>
    void Serialize(Archive& archive, std::size_t count);

    // (Zone of influence) / (pile radius), for T-Z code 200.
    double ZONINF = 0.0;
    // The curve fitting factor RF, for T-Z code 200.
    double RFTZ = 0.0;
    std::vector<Record> records;
};


}  // namespace TerrixExchange
