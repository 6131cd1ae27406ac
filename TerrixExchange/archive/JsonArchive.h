#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <boost/function.hpp>
#include <boost/optional.hpp>
#include <nlohmann/json.hpp>

#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>

namespace TerrixExchange {

class Terrix;

using Json = nlohmann::ordered_json;

// A number as JSON, NaN and the infinities included: the value holds the
// library's double as it is, so that a program reads back every number
// with get<double>(). JSON text has no numbers for NaN and the infinities;
// a writer spells them (terrix dump as the strings "NaN", "Infinity" and
// "-Infinity"; nlohmann's own dump() writes null).
inline Json JsonNumber(double value) { return Json(value); }
inline Json JsonNumber(int value) { return Json(value); }
inline Json JsonNumber(std::uint64_t value) { return Json(value); }
// A quantity by its value in database units (N and m).
template <class Phenomenon>
Json JsonNumber(const Units::Runtime::Quantity<Phenomenon>& value) {
    return JsonNumber(value.GetValue());
}
// An empty optional is null.
template <class Value>
Json JsonNumber(const boost::optional<Value>& value) {
    return value ? JsonNumber(*value) : Json(nullptr);
}
// A list of numbers (a vector of the file, a line of a curve) as an array.
template <class Value>
Json JsonNumbers(const std::vector<Value>& values) {
    Json list = Json::array();
    for (const Value& value : values) list.push_back(JsonNumber(value));
    return list;
}
// A text of the file as a JSON string. JSON text is UTF-8; a text that is
// not (an old file's header in Latin-1, say "\xD8rsted") is taken as
// Latin-1, so that every byte keeps its meaning instead of being dropped.
Json JsonText(const std::string& text);

// Every section of the profile's version that the profile holds, in file
// order, keyed by its title without the decoration of the title line:
// parameters keyed by their names as the file writes them ("CONFRC"),
// vectors by their plain names ("diameters"), tables as "records", each
// record keyed by its column titles. Every number is the library's own value
// in database units (N and m).
Json DescribeSections(const Terrix& profile);

// A column whose numbers mean something else once the profile is written in
// other units (see ColumnMeaning).
struct UnitBoundColumn {
    std::string section;
    std::string column;
    ColumnMeaning meaning;
};

// The columns of the profile that the format keeps as plain numbers or ties
// to the length unit and that hold at least one value other than zero, in
// file order, each named once.
std::vector<UnitBoundColumn> FindUnitBoundColumns(const Terrix& profile);

// The third archive: it walks the sections' Serialize like the importer and
// the exporter, but describes what it meets as JSON, keyed by the names that
// Serialize gives. Lines without values (titles, headers, comments) leave no
// trace.
class JsonArchive {
public:
    struct SectionGuard {
        ~SectionGuard() {}
    };
    struct Position {};

    // Describes the profile's sections into `sections`; gives back the
    // unit-bound columns that hold a value other than zero.
    static std::vector<UnitBoundColumn> Walk(const Terrix& profile, Json& sections);
    // The same, and the dimension of each parameter and column in
    // `dimensions`: section title -> name -> [force power, length power];
    // [0, 0] for plain numbers and for the columns kept as written.
    static void Walk(const Terrix& profile, Json& sections, Json& dimensions);

    explicit JsonArchive(Json& sections, Json* dimensions = nullptr) : sections_(sections), dimensions_(dimensions) {}
    JsonArchive(const JsonArchive&) = delete;
    JsonArchive& operator=(const JsonArchive&) = delete;

    // The unit-bound columns met so far that held a value other than zero.
    std::vector<UnitBoundColumn> GetNonZeroColumns() const;

    int GetColumnWidth() const { return 0; }
    void SetColumnWidth(int) {}
    void SetTitleMode(bool) {}
    Position GetPosition() const { return Position{}; }
    void SetPosition(const Position&) {}

    [[nodiscard]] SectionGuard BeginSection(const std::string& title);
    void TableHeader(const std::string&) {}
    void CommentLine(const std::string&) {}
    void BlankLine() {}

    template <class Value>
    bool Parameter(Value&& value, const std::string& name, const std::string&) {
        (*section_)[name] = ToJson(value);
        NoteDimension(name, DimensionOf(value));
        return true;
    }
    template <class Value>
    void RequiredParameter(Value&& value, const std::string& name, const std::string& comment) {
        Parameter(value, name, comment);
    }
    template <class Value>
    void OptionalParameter(const boost::optional<Value>& value, const std::string& name, const std::string& comment) {
        Parameter(value, name, comment);
    }
    void StringParameter(const std::string& value, const std::string& name, const std::string&) {
        (*section_)[name] = JsonText(value);
    }

    template <class Record, class... Arguments>
    void RecordVector(std::vector<Record>& records, std::size_t, Arguments&&... arguments) {
        Json& list = (*section_)["records"] = Json::array();
        for (Record& record : records) {
            list.push_back(Json::object());
            record_ = &list.back();
            record.Serialize(*this, arguments...);
        }
        record_ = nullptr;
    }
    template <class Record>
    void RecordVector(std::vector<Record>& records, const boost::function<bool(const std::vector<Record>&)>&) {
        RecordVector(records, records.size());
    }
    template <class Record>
    void OpenRecordVector(std::vector<Record>& records) {
        RecordVector(records, records.size());
    }
    template <class... Fields>
    void Row(const NamedField<Fields>&... columns) {
        (AddColumn(columns), ...);
    }
    template <class Field>
    void Vector(const NamedField<Field>& vector, std::size_t, const std::string&) {
        (record_ ? *record_ : *section_)[vector.name] = ToJson(vector.field);
        NoteDimension(vector.name, DimensionOf(vector.field));
    }

private:
    template <class Field>
    void AddColumn(const NamedField<Field>& column) {
        (*record_)[column.name] = ToJson(column.field);
        NoteDimension(column.name, column.meaning == ColumnMeaning::Converted ? DimensionOf(column.field)
                                                                             : Units::Runtime::DynamicDimension{});
        if (column.meaning != ColumnMeaning::Converted)
            MeetColumn(column.name, column.meaning, IsNonZero(column.field));
    }
    void MeetColumn(const char* name, ColumnMeaning meaning, bool nonZero);

    // A field's value as JSON: the fields that the archives wrap (values
    // converted as quantities, the numbers to the end of a line) by what
    // they hold.
    template <class Value>
    static Json ToJson(const Value& value) {
        return JsonNumber(value);
    }
    template <class Value>
    static Json ToJson(const std::vector<Value>& values) {
        return JsonNumbers(values);
    }
    template <class Phenomenon>
    static Json ToJson(const Dimensioned<Phenomenon>& value) {
        return JsonNumber(value.value);
    }
    template <class Phenomenon>
    static Json ToJson(const DimensionedVector<Phenomenon>& values) {
        return JsonNumbers(values.values);
    }
    static Json ToJson(const ValuesToEndOfLine& values) { return JsonNumbers(values.values); }

    // The dimension of a field: that of its quantities, none for plain numbers.
    template <class Value>
    static Units::Runtime::DynamicDimension DimensionOf(const Value&) {
        return {};
    }
    template <class Phenomenon>
    static Units::Runtime::DynamicDimension DimensionOf(const Units::Runtime::Quantity<Phenomenon>&) {
        return Phenomenon::dimension;
    }
    template <class Phenomenon>
    static Units::Runtime::DynamicDimension DimensionOf(const std::vector<Units::Runtime::Quantity<Phenomenon>>&) {
        return Phenomenon::dimension;
    }
    template <class Phenomenon>
    static Units::Runtime::DynamicDimension DimensionOf(const Dimensioned<Phenomenon>&) {
        return Phenomenon::dimension;
    }
    template <class Phenomenon>
    static Units::Runtime::DynamicDimension DimensionOf(const DimensionedVector<Phenomenon>&) {
        return Phenomenon::dimension;
    }
    template <class Value>
    static Units::Runtime::DynamicDimension DimensionOf(const boost::optional<Value>&) {
        return DimensionOf(Value{});
    }
    void NoteDimension(const std::string& name, Units::Runtime::DynamicDimension dimension) {
        if (dimensions_) (*dimensions_)[title_][name] = Json::array({dimension.force, dimension.length});
    }

    static bool IsNonZero(double value) { return value != 0.0; }
    static bool IsNonZero(int value) { return value != 0; }
    template <class Phenomenon>
    static bool IsNonZero(const Units::Runtime::Quantity<Phenomenon>& value) {
        return value.GetValue() != 0.0;
    }
    static bool IsNonZero(const ValuesToEndOfLine& values) {
        for (double value : values.values)
            if (value != 0.0) return true;
        return false;
    }
    static bool IsNonZero(const boost::optional<double>& value) { return value && *value != 0.0; }
    template <class Phenomenon>
    static bool IsNonZero(const Dimensioned<Phenomenon>& value) {
        return value.value != 0.0;
    }

    Json& sections_;
    Json* dimensions_ = nullptr;
    Json* section_ = nullptr;
    Json* record_ = nullptr;
    std::string title_;
    // Every unit-bound column met, and whether it held a value other than 0.
    struct MetColumn {
        UnitBoundColumn column;
        bool nonZero;
    };
    std::vector<MetColumn> columns_;
};

}  // namespace TerrixExchange
