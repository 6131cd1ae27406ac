#include "LspProtocol.h"

#include <algorithm>
#include <cctype>

namespace TerrixTool {

namespace {

const std::string lengthHeader = "content-length:";
// A header line longer than this is no header of the protocol.
const std::size_t maximumHeaderLine = 4096;

std::string Lowered(const std::string& text) {
    std::string lowered = text;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lowered;
}

// The length a header line gives, if it is "Content-Length: N". Bytes left
// over from a broken message may stand before it on the same line.
bool ContentLength(const std::string& line, std::size_t& length, bool& isLengthLine) {
    const std::size_t at = Lowered(line).find(lengthHeader);
    isLengthLine = at != std::string::npos;
    if (!isLengthLine) return false;
    std::size_t digit = at + lengthHeader.size();
    while (digit < line.size() && (line[digit] == ' ' || line[digit] == '\t')) ++digit;
    std::size_t value = 0;
    std::size_t digits = 0;
    for (; digit < line.size() && std::isdigit(static_cast<unsigned char>(line[digit])); ++digit, ++digits) {
        if (value > (static_cast<std::size_t>(-1) - 9) / 10) return false;
        value = value * 10 + static_cast<std::size_t>(line[digit] - '0');
    }
    while (digit < line.size() && (line[digit] == ' ' || line[digit] == '\t')) ++digit;
    if (digits == 0 || digit != line.size()) return false;
    length = value;
    return true;
}

}  // namespace

MessageReader::MessageReader(std::istream& input, std::size_t maximumSize)
    : input_(input), maximumSize_(maximumSize) {}

bool MessageReader::ReadHeaderLine(std::string& line) {
    line.clear();
    bool tooLong = false;
    for (;;) {
        const int c = input_.get();
        if (c == std::char_traits<char>::eof()) return !line.empty() || tooLong;
        if (c == '\n') break;
        if (line.size() < maximumHeaderLine) line += static_cast<char>(c);
        else tooLong = true;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (tooLong) line = "(a header line of more than 4096 bytes)";
    return true;
}

MessageReader::Result MessageReader::Read(std::string& body, std::string& problem) {
    std::string line;
    bool hasLength = false;
    bool badLength = false;
    std::size_t length = 0;
    bool anyHeader = false;
    for (;;) {
        if (!ReadHeaderLine(line)) {
            if (!anyHeader) return Result::End;
            problem = "the input ended within a message's header";
            return Result::Malformed;
        }
        if (line.empty()) {
            if (anyHeader) break;
            continue;  // blank lines between messages
        }
        anyHeader = true;
        bool isLengthLine = false;
        std::size_t given = 0;
        if (ContentLength(line, given, isLengthLine)) {
            hasLength = true;
            length = given;
        } else if (isLengthLine) {
            badLength = true;
        }
    }
    if (!hasLength) {
        problem = badLength ? "the message's Content-Length is no number" : "a message without Content-Length";
        return Result::Malformed;
    }
    if (length > maximumSize_) {
        // Passed over in pieces, never held whole.
        char buffer[65536];
        std::size_t left = length;
        while (left > 0 && input_) {
            input_.read(buffer, static_cast<std::streamsize>(std::min(left, sizeof buffer)));
            left -= static_cast<std::size_t>(input_.gcount());
        }
        problem = "a message of " + std::to_string(length) + " bytes, more than the " +
                  std::to_string(maximumSize_) + " a message may have";
        return input_ ? Result::Malformed : Result::End;
    }
    body.resize(length);
    input_.read(&body[0], static_cast<std::streamsize>(length));
    if (static_cast<std::size_t>(input_.gcount()) != length) {
        body.clear();
        return Result::End;
    }
    return Result::Message;
}

bool MessageReader::HasMoreWaiting() const { return input_.rdbuf()->in_avail() > 0; }

void WriteMessage(std::ostream& output, const Json& message) {
    // A text of the file that is not UTF-8 (a header in Latin-1) is shown
    // with replacement characters rather than break the message.
    const std::string body = message.dump(-1, ' ', false, Json::error_handler_t::replace);
    output << "Content-Length: " << body.size() << "\r\n\r\n" << body << std::flush;
}

Json ResultMessage(const Json& id, const Json& result) {
    return Json{{"jsonrpc", "2.0"}, {"id", id}, {"result", result}};
}

Json ErrorMessage(const Json& id, int code, const std::string& message) {
    return Json{{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", message}}}};
}

Json Notification(const std::string& method, const Json& params) {
    return Json{{"jsonrpc", "2.0"}, {"method", method}, {"params", params}};
}

}  // namespace TerrixTool
