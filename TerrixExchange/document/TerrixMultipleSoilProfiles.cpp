#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include <istream>
#include <ostream>
#include <stdexcept>
#include <utility>

#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>
#include <TerrixExchange/document/WhiteSpaceKept.h>

namespace TerrixExchange {

using namespace Units::Runtime;

void TerrixMultipleSoilProfiles::AddSoilProfile(const Terrix& profile) { profiles_.push_back(profile); }

const Terrix* TerrixMultipleSoilProfiles::TryGetSoilProfile(const std::string& name) const {
    for (const Terrix& profile : profiles_)
        if (profile.GetTerrixInputData().controlSection.profileName == name) return &profile;
    return nullptr;
}

const Terrix* TerrixMultipleSoilProfiles::TryGetSoilProfile(std::size_t index) const {
    return index < profiles_.size() ? &profiles_[index] : nullptr;
}

std::vector<std::string> TerrixMultipleSoilProfiles::GetSoilProfileNames() const {
    std::vector<std::string> names;
    names.reserve(profiles_.size());
    for (const Terrix& profile : profiles_) names.push_back(profile.GetTerrixInputData().controlSection.profileName);
    return names;
}

void TerrixMultipleSoilProfiles::Import(std::istream& stream) { ReadProfiles(stream, {}); }

void TerrixMultipleSoilProfiles::Import(std::istream& stream, const std::string& forceUnit,
                                        const std::string& lengthUnit) {
    ReadProfiles(stream, {UnitSystem(forceUnit, lengthUnit)});
}

void TerrixMultipleSoilProfiles::Import(std::istream& stream, std::vector<SourceLines>& lines) {
    ReadProfiles(stream, {boost::none, &lines});
}

void TerrixMultipleSoilProfiles::Import(std::istream& stream, const std::string& forceUnit,
                                        const std::string& lengthUnit, std::vector<SourceLines>& lines) {
    ReadProfiles(stream, {UnitSystem(forceUnit, lengthUnit), &lines});
}

void TerrixMultipleSoilProfiles::Import(std::istream& stream, std::vector<SourceLines>& lines,
                                        std::vector<SourceMap>& maps) {
    ReadProfiles(stream, {boost::none, &lines, &maps, true});
}

void TerrixMultipleSoilProfiles::Import(std::istream& stream, const std::string& forceUnit,
                                        const std::string& lengthUnit, std::vector<SourceLines>& lines,
                                        std::vector<SourceMap>& maps) {
    ReadProfiles(stream, {UnitSystem(forceUnit, lengthUnit), &lines, &maps, true});
}

void TerrixMultipleSoilProfiles::ImportText(std::string_view text) { ReadProfiles(text, {}); }

void TerrixMultipleSoilProfiles::ImportText(std::string_view text, const std::string& forceUnit,
                                            const std::string& lengthUnit) {
    ReadProfiles(text, {UnitSystem(forceUnit, lengthUnit)});
}

void TerrixMultipleSoilProfiles::ImportText(std::string_view text, std::vector<SourceLines>& lines) {
    ReadProfiles(text, {boost::none, &lines});
}

void TerrixMultipleSoilProfiles::ImportText(std::string_view text, const std::string& forceUnit,
                                            const std::string& lengthUnit, std::vector<SourceLines>& lines) {
    ReadProfiles(text, {UnitSystem(forceUnit, lengthUnit), &lines});
}

void TerrixMultipleSoilProfiles::ImportText(std::string_view text, std::vector<SourceLines>& lines,
                                            std::vector<SourceMap>& maps) {
    ReadProfiles(text, {boost::none, &lines, &maps, true});
}

void TerrixMultipleSoilProfiles::ImportText(std::string_view text, const std::string& forceUnit,
                                            const std::string& lengthUnit, std::vector<SourceLines>& lines,
                                            std::vector<SourceMap>& maps) {
    ReadProfiles(text, {UnitSystem(forceUnit, lengthUnit), &lines, &maps, true});
}

void TerrixMultipleSoilProfiles::ReadProfiles(std::istream& stream, const Reading& reading) {
    WhiteSpaceKept whiteSpace(stream);
    Importer importer(StreamIterator(stream), StreamIterator(), GetDatabaseUnitSystem(), true);
    ReadProfiles(importer, reading);
}

void TerrixMultipleSoilProfiles::ReadProfiles(std::string_view text, const Reading& reading) {
    TextImporter importer(text.data(), text.data() + text.size(), GetDatabaseUnitSystem(), true);
    ReadProfiles(importer, reading);
}

template <class Archive>
void TerrixMultipleSoilProfiles::ReadProfiles(Archive& importer, const Reading& reading) {
    const std::size_t heldBefore = profiles_.size();
    for (;;) {
        // Every profile starts with titles read by their words; the profile
        // before has left the importer reading them by their exact spelling.
        importer.SetTitleMode(true);
        const std::size_t held = profiles_.size();
        if (reading.lines) {
            reading.lines->emplace_back();
            importer.SetSourceLines(&reading.lines->back());
        }
        if (reading.maps) {
            reading.maps->emplace_back();
            reading.maps->back().SetNotesValues(reading.mapsNoteValues);
            importer.SetSourceMap(&reading.maps->back());
        }
        const typename Archive::Position start = importer.GetPosition();
        // The units of this profile, when they are named.
        const std::size_t index = held - heldBefore;
        const UnitSystem* units = reading.units ? reading.units.get_ptr()
                                  : reading.unitsOfEach && index < reading.unitsOfEach->size()
                                      ? &(*reading.unitsOfEach)[index]
                                      : nullptr;
        try {
            Terrix profile(Version::Unknown, Revision::Unsettled);
            if (units) {
                profile.unitSystem_ = *units;
                importer.SetUnitSystem(*units);
            } else {
                // The start of the profile is read twice: once as it stands,
                // to deduce its units from the control section, then from its
                // first line again in those units.
                importer.SetUnitSystem(GetDatabaseUnitSystem());
                std::string forceUnit;
                std::string lengthUnit;
                if (!Terrix::DeduceUnits(importer, forceUnit, lengthUnit))
                    throw std::runtime_error("Unable to deduce units");
                profile.unitSystem_ = UnitSystem(forceUnit, lengthUnit);
                importer.SetUnitSystem(profile.unitSystem_);
                importer.SetPosition(start);
            }
            profile.ReadProfile(importer);
            profiles_.push_back(std::move(profile));
            // What stands between two profiles is no piece of either.
            importer.SetSourceMap(nullptr);
            bool isLast = false;
            Terrix::SerializeProfileEnd(importer, isLast, true);
            if (isLast) return;
        } catch (...) {
            // Whatever fails, the importer stands at the start of the profile
            // that failed: a stream that breaks off inside a profile is an
            // error, never a shorter stream of good profiles.
            importer.SetSourceMap(nullptr);
            importer.SetPosition(start);
            // The lines of a profile go with the profile.
            if (profiles_.size() == held) {
                if (reading.lines) reading.lines->pop_back();
                if (reading.maps) reading.maps->pop_back();
            }
            throw;
        }
    }
}

void TerrixMultipleSoilProfiles::ImportJson(std::string_view text) { ReadJsonProfiles(text, boost::none); }

void TerrixMultipleSoilProfiles::ImportJson(std::string_view text, const std::string& forceUnit,
                                            const std::string& lengthUnit) {
    ReadJsonProfiles(text, UnitSystem(forceUnit, lengthUnit));
}

void TerrixMultipleSoilProfiles::ReadJsonProfiles(std::string_view text, const boost::optional<UnitSystem>& units) {
    const Json document = ParseJson(text);
    const std::string expected = "expected {\"profiles\": [PROFILE, ...]}";
    if (!document.is_object()) throw JsonImportError("The document: " + expected + ", found no object");
    for (auto member = document.begin(); member != document.end(); ++member)
        if (member.key() != "profiles")
            throw JsonImportError("The document: unknown key '" + member.key() + "' (" + expected + ")");
    if (!document.contains("profiles") || !document["profiles"].is_array())
        throw JsonImportError("The document: " + expected + ", found no list of profiles");
    std::vector<Terrix> read;
    for (const Json& profile : document["profiles"])
        read.push_back(ProfileFromJson(profile, "profile #" + std::to_string(read.size()), units.get_ptr()));
    for (Terrix& profile : read) profiles_.push_back(std::move(profile));
}

void TerrixMultipleSoilProfiles::Export(std::ostream& stream, const UnitSystem& units,
                                        std::list<std::string> headerLines) {
    WriteProfiles(stream, units, &headerLines, true);
}

void TerrixMultipleSoilProfiles::ExportWithOwnHeaders(std::ostream& stream, bool writeEndLine) {
    WriteProfiles(stream, boost::none, nullptr, writeEndLine);
}

void TerrixMultipleSoilProfiles::ExportWithOwnHeaders(std::ostream& stream, const UnitSystem& units,
                                                      bool writeEndLine) {
    WriteProfiles(stream, units, nullptr, writeEndLine);
}

void TerrixMultipleSoilProfiles::WriteProfiles(std::ostream& stream, const boost::optional<UnitSystem>& units,
                                               const std::list<std::string>* firstHeaderLines, bool writeEndLine) {
    for (std::size_t i = 0; i < profiles_.size(); ++i) {
        Terrix& profile = profiles_[i];
        const std::string header =
            firstHeaderLines ? (i == 0 ? Terrix::JoinLines(*firstHeaderLines) : "") : profile.header_;
        profile.WriteProfile(stream, units ? *units : profile.unitSystem_, header, i + 1 == profiles_.size(),
                             writeEndLine);
    }
}

void TerrixMultipleSoilProfiles::Export(std::ostream& stream, const std::string& forceUnit,
                                        const std::string& lengthUnit, const std::list<std::string>& headerLines) {
    Export(stream, UnitSystem(forceUnit, lengthUnit), headerLines);
}

}  // namespace TerrixExchange
