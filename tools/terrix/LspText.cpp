#include "LspText.h"

#include <algorithm>

namespace TerrixTool {

namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// UTF-16 code units of the UTF-8 text from `first` to `last`: two for a
// character beyond the basic plane (a four-byte sequence), one otherwise.
std::size_t Utf16Length(const char* first, const char* last) {
    std::size_t units = 0;
    for (const char* it = first; it != last; ++it) {
        const unsigned char byte = static_cast<unsigned char>(*it);
        if (!IsContinuation(byte)) units += byte >= 0xF0 ? 2 : 1;
    }
    return units;
}

// The bytes of the UTF-8 text that `units` UTF-16 code units take, within
// the line; a position within a character stands at its start.
std::size_t Utf8Length(const char* first, const char* last, std::size_t units) {
    const char* it = first;
    while (it != last && units > 0) {
        const unsigned char byte = static_cast<unsigned char>(*it);
        const std::size_t taken = byte >= 0xF0 ? 2 : 1;
        if (taken > units) break;
        units -= taken;
        ++it;
        while (it != last && IsContinuation(static_cast<unsigned char>(*it))) ++it;
    }
    return static_cast<std::size_t>(it - first);
}

}  // namespace

DocumentText::DocumentText(std::string text, PositionEncoding encoding) : text_(std::move(text)), encoding_(encoding) {
    IndexLines();
}

void DocumentText::IndexLines() {
    lineStarts_.assign(1, 0);
    for (std::size_t i = 0; i < text_.size(); ++i) {
        if (text_[i] != '\n' && text_[i] != '\r') continue;
        if (text_[i] == '\r' && i + 1 < text_.size() && text_[i + 1] == '\n') ++i;
        lineStarts_.push_back(i + 1);
    }
}

bool DocumentText::EndsWithLineBreak() const {
    return !text_.empty() && (text_.back() == '\n' || text_.back() == '\r');
}

std::size_t DocumentText::LineLength(std::size_t index) const {
    const std::size_t start = lineStarts_[index];
    std::size_t end = index + 1 < lineStarts_.size() ? lineStarts_[index + 1] : text_.size();
    while (end > start && (text_[end - 1] == '\n' || text_[end - 1] == '\r')) --end;
    return end - start;
}

Json DocumentText::Position(std::uint64_t line, std::size_t column) const {
    std::size_t index = line == 0 ? 0 : static_cast<std::size_t>(line - 1);
    if (index >= lineStarts_.size()) {
        index = lineStarts_.size() - 1;
        column = LineLength(index);
    }
    column = std::min(column, LineLength(index));
    const char* start = text_.data() + lineStarts_[index];
    const std::size_t character = encoding_ == PositionEncoding::Utf8 ? column : Utf16Length(start, start + column);
    return Json{{"line", index}, {"character", character}};
}

Json DocumentText::LineRange(std::uint64_t line) const {
    const std::size_t index = line == 0 ? 0 : std::min<std::size_t>(line - 1, lineStarts_.size() - 1);
    return Json{{"start", Position(index + 1, 0)}, {"end", Position(index + 1, LineLength(index))}};
}

std::size_t DocumentText::Offset(const Json& position, bool& inside) const {
    inside = position.is_object() && position.contains("line") && position.contains("character") &&
             position["line"].is_number_unsigned() && position["character"].is_number_unsigned();
    if (!inside) return 0;
    const std::size_t index = position["line"].get<std::size_t>();
    if (index >= lineStarts_.size()) {
        inside = false;
        return 0;
    }
    const std::size_t character = position["character"].get<std::size_t>();
    const char* start = text_.data() + lineStarts_[index];
    const char* end = start + LineLength(index);
    const std::size_t column = encoding_ == PositionEncoding::Utf8
                                   ? std::min(character, LineLength(index))
                                   : Utf8Length(start, end, character);
    return lineStarts_[index] + column;
}

bool DocumentText::ToColumn(const Json& position, std::uint64_t& line, std::size_t& column) const {
    bool inside = false;
    const std::size_t offset = Offset(position, inside);
    if (!inside) return false;
    const std::size_t index = position["line"].get<std::size_t>();
    line = index + 1;
    column = offset - lineStarts_[index];
    return true;
}

bool DocumentText::Apply(const Json& change) {
    if (!change.is_object() || !change.contains("text") || !change["text"].is_string()) return false;
    if (!change.contains("range")) {
        text_ = change["text"].get<std::string>();
        IndexLines();
        return true;
    }
    const Json& range = change["range"];
    if (!range.is_object()) return false;
    bool startInside = false;
    bool endInside = false;
    const std::size_t start = Offset(range.value("start", Json()), startInside);
    const std::size_t end = Offset(range.value("end", Json()), endInside);
    if (!startInside || !endInside || end < start) return false;
    text_.replace(start, end - start, change["text"].get<std::string>());
    IndexLines();
    return true;
}

}  // namespace TerrixTool
