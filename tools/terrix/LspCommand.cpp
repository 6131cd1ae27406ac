#include <iostream>
#include <memory>

#include "Commands.h"
#include "LspServer.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace TerrixTool {

namespace {

int RunLsp(const std::vector<std::string>& unitNames) {
    const boost::optional<UnitNames> units = ToUnitNames(unitNames, "--units");
    // The protocol counts bytes: no line ends translated on the way. Without
    // the tie to C's streams, standard input tells how much is waiting.
    std::ios::sync_with_stdio(false);
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    LanguageServer server(std::cin, std::cout, units);
    return server.Run();
}

}  // namespace

void AddLspCommand(CLI::App& app, CommandRun& run) {
    auto units = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand(
        "lsp", "A language server for editors, over standard input and output");
    AddUnitsOption(*command, *units);
    command->callback([&run, units] { run = [units] { return RunLsp(*units); }; });
}

}  // namespace TerrixTool
