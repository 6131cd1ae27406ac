// The queries of a large version 4 profile (LayeredProfile.h) at 1,000 and
// 4,000 numbered layers, as a host (or `terrix dump`) asks them: the layers
// split and merged, then every per-layer getter for every layer. Queries
// never cache, so each call reads the sections afresh. The figure is how
// the time grows with the number of layers: an exponent near 1 is linear.

#include <map>
#include <vector>

#include <benchmark/benchmark.h>

#include <TerrixExchange/document/Terrix.h>

#include "LayeredProfile.h"
#include "Ratios.h"

namespace TerrixExchange {
namespace Benchmarks {
namespace {

const Terrix& Profile(int layerCount) {
    static std::map<int, Terrix> profiles;
    auto found = profiles.find(layerCount);
    if (found == profiles.end()) found = profiles.emplace(layerCount, LayeredProfile::Generate(layerCount)).first;
    return found->second;
}

void GetLayersSplit(benchmark::State& state) {
    const int layerCount = static_cast<int>(state.range(0));
    const Terrix& profile = Profile(layerCount);
    std::size_t layers = 0;
    for (auto _ : state) {
        const std::vector<Layer> split = profile.GetLayers(true);
        layers = split.size();
        benchmark::DoNotOptimize(layers);
    }
    state.counters["numbered_layers"] = layerCount;
    state.counters["layers"] = static_cast<double>(layers);
}

// What `terrix dump` asks of each layer: the soil properties, the four
// tables and the six curve data.
void EveryPerLayerGetter(benchmark::State& state) {
    const Terrix& profile = Profile(static_cast<int>(state.range(0)));
    const std::vector<Layer> layers = profile.GetLayers(true);
    for (auto _ : state) {
        for (const Layer& layer : layers) {
            benchmark::DoNotOptimize(profile.GetSoilType(layer));
            benchmark::DoNotOptimize(profile.GetPhi(layer));
            benchmark::DoNotOptimize(profile.GetEpsc(layer));
            benchmark::DoNotOptimize(profile.GetOverConsolidationRatio(layer));
            benchmark::DoNotOptimize(profile.GetAPIJFactor(layer));
            benchmark::DoNotOptimize(profile.GetOpenGap(layer));
            benchmark::DoNotOptimize(profile.GetRPRatio(layer));
            benchmark::DoNotOptimize(profile.GetTZCurveZDisplacement(layer));
            benchmark::DoNotOptimize(profile.GetLayerUnitWeight(layer));
            benchmark::DoNotOptimize(profile.GetInitialModulus(layer));
            benchmark::DoNotOptimize(profile.GetInitialSoilShearModulus(layer));
            benchmark::DoNotOptimize(profile.GetDSDiameterRatio(layer));
            benchmark::DoNotOptimize(profile.GetPoissonRatio(layer));
            benchmark::DoNotOptimize(profile.GetDTDiameterRatio(layer));
            benchmark::DoNotOptimize(profile.GetSUz(layer));
            benchmark::DoNotOptimize(profile.GetSkinCompression(layer));
            benchmark::DoNotOptimize(profile.GetSkinTension(layer));
            benchmark::DoNotOptimize(profile.GetTipResistance(layer));
            benchmark::DoNotOptimize(profile.GetPyData(layer));
            benchmark::DoNotOptimize(profile.GetTzData(layer));
            benchmark::DoNotOptimize(profile.GetQzData(layer));
            benchmark::DoNotOptimize(profile.GetMthetaData(layer));
            benchmark::DoNotOptimize(profile.GetBSyData(layer));
            benchmark::DoNotOptimize(profile.GetBMthetaData(layer));
        }
    }
    state.counters["layers"] = static_cast<double>(layers.size());
    // The time of one layer's getters.
    state.counters["per_layer"] =
        benchmark::Counter(static_cast<double>(layers.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(GetLayersSplit)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(EveryPerLayerGetter)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Benchmarks
}  // namespace TerrixExchange

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    TerrixExchange::Benchmarks::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintGrowth("GetLayers(true) and every getter, 1,000 to 4,000 layers",
                         {"GetLayersSplit/1000", "EveryPerLayerGetter/1000"},
                         {"GetLayersSplit/4000", "EveryPerLayerGetter/4000"}, 4.0);
    benchmark::Shutdown();
    return 0;
}
