#include "Commands.h"

namespace TerrixTool {

void AddUnitsOption(CLI::App& command, std::vector<std::string>& units) {
    command
        .add_option("--units", units,
                    "The units the file's values are written in, e.g. --units kN m. Default: deduced for each "
                    "profile from the water unit weight and atmospheric pressure of its control section")
        ->expected(2)
        ->allow_extra_args(false)
        ->type_name("FORCE LENGTH");
}

void AddProfileOption(CLI::App& command, std::string& profile) {
    command.add_option("--profile", profile,
                       "Only the profile of that name (from its control section) or at #INDEX (from #0)")
        ->type_name("NAME|#INDEX");
}

void AddNoSplitOption(CLI::App& command, bool& noSplit) {
    command.add_flag("--no-split", noSplit,
                     "The layers as the layer-division section gives them, not split and merged");
}

void AddOutputOption(CLI::App& command, std::string& out) {
    command.add_option("-o", out, "Write to OUT instead of standard output")->type_name("OUT");
}

void AddFileArgument(CLI::App& command, std::string& file) {
    command.add_option("FILE", file, "The TERRIX file; - for standard input")->required();
}

}  // namespace TerrixTool
