#include <TerrixExchange/archive/SourceLines.h>

namespace TerrixExchange {

const SourceLines::Section* SourceLines::Find(const std::string& title) const {
    const auto found = sections_.find(title);
    return found == sections_.end() ? nullptr : &found->second;
}

std::uint64_t SourceLines::GetSectionLine(const std::string& title) const {
    const Section* section = Find(title);
    return section ? section->title : 0;
}

std::uint64_t SourceLines::GetParameterLine(const std::string& title, const std::string& name) const {
    const Section* section = Find(title);
    if (!section) return 0;
    const auto found = section->parameters.find(name);
    return found == section->parameters.end() ? 0 : found->second;
}

std::uint64_t SourceLines::GetRowLine(const std::string& title, std::size_t row) const {
    const Section* section = Find(title);
    return section && row < section->rows.size() ? section->rows[row] : 0;
}

void SourceLines::SetRowLine(const std::string& title, std::size_t row, std::uint64_t line) {
    std::vector<std::uint64_t>& rows = sections_[title].rows;
    if (row >= rows.size()) rows.resize(row + 1, 0);
    rows[row] = line;
}

bool SourceLines::operator==(const SourceLines& other) const {
    if (sections_.size() != other.sections_.size()) return false;
    for (auto a = sections_.begin(), b = other.sections_.begin(); a != sections_.end(); ++a, ++b)
        if (a->first != b->first || a->second.title != b->second.title ||
            a->second.parameters != b->second.parameters || a->second.rows != b->second.rows)
            return false;
    return true;
}

}  // namespace TerrixExchange
