// terrix show: a profile as an engineer reads it, in the units of its file.
// It prints what the dump answers (QueriesJson), so the two never disagree:
// the header, version, name and units of each profile, its profile-wide
// parameters, and two tables of its layers, one of the soil and one of the
// curves. A query that fails shows "error" in place and its message right
// under the layer; everything else is still printed.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <sstream>

#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>

#include "Commands.h"
#include "Profiles.h"
#include "FileUnits.h"
#include "QueriesJson.h"

namespace TerrixTool {

using namespace TerrixExchange;
using Units::Runtime::DynamicDimension;

namespace {

struct ShowOptions {
    std::string file;
    std::vector<std::string> units;
    std::string profile;
    bool noSplit = false;
};

const std::size_t lineWidth = 80;

// Lines of output, each kept within 80 columns: a longer line is broken at
// its last blank before column 80 and goes on below, indented by `indent`
// (by default 4 more than the line). A line of values (a table row, a
// parameter) is broken after its last comma there if it has one, so that a
// value keeps its number and its level or unit together.
class Lines {
public:
    enum class Break { AtBlank, AfterComma };

    void Add(std::string line = "", std::size_t indent = std::string::npos, Break rule = Break::AfterComma) {
        line = TrimEnd(line);
        if (indent == std::string::npos) indent = std::min<std::size_t>(line.find_first_not_of(' '), 40) + 4;
        indent = std::min(indent, lineWidth - 20);  // every line goes on with 20 columns at least
        while (line.size() > lineWidth) {
            std::size_t cut = rule == Break::AfterComma ? line.rfind(", ", lineWidth - 1) : std::string::npos;
            if (cut != std::string::npos && cut > indent) {
                ++cut;
            } else {
                cut = line.rfind(' ', lineWidth);
                if (cut == std::string::npos || cut <= indent) cut = lineWidth;  // a word longer than the line
            }
            text_ += TrimEnd(line.substr(0, cut)) + "\n";
            const std::size_t rest = line.find_first_not_of(' ', cut);
            if (rest == std::string::npos) return;
            line = std::string(indent, ' ') + line.substr(rest);
        }
        text_ += line + "\n";
    }
    const std::string& Text() const { return text_; }

private:
    static std::string TrimEnd(const std::string& line) {
        const std::size_t end = line.find_last_not_of(' ');
        return end == std::string::npos ? "" : line.substr(0, end + 1);
    }
    std::string text_;
};

// A table of left- or right-aligned columns under their titles and, where
// a column has one, its unit on a second line. A row may carry notes,
// printed right under it.
class Table {
public:
    struct Column {
        std::string title;
        std::string unit;
        bool alignRight;
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

    void AddRow(std::vector<std::string> cells, std::vector<std::string> notes) {
        rows_.push_back(Row{std::move(cells), std::move(notes)});
    }

    void Print(Lines& lines) const {
        std::vector<std::size_t> widths;
        for (const Column& column : columns_) widths.push_back(std::max(column.title.size(), column.unit.size()));
        for (const Row& row : rows_)
            for (std::size_t i = 0; i < row.cells.size(); ++i) widths[i] = std::max(widths[i], row.cells[i].size());
        auto line = [&](auto cell) {
            std::string text = " ";
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                const std::string value = cell(i);
                const std::string padding(widths[i] - value.size(), ' ');
                text += " " + (columns_[i].alignRight ? padding + value : value + padding) + " ";
            }
            return text;
        };
        lines.Add(line([&](std::size_t i) { return columns_[i].title; }));
        const bool hasUnits =
            std::any_of(columns_.begin(), columns_.end(), [](const Column& column) { return !column.unit.empty(); });
        if (hasUnits) lines.Add(line([&](std::size_t i) { return columns_[i].unit; }));
        // A row too long for the line goes on under its last column.
        std::size_t lastColumn = 1;
        for (std::size_t i = 0; i + 1 < columns_.size(); ++i) lastColumn += widths[i] + 2;
        for (const Row& row : rows_) {
            lines.Add(line([&](std::size_t i) { return row.cells[i]; }), lastColumn + 1);
            for (const std::string& note : row.notes) lines.Add("      " + note);
        }
    }

private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<std::string> notes;
    };
    std::vector<Column> columns_;
    std::vector<Row> rows_;
};

// The failed answers of one row: "Soil, Phi: error: Unknown layer", the
// answers that failed with one message named together, in column order.
class RowErrors {
public:
    // The cell of an answer: "error" when it failed, else `text`.
    std::string Cell(const std::string& label, const Json& answer, const std::string& text) {
        if (!IsError(answer)) return text;
        const std::string message = ErrorText(answer);
        for (auto& [labels, known] : errors_)
            if (known == message) {
                labels += ", " + label;
                return "error";
            }
        errors_.emplace_back(label, message);
        return "error";
    }
    std::vector<std::string> Notes() const {
        std::vector<std::string> notes;
        for (const auto& [labels, message] : errors_) notes.push_back(labels + ": " + message);
        return notes;
    }

private:
    std::vector<std::pair<std::string, std::string>> errors_;
};

// The numbered layers a layer covers: "5", "1-4"; "-" for none.
std::string NumberedLayers(const Json& layer) {
    const long long first = layer["firstLayer"].get<long long>();
    const unsigned long long count = layer["layerCount"].get<unsigned long long>();
    if (count == 0) return "-";
    if (count == 1) return std::to_string(first);
    return std::to_string(first) + "-" + std::to_string(first + static_cast<long long>(count) - 1);
}

// The undrained shear strength at the levels the file gives it:
// "80 at 8, 140 at 22"; "0" for a soil without strength, "-" for none.
std::string StrengthAtLevels(const Json& pairs, const FileUnits& units, bool asWritten) {
    if (pairs.empty()) return "-";
    bool allZero = true;
    for (const Json& pair : pairs) allZero = allZero && pair[1].is_number() && pair[1].get<double>() == 0.0;
    if (allZero) return "0";
    std::string text;
    for (const Json& pair : pairs) {
        text += text.empty() ? "" : ", ";
        text += units.Number(pair[1], asWritten ? none : stress) + " at " + units.Number(pair[0], length);
    }
    return text;
}

void PrintHeader(const Terrix& profile, std::size_t index, Lines& lines) {
    const UnitNames units = UnitsOf(profile);
    const std::string name = NameOf(profile);
    lines.Add("Profile #" + std::to_string(index) + (name.empty() ? "" : " '" + name + "'") + ": TERRIX version " +
              std::to_string(VersionNumberOf(profile)) + ", values in " + units.force + " and " + units.length);
    std::istringstream header(profile.GetHeader());
    for (std::string line; std::getline(header, line);) lines.Add("  " + line, 4, Lines::Break::AtBlank);
}

void PrintParameters(const Terrix& profile, const FileUnits& units, Lines& lines) {
    const Json parameters = ParametersJson(profile);
    auto value = [&](const char* key, DynamicDimension dimension) { return units.Value(parameters[key], dimension); };
    auto angle = [&](const char* key) {
        const Json& answer = parameters[key];
        return IsError(answer) ? ErrorText(answer) : Degrees(answer, valueWidth) + " deg";
    };
    auto add = [&](const std::string& label, const std::string& text) {
        lines.Add("  " + label + std::string(label.size() < 28 ? 28 - label.size() : 1, ' ') + text, 30);
    };

    std::string diameters = value("DiameterCount", none);
    if (!IsError(parameters["DiameterCount"])) {
        std::string list;
        for (const auto& diameter : profile.GetTerrixInputData().pileDiametersAndGroupEffectsSection.diameters)
            list += (list.empty() ? "" : ", ") + units.Number(diameter.GetValue(), length, valueWidth);
        if (!list.empty()) diameters += ": " + list + " " + units.Name(length);
    }

    lines.Add("Parameters");
    add("Unit weight of water", value("WaterUnitWeight", unitWeight));
    add("Cyclic P-Y down to level", value("LowestLevelWithCyclicPY", length));
    add("Stiff clay P-Y above Su", value("LowestShearStiff", stress));
    add("Material coefficients",
        "tan(phi) " + value("TanPhiCoeff", none) + ", Su " + value("ShearStrengthCoeff", none) + ", skin friction " +
            value("SkinFrictionCoeff", none) + ", tip " + value("PileTipResistanceCoeff", none));
    add("Pile diameters", diameters);
    add("Group effect soil modulus",
        value("ModulusOfElasticity", stress) + " + " + value("ModulusOfElasticitySlope", unitWeight) + " x depth");
    add("Average Poisson ratio", value("AveragePoissonRatio", none));
    add("Seafloor level", value("ZSeafloor", length));
    add("Scour", "general " + value("DepthOfScour", length) + ", local " + value("DepthOfLocalScour", length) +
                     ", side slope " + angle("SideSlope"));
    add("Vertical stress at surface", value("VerticalStressAtSurface", stress));
    add("Embankment", value("VerticalStressUnderEmbankment", stress) + ", sloping part " +
                          value("WidthOfEmbankmentSlopingPart", length) + ", pile to toe " +
                          value("DistancePileToEmbankmentToe", length));
    add("Circular loaded area", value("VerticalStressUnderCircularLoadedArea", stress) + ", radius " +
                                    value("RadiusOfCircularLoadedArea", length));
    add("T-Z code 200", "zone of influence " + value("ZoneOfInfluenceTZ", none) + ", curve shape factor " +
                            value("CurveShapeFactorTZ", none));
}

// The soil of each layer. Version 5 keeps the unit weights and strengths of
// its main layer table as the numbers the file gives; they are shown as
// they stand, in the file's units as the file means them.
void PrintSoilTable(const Json& layers, const FileUnits& units, bool isVersion5, Lines& lines) {
    Table table({{"Layer", "", false},
                 {isVersion5 ? "Main" : "Type", "", true},
                 {"Top", units.Name(length), true},
                 {"Bottom", units.Name(length), true},
                 {"Soil", "", false},
                 {"Phi", "deg", true},
                 {"Unit weight", units.Name(unitWeight), true},
                 {"Su at level", units.Name(stress) + " at " + units.Name(length), false}});
    for (const Json& layer : layers) {
        RowErrors errors;
        const Json& soil = layer["SoilType"];
        const Json& phi = layer["Phi"];
        const Json& weight = layer["LayerUnitWeight"];
        const Json& strength = layer["SUz"];
        std::vector<std::string> cells{
            NumberedLayers(layer),
            std::to_string(layer["mainLayer"].get<long long>()),
            units.Number(layer["zTop"], length),
            units.Number(layer["zBottom"], length),
            errors.Cell("Soil", soil, Other(soil)),
            errors.Cell("Phi", phi, Degrees(phi)),
            errors.Cell("Unit weight", weight, units.Number(weight, isVersion5 ? none : unitWeight)),
            errors.Cell("Su", strength, IsError(strength) ? "" : StrengthAtLevels(strength, units, isVersion5))};
        table.AddRow(std::move(cells), errors.Notes());
    }
    table.Print(lines);
}

// The curves of each layer: the codes of P-Y, T-Z and Q-Z, the manual
// curves per kind ("P-Y 2": one per pile diameter) and the kinds whose
// factors are not the identity for some diameter.
void PrintCurveTable(const Json& layers, Lines& lines) {
    Table table({{"Layer", "", false},
                 {"P-Y", "", true},
                 {"T-Z", "", true},
                 {"Q-Z", "", true},
                 {"Manual curves", "", false},
                 {"Modified", "", false}});
    for (const Json& layer : layers) {
        RowErrors errors;
        std::vector<std::string> cells{NumberedLayers(layer)};
        std::string manual;
        std::string modified;
        for (const CurveKind& kind : CurveKinds()) {
            const Json& data = layer[kind.key];
            if (IsError(data)) {
                const std::string cell = errors.Cell(kind.name, data, "");
                if (kind.hasCode) cells.push_back(cell);
                continue;
            }
            if (kind.hasCode) cells.push_back(std::to_string(data["code"].get<int>()));
            if (!data["manualCurves"].empty())
                manual += (manual.empty() ? "" : ", ") + std::string(kind.name) + " " +
                          std::to_string(data["manualCurves"].size());
            for (const Json& modification : data["modifications"])
                if (modification["factors"] != kind.identityFactors) {
                    modified += (modified.empty() ? "" : ", ") + std::string(kind.name);
                    break;
                }
        }
        cells.push_back(manual.empty() ? "-" : manual);
        cells.push_back(modified.empty() ? "-" : modified);
        table.AddRow(std::move(cells), errors.Notes());
    }
    table.Print(lines);
}

void PrintLayers(const Terrix& profile, const SourceLines& sourceLines, const FileUnits& units, bool split,
                 Lines& lines) {
    const bool isVersion5 = profile.GetVersion() == Version::V5;
    const std::string title = isVersion5 ? "Layers: one per main layer"
                              : split    ? "Layers: the numbered layers, joined where their curve data agree"
                                         : "Layers: as the soil layer divisions give them";
    const Json layers = LayersJson(profile, sourceLines, split);
    if (IsError(layers)) {
        lines.Add("Layers: " + ErrorText(layers));
        return;
    }
    if (layers.empty()) {
        lines.Add("Layers: none");
        return;
    }
    lines.Add(title);
    PrintSoilTable(layers, units, isVersion5, lines);
    lines.Add();
    PrintCurveTable(layers, lines);
}

int RunShow(const ShowOptions& options) {
    const FileProfiles read = ReadProfiles(options.file, ToUnitNames(options.units, "--units"));
    const std::vector<Terrix>& profiles = read.Profiles();
    Lines lines;
    bool first = true;
    for (std::size_t index : SelectProfiles(profiles, options.profile)) {
        const Terrix& profile = profiles[index];
        const FileUnits units(profile);
        if (!first) lines.Add();
        first = false;
        PrintHeader(profile, index, lines);
        lines.Add();
        PrintParameters(profile, units, lines);
        lines.Add();
        PrintLayers(profile, read.lines[index], units, !options.noSplit, lines);
    }
    WriteOutput("", lines.Text());
    return 0;
}

}  // namespace

void AddShowCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* command =
        app.add_subcommand("show", "Each profile for people, in the units of its file");
    AddUnitsOption(*command, options->units);
    AddProfileOption(*command, options->profile);
    AddNoSplitOption(*command, options->noSplit);
    AddFileArgument(*command, options->file);
    command->callback([&run, options] { run = [options] { return RunShow(*options); }; });
}

}  // namespace TerrixTool
