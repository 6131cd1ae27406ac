#pragma once

#include <stdexcept>
#include <string>

#include <TerrixExchange/archive/ImportError.h>

namespace TerrixTool {

// The command line asks for something the tool cannot do: exit status 2.
// Its text is one line, printed after "terrix: ".
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A file could not be read, imported or written, or a unit name is unknown:
// exit status 1. Its text is printed after "terrix: " as it stands.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// "FILE: cannot import" and the like, then the library's own error text on
// the following lines, so that an import error keeps its four lines and its
// line number.
inline Failure FileFailure(const std::string& file, const std::string& failure, const std::string& detail) {
    return Failure(file + ": " + failure + (detail.empty() ? "" : "\n" + detail));
}

// Text of a file as a terminal can show it: every control character but the
// line breaks between lines of a message is written as an escape ("\t",
// "\r", "\x00"), so that nothing of the text is hidden or cut, not even by
// a NUL.
std::string Displayed(const std::string& text);

// The four lines of an import error, each part displayed, with a "Found:"
// text longer than 200 characters cut and its length told: a 5 MB line is
// not echoed onto a terminal.
std::string DisplayedImportError(const TerrixExchange::ImportError& error);

}  // namespace TerrixTool
