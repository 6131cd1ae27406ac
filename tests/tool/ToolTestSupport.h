#pragma once

// The terrix tool as an engineer runs it: a test starts the built program
// with a command line and looks at its standard output, standard error and
// exit status. Shared by the tests of every command.

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "../TestSupport.h"

namespace TerrixToolTesting {

using TerrixExchange::Testing::TestData;
// A tool test changes a file in one place that it names exactly.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_TRUE(at != std::string::npos && text.find(from, at + 1) == std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

struct ToolRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

inline void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// The path of a file of examples/.
inline std::string ExamplePath(const std::string& name) { return std::string(TERRIX_EXAMPLES_DIR) + "/" + name; }

// The lines of `text`, without their line ends.
inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// A whole file without its last line "END OF TERRIX INPUT FILE" and the
// empty line before it, so that more may follow its last profile.
inline std::string WithoutEndLine(const std::string& text) {
    const std::string endLine = "\nEND OF TERRIX INPUT FILE\n";
    EXPECT_EQ(text.substr(text.size() - std::min(text.size(), endLine.size())), endLine);
    return text.substr(0, text.size() - std::min(text.size(), endLine.size()));
}

// Each test has a directory of its own for the files it writes.
class ToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "terrix-tool-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        directory_ = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(directory_); }

    // A file of the test's own directory with the given text.
    std::string File(const std::string& name, const std::string& text) {
        WriteFile(directory_ / name, text);
        return Path(name);
    }
    std::string Path(const std::string& name) const { return (directory_ / name).string(); }

    // Runs terrix with the arguments (each quoted for the shell), `input` on
    // its standard input.
    ToolRun Run(const std::vector<std::string>& arguments, const std::string& input = "") {
        std::string command = Quoted(TERRIX_TOOL_PATH);
        for (const std::string& argument : arguments) command += " " + Quoted(argument);
        command += " <" + Quoted(File("stdin", input)) + " >" + Quoted(Path("stdout")) + " 2>" + Quoted(Path("stderr"));
        const int status = std::system(command.c_str());
        ToolRun run;
        run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        run.out = ReadFile(Path("stdout"));
        run.err = ReadFile(Path("stderr"));
        return run;
    }

private:
    static std::string Quoted(const std::string& word) {
        std::string quoted = "'";
        for (char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
        return quoted + "'";
    }
    std::filesystem::path directory_;
};

}  // namespace TerrixToolTesting
