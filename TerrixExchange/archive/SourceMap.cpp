#include <TerrixExchange/archive/SourceMap.h>

#include <algorithm>

namespace TerrixExchange {

std::uint32_t SourceMap::NameIndex(const std::string& name) {
    const auto known = nameIndexes_.emplace(name, static_cast<std::uint32_t>(names_.size()));
    if (known.second) names_.push_back(name);
    return known.first->second;
}

void SourceMap::AddPiece(Kind kind, const std::string& section, std::uint32_t name, std::uint32_t record,
                         std::uint32_t part, std::uint64_t firstLine, std::uint64_t lastLine) {
    const std::uint32_t title = section.empty() ? none : NameIndex(section);
    // The empty line before a section is known by the section.
    if (kind == Kind::Title && !pieces_.empty() && pieces_.back().kind == Kind::BlankLine &&
        pieces_.back().section == none)
        pieces_.back().section = title;
    pieces_.push_back(Piece{kind, kind == Kind::BlankLine ? none : title, name, record, part, firstLine, lastLine});
}

void SourceMap::Truncate(std::size_t pieceCount, std::size_t commentLineCount, std::size_t valueCount) {
    if (pieceCount < pieces_.size()) pieces_.resize(pieceCount);
    if (commentLineCount < commentLines_.size()) commentLines_.resize(commentLineCount);
    if (valueCount < values_.size()) values_.resize(valueCount);
}

// Values and pieces stand in file order: the importer reads forwards, and a
// section read again first takes back what it noted.
const SourceMap::Value* SourceMap::FindValue(std::uint64_t line, std::uint32_t column) const {
    auto value = std::lower_bound(values_.begin(), values_.end(), line,
                                  [](const Value& noted, std::uint64_t at) { return noted.line < at; });
    for (; value != values_.end() && value->line == line; ++value)
        if (value->firstColumn <= column && column < value->endColumn) return &*value;
    return nullptr;
}

const SourceMap::Piece* SourceMap::FindPiece(std::uint64_t line) const {
    const auto after = std::upper_bound(pieces_.begin(), pieces_.end(), line,
                                        [](std::uint64_t at, const Piece& piece) { return at < piece.firstLine; });
    if (after == pieces_.begin()) return nullptr;
    const Piece& piece = *(after - 1);
    return line <= piece.lastLine ? &piece : nullptr;
}

}  // namespace TerrixExchange
