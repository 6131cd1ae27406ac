#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/archive/SourceMap.h>
#include <TerrixExchange/document/Terrix.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange {

// Profiles that would not read back as they are, refused before anything is
// written: the message lists every disagreement (see
// TerrixMultipleSoilProfiles::FindInconsistencies).
class InconsistentProfilesError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A change of a text by whole lines: `lineCount` lines from `firstLine`
// (counted from 1) replaced by `text`, whole lines each with its line end;
// no lines to insert the text before `firstLine`, no text to remove them.
struct LineEdit {
    std::uint64_t firstLine;
    std::uint64_t lineCount;
    std::string text;
};

// The text that `edits` (in file order, none overlapping) make of `original`.
std::string ApplyLineEdits(std::string_view original, const std::vector<LineEdit>& edits);

// Which lines of the original text a writing over it keeps: those that hold
// nothing the profiles changed, or only those that stand exactly as the
// export writes them (the text realigned: every value and comment line
// stays, every line laid out otherwise is written as Export lays it out).
enum class LinesKept { Unchanged, AsExported };

// Several soil profiles in one stream, one after another, each a complete
// TERRIX profile. Between two profiles stand an empty line and the marker
// line "### New soil profile"; the header lines are written before the first
// profile only and the end line "END OF TERRIX INPUT FILE" after the last.
// A profile is known by the name in its control section (version 5).
class TerrixMultipleSoilProfiles {
public:
    TERRIX_ALLOCATION_OPERATORS

    // Appends a copy of the profile.
    void AddSoilProfile(const Terrix& profile);

    // The first profile whose name is exactly `name` (case and blanks
    // count); null when there is none. A version 4 profile has no name, so
    // "" finds the first of them.
    const Terrix* TryGetSoilProfile(const std::string& name) const;
    // The profile at `index`; null past the last one.
    const Terrix* TryGetSoilProfile(std::size_t index) const;

    const std::vector<Terrix>& GetSoilProfiles() const { return profiles_; }
    // The profiles, for a host that edits them in place (and writes them
    // back with ExportKeepingLines).
    std::vector<Terrix>& GetSoilProfiles() { return profiles_; }
    // The names of all profiles in stream order, empty and repeated ones
    // included.
    std::vector<std::string> GetSoilProfileNames() const;

    // Reads the profiles of the stream and appends them to those held, the
    // units of each deduced from its control section's unit weight of water
    // and atmospheric pressure. Reading ends without error at the end of the
    // input after a complete profile (its end line, empty lines and comment
    // lines may follow). Anything else that is not a profile or a marker is
    // an ImportError; a profile whose units cannot be deduced is the
    // std::runtime_error "Unable to deduce units". The profiles read before
    // an error stay appended.
    void Import(std::istream& stream);
    // The same, with every profile's values in the named units.
    void Import(std::istream& stream, const std::string& forceUnit, const std::string& lengthUnit);
    // Both, noting besides where each profile's section titles, parameters
    // and table rows stand in the stream: one SourceLines per profile read,
    // appended to `lines` as the profile is to the container.
    void Import(std::istream& stream, std::vector<SourceLines>& lines);
    void Import(std::istream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                std::vector<SourceLines>& lines);
    // Both, noting besides what every line of each profile is and where
    // each of its values stands (a SourceMap that notes values): one map
    // per profile read, appended to `maps` as the profile is. An editor
    // tells from them what stands at any line and column of the text.
    void Import(std::istream& stream, std::vector<SourceLines>& lines, std::vector<SourceMap>& maps);
    void Import(std::istream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                std::vector<SourceLines>& lines, std::vector<SourceMap>& maps);
    // The same six of a text in memory, read without a stream: the same
    // profiles, or the same error with the same four lines, as Import of a
    // stream that holds the text.
    void ImportText(std::string_view text);
    void ImportText(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit);
    void ImportText(std::string_view text, std::vector<SourceLines>& lines);
    void ImportText(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit,
                    std::vector<SourceLines>& lines);
    void ImportText(std::string_view text, std::vector<SourceLines>& lines, std::vector<SourceMap>& maps);
    void ImportText(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit,
                    std::vector<SourceLines>& lines, std::vector<SourceMap>& maps);

    // Reads the profiles of a JSON text as terrix dump writes it
    // ({"profiles": [PROFILE, ...]}, each as Terrix::ImportJson reads it) and
    // appends them, all of them or, at the first fault (a JsonImportError
    // that names the profile and where in it), none.
    void ImportJson(std::string_view text);
    void ImportJson(std::string_view text, const std::string& forceUnit, const std::string& lengthUnit);

    // Writes every profile with its values in `units`. An empty container
    // writes nothing at all.
    void Export(std::ostream& stream, const Units::Runtime::UnitSystem& units, std::list<std::string> headerLines);
    void Export(std::ostream& stream, const std::string& forceUnit, const std::string& lengthUnit,
                const std::list<std::string>& headerLines);
    // Writes every profile with its own header lines and in its own units
    // (those it was read in), or all of them in `units`: a stream read and
    // written back this way keeps each profile's header and, without
    // `units`, its numbers as the file wrote them. The end line after the
    // last profile when `writeEndLine`. Each profile then holds the units
    // it was written in.
    void ExportWithOwnHeaders(std::ostream& stream, bool writeEndLine = true);
    void ExportWithOwnHeaders(std::ostream& stream, const Units::Runtime::UnitSystem& units,
                              bool writeEndLine = true);

    // Every disagreement of every profile (Terrix::FindInconsistencies), each
    // as "profile #N: TEXT", N counted from 0; empty when all of them read
    // back as they are.
    std::vector<std::string> FindInconsistencies() const;
    // Throws InconsistentProfilesError, "The profiles would not read back as
    // they are:" and each disagreement on a line of its own, when there is one.
    void CheckConsistency() const;

    // Writes the profiles over `original`, the text they were read from,
    // keeping every line that holds nothing the profiles changed: the
    // header, the comment lines, the blanks and the spelling of every
    // number untouched stay byte for byte. Only the lines that hold a changed
    // value or count, and those of an added record or section, are written
    // anew, in each profile's units and as Export lays them out; a removed
    // record's lines are left out, and new lines take the line ends of the
    // original. When that cannot be done line by line (the original does
    // not read in the profiles' units, holds another number of profiles,
    // or a profile of another version), the profiles are written whole, as
    // ExportWithOwnHeaders writes them, and the answer is false. A profile
    // that would not read back as it is (FindInconsistencies) is refused
    // with the InconsistentProfilesError of CheckConsistency, before
    // anything is written.
    bool ExportKeepingLines(std::ostream& stream, std::string_view original,
                            LinesKept kept = LinesKept::Unchanged);
    // The same as edits of `original`, for an editor that changes the text
    // it shows rather than write a new one; when the profiles are written
    // whole, one edit replaces every line and the answer is false.
    bool EditKeepingLines(std::string_view original, std::vector<LineEdit>& edits,
                          LinesKept kept = LinesKept::Unchanged);

private:
    // Reads `text` with the pieces of each profile, each in the units of
    // its place in `units`; false when it does not read.
    static bool ReadWithPieces(std::string_view text, const std::vector<Units::Runtime::UnitSystem>& units,
                               TerrixMultipleSoilProfiles& profiles, std::vector<SourceMap>& maps);
    // The profiles one after the other; with `firstHeaderLines` the first
    // profile takes those and the others none, without it each its own.
    void WriteProfiles(std::ostream& stream, const boost::optional<Units::Runtime::UnitSystem>& units,
                       const std::list<std::string>* firstHeaderLines, bool writeEndLine);
    // How ReadProfiles reads: every profile in `units`; or those that
    // `unitsOfEach` names in its units, by their places; the others in the
    // units deduced from each one's control section. Where the lines and the
    // pieces of each profile stand are noted where asked.
    struct Reading {
        boost::optional<Units::Runtime::UnitSystem> units;
        std::vector<SourceLines>* lines = nullptr;
        std::vector<SourceMap>* maps = nullptr;
        bool mapsNoteValues = false;
        const std::vector<Units::Runtime::UnitSystem>* unitsOfEach = nullptr;
    };
    // Reads profiles until the end of the input, of a stream or of a text.
    void ReadProfiles(std::istream& stream, const Reading& reading);
    void ReadProfiles(std::string_view text, const Reading& reading);
    template <class Archive>
    void ReadProfiles(Archive& importer, const Reading& reading);

    void ReadJsonProfiles(std::string_view text, const boost::optional<Units::Runtime::UnitSystem>& units);

    std::vector<Terrix> profiles_;
};

}  // namespace TerrixExchange
