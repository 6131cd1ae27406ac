#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace TerrixExchange {

// The one error of an import. Its text has four lines:
//   Import error in line <N>:
//   <message>
//   While importing section: '<section title>'
//   Found: '<the current line>'
class ImportError : public std::runtime_error {
public:
    ImportError(std::uint64_t line, const std::string& message, const std::string& section, const std::string& found);

    std::uint64_t GetLine() const { return line_; }
    const std::string& GetMessage() const { return message_; }
    const std::string& GetSection() const { return section_; }
    const std::string& GetFound() const { return found_; }

private:
    std::uint64_t line_;
    std::string message_;
    std::string section_;
    std::string found_;
};

}  // namespace TerrixExchange
