// terrix._terrix: the C++ core of the Python module. It hands Python what
// the library reads, answers and writes, as the library gives it: the text
// goes to the library's importer as it stands, every number is the
// library's own double (database units: N and m), and the per-layer answers
// are asked one by one when Python asks for them. Nothing of the file is
// parsed here, and nothing is worked out that the library does not answer.

#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "ProfileHandle.h"

#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixExchange/queries/NamedQueries.h>

namespace py = pybind11;
using namespace TerrixExchange;
using TerrixPython::ImportedProfiles;
using TerrixPython::ProfileHandle;

namespace {

using TerrixPython::ToPython;

// A (force, length) pair of unit names, "kN", "m".
using UnitNames = std::optional<std::pair<std::string, std::string>>;

struct LayerHandle {
    ProfileHandle profile;
    Layer layer;
};

// The answer of one kind of curve data: the code (None for the kinds
// without one), pile diameter -> manual curve as an N x 2 array of
// displacement and resistance, pile diameter -> tuple of factors.
struct CurveData {
    py::object code;
    py::dict manualCurves;
    py::dict modifications;
};

// A text of the file as Python text. Python text is Unicode; a text that is
// not UTF-8 (an old file's header in Latin-1) is taken as Latin-1, as
// terrix dump takes it, so that no byte is lost.
py::str Text(const std::string& text) { return py::str(JsonText(text).get_ref<const std::string&>()); }

// ---- Answers as Python values -------------------------------------------

py::object ToPython(double value) { return py::float_(value); }
py::object ToPython(bool value) { return py::bool_(value); }
py::object ToPython(std::uint64_t value) { return py::int_(value); }
py::object ToPython(Terrix::SoilType type) { return py::str(SoilTypeName(type)); }
template <class Phenomenon>
py::object ToPython(Units::Runtime::Quantity<Phenomenon> value) {
    return py::float_(value.GetValue());
}
template <class Value>
py::object ToPython(const boost::optional<Value>& value) {
    return value ? ToPython(*value) : py::none();
}

double Plain(double value) { return value; }
template <class Phenomenon>
double Plain(Units::Runtime::Quantity<Phenomenon> value) {
    return value.GetValue();
}

// An ordered map (level -> stress, displacement -> resistance) as an N x 2
// array, in its ascending key order.
template <class Key, class Value>
py::array_t<double> Table(const std::map<Key, Value>& map) {
    py::array_t<double> table({map.size(), std::size_t{2}});
    auto cells = table.template mutable_unchecked<2>();
    py::ssize_t row = 0;
    for (const auto& [key, value] : map) {
        cells(row, 0) = Plain(key);
        cells(row, 1) = Plain(value);
        ++row;
    }
    return table;
}
template <class Key, class Value>
py::object ToPython(const std::map<Key, Value>& map) {
    return Table(map);
}

template <class Data>
CurveData CurvesAndModifications(const Data& data, py::object code) {
    CurveData curves{std::move(code), {}, {}};
    for (const auto& [diameter, curve] : data.manualCurves)
        curves.manualCurves[ToPython(diameter)] = Table(curve.points);
    for (const auto& [diameter, modification] : data.modifications) {
        py::list factors;
        std::apply([&](const auto&... factor) { (factors.append(Plain(factor)), ...); },
                   std::decay_t<decltype(modification)>::Factors(modification));
        curves.modifications[ToPython(diameter)] = py::tuple(factors);
    }
    return curves;
}
template <class Curve, class Modification>
py::object ToPython(const BasicCodedCurveData<Curve, Modification>& data) {
    return py::cast(CurvesAndModifications(data, py::int_(data.code)));
}
template <class Curve, class Modification>
py::object ToPython(const BasicCurveData<Curve, Modification>& data) {
    return py::cast(CurvesAndModifications(data, py::none()));
}

// The per-layer queries by name, each giving its answer as a Python value.
using LayerQuery = std::function<py::object(const Terrix&, const Layer&)>;
const std::map<std::string, LayerQuery>& LayerQueries() {
    static const std::map<std::string, LayerQuery> queries = [] {
        std::map<std::string, LayerQuery> byName;
        ForEachLayerQuery([&](const char* name, auto getter) {
            byName[name] = [getter](const Terrix& profile, const Layer& layer) {
                return ToPython((profile.*getter)(layer));
            };
        });
        return byName;
    }();
    return queries;
}

const LayerQuery& LayerQueryNamed(const std::string& name) {
    const auto query = LayerQueries().find(name);
    if (query == LayerQueries().end()) throw py::key_error("no per-layer query '" + name + "'");
    return query->second;
}

py::object Answer(const LayerHandle& handle, const std::string& name) {
    return LayerQueryNamed(name)(handle.profile.Profile(), handle.layer);
}

// ---- Reading and writing --------------------------------------------------

std::vector<ProfileHandle> Loads(const py::bytes& text, const UnitNames& units) {
    auto imported = std::make_shared<ImportedProfiles>();
    imported->text = text.cast<std::string>();
    {
        py::gil_scoped_release unlocked;
        if (units) imported->all.ImportText(imported->text, units->first, units->second, imported->lines);
        else imported->all.ImportText(imported->text, imported->lines);
    }
    std::vector<ProfileHandle> profiles;
    for (std::size_t i = 0; i < imported->all.GetSoilProfiles().size(); ++i) profiles.push_back({imported, i, nullptr});
    return profiles;
}

// The text the profiles were read from, when they are all the profiles of
// one import in their order; none else.
const std::string* OriginalText(const std::vector<ProfileHandle>& profiles) {
    if (profiles.empty() || !profiles[0].imported) return nullptr;
    const std::shared_ptr<const ImportedProfiles>& imported = profiles[0].imported;
    if (profiles.size() != imported->all.GetSoilProfiles().size()) return nullptr;
    for (std::size_t i = 0; i < profiles.size(); ++i)
        if (profiles[i].imported != imported || profiles[i].index != i) return nullptr;
    return &imported->text;
}

// The profiles as TERRIX text. Those of one import, all of them in their
// order and in the units they were read in, are written over the text they
// were read from, keeping every line that holds nothing edited; others each
// with its own header lines and, without `units`, in the units it was read
// in, as terrix convert writes them. The profiles are written from copies,
// so each keeps the units it was read in. Profiles that would not read back
// are refused, before anything is written.
py::bytes Dumps(const std::vector<ProfileHandle>& profiles, const UnitNames& units, bool endLine, bool keepLines) {
    TerrixMultipleSoilProfiles written;
    for (const ProfileHandle& profile : profiles) written.AddSoilProfile(profile.Profile());
    written.CheckConsistency();
    std::ostringstream text;
    const std::string* original = keepLines && !units ? OriginalText(profiles) : nullptr;
    if (original)
        written.ExportKeepingLines(text, *original);
    else if (units)
        written.ExportWithOwnHeaders(text, Units::Runtime::UnitSystem(units->first, units->second), endLine);
    else
        written.ExportWithOwnHeaders(text, endLine);
    return py::bytes(text.str());
}

// A profile that a program made is known by where its fault stands in the
// profile, not in a text.
std::vector<LayerHandle> Layers(const ProfileHandle& handle, bool split) {
    if (const auto error = FindLayerDivisionError(handle.Profile(), handle.Lines()))
        throw std::runtime_error(error->line ? error->WithLine() : error->text);
    std::vector<LayerHandle> layers;
    for (const Layer& layer : handle.Profile().GetLayers(split)) layers.push_back({handle, layer});
    return layers;
}

ProfileHandle MadeHere(Terrix profile) {
    ProfileHandle handle;
    handle.own = std::make_shared<const Terrix>(std::move(profile));
    return handle;
}

// The format's own comment on the profile name: at most 10 characters.
const std::size_t longestName = 10;

ProfileHandle New(int version, const std::pair<std::string, std::string>& units, const std::string& name) {
    if (version != 4 && version != 5) throw py::value_error("version: 4 or 5, not " + std::to_string(version));
    if (version == 4 && !name.empty()) throw py::value_error("name: a version 4 profile has no name");
    if (name.size() > longestName)
        throw py::value_error("name '" + name + "': a profile name has at most 10 characters");
    Terrix profile = Terrix::MakeNew(version == 4 ? Version::V4 : Version::V5,
                                     Units::Runtime::UnitSystem(units.first, units.second), name);
    for (const std::string& problem : profile.FindInconsistencies()) throw py::value_error("name: " + problem);
    return MadeHere(std::move(profile));
}

ProfileHandle FromDict(py::handle object) {
    const Json json = TerrixPython::FromPython(object, "profile");
    try {
        return MadeHere(ProfileFromJson(json));
    } catch (const JsonImportError& error) {
        throw py::value_error(error.what());
    }
}

// The answer of a query as a Python value, a failed one as its RuntimeError.
template <class Ask>
py::object AnswerOrError(Ask ask) {
    try {
        return ToPython(ask());
    } catch (const std::exception& error) {
        return py::handle(PyExc_RuntimeError)(error.what());
    }
}

// For each of LAYERS, the answers of the queries NAMES: one call for all the
// layers, which indexes the profile's sections once.
py::list LayerAnswers(const ProfileHandle& handle, const std::vector<LayerHandle>& handles,
                      const std::vector<std::string>& names) {
    std::map<std::string, std::vector<std::size_t>> places;
    for (std::size_t i = 0; i < names.size(); ++i) {
        LayerQueryNamed(names[i]);  // a KeyError for a name of no query
        places[names[i]].push_back(i);
    }
    std::vector<Layer> layers;
    for (const LayerHandle& layer : handles) layers.push_back(layer.layer);
    std::vector<py::list> rows;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        py::list row;
        for (std::size_t j = 0; j < names.size(); ++j) row.append(py::none());
        rows.push_back(row);
    }
    ForEachLayerAnswer(handle.Profile(), layers, [&](const Layer& layer, const char* name, auto answer) {
        const auto wanted = places.find(name);
        if (wanted == places.end()) return;
        const py::object value = AnswerOrError(answer);
        for (const std::size_t place : wanted->second)
            rows[static_cast<std::size_t>(&layer - layers.data())][place] = value;
    });
    py::list answers;
    for (const py::list& row : rows) answers.append(row);
    return answers;
}

py::dict Parameters(const ProfileHandle& handle) {
    const Terrix& profile = handle.Profile();
    py::dict parameters;
    ForEachProfileQuery([&](const char* name, auto getter) {
        try {
            parameters[name] = ToPython((profile.*getter)());
        } catch (const std::exception& error) {
            py::dict failure;
            failure["error"] = py::str(error.what());
            parameters[name] = failure;
        }
    });
    return parameters;
}

}  // namespace

PYBIND11_MODULE(_terrix, module) {
    module.doc() = "The C++ core of terrix: the TerrixExchange library's import, export and queries.";

    // A failed import: str() is the library's four-line message, the
    // attributes hold its parts. The module holds the exception's type for
    // as long as it lives.
    static const py::handle importError =
        py::exception<ImportError>(module, "TerrixImportError", PyExc_ValueError).release();
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            if (thrown) std::rethrow_exception(thrown);
        } catch (const ImportError& error) {
            py::object raised = importError(Text(error.what()));
            raised.attr("line") = error.GetLine();
            raised.attr("message") = Text(error.GetMessage());
            raised.attr("section") = Text(error.GetSection());
            raised.attr("found") = Text(error.GetFound());
            PyErr_SetObject(importError.ptr(), raised.ptr());
        } catch (const InconsistentProfilesError& error) {
            PyErr_SetString(PyExc_ValueError, error.what());
        }
    });

    py::class_<CurveData>(module, "CurveData", "One kind of curve data of a layer")
        .def_readonly("code", &CurveData::code)
        .def_readonly("manual_curves", &CurveData::manualCurves)
        .def_readonly("modifications", &CurveData::modifications)
        .def("__repr__", [](const CurveData& data) {
            return "CurveData(code=" + py::repr(data.code).cast<std::string>() + ", " +
                   std::to_string(data.manualCurves.size()) + " manual curves, " +
                   std::to_string(data.modifications.size()) + " modifications)";
        });

    py::class_<LayerHandle>(module, "Layer")
        .def_property_readonly("main_layer", [](const LayerHandle& h) { return h.layer.mainLayer; })
        .def_property_readonly("first_layer", [](const LayerHandle& h) { return h.layer.firstLayer; })
        .def_property_readonly("layer_count", [](const LayerHandle& h) { return h.layer.layerCount; })
        .def_property_readonly("z_top", [](const LayerHandle& h) { return h.layer.zTop.GetValue(); })
        .def_property_readonly("z_bottom", [](const LayerHandle& h) { return h.layer.zBottom.GetValue(); })
        .def("answer", &Answer, "The answer of the per-layer query NAME; raises its error");

    py::class_<ProfileHandle>(module, "Profile")
        .def_property_readonly("version",
                               [](const ProfileHandle& h) { return static_cast<int>(h.Profile().GetVersion()); })
        .def_property_readonly("name", [](const ProfileHandle& h) {
            return Text(h.Profile().GetTerrixInputData().controlSection.profileName);
        })
        .def_property_readonly("header", [](const ProfileHandle& h) { return Text(h.Profile().GetHeader()); })
        .def_property_readonly("units", [](const ProfileHandle& h) {
            const Units::Runtime::UnitSystem& units = h.Profile().GetUnitSystem();
            return py::make_tuple(units.GetForceUnitName(), units.GetLengthUnitName());
        })
        .def("sections", [](const ProfileHandle& h) { return ToPython(DescribeSections(h.Profile())); })
        .def("fields", [](const ProfileHandle& h) { return ToPython(DescribeFields(h.Profile())); },
             "What each value of each section is (kind, optional, dimension, meaning, comment)")
        .def("to_dict", [](const ProfileHandle& h) { return ToPython(DescribeProfile(h.Profile())); })
        .def("set", &TerrixPython::SetValue, py::arg("title"), py::arg("name"), py::arg("value"))
        .def("set_table", &TerrixPython::SetTable, py::arg("title"), py::arg("records"))
        .def_property_readonly("was_read", [](const ProfileHandle& h) { return h.imported != nullptr; })
        .def_property_readonly("is_edited", [](const ProfileHandle& h) { return h.imported && h.own; })
        .def("inconsistencies", [](const ProfileHandle& h) { return h.Profile().FindInconsistencies(); })
        .def("parameters", &Parameters)
        .def("layers", &Layers, py::arg("split"))
        .def("layer_answers", &LayerAnswers, py::arg("layers"), py::arg("names"),
             "For each of LAYERS, the answers of the queries NAMES, a failed one as its RuntimeError");

    module.def("loads", &Loads, py::arg("text"), py::arg("units"),
               "The profiles of TEXT (bytes), in UNITS or in those deduced per profile");
    module.def("dumps", &Dumps, py::arg("profiles"), py::arg("units"), py::arg("end_line"), py::arg("keep_lines"),
               "PROFILES as TERRIX text (bytes): over the text they were read from, or each with its own header lines");
    module.def("new", &New, py::arg("version"), py::arg("units"), py::arg("name"), "What terrix new writes");
    module.def("from_dict", &FromDict, py::arg("profile"), "A profile from its object of terrix dump");
    module.def("from_edited_dict",
               [](py::handle object) {
                   return TerrixPython::FromEditedObject(TerrixPython::FromPython(object, "profile"));
               },
               py::arg("profile"),
               "A profile from an object a program made: lists as given, counts set from the tables");
    module.def("to_file_number", &TerrixPython::ToFileNumber, py::arg("value"), py::arg("dimension"),
               py::arg("force"), py::arg("length"));
    module.def("from_file_number", &TerrixPython::FromFileNumber, py::arg("value"), py::arg("dimension"),
               py::arg("force"), py::arg("length"));
    module.def("layer_query_names", [] {
        std::vector<std::string> names;
        ForEachLayerQuery([&](const char* name, auto) { names.push_back(name); });
        return names;
    });
}
