#pragma once

// Small helpers for reading and writing single sections and whole texts in
// tests: an importer over a string, an exporter into a string, and the
// message of an import error.

#include <cstddef>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/ImportError.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>
#include <TerrixPlatform/Units/Runtime/FastUnitConverter.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange { namespace Testing {

// Runs `read` with an importer over `text` whose values are in the named units.
inline void ReadText(const std::string& text, const std::function<void(Importer&)>& read,
                     const std::string& forceUnit = "kN", const std::string& lengthUnit = "m",
                     bool titleMode = true) {
    std::istringstream stream(text);
    stream.unsetf(std::ios::skipws);
    Importer importer(StreamIterator(stream), StreamIterator(), Units::Runtime::UnitSystem(forceUnit, lengthUnit),
                      titleMode);
    read(importer);
}

// The text that `write` writes with an exporter of column width 10 into the
// named units.
inline std::string WriteText(const std::function<void(Exporter&)>& write, const std::string& forceUnit = "kN",
                             const std::string& lengthUnit = "m") {
    std::ostringstream stream;
    Exporter exporter(StreamSink(stream), 10,
                      Units::Runtime::FastUnitConverter(Units::Runtime::GetDatabaseUnitSystem(),
                                                        Units::Runtime::UnitSystem(forceUnit, lengthUnit)));
    write(exporter);
    return stream.str();
}

// The message of the std::exception that `action` throws; fails the test if
// it throws nothing.
inline std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    ADD_FAILURE() << "expected an error, got none";
    return "";
}

// The number of the line on which `part` first stands in `text`.
inline int LineOf(const std::string& text, const std::string& part) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    int line = 1;
    for (std::size_t i = 0; i < at && i < text.size(); ++i) line += text[i] == '\n' ? 1 : 0;
    return line;
}

// `text` with every "\n" made `lineEnd`: "\r\n" as a DOS editor saves it,
// "\r" as an old Mac did.
inline std::string WithLineEnds(const std::string& text, const std::string& lineEnd) {
    std::string result;
    for (char c : text) result += c == '\n' ? lineEnd : std::string(1, c);
    return result;
}

// `text` with the first `from` replaced by `to`, so that a bad input can be
// made from a good one; fails the test when `from` does not occur.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// The same for a text in which `from` must occur exactly once.
inline std::string ReplacedOnce(const std::string& text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_TRUE(at == std::string::npos || text.find(from, at + 1) == std::string::npos) << from;
    return Replaced(text, from, to);
}

// How a single section is read and written: Counted(n) for a section that the
// profile tells how many rows, layers or curves follow (from the control
// section's counts), Uncounted for a section that needs no count.
inline auto Counted(std::size_t count) {
    return [count](auto& section, auto& archive) { section.Serialize(archive, count); };
}
inline const auto Uncounted = [](auto& section, auto& archive) { section.Serialize(archive); };

// The section that `serialize` reads from `text`, read over `section`.
template <class Section, class Serialize>
Section ReadSection(const std::string& text, const Serialize& serialize, const std::string& forceUnit = "kN",
                    const std::string& lengthUnit = "m", Section section = Section()) {
    ReadText(text, [&](Importer& importer) { serialize(section, importer); }, forceUnit, lengthUnit);
    return section;
}

// The text that `serialize` writes of `section`.
template <class Section, class Serialize>
std::string WriteSection(Section section, const Serialize& serialize, const std::string& forceUnit = "kN",
                         const std::string& lengthUnit = "m") {
    return WriteText([&](Exporter& exporter) { serialize(section, exporter); }, forceUnit, lengthUnit);
}

// Written in kN and m, and in N and mm, and read back in the same units: the
// same values.
template <class Section, class Serialize>
void ExpectRoundTrips(const Section& section, const Serialize& serialize) {
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm")}) {
        const std::string text = WriteSection(section, serialize, units.first, units.second);
        EXPECT_TRUE(ReadSection<Section>(text, serialize, units.first, units.second) == section)
            << units.first << " " << units.second << ":\n"
            << text;
    }
}

// The text of the file `name` under tests/data: long TERRIX texts that the
// tests read or compare an export with, kept as the plain files they are.
inline std::string TestData(const std::string& name) {
    std::ifstream file(std::string(TERRIX_TEST_DATA_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file.good()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Line `number` (counted from 1) of `text`, without its line end: the
// "Found" line of an import error, or a line to build a bad input from.
inline std::string TextLine(const std::string& text, int number) {
    std::istringstream lines(text);
    std::string line;
    for (int i = 0; i < number; ++i) std::getline(lines, line);
    return line;
}

}}  // namespace TerrixExchange::Testing
