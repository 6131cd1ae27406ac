#include <TerrixExchange/archive/SpiritImporter.h>

#include <sstream>

#include <boost/spirit/include/qi.hpp>
#include <boost/spirit/home/qi/copy.hpp>

#include <TerrixExchange/archive/NumberText.h>

namespace TerrixExchange {

namespace qi = boost::spirit::qi;

namespace {

// The file is read byte by byte. A byte above 127 (a letter of a header or a
// comment written in Latin-1 or UTF-8) is neither a blank nor a digit; the
// character classes of Spirit's standard encoding would take it for a
// negative char, outside their domain, so the two classes are spelt out.
const auto blank = qi::copy(qi::char_(" \t"));
const auto digit = qi::copy(qi::char_('0', '9'));

// A number token: sign, digits with an optional point, an optional exponent
// (Fortran's "D" included), or NaN / Inf / Infinity. It must end where the
// field ends: at a blank, the end of the line or the end of the input.
template <class Iterator>
bool ParseNumberToken(Iterator& position, const Iterator& last, std::string& token) {
    // Built once: the rule is a constant, and a rule compiles its parser
    // once rather than at every number.
    static const qi::rule<Iterator, std::string()> number = [] {
        qi::rule<Iterator, std::string()> rule =
            qi::raw[-qi::char_("+-") >>
                    (((+digit >> -(qi::char_('.') >> *digit)) | (qi::char_('.') >> +digit)) >>
                         -(qi::char_("eEdD") >> -qi::char_("+-") >> +digit) |
                     qi::no_case[qi::lit("infinity") | "inf" | "nan"])] >>
            &(blank | qi::eol | qi::eoi);
        rule.name("number");
        return rule;
    }();
    Iterator start = position;
    token.clear();
    if (!qi::parse(start, last, number, token)) return false;
    position = start;
    return true;
}

template <class Iterator>
void SkipBlanks(Iterator& position, const Iterator& last) {
    qi::parse(position, last, *blank);
}

}  // namespace

template <class Iterator>
SpiritImporter<Iterator>::SpiritImporter(Iterator first, Iterator last, const Units::Runtime::UnitSystem& units,
                                         bool titleMode)
    : position_(first),
      last_(last),
      units_(units),
      lineCounter_(1),
      lineToReport_(1),
      titleMode_(titleMode) {
    StartLine();
}

template <class Iterator>
void SpiritImporter<Iterator>::SetPosition(const Position& position) {
    position_ = position.position;
    currentLine_ = position.currentLine;
    lineCounter_ = position.lineCounter;
    lineToReport_ = position.lineToReport;
}

template <class Iterator>
std::string SpiritImporter<Iterator>::CurrentLineText() const {
    return currentLine_;
}

template <class Iterator>
void SpiritImporter<Iterator>::StartLine() {
    // A line ends at LF, CR LF or a lone CR (old Mac files), as it does for
    // the parsers (qi::eol).
    currentLine_.clear();
    for (Iterator it = position_; it != last_ && *it != '\n' && *it != '\r'; ++it) currentLine_ += *it;
}

template <class Iterator>
void SpiritImporter<Iterator>::RaiseImportError(const std::string& message) const {
    throw ImportError(lineToReport_, message, sectionTitle_, CurrentLineText());
}

template <class Iterator>
void SpiritImporter<Iterator>::SkipRestOfLine() {
    static const qi::rule<Iterator> skipRestOfLine = [] {
        qi::rule<Iterator> rule = *(qi::char_ - qi::eol) >> (qi::eol | qi::eoi);
        rule.name("Skip the rest of the line");
        return rule;
    }();
    qi::parse(position_, last_, skipRestOfLine);
}

template <class Iterator>
bool SpiritImporter<Iterator>::AtCommentLine() const {
    if (position_ == last_) return false;
    Iterator it = position_;
    return qi::parse(it, last_, qi::lit('*') | (qi::char_("Cc") >> (blank | qi::eol | qi::eoi)));
}

template <class Iterator>
void SpiritImporter<Iterator>::NextLine(bool skipComments) {
    SkipRestOfLine();
    ++lineCounter_;
    lineToReport_ = lineCounter_;
    StartLine();
    if (!skipComments) return;
    while (AtCommentLine()) {
        SkipRestOfLine();
        ++lineCounter_;
    }
}

template <class Iterator>
bool SpiritImporter<Iterator>::AtEndOfLine() {
    Iterator it = position_;
    SkipBlanks(it, last_);
    Iterator probe = it;
    if (!qi::parse(probe, last_, &(qi::eol | qi::eoi))) return false;
    position_ = it;
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::ParseWords(Iterator& it, const std::string& text) const {
    std::istringstream words(text);
    std::string word;
    bool first = true;
    while (words >> word) {
        if (!first && !qi::parse(it, last_, +blank)) return false;
        if (!qi::parse(it, last_, qi::lit(word))) return false;
        first = false;
    }
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::MatchWords(const std::string& text) {
    // The words of the text in order, any run of blanks between them, and
    // any run of '*' and blanks before and after.
    Iterator it = position_;
    qi::parse(it, last_, *(blank | qi::char_('*')));
    if (!ParseWords(it, text) || !qi::parse(it, last_, *(blank | qi::char_('*')) >> &(qi::eol | qi::eoi)))
        return false;
    position_ = it;
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::RestOfLineIs(const std::string& text) {
    Iterator it = position_;
    SkipBlanks(it, last_);
    Iterator end = it;
    if (ParseWords(end, text) && qi::parse(end, last_, *blank >> &(qi::eol | qi::eoi))) {
        position_ = end;
        return true;
    }
    return AtEndOfLine();
}

template <class Iterator>
bool SpiritImporter<Iterator>::MatchTitle(const std::string& title) {
    if (titleMode_) return MatchWords(title);
    // The title exactly as it is spelt, in any decoration of '*' and blanks.
    Iterator it = position_;
    const auto decoration = qi::copy(*(blank | qi::char_('*')));
    if (!qi::parse(it, last_, decoration >> qi::lit(title) >> decoration >> &(qi::eol | qi::eoi))) return false;
    position_ = it;
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
        SkipRestOfLine();
        ++lineCounter_;
    }
    if (sourceLines_) sourceLines_->SetSectionLine(title, lineCounter_);
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::TableHeader(const std::string& text) {
    if (!MatchWords(text)) RaiseImportError("Unable to find section");
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::BlankLine() {
    // The end of the input counts as an empty line, so that a truncated file
    // is reported at the section that is missing, on the line after its last.
    if (AtEndOfInput()) return;
    Iterator it = position_;
    SkipBlanks(it, last_);
    if (!qi::parse(it, last_, qi::eol | qi::eoi)) RaiseImportError("Expected blank line");
    position_ = it;
    ++lineCounter_;
    lineToReport_ = lineCounter_;
    StartLine();
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryReadReal(double& value, Units::Runtime::DynamicDimension dimension) {
    Iterator it = position_;
    SkipBlanks(it, last_);
    std::string token;
    double number = 0.0;
    if (!ParseNumberToken(it, last_, token) || !ParseReal(token, number, units_.GetSize(dimension))) return false;
    value = number;
    position_ = it;
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryReadInteger(int& value) {
    const Iterator start = position_;
    double number = 0.0;
    if (!TryReadReal(number, Units::Runtime::DynamicDimension{})) return false;
    // Integers are written as numbers and truncated toward zero; a number
    // outside the range of an int is no integer of the file.
    const double truncated = std::trunc(number);
    if (!(truncated >= static_cast<double>(std::numeric_limits<int>::min()) &&
          truncated <= static_cast<double>(std::numeric_limits<int>::max()))) {
        position_ = start;
        return false;
    }
    value = static_cast<int>(truncated);
    return true;
}

template <class Iterator>
bool SpiritImporter<Iterator>::TryParameterName(const std::string& name) {
    Iterator it = position_;
    if (!qi::parse(it, last_, +blank >> qi::lit(name) >> &(blank | qi::eol | qi::eoi))) return false;
    position_ = it;
    return true;
}

template <class Iterator>
void SpiritImporter<Iterator>::StringParameter(std::string& value, const std::string&, const std::string&) {
    Iterator it = position_;
    std::string text;
    const auto quoted = qi::copy(qi::lit('\'') >> *((qi::lit("''") >> qi::attr('\'')) | (qi::char_ - qi::char_("'\r\n"))) >>
                        qi::lit('\''));
    if (!qi::parse(it, last_, qi::omit[*blank] >> quoted, text)) RaiseImportError("Expected string.");
    value = text;
    position_ = it;
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::Header(std::string& header) {
    sectionTitle_ = "TERRIX";
    if (!MatchWords("TERRIX")) RaiseImportError("Unable to find section");
    NextLine(false);
    header.clear();
    bool first = true;
    while (position_ != last_) {
        Iterator it = position_;
        if (qi::parse(it, last_, *blank >> (qi::eol | qi::eoi))) break;
        it = position_;
        if (qi::parse(it, last_, qi::lit("TERRIX") >> +blank >> qi::lit("Version:"))) break;
        const Position here = GetPosition();
        const bool isTitle = MatchWords("CONTROL SECTION");
        SetPosition(here);
        if (isTitle) break;
        if (!first) header += '\n';
        header += CurrentLineText();
        first = false;
        NextLine(false);
    }
}

template <class Iterator>
void SpiritImporter<Iterator>::VersionLine(bool& isVersion, int year, int, int) {
    Iterator it = position_;
    int y = 0, m = 0, d = 0;
    isVersion = false;
    if (!qi::parse(it, last_,
                   qi::lit("TERRIX") >> qi::omit[+blank] >> qi::lit("Version:") >> qi::omit[*blank] >> qi::int_ >> '-' >>
                       qi::int_ >> '-' >> qi::int_,
                   y, m, d))
        return;
    position_ = it;
    isVersion = y == year;
    NextLine(true);
}

template <class Iterator>
void SpiritImporter<Iterator>::EndOfProfiles(bool& isLast, bool) {
    isLast = EndOfProfiles();
}

template <class Iterator>
bool SpiritImporter<Iterator>::EndOfProfiles() {
    const Position start = GetPosition();
    while (position_ != last_) {
        Iterator it = position_;
        const bool empty = qi::parse(it, last_, *blank >> &(qi::eol | qi::eoi));
        it = position_;
        const bool endLine =
            qi::parse(it, last_, *blank >> qi::lit("END OF TERRIX INPUT FILE") >> *blank >> &(qi::eol | qi::eoi));
        if (!empty && !endLine && !AtCommentLine()) {
            // The marker of a further profile, or text that has no place
            // after a profile: the error names that text's own line.
            it = position_;
            if (!qi::parse(it, last_, *blank >> qi::lit("###"))) RaiseImportError("Expected: ### New soil profile");
            SetPosition(start);
            return false;
        }
        NextLine(false);
    }
    return true;
}

template <class Iterator>
void SpiritImporter<Iterator>::ProfileMarker() {
    Iterator it = position_;
    if (!qi::parse(it, last_, *blank >> qi::lit("###") >> *blank >> qi::lit("New soil profile") >> *blank >>
                                  &(qi::eol | qi::eoi)))
        RaiseImportError("Expected: ### New soil profile");
    position_ = it;
    NextLine(true);
}

template <class Iterator>
std::size_t SpiritImporter<Iterator>::CountNumbersAhead() const {
    Iterator it = position_;
    std::size_t count = 0;
    std::string token;
    double number = 0.0;
    for (;;) {
        SkipBlanks(it, last_);
        if (!ParseNumberToken(it, last_, token) || !ParseReal(token, number)) return count;
        ++count;
    }
}

template <class Iterator>
bool SpiritImporter<Iterator>::LineStartsWithNumber() const {
    Iterator it = position_;
    SkipBlanks(it, last_);
    std::string token;
    return ParseNumberToken(it, last_, token);
}

template <class Iterator>
void SpiritImporter<Iterator>::RaiseFieldError(const Iterator& fieldStart) {
    position_ = fieldStart;
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
    const std::string sizeText = std::to_string(size);
    for (std::size_t i = 0; i < size; ++i) {
        if (AtEndOfLine()) {
            if (AtEndOfInput()) RaiseImportError("Error parsing argument: " + std::to_string(i) + ", expected vector of size: " + sizeText);
            NextLine(true);
        }
        double value = 0.0;
        if (!TryReadReal(value, dimension))
            RaiseImportError("Error parsing argument: " + std::to_string(i) + ", expected vector of size: " + sizeText);
        values.push_back(value);
    }
    // After the last value the line holds the vector's own comment, as the
    // exporter writes it, or nothing: a line that goes on with anything else
    // (a further value, the next parameter's line read as a value) does not
    // hold a vector of this size.
    if (!RestOfLineIs(comment)) RaiseImportError("Expected vector of size: " + sizeText);
    NextLine(true);
}

template class SpiritImporter<StreamIterator>;

}  // namespace TerrixExchange
