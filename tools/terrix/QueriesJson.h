#pragma once

// What the library answers about a profile, as JSON: the profile-wide
// parameters and the computational layers with every per-layer answer. The
// dump writes it; show prints it for people, so the two always agree.

#include <type_traits>
#include <utility>
#include <vector>

#include <TerrixExchange/archive/SourceLines.h>
#include <TerrixExchange/document/Terrix.h>

#include "Json.h"

namespace TerrixTool {

// Every profile-wide getter, keyed by its name without "Get"
// ("WaterUnitWeight", "ZSeafloor", ...), in the order of the library's
// ForEachProfileQuery. A getter that throws is {"error": its message}.
Json ParametersJson(const TerrixExchange::Terrix& profile);

// The layers of GetLayers(split), or {"error": its message} when that call
// throws. Layer divisions that run backwards or cover more numbered layers
// than a profile can have are {"error": "line N: ..."}
// (FindLayerDivisionError of the library): GetLayers is not asked then. Each
// layer has mainLayer, firstLayer, layerCount, zTop and zBottom, then every
// per-layer getter of ForEachLayerQuery keyed by its name; a getter that
// throws is {"error": its message} in its place, the other keys still filled.
// An ordered map is an array of [key, value] pairs in ascending key order;
// curve data are {"code", "manualCurves", "modifications"}, "code" only for
// the kinds that have one (P-Y, T-Z, Q-Z).
Json LayersJson(const TerrixExchange::Terrix& profile, const TerrixExchange::SourceLines& lines, bool split);

// The same for a page that draws the curves from the library's own values
// (report): curve data only in brief, {"code", "manualCurves",
// "modifications"} with the pile diameters alone, and `layers` set to the
// layers asked (empty when they are an error).
Json LayersJsonInBrief(const TerrixExchange::Terrix& profile, const TerrixExchange::SourceLines& lines, bool split,
                       std::vector<TerrixExchange::Layer>& layers);

// Whether an answer is curve data: manual curves and modifications per pile
// diameter.
template <class Answer, class = void>
struct IsCurveData : std::false_type {};
template <class Answer>
struct IsCurveData<Answer, std::void_t<decltype(std::declval<Answer>().manualCurves)>> : std::true_type {};

// The six kinds of curve data of a layer, in the order of LayersJson: the
// key of its answer ("PyData", ..., "BMthetaData"), its name for people
// ("P-Y", "M-theta"), whether its data carry a curve code, and the factors
// that leave a curve of the kind as it is (as LayersJson writes factors).
struct CurveKind {
    const char* key;
    const char* name;
    bool hasCode;
    Json identityFactors;
};
const std::vector<CurveKind>& CurveKinds();

}  // namespace TerrixTool
