#include <TerrixExchange/archive/SourceMap.h>

#include <algorithm>

namespace TerrixExchange {

std::uint32_t SourceMap::NameIndex(const std::string& name) {
    const auto found = std::find(names_.begin(), names_.end(), name);
    if (found != names_.end()) return static_cast<std::uint32_t>(found - names_.begin());
    names_.push_back(name);
    return static_cast<std::uint32_t>(names_.size() - 1);
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

void SourceMap::Truncate(std::size_t pieceCount, std::size_t commentLineCount) {
    if (pieceCount < pieces_.size()) pieces_.resize(pieceCount);
    if (commentLineCount < commentLines_.size()) commentLines_.resize(commentLineCount);
}

}  // namespace TerrixExchange
