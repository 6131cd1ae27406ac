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

#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixExchange/document/TextInPlace.h>
#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixExchange/queries/NamedQueries.h>

namespace py = pybind11;
using namespace TerrixExchange;

namespace {

// A (force, length) pair of unit names, "kN", "m".
using UnitNames = std::optional<std::pair<std::string, std::string>>;

// The profiles of one import and where their values stand in the text. The
// Profile objects of an import share it, so that reading a stream of a
// thousand profiles copies none of them.
struct ImportedProfiles {
    TerrixMultipleSoilProfiles all;
    std::vector<SourceLines> lines;
};

struct ProfileHandle {
    std::shared_ptr<const ImportedProfiles> imported;
    std::size_t index;

    const Terrix& Profile() const { return imported->all.GetSoilProfiles()[index]; }
    const SourceLines& Lines() const { return imported->lines[index]; }
};

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

// A JSON value of the library (a section's description) as Python values.
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
    char* data = nullptr;
    py::ssize_t size = 0;
    PyBytes_AsStringAndSize(text.ptr(), &data, &size);
    auto imported = std::make_shared<ImportedProfiles>();
    {
        py::gil_scoped_release unlocked;
        TextInPlace buffer(data, static_cast<std::size_t>(size));
        std::istream stream(&buffer);
        if (units) imported->all.Import(stream, units->first, units->second, imported->lines);
        else imported->all.Import(stream, imported->lines);
    }
    std::vector<ProfileHandle> profiles;
    for (std::size_t i = 0; i < imported->all.GetSoilProfiles().size(); ++i) profiles.push_back({imported, i});
    return profiles;
}

// Each profile with its own header lines and, without `units`, in the
// units it was read in, as terrix convert writes them. The profiles are
// written from copies: writing leaves each in the units it was read in.
py::bytes Dumps(const std::vector<ProfileHandle>& profiles, const UnitNames& units, bool endLine) {
    TerrixMultipleSoilProfiles written;
    for (const ProfileHandle& profile : profiles) written.AddSoilProfile(profile.Profile());
    std::ostringstream text;
    if (units)
        written.ExportWithOwnHeaders(text, Units::Runtime::UnitSystem(units->first, units->second), endLine);
    else
        written.ExportWithOwnHeaders(text, endLine);
    return py::bytes(text.str());
}

std::vector<LayerHandle> Layers(const ProfileHandle& handle, bool split) {
    if (const auto error = FindLayerDivisionError(handle.Profile(), handle.Lines()))
        throw std::runtime_error(error->WithLine());
    std::vector<LayerHandle> layers;
    for (const Layer& layer : handle.Profile().GetLayers(split)) layers.push_back({handle, layer});
    return layers;
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
        .def("parameters", &Parameters)
        .def("layers", &Layers, py::arg("split"))
        .def("layer_answers", &LayerAnswers, py::arg("layers"), py::arg("names"),
             "For each of LAYERS, the answers of the queries NAMES, a failed one as its RuntimeError");

    module.def("loads", &Loads, py::arg("text"), py::arg("units"),
               "The profiles of TEXT (bytes), in UNITS or in those deduced per profile");
    module.def("dumps", &Dumps, py::arg("profiles"), py::arg("units"), py::arg("end_line"),
               "PROFILES as TERRIX text (bytes), each with its own header lines");
    module.def("layer_query_names", [] {
        std::vector<std::string> names;
        ForEachLayerQuery([&](const char* name, auto) { names.push_back(name); });
        return names;
    });
}
