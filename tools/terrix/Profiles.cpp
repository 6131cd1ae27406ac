#include "Profiles.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <istream>
#include <memory>

#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

#include "ToolError.h"

namespace TerrixTool {

using TerrixExchange::Terrix;

namespace {

// The whole text of a file or of standard input; a failed read is a
// Failure "FILE: cannot read" with the reason.
std::string ReadText(const std::string& file) {
    const bool isStandardInput = file == "-";
    std::FILE* input = isStandardInput ? stdin : std::fopen(file.c_str(), "rb");
    if (input == nullptr) throw FileFailure(file, "cannot read", std::strerror(errno));
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> closed(isStandardInput ? nullptr : input, &std::fclose);
    std::string text;
    char buffer[65536];
    for (;;) {
        const std::size_t count = std::fread(buffer, 1, sizeof buffer, input);
        text.append(buffer, count);
        if (count < sizeof buffer) break;
    }
    if (std::ferror(input)) throw FileFailure(file, "cannot read", std::strerror(errno != 0 ? errno : EIO));
    return text;
}

bool IsIndex(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

void ImportText(const std::string& text, const boost::optional<UnitNames>& units, FileProfiles& read,
                bool withMaps) {
    if (TerrixExchange::IsJsonText(text)) {
        if (units) read.all.ImportJson(text, units->force, units->length);
        else read.all.ImportJson(text);
        // JSON has no lines to point at.
        read.lines.resize(read.all.GetSoilProfiles().size());
        read.maps.resize(read.all.GetSoilProfiles().size());
        return;
    }
    if (withMaps) {
        if (units) read.all.ImportText(text, units->force, units->length, read.lines, read.maps);
        else read.all.ImportText(text, read.lines, read.maps);
    } else {
        if (units) read.all.ImportText(text, units->force, units->length, read.lines);
        else read.all.ImportText(text, read.lines);
    }
}

boost::optional<UnitNames> ToUnitNames(const std::vector<std::string>& values, const std::string& option) {
    if (values.empty()) return boost::none;
    const UnitNames names{values.at(0), values.at(1)};
    try {
        TerrixExchange::Units::Runtime::UnitSystem check(names.force, names.length);
    } catch (const std::exception& error) {
        throw Failure(option + " " + names.force + " " + names.length + ": " + error.what() +
                      " (force units: N kN MN GN mN lbf kipf kgf; length units: km m dm cm mm in ft)");
    }
    return names;
}

FileProfiles ReadProfiles(const std::string& file, const boost::optional<UnitNames>& units) {
    const std::string text = ReadText(file);
    try {
        FileProfiles read;
        ImportText(text, units, read, false);
        return read;
    } catch (const TerrixExchange::ImportError& error) {
        throw FileFailure(file, "cannot import", DisplayedImportError(error));
    } catch (const std::exception& error) {
        std::string detail = Displayed(error.what());
        if (detail == unitsNotDeduced) detail += "\n" + UnitsHint("pass the units of the file with --units FORCE LENGTH, e.g. --units kN m");
        throw FileFailure(file, "cannot import", detail);
    }
}

std::vector<std::size_t> SelectProfiles(const std::vector<Terrix>& profiles, const std::string& selection) {
    std::vector<std::size_t> chosen;
    if (selection.empty()) {
        for (std::size_t i = 0; i < profiles.size(); ++i) chosen.push_back(i);
        return chosen;
    }
    if (selection[0] == '#') {
        const std::string digits = selection.substr(1);
        if (!IsIndex(digits)) throw UsageError("--profile " + selection + ": an index is '#' and digits, e.g. #0");
        const unsigned long long index = std::stoull(digits);
        if (index >= profiles.size())
            throw UsageError("--profile " + selection + ": the file holds " + std::to_string(profiles.size()) +
                             (profiles.size() == 1 ? " profile" : " profiles") + " (#0 to #" +
                             std::to_string(profiles.size() - 1) + ")");
        chosen.push_back(static_cast<std::size_t>(index));
        return chosen;
    }
    for (std::size_t i = 0; i < profiles.size(); ++i)
        if (NameOf(profiles[i]) == selection) return {i};
    throw UsageError("--profile " + selection + ": no profile of that name");
}

std::string UnitsHint(const std::string& remedy) {
    return "The water unit weight and atmospheric pressure of the control section match no pair of known units; " +
           remedy;
}

UnitNames UnitsOf(const Terrix& profile) {
    return UnitNames{profile.GetUnitSystem().GetForceUnitName(), profile.GetUnitSystem().GetLengthUnitName()};
}

std::string NameOf(const Terrix& profile) { return profile.GetTerrixInputData().controlSection.profileName; }

int VersionNumberOf(const Terrix& profile) { return static_cast<int>(profile.GetVersion()); }

void WriteOutput(const std::string& out, const std::string& text) {
    if (out.empty() || out == "-") {
        std::cout << text << std::flush;
        if (!std::cout) throw Failure("standard output: cannot write");
        return;
    }
    std::ofstream file(out, std::ios::binary);
    if (!file) throw FileFailure(out, "cannot write", std::strerror(errno));
    file << text;
    file.close();
    if (!file) throw FileFailure(out, "cannot write", std::strerror(errno));
}

}  // namespace TerrixTool
