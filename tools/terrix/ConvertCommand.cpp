#include <iostream>
#include <memory>
#include <sstream>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "Commands.h"
#include "Profiles.h"
#include "ToolError.h"

namespace TerrixTool {

using TerrixExchange::Terrix;

namespace {

struct ConvertOptions {
    std::string file;
    std::vector<std::string> units;
    std::string profile;
    std::vector<std::string> to;
    bool noEndLine = false;
    std::string out;
};

bool operator==(const UnitNames& a, const UnitNames& b) { return a.force == b.force && a.length == b.length; }

// Names on standard error each column whose numbers the new units leave
// meaning something else, so that no one is surprised by a file that means
// something else: the columns kept as written, and a column given at a level
// in the length unit when the length unit changes.
void WarnOfUnitBoundColumns(const std::string& file, std::size_t index, const Terrix& profile,
                            const UnitNames& from, const UnitNames& to) {
    using TerrixExchange::ColumnMeaning;
    for (const TerrixExchange::UnitBoundColumn& column : TerrixExchange::FindUnitBoundColumns(profile)) {
        const bool kept = column.meaning == ColumnMeaning::KeptAsWritten;
        if (!kept && from.length == to.length) continue;
        std::cerr << "terrix: " << file << ": warning: profile #" << index << ": " << column.section << ", column "
                  << column.column << ": ";
        if (kept)
            std::cerr << "values are kept as written, not converted from " << from.force << " " << from.length
                      << " to " << to.force << " " << to.length << std::endl;
        else
            std::cerr << "values are given at a level in the length unit, which becomes " << to.length
                      << " instead of " << from.length << std::endl;
    }
}

int RunConvert(const ConvertOptions& options) {
    const boost::optional<UnitNames> to = ToUnitNames(options.to, "--to");
    FileProfiles read = ReadProfiles(options.file, ToUnitNames(options.units, "--units"));
    const std::vector<Terrix>& profiles = read.Profiles();
    const std::vector<std::size_t> chosen = SelectProfiles(profiles, options.profile);
    // A profile that would not read back as it is is never written.
    for (std::size_t index : chosen) {
        const std::vector<std::string> problems = profiles[index].FindInconsistencies();
        if (problems.empty()) continue;
        std::string detail = "profile #" + std::to_string(index) + " would not read back as it is:";
        for (const std::string& problem : problems) detail += "\n" + Displayed(problem);
        throw FileFailure(options.file, "cannot convert", detail);
    }

    for (std::size_t index : chosen) {
        const UnitNames from = UnitsOf(profiles[index]);
        if (to && !(*to == from)) WarnOfUnitBoundColumns(options.file, index, profiles[index], from, *to);
    }
    // Each profile keeps its own header lines and, without --to, its units.
    // The profiles read are written as they are; one chosen profile is
    // written alone.
    TerrixExchange::TerrixMultipleSoilProfiles one;
    if (chosen.size() != profiles.size()) one.AddSoilProfile(profiles[chosen.at(0)]);
    TerrixExchange::TerrixMultipleSoilProfiles& written = chosen.size() != profiles.size() ? one : read.all;
    std::ostringstream text;
    if (to)
        written.ExportWithOwnHeaders(text, TerrixExchange::Units::Runtime::UnitSystem(to->force, to->length),
                                     !options.noEndLine);
    else
        written.ExportWithOwnHeaders(text, !options.noEndLine);
    WriteOutput(options.out, text.str());
    return 0;
}

}  // namespace

void AddConvertCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command = app.add_subcommand(
        "convert", "Write the profile(s) back as TERRIX text");
    AddUnitsOption(*command, options->units);
    AddProfileOption(*command, options->profile);
    command
        ->add_option("--to", options->to,
                     "Units to write, e.g. N mm (default: those read)")
        ->expected(2)
        ->allow_extra_args(false)
        ->type_name("FORCE LENGTH");
    command->add_flag("--no-end-line", options->noEndLine, "Leave out the line END OF TERRIX INPUT FILE");
    AddOutputOption(*command, options->out);
    AddFileArgument(*command, options->file);
    command->callback([&run, options] { run = [options] { return RunConvert(*options); }; });
}

}  // namespace TerrixTool
