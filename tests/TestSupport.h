#pragma once

// Helpers of the tests: the texts of tests/cases, tests/data and examples/,
// a profile read as `terrix check` reads a file and written back, and the
// message of an error.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <list>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange { namespace Testing {

using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

// The message of the std::exception that `action` throws, or "" if none.
inline std::string ErrorOrNothing(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

// The same; fails the test if it throws nothing.
inline std::string ErrorOf(const std::function<void()>& action) {
    const std::string message = ErrorOrNothing(action);
    if (message.empty()) ADD_FAILURE() << "expected an error, got none";
    return message;
}

// `text` with every "\n" made `lineEnd`: "\r\n" as a DOS editor saves it,
// "\r" as an old Mac did.
inline std::string WithLineEnds(const std::string& text, const std::string& lineEnd) {
    std::string result;
    for (char c : text) result += c == '\n' ? lineEnd : std::string(1, c);
    return result;
}

inline std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// A file of tests/data, of examples/ or of tests/cases ("round-trip/new-profile-v4.terrix").
inline std::string TestData(const std::string& name) { return FileText(TERRIX_TEST_DATA_DIR "/" + name); }
inline std::string ExampleFileText(const std::string& name) { return FileText(TERRIX_EXAMPLES_DIR "/" + name); }
inline std::string CaseText(const std::string& name) { return FileText(TERRIX_TEST_CASES_DIR "/" + name); }

// The paths of the TERRIX texts (or of the files with another extension)
// of a folder of tests/cases, in order.
inline std::vector<std::string> CaseTexts(const std::string& folder, const std::string& extension = ".terrix") {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(TERRIX_TEST_CASES_DIR "/" + folder))
        if (entry.path().extension() == extension) paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

// The first profile of `text`, read as `terrix check` reads a file: a stream
// of profiles, the units of each deduced from its control section.
inline Terrix Read(const std::string& text) {
    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    return profiles.GetSoilProfiles().at(0);
}

inline Terrix ExampleProfile(const std::string& name) { return Read(ExampleFileText(name)); }

// The profile written with its header lines and the end line, in `units`.
inline std::string Written(Terrix profile, const Units::Runtime::UnitSystem& units) {
    std::list<std::string> header;
    std::istringstream lines(profile.GetHeader());
    for (std::string line; std::getline(lines, line);) header.push_back(line);
    std::ostringstream text;
    profile.Export(text, units, header, true);
    return text.str();
}
// The same in the units it was read in.
inline std::string Written(const Terrix& profile) { return Written(profile, profile.GetUnitSystem()); }

// The profiles of a TERRIX text as terrix dump writes them, without the
// answers: {"profiles": [...]}.
inline Json DumpOf(const std::string& text) {
    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    Json list = Json::array();
    for (const Terrix& profile : profiles.GetSoilProfiles()) list.push_back(DescribeProfile(profile));
    return Json{{"profiles", list}};
}

// The JSON text of a case of tests/cases/json-errors: NAME.json as it
// stands, or NAME.patch, {"base": a TERRIX file of the repository, "patch":
// a JSON Patch}, the patch applied to the dump of the base.
inline std::string JsonCaseText(const std::string& path) {
    if (path.size() < 6 || path.substr(path.size() - 6) != ".patch") return FileText(path);
    const Json patch = Json::parse(FileText(path));
    const Json dump = DumpOf(FileText(TERRIX_EXAMPLES_DIR "/../" + patch["base"].get<std::string>()));
    return WriteJson(dump.patch(patch["patch"]));
}

}}  // namespace TerrixExchange::Testing
