#include "Commands.h"

namespace TerrixTool {

void AddUnitsOption(CLI::App& command, std::vector<std::string>& units) {
    command
        .add_option("--units", units,
                    "Units of the file's values, e.g. kN m (default: deduced)")
        ->expected(2)
        ->allow_extra_args(false)
        ->type_name("FORCE LENGTH");
}

void AddProfileOption(CLI::App& command, std::string& profile) {
    command.add_option("--profile", profile,
                       "Only that profile: its name, or #INDEX from #0")
        ->type_name("NAME|#INDEX");
}

void AddNoSplitOption(CLI::App& command, bool& noSplit) {
    command.add_flag("--no-split", noSplit,
                     "Layers as the file divides them, not split and merged");
}

void AddOutputOption(CLI::App& command, std::string& out) {
    command.add_option("-o", out, "Write to OUT instead of standard output")->type_name("OUT");
}

void AddFileArgument(CLI::App& command, std::string& file) {
    command.add_option("FILE", file, "The TERRIX file; - for standard input")->required();
}

}  // namespace TerrixTool
