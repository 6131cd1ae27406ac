#pragma once

// The terrix tool as an engineer runs it: a test starts the built program
// with a command line and looks at its standard output, standard error and
// exit status. Shared by the tests of every command.

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace TerrixToolTesting {

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
    std::ofstream file(path, std::ios::binary);
    file << text;
}

// The path of a file of examples/.
inline std::string ExamplePath(const std::string& name) { return std::string(TERRIX_EXAMPLES_DIR) + "/" + name; }

// `text` with its one occurrence of `from` replaced by `to`; a test fails
// when `from` does not occur exactly once.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at == std::string::npos) return text;
    EXPECT_EQ(text.find(from, at + 1), std::string::npos) << from;
    return text.replace(at, from.size(), to);
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
        return (directory_ / name).string();
    }
    std::string Path(const std::string& name) const { return (directory_ / name).string(); }

    // Runs terrix with the arguments, `input` on its standard input.
    ToolRun Run(const std::vector<std::string>& arguments, const std::string& input = "") {
        const std::filesystem::path in = directory_ / "stdin";
        const std::filesystem::path out = directory_ / "stdout";
        const std::filesystem::path err = directory_ / "stderr";
        WriteFile(in, input);
        std::vector<std::string> words{TERRIX_TOOL_PATH};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& word : words) argv.push_back(word.data());
        argv.push_back(nullptr);

        const pid_t child = fork();
        if (child == 0) {
            const int inFile = open(in.c_str(), O_RDONLY);
            const int outFile = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            const int errFile = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            if (inFile < 0 || outFile < 0 || errFile < 0) _exit(126);
            dup2(inFile, 0);
            dup2(outFile, 1);
            dup2(errFile, 2);
            execv(argv[0], argv.data());
            _exit(127);
        }
        ToolRun run;
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child) {
            ADD_FAILURE() << "could not run " << TERRIX_TOOL_PATH;
            return run;
        }
        run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        run.out = ReadFile(out);
        run.err = ReadFile(err);
        return run;
    }

private:
    std::filesystem::path directory_;
};

}  // namespace TerrixToolTesting
