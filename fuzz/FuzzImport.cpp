// libFuzzer target: any bytes read as a stream of TERRIX profiles, once in
// named units and once with the units deduced from each control section.
// Reading ends in profiles or in one std::runtime_error, never in a crash,
// a hang, a leak or undefined behaviour (the target is built with
// AddressSanitizer and UndefinedBehaviorSanitizer). A profile that was read
// is written, read back and written again: the profile read back is the
// same, the second text the same as the first. Then every query is asked;
// a query may fail with its std::runtime_error and with nothing else, and
// the answers of all layers asked in one call are those of the getters. A
// profile in which the strict check finds no error answers every query of
// its split layers. The profiles read are written to JSON and read back as
// the same profiles, and written over the text they came from they give that
// text back. The bytes are read as JSON too, where they end in profiles or in
// one error.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstdio>
#include <list>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <TerrixExchange/archive/JsonExporter.h>
#include <TerrixExchange/archive/JsonFormat.h>
#include <TerrixExchange/archive/JsonImporter.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixExchange/queries/NamedQueries.h>
#include <TerrixExchange/queries/SoundnessCheck.h>

#include "../tests/AnswersOfAllLayers.h"

using namespace TerrixExchange;

namespace {

void Require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "terrix fuzz: %s\n", what);
    std::abort();
}

std::list<std::string> HeaderLines(const Terrix& profile) {
    std::list<std::string> lines;
    std::istringstream header(profile.GetHeader());
    for (std::string line; std::getline(header, line);) lines.push_back(line);
    return lines;
}

std::string Written(Terrix profile) {
    std::ostringstream text;
    profile.Export(text, profile.GetUnitSystem(), HeaderLines(profile), true);
    return text.str();
}

template <class Query>
void Ask(Query query) {
    // A query may fail with its own std::runtime_error ("Unknown layer",
    // "Manual PY curve not defined", ...) and with nothing else.
    Testing::OutcomeOf(query);
}

// Whether the strict check finds an error in the profile.
bool HasStrictError(const Terrix& profile) {
    for (const SoundnessFinding& finding : FindUnsoundValues(profile, SourceLines()))
        if (finding.severity == SoundnessFinding::Severity::Error) return true;
    return false;
}

// What the strict check promises: a profile in which it finds no error
// gives its layers, split, and every answer of each of them.
void RequireEveryLayerAnswer(const Terrix& p) {
    Require(!FindLayerDivisionError(p, SourceLines()), "strict finds no error, but the divisions cannot be split");
    std::vector<Layer> layers;
    try {
        layers = p.GetLayers(true);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "terrix fuzz: GetLayers(true): %s\n", error.what());
        Require(false, "strict finds no error, but GetLayers(true) fails");
    }
    ForEachLayerAnswer(p, layers, [&](const Layer& layer, const char* name, auto answer) {
        try {
            answer();
        } catch (const std::runtime_error& error) {
            std::fprintf(stderr, "terrix fuzz: layer %d, %s: %s\n", static_cast<int>(layer.firstLayer), name,
                         error.what());
            Require(false, "strict finds no error, but an answer of a layer fails");
        }
    });
}

// Every query of the library's lists. Splitting divisions that run
// backwards or count more layers than a profile can have would never end,
// so those are split only when the library's check finds nothing. The
// answers of all layers in one call are those of the getters.
void AskEverything(const Terrix& p) {
    ForEachProfileQuery([&](const char*, auto getter) { Ask([&] { return (p.*getter)(); }); });
    std::vector<Layer> layers;
    Ask([&] { return layers = p.GetLayers(false); });
    if (!FindLayerDivisionError(p, SourceLines())) Ask([&] { return layers = p.GetLayers(true); });
    Require(Testing::FirstAnswerUnlikeTheGetters(p, layers).empty(),
            "the answers of all layers in one call differ from the getters'");
    if (!HasStrictError(p)) RequireEveryLayerAnswer(p);
}

// Reads the text from a stream, or from memory; the error, or "".
std::string ReadProfiles(const std::string& text, bool deduceUnits, bool fromMemory,
                         TerrixMultipleSoilProfiles& profiles, std::vector<SourceLines>& lines) {
    std::istringstream stream(text);
    try {
        if (fromMemory && deduceUnits) profiles.ImportText(text, lines);
        else if (fromMemory) profiles.ImportText(text, "kN", "m", lines);
        else if (deduceUnits) profiles.Import(stream, lines);
        else profiles.Import(stream, "kN", "m", lines);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

void ReadWriteAndAsk(const std::string& text, bool deduceUnits) {
    TerrixMultipleSoilProfiles profiles;
    std::vector<SourceLines> lines;
    const std::string error = ReadProfiles(text, deduceUnits, false, profiles, lines);
    // A text in memory reads as the stream that holds it.
    TerrixMultipleSoilProfiles inMemory;
    std::vector<SourceLines> linesInMemory;
    Require(ReadProfiles(text, deduceUnits, true, inMemory, linesInMemory) == error,
            "the text read from memory gives another error than from a stream");
    Require(linesInMemory == lines && inMemory.GetSoilProfiles().size() == profiles.GetSoilProfiles().size(),
            "the text read from memory gives other profiles than from a stream");
    for (std::size_t i = 0; i < profiles.GetSoilProfiles().size(); ++i)
        Require(WriteJson(DescribeProfile(inMemory.GetSoilProfiles()[i])) ==
                    WriteJson(DescribeProfile(profiles.GetSoilProfiles()[i])),
                "the text read from memory gives other profiles than from a stream");
    if (!error.empty()) return;  // the one error of a malformed file
    // Unchanged, the profiles written over their own text give it back: the
    // text read is the input up to the end of the last profile.
    std::ostringstream kept;
    const bool keptLines = TerrixMultipleSoilProfiles(profiles).ExportKeepingLines(kept, text);
    Require(keptLines && kept.str() == text, "the profiles written over their text do not give it back");
    for (const Terrix& profile : profiles.GetSoilProfiles()) {
        Require(profile.FindInconsistencies().empty(), "a profile read is inconsistent");
        TerrixMultipleSoilProfiles fromJson;
        fromJson.ImportJson(WriteJson(Json{{"profiles", Json::array({DescribeProfile(profile)})}}));
        Require(Written(fromJson.GetSoilProfiles().at(0)) == Written(profile), "the profile read from its JSON differs");
        const std::string first = Written(profile);
        Terrix back;
        std::istringstream again(first);
        const Units::Runtime::UnitSystem& units = profile.GetUnitSystem();
        back.Import(again, units.GetForceUnitName(), units.GetLengthUnitName());
        // A NaN equals nothing, not even itself; the texts still must agree.
        if (first.find("NaN") == std::string::npos) {
            Require(back.GetVersion() == profile.GetVersion(), "the version read back differs");
            Require(back.GetTerrixInputData() == profile.GetTerrixInputData(), "the sections read back differ");
            Require(back.GetHeader() == profile.GetHeader(), "the header read back differs");
        }
        Require(Written(back) == first, "the second export differs from the first");
        AskEverything(profile);
    }
}

}  // namespace

// JSON: profiles, each written as text, or the one error of bad JSON.
void ReadJson(const std::string& text) {
    TerrixMultipleSoilProfiles profiles;
    try {
        profiles.ImportJson(text);
    } catch (const std::runtime_error&) {
        Require(profiles.GetSoilProfiles().empty(), "bad JSON left profiles behind");
        return;
    }
    for (const Terrix& profile : profiles.GetSoilProfiles()) Written(profile);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (IsJsonText(text)) {
        ReadJson(text);
        return 0;
    }
    ReadWriteAndAsk(text, false);
    ReadWriteAndAsk(text, true);
    return 0;
}
