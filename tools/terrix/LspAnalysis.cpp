#include "LspAnalysis.h"

#include <cmath>
#include <sstream>

#include <TerrixExchange/archive/ImportError.h>

#include "FileUnits.h"
#include "ToolError.h"

namespace TerrixTool {

namespace {

using TerrixExchange::SourceMap;

// The protocol's kinds of symbol and severities.
const int moduleSymbol = 2;
const int namespaceSymbol = 3;
const int propertySymbol = 7;
const int structSymbol = 23;
const int errorSeverity = 1;
const int warningSeverity = 2;

// Digits enough for the shortest text that reads back as the same double.
const std::size_t allDigits = 32;

// The lines of an import error that the editor does not show by itself:
// the message and the section, without the line number and the line found.
std::string ImportMessage(const TerrixExchange::ImportError& error) {
    return Displayed(error.GetMessage()) + "\nWhile importing section: '" + Displayed(error.GetSection()) + "'";
}

// "profile #1 'NS-MP07'".
std::string ProfileName(std::size_t index, const TerrixExchange::Terrix& profile) {
    const std::string name = NameOf(profile);
    return "profile #" + std::to_string(index) + (name.empty() ? "" : " '" + name + "'");
}

// A value in its units: "10.0518 kN/m3".
std::string WithUnit(const std::string& number, const std::string& unit) {
    return unit.empty() ? number : number + " " + unit;
}

std::string FixTitle(const TerrixExchange::Mending& mending) {
    using Kind = TerrixExchange::Mending::Kind;
    if (mending.kind == Kind::SetCount) return "Set " + mending.name + " to " + std::to_string(mending.value);
    const std::string layers = mending.firstLayer == mending.lastLayer
                                   ? "layer " + std::to_string(mending.firstLayer)
                                   : "layers " + std::to_string(mending.firstLayer) + "-" +
                                         std::to_string(mending.lastLayer);
    return "Add a row of factors 1 for " + layers + " to the " + mending.name;
}

}  // namespace

Analysis::Analysis(const DocumentText& text, const boost::optional<UnitNames>& units) : text_(text) {
    try {
        ImportText(text.Text(), units, read_, true);
        imported_ = true;
        findings_ = FindingsOf(read_, true);
    } catch (const TerrixExchange::ImportError& error) {
        errorLine_ = error.GetLine();
        error_ = ImportMessage(error);
    } catch (const std::exception& error) {
        errorLine_ = LineAfterProfilesRead();
        error_ = Displayed(error.what());
        if (error_ == unitsNotDeduced)
            error_ += "\n" + UnitsHint("name the units of the file in the setting terrix.units, e.g. \"kN m\"");
    }
}

std::uint64_t Analysis::LineAfterProfilesRead() const {
    for (auto map = read_.maps.rbegin(); map != read_.maps.rend(); ++map)
        if (!map->GetPieces().empty()) return map->GetPieces().back().lastLine + 1;
    return 1;
}

Json Analysis::Diagnostic(std::uint64_t line, int severity, const std::string& message) const {
    return Json{{"range", text_.LineRange(line)}, {"severity", severity}, {"source", "terrix"}, {"message", message}};
}

Json Analysis::FindingDiagnostic(const Finding& finding) const {
    return Diagnostic(finding.line, finding.isError ? errorSeverity : warningSeverity, finding.text);
}

Json Analysis::Diagnostics() const {
    Json diagnostics = Json::array();
    if (!imported_) {
        diagnostics.push_back(Diagnostic(errorLine_, errorSeverity, error_));
        return diagnostics;
    }
    for (const Finding& finding : findings_) diagnostics.push_back(FindingDiagnostic(finding));
    return diagnostics;
}

Json Analysis::ValueHover(std::size_t profile, const SourceMap::Value& value) const {
    const SourceMap& map = read_.maps[profile];
    const TerrixExchange::Terrix& terrix = read_.Profiles()[profile];
    const std::string& section = map.GetName(value.section);
    const std::string& name = map.GetName(value.name);
    const bool inRecord = value.record != SourceMap::none;

    std::ostringstream hover;
    hover << "**" << section << "**";
    if (read_.Profiles().size() > 1) hover << " of " << ProfileName(profile, terrix);
    hover << "\n\n";
    if (inRecord) hover << "record " << value.record + 1 << ", column `" << name << "`";
    else hover << "parameter `" << name << "`";
    if (value.element != SourceMap::none) hover << ", value " << value.element + 1;
    hover << "\n\n";
    // The meaning the format gives a parameter: the comment the exporter
    // writes after it.
    const Json fields = TerrixExchange::DescribeFields(terrix);
    const Json comment = fields.value(section, Json::object())
                             .value("parameters", Json::object())
                             .value(name, Json::object())
                             .value("comment", Json());
    if (!inRecord && comment.is_string()) hover << comment.get<std::string>() << "\n\n";

    using Kind = SourceMap::ValueKind;
    if (value.kind == Kind::Text) {
        hover << "A text.";
        return Json{{"contents", {{"kind", "markdown"}, {"value", hover.str()}}}};
    }
    const FileUnits fileUnits(terrix);
    const FileUnits databaseUnits(TerrixExchange::Units::Runtime::GetDatabaseUnitSystem());
    const UnitNames names = UnitsOf(terrix);
    const std::string inFile = Compact(fileUnits.Convert(value.number, value.dimension), allDigits);
    const std::string inDatabase = Compact(value.number, allDigits);
    if (value.kind == Kind::WholeNumber) {
        hover << "`" << inFile << "`, a whole number";
    } else if (value.dimension == DynamicDimension{}) {
        hover << "`" << inFile << "`";
        if (value.meaning == TerrixExchange::ColumnMeaning::KeptAsWritten)
            hover << ", kept as the file writes it: the format does not convert it between units";
        else if (value.meaning == TerrixExchange::ColumnMeaning::AtLevelInLengthUnit)
            hover << ", at a level in the file's length unit (" << names.length << ")";
        else
            hover << ", a plain number";
    } else {
        hover << "`" << WithUnit(inFile, fileUnits.Name(value.dimension)) << "` in the file's units ("
              << names.force << " " << names.length << "), `"
              << WithUnit(inDatabase, databaseUnits.Name(value.dimension)) << "` in database units (N m)";
    }
    return Json{{"contents", {{"kind", "markdown"}, {"value", hover.str()}}}};
}

Json Analysis::Hover(const Json& position) const {
    std::uint64_t line = 0;
    std::size_t column = 0;
    if (!text_.ToColumn(position, line, column)) return nullptr;
    for (std::size_t profile = 0; profile < read_.maps.size(); ++profile) {
        const SourceMap& map = read_.maps[profile];
        if (const SourceMap::Value* value = map.FindValue(line, static_cast<std::uint32_t>(column)))
            return ValueHover(profile, *value);
        const SourceMap::Piece* piece = map.FindPiece(line);
        if (!piece || piece->section == SourceMap::none) continue;
        const std::string& section = map.GetName(piece->section);
        if (piece->kind == SourceMap::Kind::Title)
            return Json{{"contents", {{"kind", "markdown"}, {"value", "**" + section + "**"}}}};
        if (piece->kind == SourceMap::Kind::TableHeader)
            return Json{{"contents", {{"kind", "markdown"}, {"value", "**" + section + "**\n\nthe titles of the "
                                                                          "table's columns"}}}};
    }
    return nullptr;
}

Json Analysis::SectionSymbols(std::size_t profile) const {
    const SourceMap& map = read_.maps[profile];
    Json sections = Json::array();
    Json* section = nullptr;
    std::uint32_t sectionIndex = SourceMap::none;
    const auto range = [&](std::uint64_t first, std::uint64_t last) {
        return Json{{"start", text_.LineStart(first)}, {"end", text_.LineRange(last)["end"]}};
    };
    const auto symbol = [&](const std::string& name, int kind, std::uint64_t first, std::uint64_t last) {
        return Json{{"name", name},
                    {"kind", kind},
                    {"range", range(first, last)},
                    {"selectionRange", range(first, first)},
                    {"children", Json::array()}};
    };
    std::uint32_t record = SourceMap::none;
    for (const SourceMap::Piece& piece : map.GetPieces()) {
        if (piece.kind == SourceMap::Kind::Title) {
            sections.push_back(symbol(map.GetName(piece.section), namespaceSymbol, piece.firstLine, piece.lastLine));
            section = &sections.back();
            sectionIndex = piece.section;
            record = SourceMap::none;
            continue;
        }
        if (!section || piece.section != sectionIndex) continue;
        (*section)["range"]["end"] = range(piece.lastLine, piece.lastLine)["end"];
        Json& children = (*section)["children"];
        if (piece.record != SourceMap::none) {
            if (piece.record != record)
                children.push_back(
                    symbol("record " + std::to_string(piece.record + 1), structSymbol, piece.firstLine, piece.lastLine));
            else
                children.back()["range"]["end"] = range(piece.lastLine, piece.lastLine)["end"];
            record = piece.record;
        } else if (piece.kind == SourceMap::Kind::Parameter || piece.kind == SourceMap::Kind::Vector) {
            children.push_back(symbol(map.GetName(piece.name), propertySymbol, piece.firstLine, piece.lastLine));
        }
    }
    return sections;
}

Json Analysis::Symbols() const {
    if (read_.maps.size() == 1) return SectionSymbols(0);
    Json profiles = Json::array();
    for (std::size_t i = 0; i < read_.maps.size(); ++i) {
        const auto& pieces = read_.maps[i].GetPieces();
        if (pieces.empty()) continue;
        const Json range{{"start", text_.LineStart(pieces.front().firstLine)},
                         {"end", text_.LineRange(pieces.back().lastLine)["end"]}};
        profiles.push_back(Json{{"name", ProfileName(i, read_.Profiles()[i])},
                                {"kind", moduleSymbol},
                                {"range", range},
                                {"selectionRange", text_.LineRange(pieces.front().firstLine)},
                                {"children", SectionSymbols(i)}});
    }
    return profiles;
}

Json Analysis::TextEdits(const std::vector<TerrixExchange::LineEdit>& edits) const {
    Json textEdits = Json::array();
    for (const TerrixExchange::LineEdit& edit : edits)
        textEdits.push_back(Json{{"range",
                                  {{"start", text_.LineStart(edit.firstLine)},
                                   {"end", text_.LineStart(edit.firstLine + edit.lineCount)}}},
                                 {"newText", edit.text}});
    return textEdits;
}

Json Analysis::Formatting(std::string& problem) const {
    if (TerrixExchange::IsJsonText(text_.Text())) {
        problem = "The text is not formatted: it is the JSON of terrix dump, not TERRIX text";
        return Json::array();
    }
    if (!imported_) {
        problem = "The text is not formatted: it does not import (line " + std::to_string(errorLine_) + ": " +
                  error_.substr(0, error_.find('\n')) + ")";
        return Json::array();
    }
    std::vector<TerrixExchange::LineEdit> edits;
    try {
        TerrixExchange::TerrixMultipleSoilProfiles profiles = read_.all;
        profiles.EditKeepingLines(text_.Text(), edits, TerrixExchange::LinesKept::AsExported);
    } catch (const std::exception& error) {
        problem = std::string("The text is not formatted: ") + error.what();
        return Json::array();
    }
    return TextEdits(edits);
}

Json Analysis::CodeActions(const std::string& uri, const Json& range) const {
    Json actions = Json::array();
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::size_t column = 0;
    if (!imported_ || TerrixExchange::IsJsonText(text_.Text()) || !range.is_object() ||
        !text_.ToColumn(range.value("start", Json()), first, column) ||
        !text_.ToColumn(range.value("end", Json()), last, column))
        return actions;
    for (const Finding& finding : findings_) {
        const std::uint64_t line = finding.line == 0 ? 1 : finding.line;
        if (finding.mending.kind == TerrixExchange::Mending::Kind::None || line < first || line > last) continue;
        TerrixExchange::TerrixMultipleSoilProfiles mended = read_.all;
        std::vector<TerrixExchange::LineEdit> edits;
        try {
            if (!TerrixExchange::Mend(mended.GetSoilProfiles()[finding.profile], finding.mending)) continue;
            mended.EditKeepingLines(text_.Text(), edits);
        } catch (const std::exception&) {
            continue;  // a profile that the edit would leave inconsistent gets no fix
        }
        actions.push_back(Json{{"title", FixTitle(finding.mending)},
                               {"kind", "quickfix"},
                               {"diagnostics", Json::array({FindingDiagnostic(finding)})},
                               {"isPreferred", true},
                               {"edit", {{"changes", {{uri, TextEdits(edits)}}}}}});
    }
    return actions;
}

}  // namespace TerrixTool
