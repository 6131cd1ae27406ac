#include "QueriesJson.h"

#include <exception>
#include <tuple>

#include <TerrixExchange/queries/LayerDivisionCheck.h>
#include <TerrixExchange/queries/NamedQueries.h>

namespace TerrixTool {

using namespace TerrixExchange;

namespace {

// The answer of one query, or {"error": MESSAGE} when it throws: one failing
// getter never hides the answers of the others.
template <class Query>
Json Answer(Query query) {
    try {
        return query();
    } catch (const std::exception& error) {
        return Json{{"error", error.what()}};
    }
}

Json JsonOf(double value) { return JsonNumber(value); }
Json JsonOf(bool value) { return Json(value); }
Json JsonOf(std::uint64_t value) { return JsonNumber(value); }
Json JsonOf(Terrix::SoilType type) { return SoilTypeName(type); }
template <class Phenomenon>
Json JsonOf(Units::Runtime::Quantity<Phenomenon> value) {
    return JsonNumber(value);
}
template <class Value>
Json JsonOf(const boost::optional<Value>& value) {
    return JsonNumber(value);
}

// An ordered map as [key, value] pairs, in its (ascending) key order.
template <class Key, class Value>
Json JsonOf(const std::map<Key, Value>& map) {
    Json pairs = Json::array();
    for (const auto& entry : map) pairs.push_back(Json::array({JsonNumber(entry.first), JsonNumber(entry.second)}));
    return pairs;
}

template <class Modification>
Json FactorsJson(const Modification& modification) {
    Json factors = Json::array();
    std::apply([&](const auto&... factor) { (factors.push_back(JsonNumber(factor)), ...); },
               Modification::Factors(modification));
    return factors;
}

// Curve data start with their code, for the kinds that have one.
template <class Curve, class Modification>
Json CodeJson(const BasicCodedCurveData<Curve, Modification>& data) {
    return Json{{"code", data.code}};
}

template <class Curve, class Modification>
Json CodeJson(const BasicCurveData<Curve, Modification>&) {
    return Json::object();
}

// Curve data: the code, then the curves and the factors per pile diameter,
// in ascending diameter.
template <class Data, class = std::enable_if_t<IsCurveData<Data>::value>>
Json JsonOf(const Data& data) {
    Json json = CodeJson(data);
    Json curves = Json::array();
    for (const auto& [diameter, curve] : data.manualCurves)
        curves.push_back(Json{{"diameter", JsonNumber(diameter)}, {"points", JsonOf(curve.points)}});
    Json factors = Json::array();
    for (const auto& [diameter, modification] : data.modifications)
        factors.push_back(Json{{"diameter", JsonNumber(diameter)}, {"factors", FactorsJson(modification)}});
    json["manualCurves"] = curves;
    json["modifications"] = factors;
    return json;
}

// An answer as the report's table needs it: curve data in brief, the code
// and the diameters of the curves and of the factors; any other answer whole.
template <class Answer>
Json BriefJsonOf(const Answer& answer) {
    if constexpr (IsCurveData<Answer>::value) {
        auto diametersOf = [](const auto& byDiameter) {
            Json diameters = Json::array();
            for (const auto& entry : byDiameter) diameters.push_back(JsonNumber(entry.first));
            return diameters;
        };
        Json json = CodeJson(answer);
        json["manualCurves"] = diametersOf(answer.manualCurves);
        json["modifications"] = diametersOf(answer.modifications);
        return json;
    } else {
        return JsonOf(answer);
    }
}

// Adds `key`: the answer of a getter of the profile, asked with `arguments`.
template <class Getter, class... Arguments>
void AddAnswer(Json& json, const char* key, const Terrix& profile, Getter getter, const Arguments&... arguments) {
    json[key] = Answer([&] { return JsonOf((profile.*getter)(arguments...)); });
}

Json LayerJson(const Layer& layer) {
    return Json{{"mainLayer", layer.mainLayer},
                {"firstLayer", layer.firstLayer},
                {"layerCount", layer.layerCount},
                {"zTop", JsonNumber(layer.zTop)},
                {"zBottom", JsonNumber(layer.zBottom)}};
}

}  // namespace

Json ParametersJson(const Terrix& profile) {
    Json json = Json::object();
    ForEachProfileQuery([&](const char* key, auto getter) { AddAnswer(json, key, profile, getter); });
    return json;
}

namespace {

// The layers and their answers, each answer as `toJson` writes it; `asked`
// set to the layers.
template <class ToJson>
Json LayersJsonOf(const Terrix& profile, const SourceLines& lines, bool split, std::vector<Layer>& asked,
                  ToJson toJson) {
    asked.clear();
    if (const auto error = FindLayerDivisionError(profile, lines)) return Json{{"error", error->WithLine()}};
    return Answer([&] {
        asked = profile.GetLayers(split);
        Json list = Json::array();
        for (const Layer& layer : asked) list.push_back(LayerJson(layer));
        // All layers' answers in one call, which indexes the sections once.
        ForEachLayerAnswer(profile, asked, [&](const Layer& layer, const char* key, auto answer) {
            list[static_cast<std::size_t>(&layer - asked.data())][key] = Answer([&] { return toJson(answer()); });
        });
        return list;
    });
}

}  // namespace

Json LayersJson(const Terrix& profile, const SourceLines& lines, bool split) {
    std::vector<Layer> layers;
    return LayersJsonOf(profile, lines, split, layers, [](const auto& answer) { return JsonOf(answer); });
}

Json LayersJsonInBrief(const Terrix& profile, const SourceLines& lines, bool split, std::vector<Layer>& layers) {
    return LayersJsonOf(profile, lines, split, layers, [](const auto& answer) { return BriefJsonOf(answer); });
}

const std::vector<CurveKind>& CurveKinds() {
    static const std::vector<CurveKind> kinds{
        {"PyData", "P-Y", true, FactorsJson(PyModification::defaultModification)},
        {"TzData", "T-Z", true, FactorsJson(TzModification::defaultModification)},
        {"QzData", "Q-Z", true, FactorsJson(QzModification::defaultModification)},
        {"MthetaData", "M-theta", false, FactorsJson(MThetaModification::defaultModification)},
        {"BSyData", "BS-Y", false, FactorsJson(BSYModification::defaultModification)},
        {"BMthetaData", "BM-theta", false, FactorsJson(BMThetaModification::defaultModification)},
    };
    return kinds;
}

}  // namespace TerrixTool
