#include <memory>

#include "Commands.h"
#include "Json.h"
#include "Profiles.h"
#include "QueriesJson.h"

namespace TerrixTool {

namespace {

struct DumpOptions {
    std::string file;
    std::vector<std::string> units;
    std::string profile;
    bool noSplit = false;
    std::string out;
};

// One profile: what the library holds, then what it answers. Every number is
// in database units (N, m, Pa, N/m3, radians).
Json ProfileJson(const TerrixExchange::Terrix& profile, const TerrixExchange::SourceLines& lines,
                 const DumpOptions& options) {
    Json json = TerrixExchange::DescribeProfile(profile);
    json["parameters"] = ParametersJson(profile);
    json["layers"] = LayersJson(profile, lines, !options.noSplit);
    return json;
}

int RunDump(const DumpOptions& options) {
    const FileProfiles read = ReadProfiles(options.file, ToUnitNames(options.units, "--units"));
    Json list = Json::array();
    for (std::size_t index : SelectProfiles(read.Profiles(), options.profile))
        list.push_back(ProfileJson(read.Profiles()[index], read.lines[index], options));
    WriteOutput(options.out, WriteJson(Json{{"profiles", list}}));
    return 0;
}

}  // namespace

void AddDumpCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<DumpOptions>();
    CLI::App* command = app.add_subcommand(
        "dump", "JSON of what the library holds and answers, in N and m");
    AddUnitsOption(*command, options->units);
    AddProfileOption(*command, options->profile);
    AddNoSplitOption(*command, options->noSplit);
    AddOutputOption(*command, options->out);
    AddFileArgument(*command, options->file);
    command->callback([&run, options] { run = [options] { return RunDump(*options); }; });
}

}  // namespace TerrixTool
