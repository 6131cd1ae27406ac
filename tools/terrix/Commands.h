#pragma once

// The commands of terrix. Each command is one source file with one Add
// function: it adds the command, its options and arguments to the command
// line, and, when the command is the one given, sets `run` to the function
// that carries it out and returns the exit status.

#include <functional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace TerrixTool {

using CommandRun = std::function<int()>;

void AddCheckCommand(CLI::App& app, CommandRun& run);
void AddShowCommand(CLI::App& app, CommandRun& run);
void AddDumpCommand(CLI::App& app, CommandRun& run);
void AddConvertCommand(CLI::App& app, CommandRun& run);
void AddReportCommand(CLI::App& app, CommandRun& run);
void AddDiffCommand(CLI::App& app, CommandRun& run);
void AddNewCommand(CLI::App& app, CommandRun& run);
void AddLspCommand(CLI::App& app, CommandRun& run);

// Options that several commands share, with the same help text everywhere.
void AddUnitsOption(CLI::App& command, std::vector<std::string>& units);
void AddProfileOption(CLI::App& command, std::string& profile);
void AddNoSplitOption(CLI::App& command, bool& noSplit);
void AddOutputOption(CLI::App& command, std::string& out);
void AddFileArgument(CLI::App& command, std::string& file);

}  // namespace TerrixTool
