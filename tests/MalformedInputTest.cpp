// Damaged files: cut short anywhere, or with characters changed anywhere,
// an example either still reads or fails with one error. Never a crash, a
// hang or undefined behaviour (the tests run under the sanitizers).

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

using namespace TerrixExchange;

namespace {

std::string Example(const std::string& name) {
    std::ifstream file(std::string(TERRIX_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// Reads the text; true when it imports, false when it fails with a
// std::runtime_error. Anything else fails the test.
bool Imports(const std::string& text) {
    std::istringstream stream(text);
    TerrixMultipleSoilProfiles profiles;
    try {
        profiles.Import(stream, "kN", "m");
        // Whatever was read can be written.
        std::ostringstream out;
        profiles.Export(out, "N", "mm", {});
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

}  // namespace

TEST(MalformedInput, AFileCutShortAnywhereFailsWithOneError) {
    for (const char* name : {"north-sea-v4.terrix", "north-sea-v5.terrix"}) {
        const std::string text = Example(name);
        // The end line is optional: cut before it, the file still reads.
        const std::size_t lastSection = text.rfind("\nEND OF TERRIX INPUT FILE");
        for (std::size_t length = 0; length < lastSection; length += 61) {
            SCOPED_TRACE(std::string(name) + " cut at " + std::to_string(length));
            EXPECT_FALSE(Imports(text.substr(0, length)));
        }
        EXPECT_TRUE(Imports(text.substr(0, lastSection + 1)));
    }
}

TEST(MalformedInput, ChangedCharactersNeverCrashTheReader) {
    std::mt19937 random(20261121);
    const std::string replacements = "0123456789.-+eEdD *C\t\r\nABCXYZ'#\x80\xff";
    for (const char* name : {"north-sea-v4.terrix", "north-sea-v5.terrix", "three-profiles.terrix"}) {
        const std::string text = Example(name);
        std::uniform_int_distribution<std::size_t> position(0, text.size() - 1);
        std::uniform_int_distribution<std::size_t> replacement(0, replacements.size() - 1);
        for (int trial = 0; trial < 80; ++trial) {
            std::string damaged = text;
            for (int change = 0; change < 3; ++change) damaged[position(random)] = replacements[replacement(random)];
            Imports(damaged);
        }
    }
}
