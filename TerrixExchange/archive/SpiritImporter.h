#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <istream>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/function.hpp>
#include <boost/optional.hpp>
#include <boost/spirit/home/support/iterators/istream_iterator.hpp>

#include <TerrixExchange/archive/ArchiveFields.h>
#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/NumberText.h>
#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/archive/SourceMap.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange {

// Reads a TERRIX text through the sections' Serialize members. It walks the
// stream with Spirit parsers, checks that each line is what the section
// describes, stores what it reads (converted from the file's unit system to
// database units) and throws ImportError at the first mismatch.
//
// The stream is walked once, a line at a time, through its multi-pass
// iterator: each line is taken whole into the current line and its fields are
// parsed there. Going back to an earlier line (a section that rewinds) keeps
// a copy of the iterator, so the iterator buffers only from the oldest saved
// line on. A text already in memory is read the same way through plain
// pointers (TextImporter), which walk it without the stream's cost per
// character.
//
// Lines are counted from 1. After each significant line the importer passes
// over comment lines (a line that starts with '*', or with 'C' or 'c' followed
// by a blank, a tab or the end of the line). A message names the line after
// the last one read successfully: the first skipped comment line when there
// were any, while counting goes on from the true physical line.
template <class Iterator>
class SpiritImporter {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Where the importer stands: enough to come back to it.
    struct Position {
        Iterator nextLine;
        std::string line;
        std::size_t column;
        bool isLastLine;
        std::string reportedLine;
        bool reportsCurrentLine;
        std::uint64_t lineCounter;
        std::uint64_t lineToReport;
        std::size_t mapPieces;
        std::size_t mapComments;
        std::size_t mapValues;
    };

    // Puts the importer back where it stood when a section began, should an
    // exception leave the section.
    class SectionGuard {
    public:
        SectionGuard(SpiritImporter& importer, const std::string& title)
            : importer_(importer), start_(importer.GetPosition()), exceptions_(std::uncaught_exceptions()) {
            importer_.SectionTitle(title);
        }
        SectionGuard(const SectionGuard&) = delete;
        SectionGuard& operator=(const SectionGuard&) = delete;
        ~SectionGuard() {
            if (std::uncaught_exceptions() > exceptions_) importer_.SetPosition(start_);
        }

    private:
        SpiritImporter& importer_;
        Position start_;
        int exceptions_;
    };

    SpiritImporter(Iterator first, Iterator last, const Units::Runtime::UnitSystem& units, bool titleMode);
    SpiritImporter(const SpiritImporter&) = delete;
    SpiritImporter& operator=(const SpiritImporter&) = delete;

    // --- State ---
    const Units::Runtime::UnitSystem& GetUnitSystem() const { return units_; }
    void SetUnitSystem(const Units::Runtime::UnitSystem& units) {
        // The profiles of a stream mostly share their units: the scales
        // worked out for the last one serve the next.
        if (units == units_) return;
        units_ = units;
        scales_ = UnitScales(units);
    }
    bool GetTitleMode() const { return titleMode_; }
    void SetTitleMode(bool titleMode) { titleMode_ = titleMode; }
    // Where to note the line of each section title, parameter and table row
    // read from now on; none (null) by default.
    void SetSourceLines(SourceLines* sourceLines) { sourceLines_ = sourceLines; }
    // Where to note every piece of the text read from now on, in order (and
    // every value, when the map notes values).
    void SetSourceMap(SourceMap* sourceMap) { sourceMap_ = sourceMap; }
    std::uint64_t GetLineCounter() const { return lineCounter_; }
    Position GetPosition() const {
        return Position{nextLine_,
                        line_,
                        column_,
                        isLastLine_,
                        reportedLine_,
                        reportsCurrentLine_,
                        lineCounter_,
                        lineToReport_,
                        sourceMap_ ? sourceMap_->GetPieceCount() : 0,
                        sourceMap_ ? sourceMap_->GetCommentLineCount() : 0,
                        sourceMap_ ? sourceMap_->GetValueCount() : 0};
    }
    void SetPosition(const Position& position);
    // Column widths matter only to the exporter; the importer reads values
    // whatever their columns, so a section may set a width on either archive.
    int GetColumnWidth() const { return 0; }
    void SetColumnWidth(int) {}

    // --- Lines ---
    // Saves the position (see SectionGuard) and finds the section's title.
    [[nodiscard]] SectionGuard BeginSection(const std::string& title) { return SectionGuard(*this, title); }
    void SectionTitle(const std::string& title);
    void TableHeader(const std::string& text);
    // Comment lines are passed over wherever they stand; nothing to check.
    void CommentLine(const std::string&) {}
    void BlankLine();
    void NextLine(bool skipComments);
    [[noreturn]] void RaiseImportError(const std::string& message) const;

    // A parameter line: the value, then the parameter's name; the comment
    // that follows is not read. False when the line does not hold them.
    template <class Value>
    bool Parameter(Value&& value, const std::string& name, const std::string& comment);
    // The same, with the error "Expected parameter '<name>' not found or
    // incorrectly defined" when the line does not hold it.
    template <class Value>
    void RequiredParameter(Value&& value, const std::string& name, const std::string& comment) {
        if (!Parameter(value, name, comment))
            RaiseImportError("Expected parameter '" + name + "' not found or incorrectly defined");
        NextLine(true);
    }
    // A parameter that may be missing: when its line does not parse it is
    // marked absent and the position stays where it was.
    template <class Value>
    void OptionalParameter(boost::optional<Value>& value, const std::string& name, const std::string& comment);
    // A text between single quotes ('' inside stands for one quote). The
    // line holds no name: `name` names the value for describing archives.
    void StringParameter(std::string& value, const std::string& name, const std::string& comment);
    // A table's layout is told by its lines, which its section tries.
    template <std::size_t Count>
    void LayoutChoice(const char*, int&, const LayoutName (&)[Count]) {}

    // --- The frame of a profile ---
    // "TERRIX" and the header lines up to the version line, the first empty
    // line or the first title (joined by "\n").
    void Header(std::string& header);
    // "TERRIX Version: yyyy-mm-dd": `isVersion` tells whether the line is
    // there and names the year `year`. A version line of another year is
    // read as well; nothing is consumed when the current line is not one.
    void VersionLine(bool& isVersion, int year, int month, int day);
    // What may follow the last profile of a file: empty lines, comment lines
    // and the end line. `isLast` is true, with all of it consumed, when
    // nothing else follows; false, with nothing consumed, when the marker of
    // a further profile follows; the error "Expected: ### New soil profile"
    // on the first line that is neither. Any end line is read.
    void EndOfProfiles(bool& isLast, bool withEndLine);
    // The line "### New soil profile" that separates two profiles.
    void ProfileMarker();

    // --- Records, vectors and tables ---
    // Exactly `count` records.
    template <class Record, class... Arguments>
    void RecordVector(std::vector<Record>& records, std::size_t count, Arguments&&... arguments);
    // Records as long as `more` says, from the records read so far, that the
    // table goes on.
    template <class Record>
    void RecordVector(std::vector<Record>& records, const boost::function<bool(const std::vector<Record>&)>& more);
    // Records as long as the next line starts with a number.
    template <class Record>
    void OpenRecordVector(std::vector<Record>& records);
    // One line of a record: its columns, then the end of the line. The
    // columns' names are not read: the file's header line gives them.
    template <class... Fields>
    void Row(NamedField<Fields>... columns) {
        NotePiece(SourceMap::Kind::Row, SourceMap::none, lineCounter_);
        RowOfValues(columns...);
    }
    // `size` values over one or more lines; after the last value its line
    // may hold only the vector's comment, as the exporter writes it.
    template <class Field>
    void Vector(NamedField<Field> vector, std::size_t size, const std::string& comment) {
        // A vector of a section (the pile diameters) is known by its name,
        // like a parameter; within a table row it names the row's last one.
        if (sourceLines_) sourceLines_->SetParameterLine(sectionTitle_, vector.name, lineCounter_);
        vectorName_ = vector.name;
        vectorMeaning_ = vector.meaning;
        Vector(std::forward<Field>(vector.field), size, comment);
    }

private:
    template <class... Fields>
    void RowOfValues(NamedField<Fields>&... columns);
    void Vector(std::vector<double>& values, std::size_t size, const std::string& comment) {
        ReadVector(values, size, Units::Runtime::DynamicDimension{}, comment);
    }
    template <class Phenomenon>
    void Vector(DimensionedVector<Phenomenon> values, std::size_t size, const std::string& comment) {
        ReadVector(values.values, size, Phenomenon::dimension, comment);
    }
    template <class Phenomenon>
    void Vector(std::vector<Units::Runtime::Quantity<Phenomenon>>& values, std::size_t size, const std::string&);

    // Numbers: the current position is left after the number on success and
    // unchanged on failure. Reals are converted from the file's units.
    bool TryReadReal(double& value, Units::Runtime::DynamicDimension dimension);
    bool TryReadInteger(int& value);
    bool TryReadValue(double& value) { return TryReadReal(value, Units::Runtime::DynamicDimension{}); }
    bool TryReadValue(int& value) { return TryReadInteger(value); }
    template <class Phenomenon>
    bool TryReadValue(Units::Runtime::Quantity<Phenomenon>& value) {
        double number = 0.0;
        if (!TryReadReal(number, Phenomenon::dimension)) return false;
        value = Units::Runtime::Quantity<Phenomenon>(number);
        return true;
    }
    template <class Phenomenon>
    bool TryReadValue(Dimensioned<Phenomenon> value) {
        return TryReadReal(value.value, Phenomenon::dimension);
    }

    bool TryParameterName(const std::string& name);
    template <class Value>
    bool TryReadParameter(Value& value, const std::string& name);
    template <class Phenomenon>
    bool TryReadParameter(Dimensioned<Phenomenon> value, const std::string& name);
    std::size_t CountNumbersAhead() const;
    bool LineStartsWithNumber() const;
    bool AtEndOfLine();
    // The end of the input: nothing is left of the current line, and no line
    // break ended it.
    bool AtEndOfInput() const { return isLastLine_ && column_ == line_.size(); }
    bool EndOfProfiles();
    bool AtCommentLine() const;
    bool MatchWords(const std::string& text);
    // The words of `text` from `it` on, any run of blanks between them.
    bool ParseWords(const char*& it, const std::string& text) const;
    // Whether the rest of the line holds nothing but blanks and, optionally,
    // the words of `text`.
    bool RestOfLineIs(const std::string& text);
    bool MatchTitle(const std::string& title);
    // Passes over the rest of the current line and takes the next one.
    void SkipRestOfLine();
    std::string CurrentLineText() const { return reportsCurrentLine_ ? line_ : reportedLine_; }
    // Takes the line that starts at the iterator as the current one, up to
    // LF, CR LF or a lone CR (old Mac files), and the iterator past its end.
    void ReadLine();
    // Where reading stands in the current line, and the line's end.
    const char* Here() const { return line_.data() + column_; }
    const char* LineEnd() const { return line_.data() + line_.size(); }
    void MoveTo(const char* it) { column_ = static_cast<std::size_t>(it - line_.data()); }
    // Notes a piece of the text from `firstLine` to `lastLine` (the current
    // line when not given); a line of a record, or a vector within one, is
    // known by its record and its place in it.
    void NotePiece(SourceMap::Kind kind, std::uint32_t name, std::uint64_t firstLine, std::uint64_t lastLine);
    void NotePiece(SourceMap::Kind kind, std::uint32_t name, std::uint64_t firstLine) {
        NotePiece(kind, name, firstLine, lineCounter_);
    }
    std::uint32_t NameIndex(const std::string& name) { return sourceMap_ ? sourceMap_->NameIndex(name) : 0; }
    // Notes the number read last (see lastNumber_) as the value `name` of
    // the current section and record, where the map notes values.
    void NoteNumber(const std::string& name, std::uint32_t element, SourceMap::ValueKind kind,
                    ColumnMeaning meaning);
    void NoteValue(const std::string& name, std::uint32_t element, SourceMap::ValueKind kind, ColumnMeaning meaning,
                   std::size_t firstColumn, std::size_t endColumn, Units::Runtime::DynamicDimension dimension,
                   double number);
    bool NotesValues() const { return sourceMap_ && sourceMap_->NotesValues(); }
    template <class Value>
    static SourceMap::ValueKind KindOfValue(const Value&) {
        return SourceMap::ValueKind::Number;
    }
    static SourceMap::ValueKind KindOfValue(const int&) { return SourceMap::ValueKind::WholeNumber; }
    void ReadVector(std::vector<double>& values, std::size_t size, Units::Runtime::DynamicDimension dimension,
                    const std::string& comment);
    // One record of a table, appended to it.
    template <class Record, class... Arguments>
    void ReadRecord(std::vector<Record>& records, Arguments&... arguments);

    // A column's name and meaning, for the source map.
    struct ColumnNote {
        const char* name;
        ColumnMeaning meaning;
    };
    template <class Field>
    void ReadField(Field&& field, ColumnNote column, std::size_t fieldCount, std::size_t numbersAhead);
    template <class Value>
    void ReadField(boost::optional<Value>& field, ColumnNote column, std::size_t fieldCount,
                   std::size_t numbersAhead);
    void ReadField(ValuesToEndOfLine field, ColumnNote column, std::size_t fieldCount, std::size_t numbersAhead);
    [[noreturn]] void RaiseFieldError(std::size_t fieldStart);
    void EndRow();

    template <class Field>
    static constexpr bool IsOptional() {
        using Plain = std::remove_cv_t<std::remove_reference_t<Field>>;
        return std::is_same<Plain, boost::optional<double>>::value || std::is_same<Plain, boost::optional<int>>::value;
    }

    // The start of the line after the current one.
    Iterator nextLine_;
    Iterator last_;
    Units::Runtime::UnitSystem units_;
    UnitScales scales_;
    std::uint64_t lineCounter_;
    // The current line, and how much of it is read.
    std::string line_;
    std::size_t column_ = 0;
    bool isLastLine_ = false;
    // The line that messages show: the current one, or the first comment
    // line passed over after the last line read.
    std::string reportedLine_;
    bool reportsCurrentLine_ = true;
    std::uint64_t lineToReport_;
    std::string sectionTitle_;
    bool titleMode_;
    // The index of the next field within the record being read.
    std::size_t fieldIndex_ = 0;
    SourceLines* sourceLines_ = nullptr;
    SourceMap* sourceMap_ = nullptr;
    // For the source map: the record being read and the piece of it next,
    // the table headers of the section so far, the vector being read.
    std::uint32_t mapRecord_ = SourceMap::none;
    std::uint32_t mapPart_ = 0;
    std::uint32_t tableHeaders_ = 0;
    const char* vectorName_ = "";
    ColumnMeaning vectorMeaning_ = ColumnMeaning::Converted;
    // Where the number read last stands in its line, and what it is.
    struct ReadNumber {
        std::size_t firstColumn = 0;
        std::size_t endColumn = 0;
        Units::Runtime::DynamicDimension dimension;
        double value = 0.0;
    };
    ReadNumber lastNumber_;
};

using StreamIterator = boost::spirit::basic_istream_iterator<char>;
using Importer = SpiritImporter<StreamIterator>;
using TextImporter = SpiritImporter<const char*>;

// ---------------------------------------------------------------------------

template <class Iterator>
template <class Value>
bool SpiritImporter<Iterator>::Parameter(Value&& value, const std::string& name, const std::string&) {
    // A parameter is one line: a failed attempt goes back to where it began.
    const std::size_t start = column_;
    if (TryReadParameter(value, name)) {
        if (sourceLines_) sourceLines_->SetParameterLine(sectionTitle_, name, lineCounter_);
        if (NotesValues()) NoteNumber(name, SourceMap::none, KindOfValue(value), ColumnMeaning::Converted);
        NotePiece(SourceMap::Kind::Parameter, NameIndex(name), lineCounter_);
        return true;
    }
    column_ = start;
    return false;
}

template <class Iterator>
template <class Value>
bool SpiritImporter<Iterator>::TryReadParameter(Value& value, const std::string& name) {
    Value read = value;
    if (!TryReadValue(read) || !TryParameterName(name)) return false;
    value = read;
    return true;
}

template <class Iterator>
template <class Phenomenon>
bool SpiritImporter<Iterator>::TryReadParameter(Dimensioned<Phenomenon> value, const std::string& name) {
    double read = value.value;
    if (!TryReadReal(read, Phenomenon::dimension) || !TryParameterName(name)) return false;
    value.value = read;
    return true;
}

template <class Iterator>
template <class Value>
void SpiritImporter<Iterator>::OptionalParameter(boost::optional<Value>& value, const std::string& name,
                                                 const std::string& comment) {
    Value read{};
    if (Parameter(read, name, comment)) {
        value = read;
        NextLine(true);
    } else {
        value = boost::none;
    }
}

template <class Iterator>
template <class Phenomenon>
void SpiritImporter<Iterator>::Vector(std::vector<Units::Runtime::Quantity<Phenomenon>>& values, std::size_t size,
                                      const std::string& comment) {
    std::vector<double> numbers;
    ReadVector(numbers, size, Phenomenon::dimension, comment);
    values.clear();
    values.reserve(numbers.size());
    for (double number : numbers) values.emplace_back(number);
}

template <class Iterator>
template <class Record, class... Arguments>
void SpiritImporter<Iterator>::ReadRecord(std::vector<Record>& records, Arguments&... arguments) {
    if (sourceLines_) sourceLines_->SetRowLine(sectionTitle_, records.size(), lineCounter_);
    Record record;
    fieldIndex_ = 0;
    mapRecord_ = static_cast<std::uint32_t>(records.size());
    mapPart_ = 0;
    record.Serialize(*this, arguments...);
    mapRecord_ = SourceMap::none;
    records.push_back(std::move(record));
}

template <class Iterator>
template <class Record, class... Arguments>
void SpiritImporter<Iterator>::RecordVector(std::vector<Record>& records, std::size_t count,
                                            Arguments&&... arguments) {
    records.clear();
    for (std::size_t i = 0; i < count; ++i) ReadRecord(records, arguments...);
    // A profile holds its tables for as long as the host keeps it: without
    // the room a growing vector keeps in reserve.
    records.shrink_to_fit();
}

template <class Iterator>
template <class Record>
void SpiritImporter<Iterator>::RecordVector(std::vector<Record>& records,
                                            const boost::function<bool(const std::vector<Record>&)>& more) {
    records.clear();
    while (more(records)) ReadRecord(records);
    records.shrink_to_fit();
}

template <class Iterator>
template <class Record>
void SpiritImporter<Iterator>::OpenRecordVector(std::vector<Record>& records) {
    records.clear();
    while (LineStartsWithNumber()) ReadRecord(records);
    records.shrink_to_fit();
}

template <class Iterator>
template <class... Fields>
void SpiritImporter<Iterator>::RowOfValues(NamedField<Fields>&... columns) {
    constexpr std::size_t fieldCount = sizeof...(Fields);
    constexpr bool anyOptional = (IsOptional<Fields>() || ... || false);
    const std::size_t numbersAhead = anyOptional ? CountNumbersAhead() : fieldCount;
    (ReadField(std::forward<Fields>(columns.field), ColumnNote{columns.name, columns.meaning}, fieldCount,
               numbersAhead),
     ...);
    EndRow();
}

template <class Iterator>
template <class Field>
void SpiritImporter<Iterator>::ReadField(Field&& field, ColumnNote column, std::size_t, std::size_t) {
    const std::size_t fieldStart = column_;
    if (!TryReadValue(field)) RaiseFieldError(fieldStart);
    if (NotesValues()) NoteNumber(column.name, SourceMap::none, KindOfValue(field), column.meaning);
    ++fieldIndex_;
}

template <class Iterator>
template <class Value>
void SpiritImporter<Iterator>::ReadField(boost::optional<Value>& field, ColumnNote column, std::size_t fieldCount,
                                         std::size_t numbersAhead) {
    // An optional column is there when the line holds a number for every
    // column; one number short, it is the missing one.
    if (numbersAhead < fieldCount) {
        field = boost::none;
        return;
    }
    const std::size_t fieldStart = column_;
    Value value{};
    if (!TryReadValue(value)) RaiseFieldError(fieldStart);
    field = value;
    if (NotesValues()) NoteNumber(column.name, SourceMap::none, KindOfValue(value), column.meaning);
    ++fieldIndex_;
}

template <class Iterator>
void SpiritImporter<Iterator>::ReadField(ValuesToEndOfLine field, ColumnNote column, std::size_t, std::size_t) {
    // Numbers up to the first text that is not one; what is left must then
    // be the end of the line (see EndRow).
    field.values.clear();
    double value = 0.0;
    while (TryReadReal(value, Units::Runtime::DynamicDimension{})) {
        if (NotesValues())
            NoteNumber(column.name, static_cast<std::uint32_t>(field.values.size()), SourceMap::ValueKind::Number,
                       column.meaning);
        field.values.push_back(value);
    }
    field.values.shrink_to_fit();
    ++fieldIndex_;
}

}  // namespace TerrixExchange
