#pragma once

// Reading the profiles of a TERRIX file and choosing among them: the one
// place where the tool meets the library's import.

#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <TerrixExchange/archive/SourceLines.h>
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

    const std::vector<TerrixExchange::Terrix>& Profiles() const { return all.GetSoilProfiles(); }
};

// Every profile of FILE, each imported in `units`, or, without them, in the
// units deduced from its own control section (its water unit weight and
// atmospheric pressure). A file that cannot be read or imported is a Failure
// "FILE: cannot read" / "FILE: cannot import" followed by the library's text
// as a terminal can show it (see DisplayedImportError).
FileProfiles ReadProfiles(const std::string& file, const boost::optional<UnitNames>& units);

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
