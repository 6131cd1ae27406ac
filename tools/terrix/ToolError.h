#pragma once

#include <stdexcept>
#include <string>

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

// "FILE: cannot import" and the like, then the library's own error text
// unchanged on the following lines, so that an import error keeps its four
// lines and its line number.
inline Failure FileFailure(const std::string& file, const std::string& failure, const std::string& detail) {
    return Failure(file + ": " + failure + (detail.empty() ? "" : "\n" + detail));
}

}  // namespace TerrixTool
