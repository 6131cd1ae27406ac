#pragma once

// What is wrong in the profiles of a file, by line: what check prints and
// what the language server shows as diagnostics.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <TerrixExchange/queries/SoundnessCheck.h>

#include "Profiles.h"

namespace TerrixTool {

struct Finding {
    std::size_t profile;
    std::uint64_t line;  // 0 where the profile has no lines (JSON)
    bool isError;
    std::string text;
    // How the library mends it, where it knows how (TerrixExchange::Mend).
    TerrixExchange::Mending mending;
};

// The layer divisions that cannot be split, and with `strict` what no
// sound profile holds (TerrixExchange::FindUnsoundValues), in the order of
// their lines. A division that runs backwards is told once, though both
// checks find it.
std::vector<Finding> FindingsOf(const FileProfiles& read, bool strict);

}  // namespace TerrixTool
