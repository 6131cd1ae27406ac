#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// Where the values of an imported profile stand in its file: the line on
// which the importer read each section title, each parameter and each table
// row, so that a program can point an engineer at the line a value came
// from. Lines are counted from 1, as in import errors; 0 means "not read".
// A table row is known by its section's title and its place in the table
// (from 0); a row of two or more lines by its first line.
class SourceLines {
public:
    TERRIX_ALLOCATION_OPERATORS

    std::uint64_t GetSectionLine(const std::string& title) const;
    std::uint64_t GetParameterLine(const std::string& title, const std::string& name) const;
    std::uint64_t GetRowLine(const std::string& title, std::size_t row) const;

    // What the importer notes as it reads; a section read again (after a
    // failed attempt at another layout) notes its lines again.
    void SetSectionLine(const std::string& title, std::uint64_t line) { sections_[title].title = line; }
    void SetParameterLine(const std::string& title, const std::string& name, std::uint64_t line) {
        sections_[title].parameters[name] = line;
    }
    void SetRowLine(const std::string& title, std::size_t row, std::uint64_t line);

    // The same lines for the same titles, parameters and rows.
    bool operator==(const SourceLines& other) const;
    bool operator!=(const SourceLines& other) const { return !(*this == other); }

private:
    // The lines of one section, kept under its title once: a stream of a
    // thousand profiles notes some hundred thousand lines.
    struct Section {
        std::uint64_t title = 0;
        std::map<std::string, std::uint64_t> parameters;
        // A line number per row, in the order of the table.
        std::vector<std::uint64_t> rows;
    };
    const Section* Find(const std::string& title) const;

    std::map<std::string, Section> sections_;
};

}  // namespace TerrixExchange
