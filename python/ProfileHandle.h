#pragma once

// The profiles of the Python module terrix as its C++ core holds them, and
// what the core does to them besides reading and asking: edits, new
// profiles, profiles from their JSON object, and the numbers of a profile
// in the units of its file.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <pybind11/pybind11.h>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

namespace TerrixPython {

namespace py = pybind11;
using TerrixExchange::Json;
using TerrixExchange::Terrix;

// The profiles of one import, where their values stand in the text, and the
// text itself, over which they are written back keeping every untouched
// line. The Profile objects of an import share it, so that reading a stream
// of a thousand profiles copies none of them.
struct ImportedProfiles {
    TerrixExchange::TerrixMultipleSoilProfiles all;
    std::vector<TerrixExchange::SourceLines> lines;
    std::string text;
};

// One profile of the module: the profile of an import at its place there,
// or, once edited or when made in Python (no import), a profile of its own.
// An edit replaces the profile as a whole, so a Layer asked before it keeps
// answering from the profile it came from.
struct ProfileHandle {
    std::shared_ptr<const ImportedProfiles> imported;
    std::size_t index = 0;
    std::shared_ptr<const Terrix> own;

    const Terrix& Profile() const { return own ? *own : imported->all.GetSoilProfiles()[index]; }
    // Where its values stand in the text it was read from; nowhere once it
    // is edited or when it was never read.
    const TerrixExchange::SourceLines& Lines() const;
};

// JSON values (a profile's object of terrix dump) as Python values and back.
// Python numbers become JSON integers and reals as they are; a bool, or
// anything else that is no JSON value, raises TypeError naming `where`.
py::object ToPython(const Json& value);
Json FromPython(py::handle value, const std::string& where);

// Edits: the profile with one parameter or vector set, or with a table's
// records replaced (the counts then set from the tables). An unknown name
// raises KeyError, a value of the wrong kind TypeError, one the profile
// cannot hold ValueError; on an error the handle keeps its profile.
void SetValue(ProfileHandle& handle, const std::string& title, const std::string& name, py::handle value);
void SetTable(ProfileHandle& handle, const std::string& title, py::handle records);

// A profile from an object that a program made or edited (a workbook's):
// lists as long as they are given, tables of the optional kinds of curve
// and empty tables that it leaves out taken as empty, counts set from the
// tables. Raises ValueError with the JSON reader's message.
ProfileHandle FromEditedObject(const Json& object);

// A number of the profile (database units) in the units of its file, as the
// nearest double to the text the exporter writes, and that text.
py::tuple ToFileNumber(double value, const std::vector<int>& dimension, const std::string& force,
                       const std::string& length);
// A number written in the units of the file (a float, or its text) in
// database units, as the importer reads the text; ValueError for a text
// that is no number.
double FromFileNumber(py::handle value, const std::vector<int>& dimension, const std::string& force,
                      const std::string& length);

}  // namespace TerrixPython
