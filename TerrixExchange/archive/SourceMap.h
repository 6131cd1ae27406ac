#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/DynamicDimension.h>

namespace TerrixExchange {

// What each line of an imported profile is: the pieces of its text in file
// order, each a line or a run of lines that the importer read as one part of
// the profile (the header, the version line, an empty line between
// sections, a section's title, a table's header line, a parameter, a line
// of a table's record, a vector). Whatever the importer passed over between
// them, and between the lines of a vector, is comment lines. A profile read
// back from the export of the same profile has the same pieces, so two texts
// of a profile can be laid side by side piece by piece: that is how a
// profile edited in a program is written back with only its changed lines
// anew.
//
// Where asked, it notes besides where each value stands within its line and
// what it is, so that a program (an editor) can tell what stands at any
// line and column of the text without reading the text itself.
class SourceMap {
public:
    TERRIX_ALLOCATION_OPERATORS

    enum class Kind : std::uint8_t { Header, VersionLine, BlankLine, Title, TableHeader, Parameter, Row, Vector };
    static constexpr std::uint32_t none = 0xFFFFFFFFu;

    struct Piece {
        Kind kind;
        // The section's title (an index for GetName), none for the header
        // and the version line. An empty line belongs to the section whose
        // title follows it.
        std::uint32_t section;
        // A parameter's or a vector's name (an index for GetName), or the
        // place of a table header line in its section from 0; none for the
        // rest.
        std::uint32_t name;
        // The place of its record in the section's table from 0, and its
        // place among the lines and vectors of that record; none outside a
        // table.
        std::uint32_t record;
        std::uint32_t part;
        // Its first and last line, counted from 1 as import errors count.
        std::uint64_t firstLine;
        std::uint64_t lastLine;
    };

    // One value of the text: a number, or the quoted profile name.
    enum class ValueKind : std::uint8_t { Number, WholeNumber, Text };
    struct Value {
        // Its line, counted from 1, and its columns: the first character
        // and the one after the last, counted in bytes from 0.
        std::uint64_t line;
        std::uint32_t firstColumn;
        std::uint32_t endColumn;
        // The section's title, and the parameter's, vector's or column's
        // name (indexes for GetName).
        std::uint32_t section;
        std::uint32_t name;
        // The place of its record in the section's table from 0, and its
        // place within a vector (or the numbers that end a row) from 0;
        // none where it has none.
        std::uint32_t record;
        std::uint32_t element;
        ValueKind kind;
        // How a change of units treats it (a dimensioned column the format
        // keeps as written is read as it stands).
        ColumnMeaning meaning;
        // The dimension it was read in, none for plain numbers, and the
        // number as the profile holds it, in database units (NaN for a text).
        Units::Runtime::DynamicDimension dimension;
        double number;
    };

    const std::vector<Piece>& GetPieces() const { return pieces_; }
    // The values noted, in file order; none unless noting was asked for.
    const std::vector<Value>& GetValues() const { return values_; }
    // The value whose text covers `column` (from 0) of `line` (from 1);
    // null where no value stands.
    const Value* FindValue(std::uint64_t line, std::uint32_t column) const;
    // The piece that holds `line`; null for a line of no piece (a comment
    // line, the lines between profiles).
    const Piece* FindPiece(std::uint64_t line) const;
    const std::string& GetName(std::uint32_t index) const { return names_[index]; }
    // The comment lines the importer passed over, in file order.
    const std::vector<std::uint64_t>& GetCommentLines() const { return commentLines_; }

    // --- What the importer notes as it reads ---
    // A piece of the section titled `section` ("" for the frame).
    void AddPiece(Kind kind, const std::string& section, std::uint32_t name, std::uint32_t record,
                  std::uint32_t part, std::uint64_t firstLine, std::uint64_t lastLine);
    void AddCommentLine(std::uint64_t line) { commentLines_.push_back(line); }
    // Whether values are noted (AddValue), off unless set.
    bool NotesValues() const { return notesValues_; }
    void SetNotesValues(bool notesValues) { notesValues_ = notesValues; }
    void AddValue(const Value& value) {
        if (notesValues_) values_.push_back(value);
    }
    // The index of a name, added when new.
    std::uint32_t NameIndex(const std::string& name);
    // How much is noted, and back to that after a section is read again.
    std::size_t GetPieceCount() const { return pieces_.size(); }
    std::size_t GetCommentLineCount() const { return commentLines_.size(); }
    std::size_t GetValueCount() const { return values_.size(); }
    void Truncate(std::size_t pieceCount, std::size_t commentLineCount, std::size_t valueCount);

private:
    std::vector<Piece> pieces_;
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::uint32_t> nameIndexes_;
    std::vector<std::uint64_t> commentLines_;
    std::vector<Value> values_;
    bool notesValues_ = false;
};

}  // namespace TerrixExchange
