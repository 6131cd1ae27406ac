#include <TerrixExchange/archive/SpiritImporter.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include <boost/range/iterator_range.hpp>

#include <boost/spirit/include/qi.hpp>
#include <boost/spirit/home/qi/copy.hpp>

#include <TerrixExchange/archive/NumberText.h>

namespace TerrixExchange {

namespace qi = boost::spirit::qi;

namespace {

// Fields are parsed within the current line, held as text.
using Cursor = const char*;

// The file is read byte by byte. A byte above 127 (a letter of a header or a
// comment written in Latin-1 or UTF-8) is neither a blank nor a digit; the
// character classes of Spirit's standard encoding would take it for a
// negative char, outside their domain, so the two classes are spelt out.
// Both are made of single characters, which cost nothing to set up where a
// parse begins (a set of characters builds a table each time).
const auto blank = qi::copy(qi::lit(' ') | qi::lit('\t'));
const auto digit = qi::copy(qi::char_('0', '9'));
// The end of a line's text: its line break, or the end of the input.
const auto endOfLine = qi::copy(qi::eoi);

// A number token: sign, digits with an optional point, an optional exponent
// (Fortran's "D" included), or NaN / Inf / Infinity. It must end where the
// field ends: at a blank or the end of the line. The token's text is where it
// stands in the line.
bool ParseNumberToken(Cursor& position, Cursor last, boost::iterator_range<Cursor>& token) {
    // Built once: the rule is a constant, and a rule compiles its parser
    // once rather than at every number.
    static const qi::rule<Cursor, boost::iterator_range<Cursor>()> number = [] {
        qi::rule<Cursor, boost::iterator_range<Cursor>()> rule =
            qi::raw[-qi::char_("+-") >>
                    (((+digit >> -(qi::char_('.') >> *digit)) | (qi::char_('.') >> +digit)) >>
                         -(qi::char_("eEdD") >> -qi::char_("+-") >> +digit) |
                     qi::no_case[qi::lit("infinity") | "inf" | "nan"])] >>
            &(blank | endOfLine);
        rule.name("number");
        return rule;
    }();
    return qi::parse(position, last, number, token);
}

bool ParseNumber(Cursor& position, Cursor last, double& value, const UnitScale& scale) {
    Cursor it = position;
    qi::parse(it, last, *blank);
    boost::iterator_range<Cursor> token;
    if (!ParseNumberToken(it, last, token) || !ParseReal(token.begin(), token.end(), value, scale)) return false;
    position = it;
    return true;
}

void SkipBlanks(Cursor& position, Cursor last) { qi::parse(position, last, *blank); }

}  // namespace

template <class Iterator>
SpiritImporter<Iterator>::SpiritImporter(Iterator first, Iterator last, const Units::Runtime::UnitSystem& units,
                                         bool titleMode)
    : nextLine_(first),
      last_(last),
      units_(units),
      scales_(units),
      lineCounter_(1),
      lineToReport_(1),
      titleMode_(titleMode) {
    ReadLine();
}

template <class Iterator>
void SpiritImporter<Iterator>::SetPosition(const Position& position) {
    nextLine_ = position.nextLine;
    line_ = position.line;
    column_ = position.column;
    isLastLine_ = position.isLastLine;
    reportedLine_ = position.reportedLine;
    reportsCurrentLine_ = position.reportsCurrentLine;
    lineCounter_ = position.lineCounter;
    lineToReport_ = position.lineToReport;
    if (sourceMap_) sourceMap_->Truncate(position.mapPieces, position.mapComments, position.mapValues);
}

template <class Iterator>
void SpiritImporter<Iterator>::NoteNumber(const std::string& name, std::uint32_t element, SourceMap::ValueKind kind,
                                          ColumnMeaning meaning) {
    NoteValue(name, element, kind, meaning, lastNumber_.firstColumn, lastNumber_.endColumn, lastNumber_.dimension,
              lastNumber_.value);
}

template <class Iterator>
void SpiritImporter<Iterator>::NoteValue(const std::string& name, std::uint32_t element, SourceMap::ValueKind kind,
                                         ColumnMeaning meaning, std::size_t firstColumn, std::size_t endColumn,
                                         Units::Runtime::DynamicDimension dimension, double number) {
    if (!NotesValues()) return;
    // A line longer than 4 GB is no line of a profile; its columns are cut.
    const auto narrow = [](std::size_t column) {
        return static_cast<std::uint32_t>(std::min<std::size_t>(column, 0xFFFFFFFFu));
    };
    // An integer column holds the number truncated, as the profile does.
    const double held = kind == SourceMap::ValueKind::WholeNumber ? std::trunc(number) : number;
    sourceMap_->AddValue(SourceMap::Value{lineCounter_, narrow(firstColumn), narrow(endColumn),
                                          sourceMap_->NameIndex(sectionTitle_), sourceMap_->NameIndex(name),
                                          mapRecord_, element, kind, meaning, dimension, held});
}

template <class Iterator>
void SpiritImporter<Iterator>::NotePiece(SourceMap::Kind kind, std::uint32_t name, std::uint64_t firstLine,
                                         std::uint64_t lastLine) {
    if (!sourceMap_) return;
    const bool isFrame = kind == SourceMap::Kind::Header || kind == SourceMap::Kind::VersionLine;
    const bool inRecord = mapRecord_ != SourceMap::none && (kind == SourceMap::Kind::Row || kind == SourceMap::Kind::Vector);
    sourceMap_->AddPiece(kind, isFrame ? std::string() : sectionTitle_, name, inRecord ? mapRecord_ : SourceMap::none,
                         inRecord ? mapPart_++ : SourceMap::none, firstLine, lastLine);
}

template <class Iterator>
void SpiritImporter<Iterator>::ReadLine() {
    line_.clear();
    column_ = 0;
    if constexpr (std::is_pointer<Iterator>::value) {
        // Text in memory: the line is found first and taken at once. Its end
        // is the first LF or CR, looked for a piece at a time, so that a file
        // with no LF at all (CR line ends) is not searched to its end for
        // every line.
        const char* end = nextLine_;
        for (;;) {
            const std::size_t piece = std::min<std::size_t>(256, static_cast<std::size_t>(last_ - end));
            const void* lineFeed = std::memchr(end, '\n', piece);
            const std::size_t before = lineFeed ? static_cast<std::size_t>(static_cast<const char*>(lineFeed) - end) : piece;
            if (const void* carriageReturn = std::memchr(end, '\r', before)) {
                end = static_cast<const char*>(carriageReturn);
                break;
            }
            end += before;
            if (lineFeed || end == last_) break;
        }
        line_.assign(nextLine_, end);
        nextLine_ = end;
    }
    for (; nextLine_ != last_; ++nextLine_) {
        const char c = *nextLine_;
        if (c == '\n' || c == '\r') {
            ++nextLine_;
            if (c == '\r' && nextLine_ != last_ && *nextLine_ == '\n') ++nextLine_;
            isLastLine_ = false;
            return;
        }
        line_ += c;
    }
    isLastLine_ = true;
}

template <class Iterator>
void SpiritImporter<Iterator>::RaiseImportError(const std::string& message) const {
    throw ImportError(lineToReport_, message, sectionTitle_, CurrentLineText());
}

template <class Iterator>
void SpiritImporter<Iterator>::SkipRestOfLine() {
    static const qi::rule<Cursor> skipRestOfLine = [] {
        qi::rule<Cursor> rule = *(qi::char_ - qi::eol) >> (qi::eol | qi::eoi);
        rule.name("Skip the rest of the line");
        return rule;
    }();
    Cursor it = Here();
    qi::parse(it, LineEnd(), skipRestOfLine);
    ReadLine();
}

template <class Iterator>
bool SpiritImporter<Iterator>::AtCommentLine() const {
    if (AtEndOfInput()) return false;
    Cursor it = Here();
    return qi::parse(it, LineEnd(), qi::lit('*') | ((qi::lit('C') | qi::lit('c')) >> (blank | endOfLine)));
}

template <class Iterator>
void SpiritImporter<Iterator>::NextLine(bool skipComments) {
    SkipRestOfLine();
    ++lineCounter_;
    lineToReport_ = lineCounter_;
    reportsCurrentLine_ = true;
    if (!skipComments) return;
    while (AtCommentLine()) {
        if (reportsCurrentLine_) {
            reportedLine_ = line_;
            reportsCurrentLine_ = false;
        }
        if (sourceMap_) sourceMap_->AddCommentLine(lineCounter_);
        SkipRestOfLine();
        ++lineCounter_;
    }
}

template <class Iterator>
bool SpiritImporter<Iterator>::AtEndOfLine() {
    Cursor it = Here();
    SkipBlanks(it, LineEnd());
    if (it != LineEnd()) return false;
    MoveTo(it);
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::ParseWords(Cursor& it, const std::string& text) const {
    // Each word compared where it stands in `text`: titles and comments are
    // matched on every section and vector, and are not split up for it.
    std::size_t at = 0;
    bool first = true;
    while ((at = text.find_first_not_of(" \t", at)) != std::string::npos) {
        const std::size_t end = std::min(text.find_first_of(" \t", at), text.size());
        if (!first && !qi::parse(it, LineEnd(), +blank)) return false;
        const std::size_t length = end - at;
        if (static_cast<std::size_t>(LineEnd() - it) < length || text.compare(at, length, it, length) != 0)
            return false;
        it += length;
        at = end;
        first = false;
    }
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::MatchWords(const std::string& text) {
    // The words of the text in order, any run of blanks between them, and
    // any run of '*' and blanks before and after.
    Cursor it = Here();
    qi::parse(it, LineEnd(), *(blank | qi::char_('*')));
    if (!ParseWords(it, text) || !qi::parse(it, LineEnd(), *(blank | qi::char_('*')) >> endOfLine)) return false;
    MoveTo(it);
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::RestOfLineIs(const std::string& text) {
    Cursor it = Here();
    SkipBlanks(it, LineEnd());
    Cursor end = it;
    if (ParseWords(end, text) && qi::parse(end, LineEnd(), *blank >> endOfLine)) {
        MoveTo(end);
        return true;
    }
    return AtEndOfLine();
}

template <class Iterator>
bool SpiritImporter<Iterator>::MatchTitle(const std::string& title) {
    if (titleMode_) return MatchWords(title);
    // The title exactly as it is spelt, in any decoration of '*' and blanks.
    Cursor it = Here();
    const auto decoration = qi::copy(*(blank | qi::char_('*')));
    if (!qi::parse(it, LineEnd(), decoration >> qi::lit(title) >> decoration >> endOfLine)) return false;
    MoveTo(it);
    return true;
}

template <class Iterator>
void SpiritImporter<Iterator>::SectionTitle(const std::string& title) {
    sectionTitle_ = title;
    // Comment lines may stand before a title; a title line decorated with
    // '*' looks like one, so each line is first tried as the title.
    const Position expected = GetPosition();
    while (!MatchTitle(title)) {
        if (!AtCommentLine()) {
            SetPosition(expected);
            RaiseImportError("Unable to find section");
        }
        if (sourceMap_) sourceMap_->AddCommentLine(lineCounter_);
        SkipRestOfLine();
        ++lineCounter_;
    }
    if (sourceLines_) sourceLines_->SetSectionLine(title, lineCounter_);
    tableHeaders_ = 0;
    NotePiece(SourceMap::Kind::Title, SourceMap::none, lineCounter_);
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::TableHeader(const std::string& text) {
    if (!MatchWords(text)) RaiseImportError("Unable to find section");
    NotePiece(SourceMap::Kind::TableHeader, tableHeaders_++, lineCounter_);
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::BlankLine() {
    // The end of the input counts as an empty line, so that a truncated file
    // is reported at the section that is missing, on the line after its last.
    if (AtEndOfInput()) return;
    if (!AtEndOfLine()) RaiseImportError("Expected blank line");
    NotePiece(SourceMap::Kind::BlankLine, SourceMap::none, lineCounter_);
    ReadLine();
    ++lineCounter_;
    lineToReport_ = lineCounter_;
    reportsCurrentLine_ = true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryReadReal(double& value, Units::Runtime::DynamicDimension dimension) {
    Cursor it = Here();
    if (!ParseNumber(it, LineEnd(), value, scales_.Of(dimension))) return false;
    if (NotesValues()) {
        // The number's text ends where the parse ended and starts after the
        // blanks before it.
        Cursor first = Here();
        SkipBlanks(first, it);
        lastNumber_ = ReadNumber{static_cast<std::size_t>(first - line_.data()),
                                 static_cast<std::size_t>(it - line_.data()), dimension, value};
    }
    MoveTo(it);
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryReadInteger(int& value) {
    const std::size_t start = column_;
    double number = 0.0;
    if (!TryReadReal(number, Units::Runtime::DynamicDimension{})) return false;
    // Integers are written as numbers and truncated toward zero; a number
    // outside the range of an int is no integer of the file.
    const double truncated = std::trunc(number);
    if (!(truncated >= static_cast<double>(std::numeric_limits<int>::min()) &&
          truncated <= static_cast<double>(std::numeric_limits<int>::max()))) {
        column_ = start;
        return false;
    }
    value = static_cast<int>(truncated);
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryParameterName(const std::string& name) {
    Cursor it = Here();
    if (!qi::parse(it, LineEnd(), +blank >> qi::lit(name) >> &(blank | endOfLine))) return false;
    MoveTo(it);
    return true;
}

template <class Iterator>
void SpiritImporter<Iterator>::StringParameter(std::string& value, const std::string& name, const std::string&) {
    Cursor it = Here();
    std::string text;
    const auto quoted =
        qi::copy(qi::lit('\'') >> *((qi::lit("''") >> qi::attr('\'')) | (qi::char_ - qi::char_("'\r\n"))) >>
                 qi::lit('\''));
    if (!qi::parse(it, LineEnd(), qi::omit[*blank] >> quoted, text)) RaiseImportError("Expected string.");
    value = text;
    Cursor first = Here();
    SkipBlanks(first, it);
    NoteValue(name, SourceMap::none, SourceMap::ValueKind::Text, ColumnMeaning::Converted,
              static_cast<std::size_t>(first - line_.data()), static_cast<std::size_t>(it - line_.data()),
              Units::Runtime::DynamicDimension{}, std::numeric_limits<double>::quiet_NaN());
    MoveTo(it);
    NotePiece(SourceMap::Kind::Parameter, NameIndex(name), lineCounter_);
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::Header(std::string& header) {
    sectionTitle_ = "TERRIX";
    const std::uint64_t firstLine = lineCounter_;
    if (!MatchWords("TERRIX")) RaiseImportError("Unable to find section");
    NextLine(false);
    header.clear();
    bool first = true;
    while (!AtEndOfInput()) {
        Cursor it = Here();
        if (qi::parse(it, LineEnd(), *blank >> endOfLine)) break;
        it = Here();
        if (qi::parse(it, LineEnd(), qi::lit("TERRIX") >> +blank >> qi::lit("Version:"))) break;
        const std::size_t here = column_;
        const bool isTitle = MatchWords("CONTROL SECTION");
        column_ = here;
        if (isTitle) break;
        if (!first) header += '\n';
        header += CurrentLineText();
        first = false;
        NextLine(false);
    }
    // "TERRIX" and the header lines, up to the line before the current one.
    NotePiece(SourceMap::Kind::Header, SourceMap::none, firstLine, lineCounter_ - 1);
}

template <class Iterator>
void SpiritImporter<Iterator>::VersionLine(bool& isVersion, int year, int, int) {
    Cursor it = Here();
    int y = 0, m = 0, d = 0;
    isVersion = false;
    if (!qi::parse(it, LineEnd(),
                   qi::lit("TERRIX") >> qi::omit[+blank] >> qi::lit("Version:") >> qi::omit[*blank] >> qi::int_ >> '-' >>
                       qi::int_ >> '-' >> qi::int_,
                   y, m, d))
        return;
    MoveTo(it);
    isVersion = y == year;
    NotePiece(SourceMap::Kind::VersionLine, SourceMap::none, lineCounter_);
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::EndOfProfiles(bool& isLast, bool) {
    isLast = EndOfProfiles();
}

template <class Iterator>
bool SpiritImporter<Iterator>::EndOfProfiles() {
    const Position start = GetPosition();
    while (!AtEndOfInput()) {
        Cursor it = Here();
        const bool empty = qi::parse(it, LineEnd(), *blank >> endOfLine);
        it = Here();
        const bool endLine =
            qi::parse(it, LineEnd(), *blank >> qi::lit("END OF TERRIX INPUT FILE") >> *blank >> endOfLine);
        if (!empty && !endLine && !AtCommentLine()) {
            // The marker of a further profile, or text that has no place
            // after a profile: the error names that text's own line.
            it = Here();
            if (!qi::parse(it, LineEnd(), *blank >> qi::lit("###"))) RaiseImportError("Expected: ### New soil profile");
            SetPosition(start);
            return false;
        }
        NextLine(false);
    }
    return true;
}

template <class Iterator>
void SpiritImporter<Iterator>::ProfileMarker() {
    Cursor it = Here();
    if (!qi::parse(it, LineEnd(),
                   *blank >> qi::lit("###") >> *blank >> qi::lit("New soil profile") >> *blank >> endOfLine))
        RaiseImportError("Expected: ### New soil profile");
    MoveTo(it);
    NextLine(true);
}

template <class Iterator>
std::size_t SpiritImporter<Iterator>::CountNumbersAhead() const {
    Cursor it = Here();
    std::size_t count = 0;
    double number = 0.0;
    while (ParseNumber(it, LineEnd(), number, UnitScale{})) ++count;
    return count;
}

template <class Iterator>
bool SpiritImporter<Iterator>::LineStartsWithNumber() const {
    Cursor it = Here();
    SkipBlanks(it, LineEnd());
    boost::iterator_range<Cursor> token;
    return ParseNumberToken(it, LineEnd(), token);
}

template <class Iterator>
void SpiritImporter<Iterator>::RaiseFieldError(std::size_t fieldStart) {
    column_ = fieldStart;
    RaiseImportError("Error parsing argument: " + std::to_string(fieldIndex_));
}

template <class Iterator>
void SpiritImporter<Iterator>::EndRow() {
    if (!AtEndOfLine()) RaiseImportError("Expected end of line of record.");
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::ReadVector(std::vector<double>& values, std::size_t size,
                                          Units::Runtime::DynamicDimension dimension, const std::string& comment) {
    // The vector is not sized from the count before its values are there: a
    // count that is far too large fails at the end of the values, not in the
    // allocator.
    values.clear();
    // Room for the usual vector at once, so that the profile keeps no spare
    // room; a count beyond it grows as its values come.
    values.reserve(std::min<std::size_t>(size, 4096));
    const std::string sizeText = std::to_string(size);
    const std::uint64_t firstLine = lineCounter_;
    for (std::size_t i = 0; i < size; ++i) {
        if (AtEndOfLine()) {
            if (AtEndOfInput()) RaiseImportError("Error parsing argument: " + std::to_string(i) + ", expected vector of size: " + sizeText);
            NextLine(true);
        }
        double value = 0.0;
        if (!TryReadReal(value, dimension))
            RaiseImportError("Error parsing argument: " + std::to_string(i) + ", expected vector of size: " + sizeText);
        if (NotesValues())
            NoteNumber(vectorName_, static_cast<std::uint32_t>(i), SourceMap::ValueKind::Number, vectorMeaning_);
        values.push_back(value);
    }
    // After the last value the line holds the vector's own comment, as the
    // exporter writes it, or nothing: a line that goes on with anything else
    // (a further value, the next parameter's line read as a value) does not
    // hold a vector of this size.
    if (!RestOfLineIs(comment)) RaiseImportError("Expected vector of size: " + sizeText);
    NotePiece(SourceMap::Kind::Vector, NameIndex(vectorName_), firstLine);
    NextLine(true);
}

template class SpiritImporter<StreamIterator>;
template class SpiritImporter<const char*>;

}  // namespace TerrixExchange
