#pragma once

// What the language server knows of one text: its profiles as the library
// imports them, with where each line and value stands, and the findings of
// check --strict; and what the editor asks of it, as the protocol's JSON.
// Everything about the text comes from the library: the server reads no
// line of it itself.

#include <cstdint>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include "Findings.h"
#include "Json.h"
#include "LspText.h"
#include "Profiles.h"

namespace TerrixTool {

class Analysis {
public:
    // Imports `text` in `units`, or in the units each profile's control
    // section gives.
    Analysis(const DocumentText& text, const boost::optional<UnitNames>& units);

    // The import error, or the findings, as the protocol's diagnostics.
    Json Diagnostics() const;
    // What stands at a position: a value with its section, name, units and
    // meaning, a section's title or a table's header; null elsewhere.
    Json Hover(const Json& position) const;
    // Each section with its parameters and records; in a stream of several
    // profiles, under a symbol of each profile.
    Json Symbols() const;
    // The edits that lay the text out as the exporter writes it; none, with
    // `problem` saying why, for a text that does not import.
    Json Formatting(std::string& problem) const;
    // The fixes of the findings on the lines of `range`.
    Json CodeActions(const std::string& uri, const Json& range) const;

private:
    Json Diagnostic(std::uint64_t line, int severity, const std::string& message) const;
    Json FindingDiagnostic(const Finding& finding) const;
    Json TextEdits(const std::vector<TerrixExchange::LineEdit>& edits) const;
    Json ValueHover(std::size_t profile, const TerrixExchange::SourceMap::Value& value) const;
    Json SectionSymbols(std::size_t profile) const;
    // The first line of the profile after the last one read (line 1 when
    // none was).
    std::uint64_t LineAfterProfilesRead() const;

    const DocumentText& text_;
    FileProfiles read_;
    bool imported_ = false;
    std::uint64_t errorLine_ = 0;
    std::string error_;
    std::vector<Finding> findings_;
};

}  // namespace TerrixTool
