// The queries of a large version 4 profile (LayeredProfileGenerator.h) at 1,000 and
// 4,000 numbered layers, as a host (or `terrix dump`) asks them: the layers
// split and merged, then every per-layer getter for every layer. Queries
// never cache, so each getter scans the sections afresh; a call that asks
// every layer at once (ForEachLayerAnswer) indexes them once. The figure is
// how the time grows with the number of layers: an exponent near 1 is linear.

#include <map>
#include <vector>

#include <benchmark/benchmark.h>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/NamedQueries.h>

#include "LayeredProfileGenerator.h"

#include "Ratios.h"

namespace TerrixExchange {
namespace Benchmarks {
namespace {

const Terrix& Profile(int layerCount) {
    static std::map<int, Terrix> profiles;
    auto found = profiles.find(layerCount);
    if (found == profiles.end()) found = profiles.emplace(layerCount, GenerateLayeredProfile(layerCount)).first;
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
        for (const Layer& layer : layers)
            ForEachLayerQuery([&](const char*, auto getter) { benchmark::DoNotOptimize((profile.*getter)(layer)); });
    }
    state.counters["layers"] = static_cast<double>(layers.size());
    // The time of one layer's getters.
    state.counters["per_layer"] =
        benchmark::Counter(static_cast<double>(layers.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The same answers asked in one call, which indexes the sections once for
// all the layers: what `terrix dump` and `terrix report` do.
void EveryAnswerInOneCall(benchmark::State& state) {
    const Terrix& profile = Profile(static_cast<int>(state.range(0)));
    const std::vector<Layer> layers = profile.GetLayers(true);
    for (auto _ : state)
        ForEachLayerAnswer(profile, layers,
                           [](const Layer&, const char*, auto answer) { benchmark::DoNotOptimize(answer()); });
    state.counters["layers"] = static_cast<double>(layers.size());
    state.counters["per_layer"] =
        benchmark::Counter(static_cast<double>(layers.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(GetLayersSplit)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(EveryPerLayerGetter)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(EveryAnswerInOneCall)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

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
    reporter.PrintGrowth("GetLayers(true) and every answer in one call, 1,000 to 4,000 layers",
                         {"GetLayersSplit/1000", "EveryAnswerInOneCall/1000"},
                         {"GetLayersSplit/4000", "EveryAnswerInOneCall/4000"}, 4.0);
    benchmark::Shutdown();
    return 0;
}
