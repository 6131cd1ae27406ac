#pragma once

// Small helpers for reading and writing single sections and whole texts in
// tests: an importer over a string, an exporter into a string, and the
// message of an import error.

#include <functional>
#include <sstream>
#include <string>

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

// The whole text of the ImportError that `action` throws; fails the test if
// it throws nothing or something else.
inline std::string ImportErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ImportError& error) {
        return error.what();
    } catch (const std::exception& error) {
        ADD_FAILURE() << "expected an import error, got: " << error.what();
        return "";
    }
    ADD_FAILURE() << "expected an import error, got none";
    return "";
}

// The four lines of an import error.
inline std::string ImportErrorText(int line, const std::string& message, const std::string& section,
                                   const std::string& found) {
    return "Import error in line " + std::to_string(line) + ":\n" + message + "\nWhile importing section: '" +
           section + "'\nFound: '" + found + "'";
}

}}  // namespace TerrixExchange::Testing
