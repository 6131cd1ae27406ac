// The cases of the format, kept as data: every
// tests/cases/import-errors/NAME.terrix is a small TERRIX text, read as
// `terrix check` reads a file (a stream of profiles, units deduced from each
// control section). Beside it, NAME.error holds the whole error it must
// give. Each text is read with LF, CR LF and lone CR line ends alike. A new
// case is two files.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

namespace fs = std::filesystem;

std::string FileText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The case texts of a folder of tests/cases, in a stable order.
std::vector<fs::path> CaseTexts(const std::string& folder) {
    std::vector<fs::path> texts;
    for (const auto& entry : fs::directory_iterator(fs::path(TERRIX_TEST_CASES_DIR) / folder))
        if (entry.path().extension() == ".terrix") texts.push_back(entry.path());
    std::sort(texts.begin(), texts.end());
    return texts;
}

}  // namespace

TEST(FormatCases, EachMalformedTextGivesItsErrorWhateverItsLineEnds) {
    const std::vector<fs::path> texts = CaseTexts("import-errors");
    ASSERT_FALSE(texts.empty());
    for (const fs::path& path : texts) {
        std::string expected = FileText(fs::path(path).replace_extension(".error"));
        if (!expected.empty() && expected.back() == '\n') expected.pop_back();
        for (const char* lineEnd : {"\n", "\r\n", "\r"}) {
            SCOPED_TRACE(path.filename().string() + (lineEnd[0] != '\r' ? "" : lineEnd[1] ? " (CR LF)" : " (CR)"));
            std::istringstream stream(WithLineEnds(FileText(path), lineEnd));
            TerrixMultipleSoilProfiles profiles;
            EXPECT_EQ(ErrorOf([&] { profiles.Import(stream); }), expected);
        }
    }
}
