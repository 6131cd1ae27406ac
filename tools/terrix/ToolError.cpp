#include "ToolError.h"

#include <cstdio>

namespace TerrixTool {

namespace {

// How much of a line an error shows.
const std::size_t foundShown = 200;

std::string Escaped(const std::string& text, bool keepLineBreaks) {
    std::string shown;
    shown.reserve(text.size());
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if ((byte >= 0x20 && byte != 0x7f) || (c == '\n' && keepLineBreaks)) {
            shown += c;
        } else if (c == '\t') {
            shown += "\\t";
        } else if (c == '\r') {
            shown += "\\r";
        } else if (c == '\n') {
            shown += "\\n";
        } else {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02x", byte);
            shown += escape;
        }
    }
    return shown;
}

}  // namespace

std::string Displayed(const std::string& text) { return Escaped(text, true); }

std::string DisplayedImportError(const TerrixExchange::ImportError& error) {
    const std::string& found = error.GetFound();
    std::string foundText = "'" + Escaped(found.substr(0, foundShown), false);
    if (found.size() > foundShown)
        foundText += "...' (cut after " + std::to_string(foundShown) + " of the line's " +
                     std::to_string(found.size()) + " characters)";
    else
        foundText += "'";
    return "Import error in line " + std::to_string(error.GetLine()) + ":\n" + Escaped(error.GetMessage(), false) +
           "\nWhile importing section: '" + Escaped(error.GetSection(), false) + "'\nFound: " + foundText;
}

}  // namespace TerrixTool
