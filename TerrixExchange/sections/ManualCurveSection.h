#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <vector>
#include <tuple>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixExchange/sections/ManualCurve.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// The six manual curve sections (P-Y, T-Z, Q-Z, M-theta, BS-Y, BM-theta) give
// curves point by point where a layer's curve code is 000 (manual). They share
// one layout and one lookup; a Kind tells them apart:
//
//   struct Kind {
//       static constexpr const char* title;         // the section's title line
//       static constexpr const char* header;        // its column header line
//       static constexpr const char* line1;         // the header's title of
//       static constexpr const char* line2;         //   line 1 and line 2
//       static constexpr const char* missingCurve;  // GetManualCurve finds none
//       using Resistance = ...Phenomenon;           // the values of line 1
//       using Displacement = ...Phenomenon;         // the values of line 2
//       using Curve = ...;                          // what GetManualCurve gives
//   };
//
// A record is one curve for one layer and one pile diameter, on three lines:
//
//   LAY DIAM NUMPNT
//   NUMPNT resistances (line 1)
//   NUMPNT displacements (line 2)
//
// Each value line is a vector that may wrap over several lines. NUMPNT is not
// kept apart: it is the number of points of the curve.
template <class Kind>
class BasicManualCurveSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    template <class Archive>
    void Serialize(Archive& archive) {
        int NUMPNT = static_cast<int>(resistances.size());
        archive.Row(Column("LAY", LAY), Column("DIAM", DIAM), Column("NUMPNT", NUMPNT));
        const std::size_t points = NUMPNT > 0 ? static_cast<std::size_t>(NUMPNT) : 0;
        archive.Vector(Column(Kind::line1, AsQuantity<typename Kind::Resistance>(resistances)), points, "");
        archive.Vector(Column(Kind::line2, AsQuantity<typename Kind::Displacement>(displacements)), points, "");
    }

    // The layer (numbered from 1 at the top) and the pile diameter of the curve.
    int LAY = 0;
    Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon> DIAM;
    // Line 1 and line 2, point by point, in database units; equally long.
    std::vector<double> resistances;
    std::vector<double> displacements;

    auto Fields() const { return std::tie(LAY, DIAM, resistances, displacements); }
};

template <class Kind>
class BasicManualCurveSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    using Record = BasicManualCurveSectionRecord<Kind>;
    using Curve = typename Kind::Curve;

    // The section's title line.
    static const char* GetTitle() { return Kind::title; }

    // The curve of the first record, in file order, given for exactly this
    // layer and this diameter (no tolerance; 0 is a diameter like any other).
    // A displacement given twice keeps the resistance of its later point.
    // Throws std::runtime_error with the kind's message when there is none.
    Curve GetManualCurve(int layer, const Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>& diameter) const {
        const Record* record = FindRecord(layer, diameter);
        if (record == nullptr) throw std::runtime_error(Kind::missingCurve);
        return CurveOf(*record);
    }

    // The first record of each diameter given for the layer, found in one
    // pass over the records (a record whose diameter is no number has none).
    using RecordsOfLayer = std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, const Record*>;
    RecordsOfLayer FindRecordsOfLayer(int layer) const {
        RecordsOfLayer found;
        for (const Record& record : records)
            if (record.LAY == layer && IsNumber(record.DIAM)) found.emplace(record.DIAM, &record);
        return found;
    }
    // What GetManualCurve gives for each of `diameters`, from the records of
    // the layer so found instead of one pass over the records per diameter.
    // A diameter without a curve throws as GetManualCurve does when
    // `required`, and is left out otherwise.
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Curve> GetManualCurves(
        const RecordsOfLayer& layerRecords,
        const std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>>& diameters,
        bool required) const {
        std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Curve> curves;
        for (const auto& diameter : diameters) {
            const auto found = IsNumber(diameter) ? layerRecords.find(diameter) : layerRecords.end();
            if (found != layerRecords.end())
                curves[diameter] = CurveOf(*found->second);
            else if (required)
                throw std::runtime_error(Kind::missingCurve);
        }
        return curves;
    }

    // The curves in file order.
    std::vector<Record> records;

    auto Fields() const { return std::tie(records); }

protected:
    // Whether GetManualCurve finds a curve. The sections whose curves are
    // taken wherever the file gives one (M-theta, BS-Y, BM-theta) make it
    // public; the others take a curve only where the layer's code says manual.
    bool HasManualCurve(int layer, const Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>& diameter) const {
        return FindRecord(layer, diameter) != nullptr;
    }

    // The title, the column header and `count` curves: the file holds no
    // count of its own, the profile tells how many curves follow.
    template <class Archive>
    void SerializeSection(Archive& archive, std::size_t count) {
        const auto guard = archive.BeginSection(Kind::title);
        archive.TableHeader(Kind::header);
        archive.RecordVector(records, count);
    }

private:
    // A NaN diameter equals no diameter, and has no place among ordered keys.
    static bool IsNumber(const Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>& diameter) {
        return diameter == diameter;
    }

    // A displacement given twice keeps the resistance of its later point.
    static Curve CurveOf(const Record& record) {
        Curve curve;
        const std::size_t points = std::min(record.resistances.size(), record.displacements.size());
        for (std::size_t i = 0; i < points; ++i) curve.points[record.displacements[i]] = record.resistances[i];
        return curve;
    }

    const Record* FindRecord(int layer,
                             const Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>& diameter) const {
        for (const Record& record : records)
            if (record.LAY == layer && record.DIAM == diameter) return &record;
        return nullptr;
    }
};

}  // namespace TerrixExchange
