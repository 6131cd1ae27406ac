// terrix diff: what changed between two revisions of a TERRIX file, by
// value. Comments, blanks, column widths and the units the files are written
// in do not count: the library compares every value of every section in
// database units, exactly (CompareProfiles), and each value that differs is
// told with both sides in the units of A, where the engineer reads it.
// Profiles are matched by name when every profile of both files has one of
// its own, else by position.

#include <algorithm>
#include <memory>

#include <TerrixExchange/archive/ProfileComparison.h>

#include "Commands.h"
#include "FileUnits.h"
#include "Json.h"
#include "Profiles.h"
#include "ToolError.h"

namespace TerrixTool {

using namespace TerrixExchange;

namespace {

struct DiffOptions {
    std::string a;
    std::string b;
    std::vector<std::string> units;
    bool json = false;
};

// Profiles are matched by name when each of them has a name no other
// profile of its file has; else by their places.
bool MatchByName(const std::vector<Terrix>& profiles) {
    std::vector<std::string> names;
    for (const Terrix& profile : profiles) {
        const std::string name = NameOf(profile);
        if (name.empty() || std::find(names.begin(), names.end(), name) != names.end()) return false;
        names.push_back(name);
    }
    return true;
}

std::string ProfileName(const std::vector<Terrix>& profiles, std::size_t index) {
    const std::string name = NameOf(profiles[index]);
    return "#" + std::to_string(index) + (name.empty() ? "" : " '" + name + "'");
}

// A value of one side in A's units, every digit kept: a diff must tell
// 10.0518 from 10.05180001.
std::string ValueText(const Json& value, DynamicDimension dimension, const FileUnits& units) {
    if (value.is_null()) return "(none)";
    if (value.is_string()) return "'" + value.get<std::string>() + "'";
    if (!IsFiniteNumber(value)) return Other(value);
    const std::string unit = units.Name(dimension);
    return Compact(units.Convert(value.get<double>(), dimension), 25) + (unit.empty() ? "" : " " + unit);
}

// Where a value stands: "SOIL LAYER DIV ..., record 3, ZBOTM", "header".
std::string Place(const ValueDifference& difference) {
    std::string place = difference.section.empty() ? "" : difference.section + ", ";
    if (difference.record != ValueDifference::none) place += "record " + std::to_string(difference.record + 1) + ", ";
    place += difference.column;
    if (difference.element != ValueDifference::none) place += " value " + std::to_string(difference.element + 1);
    return place;
}

struct ProfilePair {
    std::string name;  // as A names it, or B when A lacks it
    const Terrix* a;
    const Terrix* b;
};

std::vector<ProfilePair> PairProfiles(const std::vector<Terrix>& a, const std::vector<Terrix>& b) {
    std::vector<ProfilePair> pairs;
    if (MatchByName(a) && MatchByName(b)) {
        for (std::size_t i = 0; i < a.size(); ++i) {
            const Terrix* match = nullptr;
            for (const Terrix& other : b)
                if (NameOf(other) == NameOf(a[i])) match = &other;
            pairs.push_back({ProfileName(a, i), &a[i], match});
        }
        for (std::size_t j = 0; j < b.size(); ++j) {
            bool matched = false;
            for (const Terrix& profile : a) matched = matched || NameOf(profile) == NameOf(b[j]);
            if (!matched) pairs.push_back({ProfileName(b, j), nullptr, &b[j]});
        }
        return pairs;
    }
    for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i)
        pairs.push_back({i < a.size() ? ProfileName(a, i) : ProfileName(b, i), i < a.size() ? &a[i] : nullptr,
                         i < b.size() ? &b[i] : nullptr});
    return pairs;
}

int RunDiff(const DiffOptions& options) {
    const boost::optional<UnitNames> units = ToUnitNames(options.units, "--units");
    const FileProfiles a = ReadProfiles(options.a, units);
    const FileProfiles b = ReadProfiles(options.b, units);
    std::string text;
    Json list = Json::array();
    for (const ProfilePair& pair : PairProfiles(a.Profiles(), b.Profiles())) {
        if (pair.a == nullptr || pair.b == nullptr) {
            const std::string only = pair.a == nullptr ? "B" : "A";
            text += "profile " + pair.name + ": only in " + only + "\n";
            list.push_back(Json{{"profile", pair.name}, {"onlyIn", only}});
            continue;
        }
        const FileUnits inA(*pair.a);
        for (const ValueDifference& difference : CompareProfiles(*pair.a, *pair.b)) {
            const std::string valueA = ValueText(difference.a, difference.dimension, inA);
            const std::string valueB = ValueText(difference.b, difference.dimension, inA);
            text += "profile " + pair.name + ": " + Place(difference) + ": " + valueA + " in A, " + valueB + " in B\n";
            Json entry{{"profile", pair.name}, {"section", difference.section}};
            entry["record"] = difference.record == ValueDifference::none ? Json() : Json(difference.record + 1);
            entry["column"] = difference.column;
            entry["element"] = difference.element == ValueDifference::none ? Json() : Json(difference.element + 1);
            // Both values as the dump writes them, in database units (N, m).
            entry["a"] = difference.a;
            entry["b"] = difference.b;
            list.push_back(entry);
        }
    }
    if (options.json) WriteOutput("", WriteJson(Json{{"same", list.empty()}, {"differences", list}}));
    else WriteOutput("", list.empty() ? "A and B hold the same profiles\n" : text);
    return list.empty() ? 0 : 1;
}

}  // namespace

void AddDiffCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<DiffOptions>();
    CLI::App* command = app.add_subcommand("diff", "What differs between two files, by value");
    AddUnitsOption(*command, options->units);
    command->add_flag("--json", options->json, "The differences as JSON");
    command->add_option("A", options->a, "The first TERRIX file; - for standard input")->required();
    command->add_option("B", options->b, "The second TERRIX file")->required();
    command->callback([&run, options] { run = [options] { return RunDiff(*options); }; });
}

}  // namespace TerrixTool
