// libFuzzer target: any bytes read as a stream of TERRIX profiles, once in
// named units and once with the units deduced from each control section.
// Reading ends in profiles or in one std::runtime_error, never in a crash,
// a hang, a leak or undefined behaviour (the target is built with
// AddressSanitizer and UndefinedBehaviorSanitizer). A profile that was read
// is written, read back and written again: the profile read back is the
// same, the second text the same as the first. Then every query is asked;
// a query may fail with its std::runtime_error and with nothing else.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstdio>
#include <list>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

using namespace TerrixExchange;

namespace {

// More numbered layers than any profile has (as the terrix tool takes it):
// splitting divisions that run backwards or count more would never end.
const std::uint64_t maximumNumberedLayers = 1000000;

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

bool SplitsSafely(const Terrix& profile) {
    if (profile.GetVersion() != Version::V4) return true;
    std::uint64_t covered = 0;
    for (const auto& division : profile.GetTerrixInputData().soilLayerDivisionsAndCodesForPyTzQzSection.records) {
        if (division.LAYER2 < division.LAYER1) return false;
        covered += division.GetSublayerCount();
        if (covered > maximumNumberedLayers) return false;
    }
    return true;
}

template <class Query>
void Ask(Query query) {
    try {
        query();
    } catch (const std::runtime_error&) {
        // A query's own failure ("Unknown layer", "Manual PY curve not defined", ...).
    }
}

void AskEverything(const Terrix& p) {
    Ask([&] { p.GetWaterUnitWeight(); p.GetLowestLevelWithCyclicPY(); p.GetLowestShearStiff(); });
    Ask([&] { p.GetTanPhiCoeff(); p.GetShearStrengthCoeff(); p.GetSkinFrictionCoeff(); p.GetPileTipResistanceCoeff(); });
    Ask([&] { p.GetDiameterCount(); p.GetModulusOfElasticity(); p.GetModulusOfElasticitySlope(); });
    Ask([&] { p.GetAveragePoissonRatio(); p.GetZSeafloor(); p.GetDepthOfScour(); p.GetDepthOfLocalScour(); });
    Ask([&] { p.GetSideSlope(); p.GetVerticalStressAtSurface(); p.GetVerticalStressUnderEmbankment(); });
    Ask([&] { p.GetWidthOfEmbankmentSlopingPart(); p.GetDistancePileToEmbankmentToe(); });
    Ask([&] { p.GetVerticalStressUnderCircularLoadedArea(); p.GetRadiusOfCircularLoadedArea(); });
    Ask([&] { p.GetZoneOfInfluenceTZ(); p.GetCurveShapeFactorTZ(); });
    std::vector<Layer> layers;
    Ask([&] { layers = p.GetLayers(false); });
    if (SplitsSafely(p)) Ask([&] { layers = p.GetLayers(true); });
    for (const Layer& layer : layers) {
        Ask([&] { p.GetSoilType(layer); });
        Ask([&] { p.GetPhi(layer); });
        Ask([&] { p.GetEpsc(layer); });
        Ask([&] { p.GetOverConsolidationRatio(layer); });
        Ask([&] { p.GetAPIJFactor(layer); });
        Ask([&] { p.GetOpenGap(layer); });
        Ask([&] { p.GetRPRatio(layer); });
        Ask([&] { p.GetTZCurveZDisplacement(layer); });
        Ask([&] { p.GetLayerUnitWeight(layer); });
        Ask([&] { p.GetInitialModulus(layer); });
        Ask([&] { p.GetInitialSoilShearModulus(layer); });
        Ask([&] { p.GetDSDiameterRatio(layer); });
        Ask([&] { p.GetPoissonRatio(layer); });
        Ask([&] { p.GetDTDiameterRatio(layer); });
        Ask([&] { p.GetSkinCompression(layer); });
        Ask([&] { p.GetSkinTension(layer); });
        Ask([&] { p.GetTipResistance(layer); });
        Ask([&] { p.GetSUz(layer); });
        Ask([&] { p.GetPyData(layer); });
        Ask([&] { p.GetTzData(layer); });
        Ask([&] { p.GetQzData(layer); });
        Ask([&] { p.GetMthetaData(layer); });
        Ask([&] { p.GetBSyData(layer); });
        Ask([&] { p.GetBMthetaData(layer); });
    }
}

void ReadWriteAndAsk(const std::string& text, bool deduceUnits) {
    TerrixMultipleSoilProfiles profiles;
    std::istringstream stream(text);
    try {
        if (deduceUnits) profiles.Import(stream);
        else profiles.Import(stream, "kN", "m");
    } catch (const std::runtime_error&) {
        return;  // the one error of a malformed file
    }
    for (const Terrix& profile : profiles.GetSoilProfiles()) {
        Require(profile.FindInconsistencies().empty(), "a profile read is inconsistent");
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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    ReadWriteAndAsk(text, false);
    ReadWriteAndAsk(text, true);
    return 0;
}
