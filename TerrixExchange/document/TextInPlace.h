#pragma once

// A stream buffer that reads a text where it stands in memory, without the
// copy that std::istringstream makes: a host that holds a file's whole text
// (the Python module's loads) imports it so.
//
//     TextInPlace buffer(text.data(), text.size());
//     std::istream stream(&buffer);
//     profiles.Import(stream);
//
// The text must outlive the stream; it is only ever read.

#include <cstddef>
#include <streambuf>

namespace TerrixExchange {

class TextInPlace : public std::streambuf {
public:
    TextInPlace(const char* text, std::size_t size) {
        char* begin = const_cast<char*>(text);  // std::streambuf wants char*; nothing is written
        setg(begin, begin, begin + size);
    }
};

}  // namespace TerrixExchange
