// terrix report: one self-contained HTML page that shows each profile of a
// file to an engineer: its header and parameters, the soil column drawn to
// scale, its properties plotted against depth, the manual curves of each
// layer, and a table of every layer's answers. The page holds everything
// (inline SVG and CSS, no script, nothing fetched), so that it can be mailed
// or archived beside the file and still open years later.
//
// The plots and the table read the answers as the dump writes them
// (QueriesJson), the curves the library's own values, asked of all layers in
// one call; a query that fails shows its message in its place and
// everything else is still drawn.

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <type_traits>

#include <TerrixExchange/queries/NamedQueries.h>

#include "Commands.h"
#include "FileUnits.h"
#include "Profiles.h"
#include "QueriesJson.h"
#include "Svg.h"

namespace TerrixTool {

using namespace TerrixExchange;
using Svg::Escaped;

namespace {

struct ReportOptions {
    std::string file;
    std::vector<std::string> units;
    std::string out;
};

// The dimension of a query's answer, from the type the getter returns: a
// quantity carries its own, an optional or a map from level that of its
// value; plain numbers have none. Angles are shown in degrees.
template <class Answer>
struct AnswerDimension {
    static constexpr DynamicDimension value{0, 0};
    static constexpr bool isAngle = false;
};
template <class Phenomenon>
struct AnswerDimension<Units::Runtime::Quantity<Phenomenon>> {
    static constexpr DynamicDimension value = Phenomenon::dimension;
    static constexpr bool isAngle = std::is_same<Phenomenon, Units::Runtime::AnglePhenomenon>::value;
};
template <class Value>
struct AnswerDimension<boost::optional<Value>> : AnswerDimension<Value> {};
template <class Key, class Value>
struct AnswerDimension<std::map<Key, Value>> : AnswerDimension<Value> {};

// A column of the layer table: a per-layer query of the library.
struct LayerColumn {
    std::string name;
    DynamicDimension dimension;
    bool isAngle;
};

std::vector<LayerColumn> LayerColumns() {
    std::vector<LayerColumn> columns;
    ForEachLayerQuery([&](const char* name, auto getter) {
        using Answer = std::decay_t<decltype((std::declval<const Terrix&>().*getter)(std::declval<const Layer&>()))>;
        columns.push_back({name, AnswerDimension<Answer>::value, AnswerDimension<Answer>::isAngle});
    });
    return columns;
}

// The format keeps some columns as the numbers the file gives although they
// carry a dimension: the skin friction and tip resistance of both versions,
// and the unit weights, strengths and AK of the version 5 main layers. The
// library holds them as written, so they are shown as they stand, under the
// unit the file means.
bool IsKeptAsWritten(const std::string& query, bool isVersion5) {
    if (query == "SkinCompression" || query == "SkinTension" || query == "TipResistance") return true;
    return isVersion5 && (query == "LayerUnitWeight" || query == "SUz" || query == "InitialModulus");
}

// A value of the file in its units, or as written.
double InFileUnits(const FileUnits& units, double value, DynamicDimension dimension, bool asWritten) {
    return asWritten ? value : units.Convert(value, dimension);
}

// The axes of the curves of each kind: displacement against resistance.
struct CurveAxes {
    DynamicDimension displacement;
    DynamicDimension resistance;
    const char* displacementName;
    const char* resistanceName;
};

CurveAxes AxesOf(const std::string& kind) {
    if (kind == "MthetaData") return {none, force, "theta", "M"};
    if (kind == "BSyData") return {length, force, "y", "BS"};
    if (kind == "BMthetaData") return {none, moment, "theta", "BM"};
    if (kind == "TzData") return {length, stress, "z", "T"};
    if (kind == "QzData") return {length, stress, "z", "Q"};
    return {length, stress, "y", "P"};
}

std::string WithUnit(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " [" + unit + "]";
}

// The numbered layers a layer covers: "5", "1-4".
std::string NumberedLayers(long long first, unsigned long long count) {
    return count <= 1 ? std::to_string(first)
                      : std::to_string(first) + "-" + std::to_string(first + static_cast<long long>(count) - 1);
}

std::string NumberedLayers(const Json& layer) {
    return NumberedLayers(layer["firstLayer"].get<long long>(), layer["layerCount"].get<unsigned long long>());
}

// The value of `pairs` ([level, value] in ascending level) at level `z`,
// along the straight lines between them, the end lines carried on beyond.
double AtLevel(const Json& pairs, double z) {
    if (pairs.empty()) return std::nan("");
    if (pairs.size() == 1) return pairs[0][1].get<double>();
    std::size_t i = 1;
    while (i + 1 < pairs.size() && pairs[i][0].get<double>() < z) ++i;
    const double z0 = pairs[i - 1][0].get<double>(), z1 = pairs[i][0].get<double>();
    const double v0 = pairs[i - 1][1].get<double>(), v1 = pairs[i][1].get<double>();
    if (z1 == z0) return v0;
    return v0 + (v1 - v0) * (z - z0) / (z1 - z0);
}

// The profile's layers and how they are drawn against depth.
class DepthPlots {
public:
    DepthPlots(const Json& layers, const Json& parameters, const FileUnits& units, bool isVersion5)
        : layers_(layers), parameters_(parameters), units_(units), isVersion5_(isVersion5) {
        top_ = std::numeric_limits<double>::infinity();
        bottom_ = -top_;
        for (const Json& layer : layers_) {
            top_ = std::min(top_, Depth(layer["zTop"]));
            bottom_ = std::max(bottom_, Depth(layer["zBottom"]));
        }
        for (const char* level : {"ZSeafloor"}) {
            const Json& answer = parameters_[level];
            if (IsFiniteNumber(answer)) top_ = std::min(top_, Depth(answer));
        }
    }

    std::string Render() const {
        std::string html = "<div class=\"plots\">";
        html += SoilColumn();
        html += Steps("Unit weight", "LayerUnitWeight", unitWeight, false);
        html += Levels("Undrained shear strength", {{"SUz", "Su"}});
        html += Steps("Friction angle", "Phi", none, true);
        html += Levels("Skin friction", {{"SkinCompression", "compression"}, {"SkinTension", "tension"}});
        html += Levels("Tip resistance", {{"TipResistance", ""}});
        return html + "</div>";
    }

private:
    double Depth(const Json& value) const { return units_.Convert(value.get<double>(), length); }
    std::string DepthAxis() const { return WithUnit("level", units_.Name(length)); }

    Svg::Chart NewChart(const std::string& title, const std::string& xAxis, int width) const {
        Svg::Chart chart(title, xAxis, DepthAxis(), true, width, 520);
        chart.SetYRange(top_, bottom_);
        return chart;
    }

    // Every layer as a band coloured by soil type, labelled with its
    // numbered layers and soil; the seafloor and the scour levels.
    std::string SoilColumn() const {
        Svg::Chart chart = NewChart("Soil column", "", 190);
        chart.HideXAxis();
        for (const Json& layer : layers_) {
            const Json& soil = layer["SoilType"];
            const std::string type = soil.is_string() ? soil.get<std::string>() : "error";
            const char* colour = type == "Sand" ? "#f2d98c" : type == "Clay" ? "#b08a63" : "#d0d0d0";
            chart.AddBand({Depth(layer["zTop"]), Depth(layer["zBottom"]), colour, NumberedLayers(layer) + " " + type});
        }
        const Json& seafloor = parameters_["ZSeafloor"];
        if (IsFiniteNumber(seafloor)) {
            const double z = Depth(seafloor);
            chart.AddLevel({z, "#1f5fa8", "seafloor"});
            for (const auto& [key, label] : {std::pair<const char*, const char*>{"DepthOfScour", "general scour"},
                                             {"DepthOfLocalScour", "local scour"}}) {
                const Json& depth = parameters_[key];
                if (IsFiniteNumber(depth) && depth.get<double>() != 0.0)
                    chart.AddLevel({z + Depth(depth), "#c0392b", label});
            }
        }
        return chart.Render("depth column");
    }

    // A property constant through each layer, drawn as steps.
    std::string Steps(const std::string& title, const char* query, DynamicDimension dimension, bool isAngle) const {
        const bool asWritten = IsKeptAsWritten(query, isVersion5_);
        Svg::Line line{"", Svg::SeriesColour(0), {}};
        for (const Json& layer : layers_) {
            const Json& answer = layer[query];
            if (!IsFiniteNumber(answer)) {
                line.points.push_back({std::nan(""), 0});
                continue;
            }
            const double value = isAngle ? answer.get<double>() * degreesPerRadian
                                         : InFileUnits(units_, answer.get<double>(), dimension, asWritten);
            line.points.push_back({value, Depth(layer["zTop"])});
            line.points.push_back({value, Depth(layer["zBottom"])});
        }
        Svg::Chart chart = NewChart(title, WithUnit(title, isAngle ? "deg" : units_.Name(dimension)), 200);
        chart.AddLine(std::move(line));
        return chart.Render("depth");
    }

    // Properties the library gives against level (maps from level to
    // stress), drawn through each layer from its top to its bottom.
    std::string Levels(const std::string& title,
                       const std::vector<std::pair<const char*, const char*>>& queries) const {
        Svg::Chart chart = NewChart(title, WithUnit(title, units_.Name(stress)), 200);
        std::size_t index = 0;
        for (const auto& [query, label] : queries) {
            const bool asWritten = IsKeptAsWritten(query, isVersion5_);
            Svg::Line line{label, Svg::SeriesColour(index++), {}};
            for (const Json& layer : layers_) {
                const Json& pairs = layer[query];
                if (IsError(pairs) || pairs.empty()) {
                    line.points.push_back({std::nan(""), 0});
                    continue;
                }
                for (const Json& end : {layer["zTop"], layer["zBottom"]})
                    line.points.push_back({InFileUnits(units_, AtLevel(pairs, end.get<double>()), stress, asWritten),
                                           Depth(end)});
            }
            chart.AddLine(std::move(line));
        }
        return chart.Render("depth");
    }

    const Json& layers_;
    const Json& parameters_;
    const FileUnits& units_;
    bool isVersion5_;
    double top_;
    double bottom_;
};

// "Layer 5", "Layers 1-4": the heading of a layer's curves.
std::string LayerName(const Layer& layer) {
    return (layer.layerCount <= 1 ? "Layer " : "Layers ") + NumberedLayers(layer.firstLayer, layer.layerCount);
}

const CurveKind& CurveKindNamed(const std::string& name) {
    for (const CurveKind& kind : CurveKinds())
        if (name == kind.key) return kind;
    throw std::logic_error("no curve kind " + name);
}

// A number of the library in the file's units, as the dump's number would be
// shown (NaN and the infinities spelt as the dump spells them).
std::string Shown(double value, DynamicDimension dimension, const FileUnits& units) {
    return units.Number(JsonNumber(value), dimension, valueWidth);
}

// One kind of curve data of a layer with manual curves: a chart with a line
// per pile diameter, and a row per diameter of the factors that apply.
template <class Data>
void DrawCurveData(const CurveKind& kind, const Data& data, const FileUnits& units, std::string& charts,
                   std::string& factors) {
    if (data.manualCurves.empty()) return;
    const CurveAxes axes = AxesOf(kind.key);
    Svg::Chart chart(std::string(kind.name) + " curves",
                     WithUnit(axes.displacementName, axes.displacement == none ? "rad" : units.Name(axes.displacement)),
                     WithUnit(axes.resistanceName, units.Name(axes.resistance)), false, 300, 240);
    std::size_t index = 0;
    for (const auto& [diameter, curve] : data.manualCurves) {
        Svg::Line line{"D = " + Shown(diameter.GetValue(), length, units) + " " + units.Name(length),
                       Svg::SeriesColour(index++), {}};
        for (const auto& [displacement, resistance] : curve.points)
            if (std::isfinite(displacement) && std::isfinite(resistance))
                line.points.push_back(
                    {units.Convert(displacement, axes.displacement), units.Convert(resistance, axes.resistance)});
        chart.AddLine(std::move(line));
    }
    charts += chart.Render("curve");
    for (const auto& [diameter, modification] : data.modifications) {
        std::string list;
        std::apply(
            [&](const auto&... factor) { ((list += (list.empty() ? "" : ", ") + Shown(factor, none, units)), ...); },
            std::decay_t<decltype(modification)>::Factors(modification));
        factors += "<tr><td>" + std::string(kind.name) + "</td><td>" + Shown(diameter.GetValue(), length, units) +
                   "</td><td>" + Escaped(list) + "</td></tr>";
    }
}

// The manual curves of each layer that has some: one chart per kind, a line
// per pile diameter, and the modification factors that apply to the layer.
// They are drawn from the library's own values, asked of all layers in one
// call, not from JSON: a page may hold thousands of charts. Every part of
// the page is appended to `html` where it stands rather than copied into it.
void AddCurvesOfLayers(const Terrix& profile, const std::vector<Layer>& layers, const FileUnits& units,
                       std::string& html) {
    const std::size_t start = html.size();
    const Layer* current = nullptr;
    std::string charts;
    std::string factors;
    auto addLayer = [&] {
        if (current != nullptr && !charts.empty()) {
            html += "<h4>" + LayerName(*current) + "</h4><div class=\"plots\">";
            html += charts;
            html += "</div>";
            if (!factors.empty())
                html += "<table class=\"factors\"><tr><th>Modification</th><th>Diameter [" + units.Name(length) +
                        "]</th><th>Factors, in the columns of the modification section</th></tr>" + factors +
                        "</table>";
        }
        charts.clear();
        factors.clear();
    };
    ForEachLayerAnswer(profile, layers, [&](const Layer& layer, const char* name, auto answer) {
        if constexpr (IsCurveData<decltype(answer())>::value) {
            if (&layer != current) {
                addLayer();
                current = &layer;
            }
            const CurveKind& kind = CurveKindNamed(name);
            try {
                DrawCurveData(kind, answer(), units, charts, factors);
            } catch (const std::exception& error) {
                charts += "<p class=\"error\">" + Escaped(std::string(kind.name) + ": error: " + error.what()) + "</p>";
            }
        }
    });
    addLayer();
    if (html.size() == start) html += "<p>No layer has manual curves.</p>";
}

// One cell of the layer table: a number in the file's units, a map from
// level as "value at level" pairs, curve data by their code and diameters,
// a failed query as its message.
std::string Cell(const Json& answer, const LayerColumn& column, const FileUnits& units, bool asWritten) {
    if (IsError(answer)) return "<td class=\"error\">" + Escaped(answer["error"].get<std::string>()) + "</td>";
    auto number = [&](const Json& value) {
        if (column.isAngle) return Degrees(value, valueWidth);
        if (!IsFiniteNumber(value)) return Other(value);
        return Compact(InFileUnits(units, value.get<double>(), column.dimension, asWritten), valueWidth);
    };
    std::string text;
    if (answer.is_array()) {
        for (const Json& pair : answer)
            text += (text.empty() ? "" : ", ") + number(pair[1]) + " at " + units.Number(pair[0], length, valueWidth);
        if (text.empty()) text = "-";
    } else if (answer.is_object()) {
        if (answer.contains("code")) text = "code " + std::to_string(answer["code"].get<int>()) + "; ";
        text += std::to_string(answer["manualCurves"].size()) + " manual, " +
                std::to_string(answer["modifications"].size()) + " modified";
    } else {
        text = number(answer);
    }
    return "<td>" + Escaped(text) + "</td>";
}

void AddLayerTable(const Json& layers, const FileUnits& units, bool isVersion5, std::string& html) {
    const std::vector<LayerColumn> columns = LayerColumns();
    html += "<div class=\"wide\"><table class=\"layers\"><tr><th>Layers</th><th>" +
                       std::string(isVersion5 ? "Main" : "Type") + "</th><th>Top [" + units.Name(length) +
                       "]</th><th>Bottom [" + units.Name(length) + "]</th>";
    for (const LayerColumn& column : columns) {
        const std::string unit = column.isAngle ? "deg" : units.Name(column.dimension);
        html += "<th>" + Escaped(WithUnit(column.name, unit)) + "</th>";
    }
    html += "</tr>";
    for (const Json& layer : layers) {
        html += "<tr><td>" + NumberedLayers(layer) + "</td><td>" +
                std::to_string(layer["mainLayer"].get<long long>()) + "</td><td>" +
                units.Number(layer["zTop"], length, valueWidth) + "</td><td>" +
                units.Number(layer["zBottom"], length, valueWidth) + "</td>";
        for (const LayerColumn& column : columns)
            html += Cell(layer[column.name], column, units, IsKeptAsWritten(column.name, isVersion5));
        html += "</tr>";
    }
    html += "</table></div>";
}

// The profile-wide parameters, each in the file's units.
std::string ParameterTable(const Json& parameters, const FileUnits& units) {
    std::string html = "<table class=\"parameters\">";
    ForEachProfileQuery([&](const char* name, auto getter) {
        using Answer = std::decay_t<decltype((std::declval<const Terrix&>().*getter)())>;
        const LayerColumn column{name, AnswerDimension<Answer>::value, AnswerDimension<Answer>::isAngle};
        const std::string unit = column.isAngle ? "deg" : units.Name(column.dimension);
        html += "<tr><th>" + Escaped(WithUnit(name, unit)) + "</th>" + Cell(parameters[name], column, units, false) +
                "</tr>";
    });
    return html + "</table>";
}

const char* const style = R"(
body { font: 14px/1.4 system-ui, sans-serif; color: #222; margin: 16px auto; max-width: 1240px; padding: 0 12px; }
h1 { font-size: 22px; } h2 { font-size: 19px; border-bottom: 2px solid #1f5fa8; } h3 { font-size: 16px; }
pre.header { background: #f4f4f4; padding: 6px 10px; white-space: pre-wrap; }
table { border-collapse: collapse; margin: 6px 0 12px; }
th, td { border: 1px solid #ccc; padding: 2px 6px; text-align: left; vertical-align: top; }
th { background: #eef2f7; font-weight: 600; }
td.error, p.error { color: #b00020; }
.plots { display: flex; flex-wrap: wrap; gap: 4px; }
.wide { overflow-x: auto; }
table.layers { font-size: 12px; }
svg.plot { background: #fff; font-size: 11px; }
svg .title { font-weight: 600; font-size: 12px; }
svg .grid { stroke: #e3e3e3; }
svg .frame { fill: none; stroke: #333; }
svg .band, svg .level { font-size: 10px; }
@media print {
  @page { size: A4; margin: 12mm; }
  body { max-width: none; margin: 0; font-size: 10px; }
  section.profile { break-before: page; }
  section.profile:first-of-type { break-before: auto; }
  .plots, svg.plot, tr { break-inside: avoid; }
  .wide { overflow: visible; }
  table.layers { font-size: 7px; }
}
)";

void AddProfile(const Terrix& profile, const SourceLines& lines, std::size_t index, std::string& html) {
    const FileUnits units(profile);
    const UnitNames names = UnitsOf(profile);
    const bool isVersion5 = profile.GetVersion() == Version::V5;
    const std::string name = NameOf(profile);
    const Json parameters = ParametersJson(profile);
    std::vector<Layer> asked;
    const Json layers = LayersJsonInBrief(profile, lines, true, asked);

    html += "<section class=\"profile\"><h2>Profile #" + std::to_string(index) +
                       (name.empty() ? "" : " '" + Escaped(name) + "'") + "</h2>";
    html += "<p>TERRIX version " + std::to_string(VersionNumberOf(profile)) + ", values in " + Escaped(names.force) +
            " and " + Escaped(names.length) + "</p>";
    html += "<pre class=\"header\">" + Escaped(profile.GetHeader()) + "</pre>";
    html += "<h3>Parameters</h3>" + ParameterTable(parameters, units);
    if (IsError(layers)) {
        html += "<p class=\"error\">Layers: " + Escaped(ErrorText(layers)) + "</p></section>";
    } else if (layers.empty()) {
        html += "<p>No layers.</p></section>";
    } else {
        html += "<h3>Soil against depth</h3>" + DepthPlots(layers, parameters, units, isVersion5).Render();
        html += "<h3>Manual curves</h3>";
        AddCurvesOfLayers(profile, asked, units, html);
        html += "<h3>Answers per layer</h3>";
        AddLayerTable(layers, units, isVersion5, html);
        html += "</section>";
    }
}

// FILE with .html in place of its extension; "-" gives standard output.
std::string DefaultOutput(const std::string& file) {
    if (file == "-") return "-";
    const std::size_t slash = file.find_last_of('/');
    const std::size_t dot = file.find_last_of('.');
    const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash + 1);
    return (hasExtension ? file.substr(0, dot) : file) + ".html";
}

int RunReport(const ReportOptions& options) {
    const FileProfiles read = ReadProfiles(options.file, ToUnitNames(options.units, "--units"));
    const std::string title = (options.file == "-" ? std::string("standard input") : options.file);
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"><title>" +
                       Escaped(title) + ": TERRIX soil profiles</title><style>" + style + "</style></head><body>";
    html += "<h1>" + Escaped(title) + "</h1>";
    for (std::size_t index = 0; index < read.Profiles().size(); ++index)
        AddProfile(read.Profiles()[index], read.lines[index], index, html);
    html += "</body></html>\n";
    WriteOutput(options.out.empty() ? DefaultOutput(options.file) : options.out, html);
    return 0;
}

}  // namespace

void AddReportCommand(CLI::App& app, CommandRun& run) {
    auto options = std::make_shared<ReportOptions>();
    CLI::App* command = app.add_subcommand(
        "report", "One HTML page of each profile: soil column, plots, curves");
    AddUnitsOption(*command, options->units);
    command->add_option("-o", options->out, "Write to OUT instead of FILE with .html")->type_name("OUT");
    AddFileArgument(*command, options->file);
    command->callback([&run, options] { run = [options] { return RunReport(*options); }; });
}

}  // namespace TerrixTool
