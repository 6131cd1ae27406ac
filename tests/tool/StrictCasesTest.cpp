// terrix check --strict, checked against cases kept as data: every
// tests/cases/strict/NAME.terrix imports, and NAME.findings is what
// `terrix check --strict NAME.terrix` prints for it, the file's name written
// FILE. Each case holds one kind of finding, at the line it must name. The
// exit status is 1 when a finding is an error, else 0. A new case is two
// files, and a third, NAME.args, when the case needs options of check
// ("--units lbf ft").

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ToolTestSupport.h"

namespace {

namespace fs = std::filesystem;
using TerrixToolTesting::ReadFile;
using TerrixToolTesting::ToolRun;

using StrictCasesTest = TerrixToolTesting::ToolTest;

std::string WithFileNamed(std::string text, const std::string& file) {
    for (std::size_t at = text.find(file); at != std::string::npos; at = text.find(file, at + 4))
        text.replace(at, file.size(), "FILE");
    return text;
}

}  // namespace

TEST_F(StrictCasesTest, EachFileHasTheFindingsItsCaseSays) {
    const std::vector<std::string> cases = TerrixExchange::Testing::CaseTexts("strict");
    ASSERT_GE(cases.size(), 10u);
    for (const fs::path file : cases) {
        SCOPED_TRACE(file.filename().string());
        const std::string expected = ReadFile(fs::path(file).replace_extension(".findings"));
        std::vector<std::string> options;
        const fs::path args = fs::path(file).replace_extension(".args");
        if (fs::exists(args)) {
            std::istringstream words(ReadFile(args));
            for (std::string word; words >> word;) options.push_back(word);
        }
        auto check = [&](std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), options.begin(), options.end());
            arguments.push_back(file.string());
            return Run(arguments);
        };
        const ToolRun run = check({"check", "--strict"});
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(WithFileNamed(run.out, file.string()), expected);
        EXPECT_EQ(run.status, expected.find(": error: ") != std::string::npos ? 1 : 0);
        // Without --strict the file is OK, unless its divisions cannot be split.
        const ToolRun plain = check({"check"});
        EXPECT_EQ(plain.status, expected.find("runs backwards") != std::string::npos ? 1 : 0) << plain.out;
    }
}
