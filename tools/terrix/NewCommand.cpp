// terrix new: the profile an engineer starts from, as TERRIX text: every
// section of the version there, no layers yet, values to start from (see
// Terrix::MakeNew), in the units asked for.

#include <memory>
#include <sstream>

#include "Commands.h"
#include "Profiles.h"
#include "ToolError.h"

namespace TerrixTool {

namespace {

struct NewOptions {
    int version = 5;
    std::vector<std::string> units;
    std::string name;
    std::string out;
};

// The format's own comment on the profile name: at most 10 characters.
const std::size_t longestName = 10;

int RunNew(const NewOptions& options) {
    const TerrixExchange::Version version =
        options.version == 4 ? TerrixExchange::Version::V4 : TerrixExchange::Version::V5;
    if (version == TerrixExchange::Version::V4 && !options.name.empty())
        throw UsageError("--name: a version 4 profile has no name");
    if (options.name.size() > longestName)
        throw UsageError("--name " + options.name + ": a profile name has at most 10 characters");
    const UnitNames units = options.units.empty() ? UnitNames{"kN", "m"} : *ToUnitNames(options.units, "--units");
    const TerrixExchange::Units::Runtime::UnitSystem unitSystem(units.force, units.length);
    TerrixExchange::Terrix profile = TerrixExchange::Terrix::MakeNew(version, unitSystem, options.name);
    for (const std::string& problem : profile.FindInconsistencies()) throw UsageError("--name: " + Displayed(problem));
    std::ostringstream text;
    profile.Export(text, unitSystem, {}, true);
    WriteOutput(options.out, text.str());
    return 0;
}

}  // namespace

void AddNewCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<NewOptions>();
    CLI::App* command = app.add_subcommand("new", "A complete profile of a version, no layers yet, as TERRIX text");
    command->add_option("--version", options->version, "The format version: 4 or 5 (default 5)")
        ->check(CLI::IsMember({4, 5}))
        ->type_name("4|5");
    command
        ->add_option("--units", options->units, "Units to write the profile in, e.g. kN m (default kN m)")
        ->expected(2)
        ->allow_extra_args(false)
        ->type_name("FORCE LENGTH");
    command->add_option("--name", options->name, "The profile's name (version 5, at most 10 characters)")
        ->type_name("NAME");
    AddOutputOption(*command, options->out);
    command->callback([&run, options] { run = [options] { return RunNew(*options); }; });
}

}  // namespace TerrixTool
