#pragma once

// What reading and writing a TERRIX text cannot go below on this machine, the
// floors the library's import and export are measured against in the same
// run: going over every line of the text, converting every number token of
// it with std::from_chars, and writing every number with std::to_chars.

#include <charconv>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

namespace TerrixExchange { namespace Benchmarks {

// Every line of the text, taken from a stream as the import takes it.
inline std::size_t ReadEveryLine(const std::string& text) {
    std::istringstream stream(text);
    std::string line;
    std::size_t bytes = 0;
    while (std::getline(stream, line)) bytes += line.size() + 1;
    return bytes;
}

// Every token between blanks that reads whole as a number, in the order of
// the text: what a reader without any checks would keep.
inline std::vector<double> ParseEveryNumber(const std::string& text) {
    std::istringstream stream(text);
    std::string line;
    std::vector<double> numbers;
    while (std::getline(stream, line)) {
        const char* at = line.data();
        const char* end = at + line.size();
        while (at != end) {
            while (at != end && (*at == ' ' || *at == '\t')) ++at;
            const char* token = at;
            while (at != end && *at != ' ' && *at != '\t') ++at;
            double value = 0.0;
            const std::from_chars_result parsed = std::from_chars(token, at, value);
            if (token != at && parsed.ec == std::errc() && parsed.ptr == at) numbers.push_back(value);
        }
    }
    return numbers;
}

// Every number in its shortest text, a blank after each, into one string.
inline std::string WriteEveryNumber(const std::vector<double>& numbers) {
    std::string text(numbers.size() * 25, ' ');
    char* at = text.data();
    for (const double number : numbers) {
        at = std::to_chars(at, at + 24, number).ptr;
        *at++ = ' ';
    }
    text.resize(static_cast<std::size_t>(at - text.data()));
    return text;
}

}}  // namespace TerrixExchange::Benchmarks
