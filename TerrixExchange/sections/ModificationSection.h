#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <tuple>
#include <vector>

#include <boost/optional.hpp>

#include <TerrixExchange/sections/FieldEquality.h>
#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixExchange/sections/ModificationSectionRecord.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

// The factors of a modification struct (PyModification and the others), in
// the order of their columns. A struct lists them once, with their column
// titles, in
//   template <class Self> static auto Columns(Self& modification)
// returning a tuple of Column(...) fields; reading, writing, describing and
// comparing all go through that list. Comparison is exact.
template <class Modification>
struct ModificationFactors {
    TERRIX_ALLOCATION_OPERATORS

    // The factors alone, as std::tie of the members.
    template <class Self>
    static auto Factors(Self& modification) {
        return std::apply([](auto... columns) { return std::tie(columns.field...); },
                          Modification::Columns(modification));
    }

    friend bool operator==(const Modification& left, const Modification& right) {
        return Factors(left) == Factors(right);
    }
    friend bool operator!=(const Modification& left, const Modification& right) { return !(left == right); }
};

// The six modification sections (P-Y, T-Z, Q-Z, M-theta, BS-Y, BM-theta)
// scale the curves of chosen layers and pile diameters. They share one layout
// and one lookup; a Kind tells them apart:
//
//   struct Kind {
//       using Modification = ...;                          // the row's factors
//       static constexpr const char* title;                // the title line
//       static constexpr const char* header;               // the column header
//       static constexpr int columnWidth;                  // 0: the archive's
//       static constexpr const char* missingModification;  // nullptr: defaults
//   };
//
// A row is LAY1 LAY2 DIAM and the factors, on one line.
template <class Kind>
class BasicModificationSectionRecord : public ModificationSectionRecord {
public:
    TERRIX_ALLOCATION_OPERATORS

    using Modification = typename Kind::Modification;

    Modification GetModification() const { return modification; }

    template <class Archive>
    void Serialize(Archive& archive) {
        const ColumnWidthScope<Archive> width(archive, Kind::columnWidth);
        std::apply(
            [&](auto... factors) {
                archive.Row(Column("LAY1", LAY1), Column("LAY2", LAY2), Column("DIAM", DIAM), factors...);
            },
            Modification::Columns(modification));
    }

    Modification modification;

    auto Fields() const { return std::tuple_cat(ModificationSectionRecord::Fields(), std::tie(modification)); }

private:
    // Sets the exporter's column width for one row and gives the previous
    // width back afterwards; a width of 0 keeps the archive's.
    template <class Archive>
    class ColumnWidthScope {
    public:
        TERRIX_ALLOCATION_OPERATORS

        ColumnWidthScope(Archive& archive, int width) : archive_(archive), previous_(archive.GetColumnWidth()) {
            if (width > 0) archive_.SetColumnWidth(width);
        }
        ColumnWidthScope(const ColumnWidthScope&) = delete;
        ColumnWidthScope& operator=(const ColumnWidthScope&) = delete;
        ~ColumnWidthScope() { archive_.SetColumnWidth(previous_); }

    private:
        Archive& archive_;
        int previous_;
    };
};

template <class Kind>
class BasicModificationSection {
public:
    TERRIX_ALLOCATION_OPERATORS

    using Record = BasicModificationSectionRecord<Kind>;
    using Modification = typename Kind::Modification;

    // The section's title line.
    static const char* GetTitle() { return Kind::title; }

    // How many (layer, diameter) pairs the rows cover together, in a profile
    // of `layerCount` layers and `diameterCount` pile diameters; a pair that
    // two rows cover counts twice.
    std::size_t GetLayerCount(std::size_t layerCount, std::size_t diameterCount) const {
        std::size_t count = 0;
        for (const Record& record : records) count += record.GetLayerCount(layerCount, diameterCount);
        return count;
    }

    // The factors of the first row, in file order, that covers the layer and
    // the diameter. When none does, the P-Y, T-Z and Q-Z sections throw
    // std::runtime_error ("Unable to find PY modifications" and so on): their
    // curves are always modified, and rows "0 0 0.0" are how a file covers
    // every layer and diameter. The M-theta, BS-Y and BM-theta sections give
    // the identity factors instead, since their curves are rare.
    Modification GetModification(int layer,
                                 const Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>& diameter) const {
        for (const Record& record : records)
            if (record.HasLayer(layer) && record.HasDiameter(diameter)) return record.GetModification();
        return WithoutRow();
    }

    // What GetModification gives for each of `diameters`, from one pass over
    // the rows that picks those covering the layer (the first row still
    // wins), instead of one pass over all rows per diameter.
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Modification> GetModifications(
        int layer, const std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>>& diameters) const {
        return ModificationsOf(FindFirstRows(layer, diameters), diameters);
    }

    // For each of `diameters`, the first row in file order that covers the
    // layer at that diameter; null where none does.
    std::vector<const Record*> FindFirstRows(
        int layer, const std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>>& diameters) const {
        std::vector<const Record*> covering;
        for (const Record& record : records)
            if (record.HasLayer(layer)) covering.push_back(&record);
        std::vector<const Record*> firstRows;
        for (const auto& diameter : diameters) {
            const auto found = std::find_if(covering.begin(), covering.end(),
                                            [&](const Record* record) { return record->HasDiameter(diameter); });
            firstRows.push_back(found != covering.end() ? *found : nullptr);
        }
        return firstRows;
    }

    // The factors of those rows by diameter; a diameter without a row gets
    // what GetModification gives then, in the order of `diameters`.
    std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Modification> ModificationsOf(
        const std::vector<const Record*>& firstRows,
        const std::vector<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>>& diameters) const {
        std::map<Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>, Modification> modifications;
        for (std::size_t i = 0; i < diameters.size(); ++i)
            modifications[diameters[i]] = firstRows[i] != nullptr ? firstRows[i]->GetModification() : WithoutRow();
        return modifications;
    }

    // The rows in file order.
    std::vector<Record> records;

    auto Fields() const { return std::tie(records); }

protected:
    // What a layer and diameter that no row covers get (see GetModification).
    static Modification WithoutRow() {
        if constexpr (Kind::missingModification != nullptr) throw std::runtime_error(Kind::missingModification);
        return Modification::defaultModification;
    }

    // The first row, in file order, that covers the layer, whatever its
    // diameter: an all-layers row that stands before a row naming the layer
    // wins. Empty when no row covers it. Made public by the sections that
    // offer it (T-Z, M-theta, BS-Y, BM-theta).
    boost::optional<Record> GetModificationForLayer(int layer) const {
        for (const Record& record : records)
            if (record.HasLayer(layer)) return record;
        return boost::none;
    }

    // The title, the column header and the rows: the file holds no count, so
    // rows are read as long as the next line starts with a number.
    template <class Archive>
    void SerializeSection(Archive& archive) {
        const auto guard = archive.BeginSection(Kind::title);
        archive.TableHeader(Kind::header);
        archive.OpenRecordVector(records);
    }
};

}  // namespace TerrixExchange
