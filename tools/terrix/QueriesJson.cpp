#include "QueriesJson.h"

#include <exception>
#include <tuple>

#include "Findings.h"

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

// The curves and factors per pile diameter, in ascending diameter.
template <class Curves, class Modifications>
void AddCurvesAndModifications(const Curves& manualCurves, const Modifications& modifications, Json& json) {
    Json curves = Json::array();
    for (const auto& [diameter, curve] : manualCurves)
        curves.push_back(Json{{"diameter", JsonNumber(diameter)}, {"points", JsonOf(curve.points)}});
    Json factors = Json::array();
    for (const auto& [diameter, modification] : modifications)
        factors.push_back(Json{{"diameter", JsonNumber(diameter)}, {"factors", FactorsJson(modification)}});
    json["manualCurves"] = curves;
    json["modifications"] = factors;
}

template <class Curve, class Modification>
Json JsonOf(const BasicCodedCurveData<Curve, Modification>& data) {
    Json json{{"code", data.code}};
    AddCurvesAndModifications(data.manualCurves, data.modifications, json);
    return json;
}

template <class Curve, class Modification>
Json JsonOf(const BasicCurveData<Curve, Modification>& data) {
    Json json = Json::object();
    AddCurvesAndModifications(data.manualCurves, data.modifications, json);
    return json;
}

// Adds `key`: the answer of a getter of the profile, asked with `arguments`.
template <class Getter, class... Arguments>
void AddAnswer(Json& json, const char* key, const Terrix& profile, Getter getter, const Arguments&... arguments) {
    json[key] = Answer([&] { return JsonOf((profile.*getter)(arguments...)); });
}

// The curve data of one kind for a layer, as CurveKinds hands it out.
template <class Data, Data (Terrix::*getter)(const Layer&) const>
Json CurveAnswer(const Terrix& profile, const Layer& layer) {
    return Answer([&] { return JsonOf((profile.*getter)(layer)); });
}

Json LayerJson(const Terrix& profile, const Layer& layer) {
    Json json{{"mainLayer", layer.mainLayer},
              {"firstLayer", layer.firstLayer},
              {"layerCount", layer.layerCount},
              {"zTop", JsonNumber(layer.zTop)},
              {"zBottom", JsonNumber(layer.zBottom)}};
    AddAnswer(json, "SoilType", profile, &Terrix::GetSoilType, layer);
    AddAnswer(json, "Phi", profile, &Terrix::GetPhi, layer);
    AddAnswer(json, "Epsc", profile, &Terrix::GetEpsc, layer);
    AddAnswer(json, "OverConsolidationRatio", profile, &Terrix::GetOverConsolidationRatio, layer);
    AddAnswer(json, "APIJFactor", profile, &Terrix::GetAPIJFactor, layer);
    AddAnswer(json, "OpenGap", profile, &Terrix::GetOpenGap, layer);
    AddAnswer(json, "RPRatio", profile, &Terrix::GetRPRatio, layer);
    AddAnswer(json, "TZCurveZDisplacement", profile, &Terrix::GetTZCurveZDisplacement, layer);
    AddAnswer(json, "LayerUnitWeight", profile, &Terrix::GetLayerUnitWeight, layer);
    AddAnswer(json, "InitialModulus", profile, &Terrix::GetInitialModulus, layer);
    AddAnswer(json, "InitialSoilShearModulus", profile, &Terrix::GetInitialSoilShearModulus, layer);
    AddAnswer(json, "DSDiameterRatio", profile, &Terrix::GetDSDiameterRatio, layer);
    AddAnswer(json, "PoissonRatio", profile, &Terrix::GetPoissonRatio, layer);
    AddAnswer(json, "DTDiameterRatio", profile, &Terrix::GetDTDiameterRatio, layer);
    AddAnswer(json, "SUz", profile, &Terrix::GetSUz, layer);
    AddAnswer(json, "SkinCompression", profile, &Terrix::GetSkinCompression, layer);
    AddAnswer(json, "SkinTension", profile, &Terrix::GetSkinTension, layer);
    AddAnswer(json, "TipResistance", profile, &Terrix::GetTipResistance, layer);
    for (const CurveKind& kind : CurveKinds()) json[kind.key] = kind.answer(profile, layer);
    return json;
}

}  // namespace

Json ParametersJson(const Terrix& profile) {
    Json json = Json::object();
    AddAnswer(json, "WaterUnitWeight", profile, &Terrix::GetWaterUnitWeight);
    AddAnswer(json, "LowestLevelWithCyclicPY", profile, &Terrix::GetLowestLevelWithCyclicPY);
    AddAnswer(json, "LowestShearStiff", profile, &Terrix::GetLowestShearStiff);
    AddAnswer(json, "TanPhiCoeff", profile, &Terrix::GetTanPhiCoeff);
    AddAnswer(json, "ShearStrengthCoeff", profile, &Terrix::GetShearStrengthCoeff);
    AddAnswer(json, "SkinFrictionCoeff", profile, &Terrix::GetSkinFrictionCoeff);
    AddAnswer(json, "PileTipResistanceCoeff", profile, &Terrix::GetPileTipResistanceCoeff);
    AddAnswer(json, "DiameterCount", profile, &Terrix::GetDiameterCount);
    AddAnswer(json, "ModulusOfElasticity", profile, &Terrix::GetModulusOfElasticity);
    AddAnswer(json, "ModulusOfElasticitySlope", profile, &Terrix::GetModulusOfElasticitySlope);
    AddAnswer(json, "AveragePoissonRatio", profile, &Terrix::GetAveragePoissonRatio);
    AddAnswer(json, "ZSeafloor", profile, &Terrix::GetZSeafloor);
    AddAnswer(json, "DepthOfScour", profile, &Terrix::GetDepthOfScour);
    AddAnswer(json, "DepthOfLocalScour", profile, &Terrix::GetDepthOfLocalScour);
    AddAnswer(json, "SideSlope", profile, &Terrix::GetSideSlope);
    AddAnswer(json, "VerticalStressAtSurface", profile, &Terrix::GetVerticalStressAtSurface);
    AddAnswer(json, "VerticalStressUnderEmbankment", profile, &Terrix::GetVerticalStressUnderEmbankment);
    AddAnswer(json, "WidthOfEmbankmentSlopingPart", profile, &Terrix::GetWidthOfEmbankmentSlopingPart);
    AddAnswer(json, "DistancePileToEmbankmentToe", profile, &Terrix::GetDistancePileToEmbankmentToe);
    AddAnswer(json, "VerticalStressUnderCircularLoadedArea", profile,
              &Terrix::GetVerticalStressUnderCircularLoadedArea);
    AddAnswer(json, "RadiusOfCircularLoadedArea", profile, &Terrix::GetRadiusOfCircularLoadedArea);
    AddAnswer(json, "ZoneOfInfluenceTZ", profile, &Terrix::GetZoneOfInfluenceTZ);
    AddAnswer(json, "CurveShapeFactorTZ", profile, &Terrix::GetCurveShapeFactorTZ);
    return json;
}

Json LayersJson(const Terrix& profile, const SourceLines& lines, bool split) {
    if (const auto error = FindLayerDivisionError(profile, lines)) return Json{{"error", WithLine(*error)}};
    return Answer([&] {
        const std::vector<Layer> layers = profile.GetLayers(split);
        Json list = Json::array();
        for (const Layer& layer : layers) list.push_back(LayerJson(profile, layer));
        return list;
    });
}

const std::vector<CurveKind>& CurveKinds() {
    static const std::vector<CurveKind> kinds{
        {"PyData", "P-Y", true, FactorsJson(PyModification::defaultModification),
         &CurveAnswer<PyData, &Terrix::GetPyData>},
        {"TzData", "T-Z", true, FactorsJson(TzModification::defaultModification),
         &CurveAnswer<TzData, &Terrix::GetTzData>},
        {"QzData", "Q-Z", true, FactorsJson(QzModification::defaultModification),
         &CurveAnswer<QzData, &Terrix::GetQzData>},
        {"MthetaData", "M-theta", false, FactorsJson(MThetaModification::defaultModification),
         &CurveAnswer<MThetaData, &Terrix::GetMthetaData>},
        {"BSyData", "BS-Y", false, FactorsJson(BSYModification::defaultModification),
         &CurveAnswer<BSYData, &Terrix::GetBSyData>},
        {"BMthetaData", "BM-theta", false, FactorsJson(BMThetaModification::defaultModification),
         &CurveAnswer<BMThetaData, &Terrix::GetBMthetaData>},
    };
    return kinds;
}

const char* SoilTypeName(Terrix::SoilType type) {
    switch (type) {
        case Terrix::SoilType::Sand:
            return "Sand";
        case Terrix::SoilType::Clay:
            return "Clay";
        case Terrix::SoilType::Undefined:
            break;
    }
    return "Undefined";
}

}  // namespace TerrixTool
