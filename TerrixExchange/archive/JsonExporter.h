#pragma once

#include <algorithm>
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
// How the texts of a profile (its header and name) stand in JSON, which is
// UTF-8: as they are when every one of them is UTF-8; else (an old file's
// header in Latin-1, "\xD8rsted") each byte as the Latin-1 character it
// stands for, so that every byte keeps its meaning and reads back as the
// same byte. JSON names the two "UTF-8" and "Latin-1".
enum class TextEncoding { Utf8, Latin1 };
TextEncoding EncodingOf(const Terrix& profile);
const char* EncodingName(TextEncoding encoding);
bool IsUtf8(const std::string& text);
Json JsonText(const std::string& text, TextEncoding encoding);
// A text on its own: as it stands when it is UTF-8, else as Latin-1.
Json JsonText(const std::string& text);
// The text that JsonText wrote as `json`; false when the encoding cannot
// have written it (a character beyond Latin-1).
bool TextFromJson(const std::string& json, TextEncoding encoding, std::string& text);

// The profile as the JSON of terrix dump holds it, everything needed to
// write its text again: "version", "revision" (of the main layer table's
// layout, as the profile keeps it), "name", "header", "encoding" (of the
// texts), "units" ({"force": F, "length": L}: the units of the file) and
// "sections" (see DescribeSections).
Json DescribeProfile(const Terrix& profile);

// Every section of the profile's version that the profile holds, in file
// order, keyed by its title without the decoration of the title line:
// parameters keyed by their names as the file writes them ("CONFRC"),
// vectors by their plain names ("diameters"), tables as "records", each
// record keyed by its column titles, and a table's layout that only its
// lines tell (the main layer table with or without AK) as "layout". Every
// number is the library's own value in database units (N and m).
Json DescribeSections(const Terrix& profile);

// What each value of the profile's sections is, for a program that lays the
// profile out for people or takes values from them (a spreadsheet, a form):
// section title -> {"parameters": {NAME: FIELD}, "columns": {NAME: FIELD}},
// the sections in file order, the parameters (with the vectors of a
// section, "diameters") and a table's columns in the order of the file,
// keyed as DescribeSections keys their values. A FIELD is
//   "kind": "whole number", "number", "numbers" (a list), "text" or "layout"
//           (with "layouts", the names of the table layouts);
//   "optional": true for a value the profile may leave out (null);
//   "dimension": [force power, length power] of the value in database
//           units, [0, 0] for plain numbers and for the columns kept as
//           written;
//   "meaning": "converted", or for a column the format keeps as a plain
//           number "as written" or "at level" (see ColumnMeaning);
//   "comment": the text the file writes after a parameter or a vector.
// Every section of the profile's version is there, the sections of the
// optional kinds of curve (M-theta, BS-Y, BM-theta) too whether or not the
// profile gives them, and the columns of a table that holds no record.
Json DescribeFields(const Terrix& profile);

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

// What the two JSON archives do alike: lines that hold no value (titles,
// headers, comments, empty lines) leave no trace, there are no columns to
// lay out and no place to go back to, and a required or optional parameter
// is a parameter.
template <class Archive>
class JsonArchiveLines {
public:
    struct SectionGuard {
        ~SectionGuard() {}
    };
    struct Position {};

    int GetColumnWidth() const { return 0; }
    void SetColumnWidth(int) {}
    void SetTitleMode(bool) {}
    Position GetPosition() const { return Position{}; }
    void SetPosition(const Position&) {}
    void TableHeader(const std::string&) {}
    void CommentLine(const std::string&) {}
    void BlankLine() {}

    template <class Value>
    void RequiredParameter(Value&& value, const std::string& name, const std::string& comment) {
        static_cast<Archive&>(*this).Parameter(value, name, comment);
    }
    template <class Value>
    void OptionalParameter(Value& value, const std::string& name, const std::string& comment) {
        static_cast<Archive&>(*this).Parameter(value, name, comment);
    }
};

// The JSON exporter: it walks the sections' Serialize like the text
// exporter, but describes what it meets as JSON, keyed by the names that
// Serialize gives. Lines without values (titles, headers, comments) leave no
// trace.
class JsonExporter : public JsonArchiveLines<JsonExporter> {
public:
    // Describes the profile's sections into `sections`; gives back the
    // unit-bound columns that hold a value other than zero.
    static std::vector<UnitBoundColumn> Walk(const Terrix& profile, Json& sections);
    // The same, and the dimension of each parameter and column in
    // `dimensions`: section title -> name -> [force power, length power];
    // [0, 0] for plain numbers and for the columns kept as written.
    static void Walk(const Terrix& profile, Json& sections, Json& dimensions);
    // See the function DescribeProfile.
    static Json DescribeProfile(const Terrix& profile);
    // See the function DescribeFields.
    static Json DescribeFields(const Terrix& profile);

    // Describes into `profile`: the header and version there, the sections
    // under "sections".
    explicit JsonExporter(Json& profile, TextEncoding encoding = TextEncoding::Utf8, Json* dimensions = nullptr)
        : profile_(profile), encoding_(encoding), dimensions_(dimensions) {}
    JsonExporter(const JsonExporter&) = delete;
    JsonExporter& operator=(const JsonExporter&) = delete;

    // The unit-bound columns met so far that held a value other than zero.
    std::vector<UnitBoundColumn> GetNonZeroColumns() const;

    // --- The frame of a profile ---
    void Header(const std::string& header) { profile_["header"] = JsonText(header, encoding_); }
    void VersionLine(bool isVersion5, int, int, int) { profile_["version"] = isVersion5 ? 5 : 4; }

    [[nodiscard]] SectionGuard BeginSection(const std::string& title);

    template <class Value>
    bool Parameter(Value&& value, const std::string& name, const std::string& comment) {
        (*section_)[name] = ToJson(value);
        NoteDimension(name, DimensionOf(value));
        if (fields_) NoteField("parameters", name, FieldOf(value, ColumnMeaning::Converted), comment);
        return true;
    }
    void StringParameter(const std::string& value, const std::string& name, const std::string& comment) {
        (*section_)[name] = JsonText(value, encoding_);
        if (fields_) NoteField("parameters", name, Field("text"), comment);
    }
    // The layout a section holds, by its name.
    template <std::size_t Count>
    void LayoutChoice(const char* name, int value, const LayoutName (&layouts)[Count]) {
        Json field = Field("layout");
        field["layouts"] = Json::array();
        for (const LayoutName& layout : layouts) {
            if (layout.value == value) (*section_)[name] = layout.name;
            field["layouts"].push_back(layout.name);
        }
        NoteField("parameters", name, field, "");
    }

    template <class Record, class... Arguments>
    void RecordVector(std::vector<Record>& records, std::size_t, Arguments&&... arguments) {
        Json& list = (*section_)["records"] = Json::array();
        // What the fields are, the first record tells for all of them.
        const std::size_t walked = fields_ ? std::min<std::size_t>(records.size(), 1) : records.size();
        for (std::size_t i = 0; i < walked; ++i) {
            Record& record = records[i];
            list.push_back(Json::object());
            record_ = &list.back();
            record.Serialize(*this, arguments...);
        }
        // The columns of a table without records, from a record of its own.
        if (fields_ && records.empty()) {
            Json scratch = Json::object();
            record_ = &scratch;
            Record().Serialize(*this, arguments...);
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
    void Vector(const NamedField<Field>& vector, std::size_t, const std::string& comment) {
        (record_ ? *record_ : *section_)[vector.name] = ToJson(vector.field);
        NoteDimension(vector.name, DimensionOf(vector.field));
        if (fields_)
            NoteField(record_ ? "columns" : "parameters", vector.name, FieldOf(vector.field, vector.meaning),
                  record_ ? "" : comment);
    }

private:
    template <class Field>
    void AddColumn(const NamedField<Field>& column) {
        (*record_)[column.name] = ToJson(column.field);
        NoteDimension(column.name, column.meaning == ColumnMeaning::Converted ? DimensionOf(column.field)
                                                                             : Units::Runtime::DynamicDimension{});
        if (fields_) NoteField("columns", column.name, FieldOf(column.field, column.meaning), "");
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

    // A field of DescribeFields: what a value of the field is.
    static Json Field(const char* kind, bool optional = false, Units::Runtime::DynamicDimension dimension = {},
                      ColumnMeaning meaning = ColumnMeaning::Converted) {
        static const char* const meanings[] = {"converted", "as written", "at level"};
        return Json{{"kind", kind},
                    {"optional", optional},
                    {"dimension", Json::array({dimension.force, dimension.length})},
                    {"meaning", meanings[static_cast<int>(meaning)]}};
    }
    template <class Value>
    static Json FieldOf(const Value& value, ColumnMeaning meaning) {
        const Units::Runtime::DynamicDimension dimension =
            meaning == ColumnMeaning::Converted ? DimensionOf(value) : Units::Runtime::DynamicDimension{};
        return Field(KindOf(value), IsOptional(value), dimension, meaning);
    }
    static const char* KindOf(int) { return "whole number"; }
    static const char* KindOf(double) { return "number"; }
    template <class Phenomenon>
    static const char* KindOf(const Units::Runtime::Quantity<Phenomenon>&) {
        return "number";
    }
    template <class Phenomenon>
    static const char* KindOf(const Dimensioned<Phenomenon>&) {
        return "number";
    }
    template <class Value>
    static const char* KindOf(const std::vector<Value>&) {
        return "numbers";
    }
    template <class Phenomenon>
    static const char* KindOf(const DimensionedVector<Phenomenon>&) {
        return "numbers";
    }
    static const char* KindOf(const ValuesToEndOfLine&) { return "numbers"; }
    template <class Value>
    static const char* KindOf(const boost::optional<Value>&) {
        return KindOf(Value{});
    }
    template <class Value>
    static bool IsOptional(const Value&) {
        return false;
    }
    template <class Value>
    static bool IsOptional(const boost::optional<Value>&) {
        return true;
    }
    void NoteField(const char* group, const std::string& name, Json field, const std::string& comment) {
        if (!fields_) return;
        if (!comment.empty()) field["comment"] = JsonText(comment, encoding_);
        Json& section = (*fields_)[title_];
        if (!section.contains("parameters")) section = {{"parameters", Json::object()}, {"columns", Json::object()}};
        Json& notes = section[group];
        if (!notes.contains(name)) notes[name] = std::move(field);
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

    Json& profile_;
    TextEncoding encoding_;
    Json* dimensions_ = nullptr;
    Json* fields_ = nullptr;
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
