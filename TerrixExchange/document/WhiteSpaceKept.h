#pragma once

#include <istream>

#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace TerrixExchange {

// Clears a stream's skipping of white space while an importer reads it, so
// that blanks and line breaks reach the parsers, and gives the caller its
// flags back afterwards.
class WhiteSpaceKept {
public:
    TERRIX_ALLOCATION_OPERATORS

    explicit WhiteSpaceKept(std::istream& stream) : stream_(stream), flags_(stream.flags()) {
        stream_.unsetf(std::ios::skipws);
    }
    WhiteSpaceKept(const WhiteSpaceKept&) = delete;
    WhiteSpaceKept& operator=(const WhiteSpaceKept&) = delete;
    ~WhiteSpaceKept() { stream_.flags(flags_); }

private:
    std::istream& stream_;
    std::ios::fmtflags flags_;
};

}  // namespace TerrixExchange
