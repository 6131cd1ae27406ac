#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <ostream>
#include <type_traits>
#include <vector>

#include <boost/function.hpp>
#include <boost/optional.hpp>
#include <boost/spirit/home/karma/stream/ostream_iterator.hpp>

#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixExchange/archive/NumberText.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

namespace TerrixExchange {

// Writes a TERRIX text through the sections' Serialize members, with Karma
// generators straight to the stream. Every value takes one column: a blank,
// then the value right-aligned in the rest of the column; a real is written
// with the shortest text that reads back as the same double, and a value
// whose text is wider than its column widens the column rather than lose a
// digit. Quantities are converted from database units to the export's unit
// system when a converter is given.
template <class OutputIterator>
class SpiritExporter {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Nothing to save: a section's guard on export. (Its own destructor
    // marks it as used where a section holds it.)
    struct SectionGuard {
        ~SectionGuard() {}
    };
    struct Position {};

    SpiritExporter(OutputIterator sink, int columnWidth,
                   const boost::optional<Units::Runtime::FastUnitConverter>& converter);
    SpiritExporter(const SpiritExporter&) = delete;
    SpiritExporter& operator=(const SpiritExporter&) = delete;

    int GetColumnWidth() const { return columnWidth_; }
    void SetColumnWidth(int columnWidth) { columnWidth_ = columnWidth; }
    void SetTitleMode(bool) {}
    Position GetPosition() const { return Position{}; }
    void SetPosition(const Position&) {}

    // --- Lines ---
    [[nodiscard]] SectionGuard BeginSection(const std::string& title) {
        SectionTitle(title);
        return SectionGuard{};
    }
    // "*** TITLE ***" with the title in a field of 25 columns.
    void SectionTitle(const std::string& title);
    void TableHeader(const std::string& text) { WriteLine(text); }
    void CommentLine(const std::string& text) { WriteLine(text); }
    void BlankLine() { WriteText("\n"); }
    void NextLine(bool) {}

    template <class Value>
    bool Parameter(Value&& value, const std::string& name, const std::string& comment) {
        WriteValue(value);
        WriteParameterName(name, comment);
        return true;
    }
    template <class Value>
    void RequiredParameter(Value&& value, const std::string& name, const std::string& comment) {
        Parameter(value, name, comment);
    }
    template <class Value>
    void OptionalParameter(const boost::optional<Value>& value, const std::string& name, const std::string& comment) {
        if (value) Parameter(*value, name, comment);
    }
    // "'", the text, "'", blanks up to 18 minus the text's length, the comment.
    void StringParameter(const std::string& value, const std::string& name, const std::string& comment);
    // A table's layout shows in its lines alone.
    template <std::size_t Count>
    void LayoutChoice(const char*, int, const LayoutName (&)[Count]) {}

    // --- The frame of a profile ---
    void WriteLine(const std::string& text);
    // "TERRIX", then the header's lines (it holds them joined by "\n").
    void Header(const std::string& header);
    // "TERRIX Version: yyyy-mm-dd" when `isVersion`.
    void VersionLine(bool isVersion, int year, int month, int day);
    // After the last profile, an empty line and the end line when asked for.
    void EndOfProfiles(bool isLast, bool withEndLine) {
        if (!isLast || !withEndLine) return;
        BlankLine();
        WriteLine("END OF TERRIX INPUT FILE");
    }
    void ProfileMarker() { WriteLine("### New soil profile"); }

    // --- Records, vectors and tables ---
    template <class Record, class... Arguments>
    void RecordVector(std::vector<Record>& records, std::size_t, Arguments&&... arguments) {
        for (Record& record : records) record.Serialize(*this, arguments...);
    }
    template <class Record>
    void RecordVector(std::vector<Record>& records, const boost::function<bool(const std::vector<Record>&)>&) {
        for (Record& record : records) record.Serialize(*this);
    }
    template <class Record>
    void OpenRecordVector(std::vector<Record>& records) {
        for (Record& record : records) record.Serialize(*this);
    }
    // A record's line: each column's value; the names stand in the header.
    template <class... Fields>
    void Row(const NamedField<Fields>&... columns) {
        (WriteField(columns.field), ...);
        WriteText("\n");
    }
    // The values in columns, a line break before a value that would take the
    // line past column 80, then the comment after the last value.
    template <class Field>
    void Vector(const NamedField<Field>& vector, std::size_t size, const std::string& comment) {
        Vector(vector.field, size, comment);
    }

private:
    void Vector(const std::vector<double>& values, std::size_t, const std::string& comment) {
        WriteVector(values, Units::Runtime::DynamicDimension{}, comment);
    }
    template <class Phenomenon>
    void Vector(DimensionedVector<Phenomenon> values, std::size_t, const std::string& comment) {
        WriteVector(values.values, Phenomenon::dimension, comment);
    }
    template <class Phenomenon>
    void Vector(const std::vector<Units::Runtime::Quantity<Phenomenon>>& values, std::size_t,
                const std::string& comment) {
        std::vector<double> numbers;
        numbers.reserve(values.size());
        for (const auto& value : values) numbers.push_back(value.GetValue());
        WriteVector(numbers, Phenomenon::dimension, comment);
    }

    void WriteText(const std::string& text);
    // A blank, then the text right-aligned in the rest of the column (wider
    // when it does not fit).
    void WriteInColumn(const std::string& text);
    void WriteReal(double value, Units::Runtime::DynamicDimension dimension);
    void WriteInteger(long long value);
    void WriteParameterName(const std::string& name, const std::string& comment);
    void WriteVector(const std::vector<double>& values, Units::Runtime::DynamicDimension dimension,
                     const std::string& comment);

    void WriteValue(double value) { WriteReal(value, Units::Runtime::DynamicDimension{}); }
    void WriteValue(int value) { WriteInteger(value); }
    template <class Phenomenon>
    void WriteValue(const Units::Runtime::Quantity<Phenomenon>& value) {
        WriteReal(value.GetValue(), Phenomenon::dimension);
    }
    template <class Phenomenon>
    void WriteValue(const Dimensioned<Phenomenon>& value) {
        WriteReal(value.value, Phenomenon::dimension);
    }

    template <class Field>
    void WriteField(const Field& field) { WriteValue(field); }
    template <class Value>
    void WriteField(const boost::optional<Value>& field) {
        if (field) WriteValue(*field);
    }
    void WriteField(const ValuesToEndOfLine& field) {
        for (double value : field.values) WriteValue(value);
    }

    int columnWidth_;
    OutputIterator sink_;
    boost::optional<Units::Runtime::FastUnitConverter> converter_;
    // The export's unit of each dimension; none when values are written as
    // they stand.
    boost::optional<UnitScales> scales_;
    // The text of the number being written, its room kept from one to the
    // next.
    std::string number_;
};

using StreamSink = boost::spirit::karma::ostream_iterator<char, char>;
using Exporter = SpiritExporter<StreamSink>;

}  // namespace TerrixExchange
