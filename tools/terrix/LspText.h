#pragma once

// The text of a document as the editor holds it, and the two ways of
// pointing into it: the library's lines (from 1) and byte columns, and the
// protocol's lines (from 0) and characters, counted in UTF-16 code units
// unless the editor agreed on UTF-8.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Json.h"

namespace TerrixTool {

enum class PositionEncoding { Utf16, Utf8 };

class DocumentText {
public:
    DocumentText(std::string text, PositionEncoding encoding);

    const std::string& Text() const { return text_; }
    // The number of lines as the library counts them: a line break ends a
    // line, and a last line without one counts too.
    std::size_t LineCount() const { return lineStarts_.size() - (EndsWithLineBreak() ? 1 : 0); }

    // {"line": L, "character": C} of a byte of the text at `line` (from 1)
    // and `column` (from 0); a line past the last is the end of the text.
    Json Position(std::uint64_t line, std::size_t column) const;
    // The start of `line` (from 1), or the end of the text past the last.
    Json LineStart(std::uint64_t line) const { return Position(line, 0); }
    // The range of a whole line without its line end.
    Json LineRange(std::uint64_t line) const;
    // The byte column within its line of a protocol position; false when
    // it lies outside the text. `line` from 1.
    bool ToColumn(const Json& position, std::uint64_t& line, std::size_t& column) const;

    // An edit of the editor: {"range": ..., "text": ...}, or the whole text
    // without a range. False when the range lies outside the text.
    bool Apply(const Json& change);

private:
    bool EndsWithLineBreak() const;
    void IndexLines();
    // The bytes of line `index` (from 0) without its line end.
    std::size_t LineLength(std::size_t index) const;
    std::size_t Offset(const Json& position, bool& inside) const;

    std::string text_;
    PositionEncoding encoding_;
    // Where each line starts; a text that ends with a line break has an
    // empty last line, as editors show it.
    std::vector<std::size_t> lineStarts_;
};

}  // namespace TerrixTool
