#include <TerrixExchange/archive/SourceLines.h>

namespace TerrixExchange {

namespace {

template <class Map, class Key>
std::uint64_t LineOf(const Map& lines, const Key& key) {
    const auto found = lines.find(key);
    return found == lines.end() ? 0 : found->second;
}

}  // namespace

std::uint64_t SourceLines::GetSectionLine(const std::string& title) const { return LineOf(sections_, title); }

std::uint64_t SourceLines::GetParameterLine(const std::string& title, const std::string& name) const {
    return LineOf(parameters_, std::make_pair(title, name));
}

std::uint64_t SourceLines::GetRowLine(const std::string& title, std::size_t row) const {
    const auto table = rows_.find(title);
    return table == rows_.end() || row >= table->second.size() ? 0 : table->second[row];
}

void SourceLines::SetRowLine(const std::string& title, std::size_t row, std::uint64_t line) {
    std::vector<std::uint64_t>& lines = rows_[title];
    if (row >= lines.size()) lines.resize(row + 1, 0);
    lines[row] = line;
}

}  // namespace TerrixExchange
