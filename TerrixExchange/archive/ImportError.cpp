#include <TerrixExchange/archive/ImportError.h>

namespace TerrixExchange {

namespace {

std::string Compose(std::uint64_t line, const std::string& message, const std::string& section,
                    const std::string& found) {
    return "Import error in line " + std::to_string(line) + ":\n" + message + "\nWhile importing section: '" +
           section + "'\nFound: '" + found + "'";
}

}  // namespace

ImportError::ImportError(std::uint64_t line, const std::string& message, const std::string& section,
                         const std::string& found)
    : std::runtime_error(Compose(line, message, section, found)),
      line_(line),
      message_(message),
      section_(section),
      found_(found) {}

}  // namespace TerrixExchange
