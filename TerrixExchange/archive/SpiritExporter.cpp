#include <TerrixExchange/archive/SpiritExporter.h>

#include <iterator>

// Karma's alignment directives (right_align, left_align) chain a counting
// sink that lives on their own stack frame into the output iterator and
// unchain it before they return; g++ 12 sees only the store of its address
// and warns -Wdangling-pointer in Boost's header, which is none of ours.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
#include <boost/spirit/include/karma.hpp>
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif

#include <TerrixExchange/archive/NumberText.h>

namespace TerrixExchange {

namespace karma = boost::spirit::karma;

namespace {

// Parameter names stand in a field of this many characters.
const std::size_t parameterNameWidth = 7;
// Section titles stand in a field of this many characters.
const std::size_t titleWidth = 25;
// A vector line breaks before a value that would take it past this column.
const int vectorLineLength = 80;
// Values written as they stand, in no unit system.
const UnitScale asTheyStand;

}  // namespace

template <class OutputIterator>
SpiritExporter<OutputIterator>::SpiritExporter(OutputIterator sink, int columnWidth,
                                               const boost::optional<Units::Runtime::FastUnitConverter>& converter)
    : columnWidth_(columnWidth), sink_(sink), converter_(converter) {
    if (converter_) scales_.emplace(converter_->GetTo());
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteText(const std::string& text) {
    karma::generate(sink_, karma::string, text);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteLine(const std::string& text) {
    karma::generate(sink_, karma::string << karma::eol, text);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::SectionTitle(const std::string& title) {
    karma::generate(sink_, "*** " << karma::left_align(titleWidth)[karma::string] << " ***" << karma::eol, title);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteReal(double value, Units::Runtime::DynamicDimension dimension) {
    FormatReal(value, columnWidth_ - 1, scales_ ? scales_->Of(dimension) : asTheyStand, number_);
    WriteInColumn(number_);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteInteger(long long value) {
    std::string text;
    karma::generate(std::back_inserter(text), karma::long_long, value);
    WriteInColumn(text);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteInColumn(const std::string& text) {
    // Padded here rather than with Karma's alignment, which buffers every
    // field it aligns.
    const std::size_t field = columnWidth_ > 1 ? static_cast<std::size_t>(columnWidth_ - 1) : 0;
    const std::size_t blanks = 1 + (text.size() < field ? field - text.size() : 0);
    karma::generate(sink_, karma::repeat(blanks)[karma::lit(' ')] << karma::string, text);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteParameterName(const std::string& name, const std::string& comment) {
    karma::generate(sink_, ' ' << karma::left_align(parameterNameWidth)[karma::string] << ' ' << karma::string << karma::eol,
                    name, comment);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::StringParameter(const std::string& value, const std::string&,
                                                     const std::string& comment) {
    // A quote inside the text is written twice, as Fortran reads it.
    std::string quoted;
    for (char c : value) {
        quoted += c;
        if (c == '\'') quoted += '\'';
    }
    const std::size_t padding = quoted.size() < 18 ? 18 - quoted.size() : 0;
    karma::generate(sink_, " '" << karma::string << '\'' << karma::string << karma::string << karma::eol, quoted,
                    std::string(padding, ' '), comment);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::Header(const std::string& header) {
    WriteLine("TERRIX");
    if (header.empty()) return;
    std::string::size_type start = 0;
    for (;;) {
        const std::string::size_type end = header.find('\n', start);
        WriteLine(header.substr(start, end == std::string::npos ? std::string::npos : end - start));
        if (end == std::string::npos) return;
        start = end + 1;
    }
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::VersionLine(bool isVersion, int year, int month, int day) {
    if (!isVersion) return;
    karma::generate(sink_,
                    "TERRIX Version: " << karma::int_ << '-' << karma::right_align(2, '0')[karma::int_] << '-'
                                       << karma::right_align(2, '0')[karma::int_] << karma::eol,
                    year, month, day);
}

template <class OutputIterator>
void SpiritExporter<OutputIterator>::WriteVector(const std::vector<double>& values,
                                                 Units::Runtime::DynamicDimension dimension,
                                                 const std::string& comment) {
    // The count restarts at 0, not at the column width, after a break: the
    // first line holds up to eight values of width 10 and every further line
    // up to nine. Readers take any number of values per line.
    int columns = 0;
    for (double value : values) {
        columns += columnWidth_;
        if (columns > vectorLineLength) {
            WriteText("\n");
            columns = 0;
        }
        WriteReal(value, dimension);
    }
    // An empty vector is a line that holds only the comment.
    if (!comment.empty()) WriteText(" " + comment);
    WriteText("\n");
}

template class SpiritExporter<StreamSink>;

}  // namespace TerrixExchange
