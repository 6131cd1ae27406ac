// The queries of a large version 4 profile, as a host (or `terrix dump`)
// asks them: the layers split and merged, then every per-layer getter for
// every layer. Queries never cache, so each call reads the sections afresh.
//
// The profile: that of LayeredProfileGenerator.h with 1,000 numbered soil
// layers.

#include <cstdint>
#include <vector>

#include <benchmark/benchmark.h>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/queries/NamedQueries.h>

#include "LayeredProfileGenerator.h"

namespace TerrixExchange {
namespace Benchmarks {
namespace {

const int layerCount = 1000;

const Terrix& Profile() {
    static const Terrix profile = GenerateLayeredProfile(layerCount);
    return profile;
}

void GetLayersSplit(benchmark::State& state) {
    const Terrix& profile = Profile();
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
    const Terrix& profile = Profile();
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

BENCHMARK(GetLayersSplit)->Unit(benchmark::kMillisecond);
BENCHMARK(EveryPerLayerGetter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Benchmarks
}  // namespace TerrixExchange
