// The cases of the format, kept as data: every tests/cases/*/NAME.terrix is
// a small TERRIX text, read as `terrix check` reads a file (a stream of
// profiles, units deduced from each control section). Beside it,
// NAME.error holds the whole import error it must give. Each text is read
// with LF, CR LF and lone CR line ends alike. A new case is two files.

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

// Every case text, in a stable order.
std::vector<fs::path> CaseTexts() {
    std::vector<fs::path> texts;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TERRIX_TEST_DATA_DIR) / ".." / "cases"))
        if (entry.path().extension() == ".terrix") texts.push_back(entry.path());
    std::sort(texts.begin(), texts.end());
    return texts;
}

}  // namespace

TEST(FormatCases, EachMalformedTextGivesItsErrorWhateverItsLineEnds) {
    const std::vector<fs::path> texts = CaseTexts();
    ASSERT_FALSE(texts.empty());
    for (const fs::path& path : texts) {
        const fs::path errorPath = fs::path(path).replace_extension(".error");
        if (!fs::exists(errorPath)) continue;
        std::string expected = FileText(errorPath);
        if (!expected.empty() && expected.back() == '\n') expected.pop_back();
        for (const char* lineEnd : {"\n", "\r\n", "\r"}) {
            SCOPED_TRACE(path.filename().string() + (lineEnd[0] != '\r' ? "" : lineEnd[1] ? " (CR LF)" : " (CR)"));
            std::istringstream stream(WithLineEnds(FileText(path), lineEnd));
            TerrixMultipleSoilProfiles profiles;
            EXPECT_EQ(ImportErrorOf([&] { profiles.Import(stream); }), expected);
        }
    }
}
