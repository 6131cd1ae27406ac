#include <algorithm>
#include <iostream>
#include <memory>

#include "Commands.h"
#include "Findings.h"
#include "Profiles.h"
#include "ToolError.h"

namespace TerrixTool {

namespace {

struct CheckOptions {
    std::vector<std::string> files;
    std::vector<std::string> units;
    bool strict = false;
};

// "version 5, 1 profile, units kN m"; profiles of differing versions or
// units list each value once, in file order: "versions 4, 5", "units kN m, N mm".
std::string Summary(const std::vector<TerrixExchange::Terrix>& profiles) {
    std::vector<std::string> versions;
    std::vector<std::string> units;
    for (const TerrixExchange::Terrix& profile : profiles) {
        const std::string version = std::to_string(VersionNumberOf(profile));
        const UnitNames names = UnitsOf(profile);
        const std::string unit = names.force + " " + names.length;
        if (std::find(versions.begin(), versions.end(), version) == versions.end()) versions.push_back(version);
        if (std::find(units.begin(), units.end(), unit) == units.end()) units.push_back(unit);
    }
    auto list = [](const std::vector<std::string>& values) {
        std::string text;
        for (const std::string& value : values) text += (text.empty() ? "" : ", ") + value;
        return text;
    };
    const std::size_t count = profiles.size();
    return std::string(versions.size() > 1 ? "versions " : "version ") + list(versions) + ", " +
           std::to_string(count) + (count == 1 ? " profile" : " profiles") + ", units " + list(units);
}

int RunCheck(const CheckOptions& options) {
    const boost::optional<UnitNames> units = ToUnitNames(options.units, "--units");
    int status = 0;
    for (const std::string& file : options.files) {
        try {
            const FileProfiles read = ReadProfiles(file, units);
            // Divisions that the format allows but no profile can be split
            // into are errors of the file, at their lines; a file with an
            // error is not OK, one with warnings only is.
            bool sound = true;
            for (const Finding& finding : FindingsOf(read, options.strict)) {
                // JSON has no lines to point at.
                const std::string line = finding.line != 0 ? ":" + std::to_string(finding.line) : "";
                std::cout << file << line << (finding.isError ? ": error: " : ": warning: ") << finding.text
                          << std::endl;
                sound = sound && !finding.isError;
            }
            if (sound) std::cout << file << ": OK " << Summary(read.Profiles()) << std::endl;
            else status = 1;
        } catch (const Failure& failure) {
            std::cerr << "terrix: " << failure.what() << std::endl;
            status = 1;
        }
    }
    if (!(std::cout << std::flush)) throw Failure("standard output: cannot write");
    return status;
}

}  // namespace

void AddCheckCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<CheckOptions>();
    CLI::App* command = app.add_subcommand(
        "check", "Import each file; print FILE: OK, version, profiles, units");
    AddUnitsOption(*command, options->units);
    command->add_flag("--strict", options->strict,
                      "Also report what the format allows but no sound profile holds");
    command->add_option("FILE", options->files, "TERRIX files; - for standard input")->required();
    command->callback([&run, options] { run = [options] { return RunCheck(*options); }; });
}

}  // namespace TerrixTool
