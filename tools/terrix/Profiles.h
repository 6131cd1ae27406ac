#pragma once

// Reading the profiles of a TERRIX file and choosing among them: the one
// place where the tool meets the library's import.

#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/archive/SourceMap.h>
#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

namespace TerrixTool {

// A unit system as the command line names it: "--units kN m".
struct UnitNames {
    std::string force;
    std::string length;
};

// The names given to an option that takes FORCE LENGTH, checked against the
// units the library knows; none when the option was not given. An unknown
// name is a Failure that names the option and the unit.
boost::optional<UnitNames> ToUnitNames(const std::vector<std::string>& values, const std::string& option);

// The profiles of a file, as the library read them (the one copy the tool
// holds), and for each where its values stand in the file.
struct FileProfiles {
    TerrixExchange::TerrixMultipleSoilProfiles all;
    std::vector<TerrixExchange::SourceLines> lines;
    // What each line of each profile is and where its values stand, where
    // asked for (ImportText).
    std::vector<TerrixExchange::SourceMap> maps;

    const std::vector<TerrixExchange::Terrix>& Profiles() const { return all.GetSoilProfiles(); }
};

// Every profile of FILE, each imported in `units`, or, without them, in the
// units deduced from its own control section (its water unit weight and
// atmospheric pressure). A file that cannot be read or imported is a Failure
// "FILE: cannot read" / "FILE: cannot import" followed by the library's text
// as a terminal can show it (see DisplayedImportError).
FileProfiles ReadProfiles(const std::string& file, const boost::optional<UnitNames>& units);

// The one call into the library's import: every profile of the text, TERRIX
// or the JSON of terrix dump, into `read`, in the units named or in those
// of each profile (deduced from its control section, or named by its JSON),
// with the source maps of a TERRIX text when `withMaps`. After the last
// profile of a TERRIX text may stand only empty lines, comment lines and
// the end line. Throws what the library throws, the profiles read before
// the failure left in `read`.
void ImportText(const std::string& text, const boost::optional<UnitNames>& units, FileProfiles& read,
                bool withMaps);

// The library's message for a profile whose units cannot be deduced, and
// what to say after it: why, and `remedy`, how to name the units.
const std::string unitsNotDeduced = "Unable to deduce units";
std::string UnitsHint(const std::string& remedy);

// The positions of the profiles chosen by --profile: every profile for an
// empty selection, else the one named "NAME" (the first of that name) or
// standing at "#INDEX" (counted from 0). A selection that matches no profile
// is a UsageError.
std::vector<std::size_t> SelectProfiles(const std::vector<TerrixExchange::Terrix>& profiles,
                                        const std::string& selection);

// The units a profile was read in.
UnitNames UnitsOf(const TerrixExchange::Terrix& profile);
// The profile name of the control section ("" in version 4).
std::string NameOf(const TerrixExchange::Terrix& profile);
// 4 or 5 (0 for a profile of no known version).
int VersionNumberOf(const TerrixExchange::Terrix& profile);

// Writes `text` to OUT, or to standard output when OUT is empty or "-".
void WriteOutput(const std::string& out, const std::string& text);

}  // namespace TerrixTool
