#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <boost/function.hpp>
#include <boost/optional.hpp>

#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixPlatform/Units/Runtime/Quantity.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange {

// A JSON text that is no profile. Its text names where the fault stands
// (the profile, the section, the record, the column or parameter; for
// malformed JSON its line and column) and what was expected and found.
class JsonImportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A profile from its object of terrix dump (see DescribeProfile): "version",
// "header", "units" and "sections" as the dump writes them; "revision",
// "name" (which must be the control section's profile name) and
// "encoding" (of the texts; UTF-8 when not given) as well; "parameters" and
// "layers", the answers of a dump, are passed over. With `units` those
// replace the units the object names. `where` names the profile in messages.
//
// The lists of the JSON are as long as the counts before them say (NUMTYP
// records of soil types, NUMDIA pile diameters), as in the file; or, for a
// host that builds the JSON and then sets the counts from the tables
// (Terrix::SetCountsFromTables), as long as they are.
enum class ListLengths { AsCounted, AsGiven };
Terrix ProfileFromJson(const Json& profile, const std::string& where = "profile",
                       const Units::Runtime::UnitSystem* units = nullptr,
                       ListLengths lengths = ListLengths::AsCounted);

// The JSON importer: it walks the sections' Serialize like the text
// importer, and fills each field from the JSON that the JSON exporter writes
// for it (a profile's object of terrix dump), keyed by the same names.
// Numbers are in database units (N and m) and are taken as they stand; NaN
// and the infinities as the strings "NaN", "Infinity" and "-Infinity". The
// first fault throws JsonImportError. A key that the walk does not read (a
// misspelt column, a section that the profile's version and counts leave
// out) is a fault too: nothing given is ever passed over.
class JsonImporter : public JsonArchiveLines<JsonImporter> {
public:
    // Reads from `profile`, the object of one profile; `where` names it in
    // messages ("profile #2").
    JsonImporter(const Json& profile, std::string where, TextEncoding encoding,
                 ListLengths lengths = ListLengths::AsCounted);
    JsonImporter(const JsonImporter&) = delete;
    JsonImporter& operator=(const JsonImporter&) = delete;

    // ProfileFromJson.
    static Terrix ReadProfile(const Json& profile, const std::string& where, const Units::Runtime::UnitSystem* units,
                              ListLengths lengths);

    // After the walk: every section the object holds was read, and every key
    // of the last section.
    void Finish();

    // --- The frame of a profile ---
    void Header(std::string& header);
    // "version": 4 or 5.
    void VersionLine(bool& isVersion5, int year, int month, int day);

    // --- Lines ---
    [[nodiscard]] SectionGuard BeginSection(const std::string& title);

    // An optional parameter is null when the profile lacks it.
    template <class Value>
    bool Parameter(Value&& value, const std::string& name, const std::string&) {
        SetKey("parameter", name);
        ReadValue(Member(*section_, name), value);
        return true;
    }
    void StringParameter(std::string& value, const std::string& name, const std::string&);
    // The layout by its name; the section's value of that name.
    template <std::size_t Count>
    void LayoutChoice(const char* name, int& value, const LayoutName (&layouts)[Count]) {
        SetKey("", name);
        const Json& given = Member(*section_, name);
        std::string names;
        for (const LayoutName& layout : layouts) {
            if (given.is_string() && given.get_ref<const std::string&>() == layout.name) {
                value = layout.value;
                return;
            }
            names += std::string(names.empty() ? "\"" : " or \"") + layout.name + "\"";
        }
        Fail(names, given);
    }

    // --- Records, vectors and tables ---
    // Exactly `count` records: the counts of the profile size the table.
    template <class Record, class... Arguments>
    void RecordVector(std::vector<Record>& records, std::size_t count, Arguments&&... arguments) {
        const Json& list = Records();
        if (lengths_ == ListLengths::AsCounted && list.size() != count)
            Fail(std::to_string(count) + (count == 1 ? " record" : " records") + ", as the counts of the profile give",
                 std::to_string(list.size()));
        records.clear();
        for (const Json& record : list) ReadRecord(records, record, arguments...);
    }
    // Records as long as `more` says, from the records read so far, that the
    // table goes on, and not one more.
    template <class Record>
    void RecordVector(std::vector<Record>& records, const boost::function<bool(const std::vector<Record>&)>& more) {
        const Json& list = Records();
        records.clear();
        for (const Json& record : list) {
            if (lengths_ == ListLengths::AsCounted && !more(records)) break;
            ReadRecord(records, record);
        }
        SetKey("", "records");
        if (lengths_ == ListLengths::AsGiven) return;
        if (records.size() < list.size())
            Fail(std::to_string(records.size()) + " records: they cover the layers the profile counts",
                 std::to_string(list.size()));
        if (more(records))
            Fail("records that cover the layers the profile counts",
                 std::to_string(records.size()) + " that cover fewer");
    }
    // As many records as the list holds.
    template <class Record>
    void OpenRecordVector(std::vector<Record>& records) {
        records.clear();
        for (const Json& record : Records()) ReadRecord(records, record);
    }
    template <class... Fields>
    void Row(NamedField<Fields>... columns) {
        (ReadColumn(columns), ...);
    }
    // A list of exactly `size` numbers, as its count says.
    template <class Field>
    void Vector(NamedField<Field> vector, std::size_t size, const std::string&) {
        SetKey(record_ ? "column" : "", vector.name);
        const Json& list = Member(record_ ? *record_ : *section_, vector.name);
        if (lengths_ == ListLengths::AsCounted && list.is_array() && list.size() != size)
            Fail("a list of " + std::to_string(size) + " numbers, as its count gives", list);
        ReadValue(list, vector.field);
    }

private:
    template <class Field>
    void ReadColumn(NamedField<Field>& column) {
        SetKey("column", column.name);
        ReadValue(Member(*record_, column.name), column.field);
    }

    template <class Record, class... Arguments>
    void ReadRecord(std::vector<Record>& records, const Json& record, Arguments&... arguments) {
        recordIndex_ = records.size();
        if (!record.is_object()) Fail("a record (an object keyed by the columns' titles)", record);
        record_ = &record;
        recordKeys_.clear();
        Record read;
        read.Serialize(*this, arguments...);
        CheckKeys(record, recordKeys_, "column");
        records.push_back(std::move(read));
        record_ = nullptr;
        recordIndex_ = none;
    }

    // The section's "records", a list.
    const Json& Records();
    // The member `name` of `object` (the section's or the record's), which
    // must be there; noted as read.
    const Json& Member(const Json& object, const std::string& name);
    // Every key of `object` is one of `read`.
    void CheckKeys(const Json& object, const std::vector<std::string>& read, const char* kind);
    void CheckSectionKeys();

    std::string ReadText(const Json& value) const;
    // The value as the field's type. Whole numbers for integer fields, any
    // number for reals and quantities, null for an absent optional, lists
    // for vectors.
    void ReadValue(const Json& value, int& field);
    void ReadValue(const Json& value, double& field);
    template <class Phenomenon>
    void ReadValue(const Json& value, Units::Runtime::Quantity<Phenomenon>& field) {
        double number = 0.0;
        ReadValue(value, number);
        field = Units::Runtime::Quantity<Phenomenon>(number);
    }
    template <class Phenomenon>
    void ReadValue(const Json& value, Dimensioned<Phenomenon> field) {
        ReadValue(value, field.value);
    }
    template <class Value>
    void ReadValue(const Json& value, boost::optional<Value>& field) {
        if (value.is_null()) {
            field = boost::none;
            return;
        }
        Value read{};
        ReadValue(value, read);
        field = read;
    }
    template <class Value>
    void ReadValue(const Json& value, std::vector<Value>& field) {
        if (!value.is_array()) Fail("a list of numbers", value);
        std::vector<Value> read(value.size());
        for (std::size_t i = 0; i < value.size(); ++i) {
            element_ = i;
            ReadValue(value[i], read[i]);
        }
        element_ = none;
        field = std::move(read);
    }
    template <class Phenomenon>
    void ReadValue(const Json& value, DimensionedVector<Phenomenon> field) {
        ReadValue(value, field.values);
    }
    void ReadValue(const Json& value, ValuesToEndOfLine field) { ReadValue(value, field.values); }

    void SetKey(const char* kind, const std::string& name) {
        keyKind_ = kind;
        key_ = name;
    }
    // "profile #0, section 'CONTROL SECTION', parameter 'CONFRC'".
    std::string Where() const;
    [[noreturn]] void Fail(const std::string& expected, const Json& found) const;
    [[noreturn]] void Fail(const std::string& expected, const std::string& found) const;

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    const Json& profile_;
    std::string where_;
    TextEncoding encoding_;
    ListLengths lengths_;
    // The titles of the sections read, and the keys read of the last one.
    std::vector<std::string> titles_;
    std::vector<std::string> sectionKeys_;
    std::string title_;
    const Json* section_ = nullptr;
    const Json* record_ = nullptr;
    std::size_t recordIndex_ = none;
    std::vector<std::string> recordKeys_;
    // What is being read, for messages.
    const char* keyKind_ = "";
    std::string key_;
    std::size_t element_ = none;
};

}  // namespace TerrixExchange
