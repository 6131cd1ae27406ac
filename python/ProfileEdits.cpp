// Edits of a profile from Python, made as a program makes them with the
// library: the profile's object of terrix dump (DescribeProfile), the value
// changed there, and the profile read back from that object (lists as long
// as they are given) with the counts then set from the tables. The handle
// takes the new profile only when all of that succeeded, so a failed edit
// changes nothing. Names and the kinds of values are checked first against
// what the library says each value is (DescribeFields), so that the error
// is the one Python expects: KeyError, TypeError, then ValueError.

#include "ProfileHandle.h"

#include <cmath>
#include <cstdint>

#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/archive/NumberText.h>

namespace TerrixPython {

using namespace TerrixExchange;

const SourceLines& ProfileHandle::Lines() const {
    static const SourceLines nowhere;
    return own ? nowhere : imported->lines[index];
}

namespace {

std::string Repr(py::handle value) { return py::repr(value).cast<std::string>(); }

std::string Listed(const Json& object) {
    std::string names;
    for (auto member = object.begin(); member != object.end(); ++member)
        names += (names.empty() ? "" : ", ") + member.key();
    return names;
}

}  // namespace

py::object ToPython(const Json& value) {
    switch (value.type()) {
        case Json::value_t::boolean:
            return py::bool_(value.get<bool>());
        case Json::value_t::number_integer:
            return py::int_(value.get<std::int64_t>());
        case Json::value_t::number_unsigned:
            return py::int_(value.get<std::uint64_t>());
        case Json::value_t::number_float:
            return py::float_(value.get<double>());
        case Json::value_t::string:
            return py::str(value.get_ref<const std::string&>());  // made UTF-8 by JsonText
        case Json::value_t::array: {
            py::list list;
            for (const Json& element : value) list.append(ToPython(element));
            return std::move(list);
        }
        case Json::value_t::object: {
            py::dict dict;
            for (auto member = value.begin(); member != value.end(); ++member)
                dict[py::str(member.key())] = ToPython(member.value());
            return std::move(dict);
        }
        default:
            return py::none();
    }
}

Json FromPython(py::handle value, const std::string& where) {
    PyObject* object = value.ptr();
    if (value.is_none()) return nullptr;
    if (PyBool_Check(object)) throw py::type_error(where + ": expected a number, found " + Repr(value));
    if (PyLong_Check(object)) {
        int overflow = 0;
        const long long whole = PyLong_AsLongLongAndOverflow(object, &overflow);
        if (overflow == 0) return whole;
        return PyLong_AsDouble(object);  // beyond any count: the reader tells
    }
    if (PyFloat_Check(object)) return PyFloat_AsDouble(object);
    if (PyUnicode_Check(object)) return value.cast<std::string>();
    if (PyDict_Check(object)) {
        Json members = Json::object();
        for (const auto& member : value.cast<py::dict>()) {
            if (!PyUnicode_Check(member.first.ptr()))
                throw py::type_error(where + ": expected keys that are texts, found " + Repr(member.first));
            const std::string key = member.first.cast<std::string>();
            members[key] = FromPython(member.second, where + ", '" + key + "'");
        }
        return members;
    }
    if (PyList_Check(object) || PyTuple_Check(object)) {
        Json list = Json::array();
        std::size_t place = 0;
        for (const py::handle element : value)
            list.push_back(FromPython(element, where + ", value " + std::to_string(++place)));
        return list;
    }
    // numpy's arrays and numbers give their Python values.
    if (py::hasattr(value, "tolist")) return FromPython(value.attr("tolist")(), where);
    throw py::type_error(where + ": expected a number, a text or a list, found " + Repr(value));
}

namespace {

// The fields of a section; KeyError for a title the profile's version has not.
const Json& SectionFields(const Json& fields, const std::string& title) {
    const auto section = fields.find(title);
    if (section == fields.end())
        throw py::key_error("the profile holds no section '" + title + "'; its version has: " + Listed(fields));
    return *section;
}

// TypeError unless `given` is of the kind of `field` (see DescribeFields).
void CheckKind(const Json& field, const Json& given, py::handle value, const std::string& where) {
    const std::string& kind = field["kind"].get_ref<const std::string&>();
    bool fits = false;
    std::string expected;
    if (kind == "numbers") {
        fits = given.is_array();
        for (const Json& element : given) fits = fits && element.is_number();
        expected = "a list of numbers";
    } else if (kind == "text" || kind == "layout") {
        fits = given.is_string();
        expected = "a text";
    } else {
        fits = given.is_number() || (given.is_null() && field["optional"].get<bool>());
        expected = kind == "whole number" ? "a whole number" : "a number";
        if (field["optional"].get<bool>()) expected += " or None";
    }
    if (!fits) throw py::type_error(where + ": expected " + expected + ", found " + Repr(value));
}

// The profile's object as an edit starts from it: its name is the control
// section's, which the edit may change.
Json Editable(const Terrix& profile) {
    Json object = DescribeProfile(profile);
    object.erase("name");
    return object;
}

// An optional kind of curve whose count the object left out stays left out
// when neither of its sections holds a row.
template <class Manual, class Modifications>
void LeaveOutWhenEmpty(boost::optional<int>& count, const Manual& manual, const Modifications& modifications) {
    if (manual.records.empty() && modifications.records.empty()) count = boost::none;
}

const char* const optionalCounts[] = {"NUMDM", "NUMBS", "NUMBM"};

// See FromEditedObject; JsonImportError as the reader throws it.
Terrix Made(Json object, bool setCounts) {
    bool leftOut[3] = {false, false, false};
    if (object.is_object() && object.contains("sections") && object["sections"].is_object() &&
        object.contains("version") && (object["version"] == 4 || object["version"] == 5)) {
        Json& sections = object["sections"];
        const Version version = object["version"] == 4 ? Version::V4 : Version::V5;
        const Json every = DescribeFields(Terrix::MakeNew(version, Units::Runtime::UnitSystem("N", "m")));
        for (auto section = every.begin(); section != every.end(); ++section)
            if (!sections.contains(section.key()) && section.value()["parameters"].empty())
                sections[section.key()] = {{"records", Json::array()}};
        // Every kind of curve given for the reading, then left out again.
        Json& control = sections["CONTROL SECTION"];
        for (std::size_t i = 0; i < 3; ++i) {
            if (control.is_object() && control.contains(optionalCounts[i]) && control[optionalCounts[i]].is_null()) {
                leftOut[i] = true;
                control[optionalCounts[i]] = 0;
            }
        }
    }
    Terrix made = ProfileFromJson(object, "profile", nullptr, ListLengths::AsGiven);
    TerrixInputData& data = made.GetTerrixInputData();
    ControlSection& control = data.controlSection;
    if (leftOut[0]) LeaveOutWhenEmpty(control.NUMDM, data.manualMthetaMomentDataSection, data.mthetaMomentDataModificationSection);
    if (leftOut[1]) LeaveOutWhenEmpty(control.NUMBS, data.manualBSYBaseShearDataSection, data.bsyBaseShearDataModificationSection);
    if (leftOut[2]) LeaveOutWhenEmpty(control.NUMBM, data.manualBMthetaMomentDataSection, data.bmThetaMomentDataModificationSection);
    if (setCounts) made.SetCountsFromTables();
    return made;
}

Terrix MadeOrValueError(const Json& object, bool setCounts) {
    try {
        return Made(object, setCounts);
    } catch (const JsonImportError& error) {
        throw py::value_error(error.what());
    }
}

}  // namespace

void SetValue(ProfileHandle& handle, const std::string& title, const std::string& name, py::handle value) {
    const Terrix& profile = handle.Profile();
    const Json fields = DescribeFields(profile);
    const Json& parameters = SectionFields(fields, title)["parameters"];
    if (!parameters.contains(name))
        throw py::key_error("section '" + title + "' has no parameter '" + name + "' (its parameters: " +
                            Listed(parameters) + "); set_table sets a table's records");
    const std::string where = "section '" + title + "', parameter '" + name + "'";
    const Json given = FromPython(value, where);
    CheckKind(parameters[name], given, value, where);
    Json object = Editable(profile);
    object["sections"][title][name] = given;
    Terrix made = MadeOrValueError(object, false);
    // A count that the library takes from its list (NUMDIA, NUMFRC) is not
    // the profile's to hold.
    if (parameters[name]["kind"] == "whole number" && given.is_number()) {
        const Json now = DescribeSections(made)[title][name];
        if (now != given)
            throw py::value_error(where + ": it counts the values of its list, which hold " + now.dump() +
                                  "; set the list instead");
    }
    handle.own = std::make_shared<const Terrix>(std::move(made));
}

void SetTable(ProfileHandle& handle, const std::string& title, py::handle records) {
    const Terrix& profile = handle.Profile();
    const Json fields = DescribeFields(profile);
    const Json& columns = SectionFields(fields, title)["columns"];
    if (columns.empty()) throw py::value_error("'" + title + "' is no table: it holds no records");
    if (!PyList_Check(records.ptr()) && !PyTuple_Check(records.ptr()))
        throw py::type_error("section '" + title + "': expected a list of records, found " + Repr(records));
    Json list = Json::array();
    for (const py::handle record : records) {
        const std::string where = "section '" + title + "', record " + std::to_string(list.size() + 1);
        if (!PyDict_Check(record.ptr()))
            throw py::type_error(where + ": expected a record (a dict keyed by the columns' titles), found " +
                                 Repr(record));
        const py::dict given = record.cast<py::dict>();
        for (const auto& key : given)
            if (!PyUnicode_Check(key.first.ptr()) || !columns.contains(key.first.cast<std::string>()))
                throw py::key_error(where + ": no column " + Repr(key.first) + " (its columns: " + Listed(columns) + ")");
        Json row = Json::object();
        for (auto column = columns.begin(); column != columns.end(); ++column) {
            const std::string at = where + ", column '" + column.key() + "'";
            if (!given.contains(column.key())) throw py::key_error(at + ": missing");
            const py::handle value = given[py::str(column.key())];
            row[column.key()] = FromPython(value, at);
            CheckKind(column.value(), row[column.key()], value, at);
        }
        list.push_back(std::move(row));
    }
    Json object = Editable(profile);
    object["sections"][title]["records"] = std::move(list);
    handle.own = std::make_shared<const Terrix>(MadeOrValueError(object, true));
}

ProfileHandle FromEditedObject(const Json& object) {
    ProfileHandle handle;
    handle.own = std::make_shared<const Terrix>(MadeOrValueError(object, true));
    return handle;
}

py::tuple ToFileNumber(double value, const std::vector<int>& dimension, const std::string& force,
                       const std::string& length) {
    const Units::Runtime::UnitSystem units(force, length);
    const std::string text = FormatReal(value, 0, units.GetSize({dimension.at(0), dimension.at(1)}));
    double nearest = 0.0;
    ParseReal(text, nearest);
    return py::make_tuple(nearest, text);
}

double FromFileNumber(py::handle value, const std::vector<int>& dimension, const std::string& force,
                      const std::string& length) {
    std::string text;
    if (PyUnicode_Check(value.ptr())) {
        text = value.cast<std::string>();
    } else if ((PyFloat_Check(value.ptr()) || PyLong_Check(value.ptr())) && !PyBool_Check(value.ptr())) {
        // The shortest text of the double, read as the file's text is read.
        text = ShortestDecimalText(value.cast<double>(), DecimalForm::Scientific);
    } else {
        throw py::type_error("expected a number, found " + Repr(value));
    }
    const Units::Runtime::UnitSystem units(force, length);
    double number = 0.0;
    if (!ParseReal(text, number, units.GetSize({dimension.at(0), dimension.at(1)})))
        throw py::value_error("expected a number, found " + Repr(value));
    return number;
}

}  // namespace TerrixPython
