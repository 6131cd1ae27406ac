// Reading numbers of every length in units that are no power of ten: a
// number in pounds and feet against the same number in newtons and metres,
// the floor (there the decimal point only moves). The figure is the ratio
// of the two, measured in the same run; it stays the same however long the
// number, since both take time linear in its length.

#include <chrono>
#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

#include <TerrixExchange/archive/NumberText.h>
#include <TerrixPlatform/Units/Runtime/Phenomena.h>
#include <TerrixPlatform/Units/Runtime/UnitSystem.h>

namespace TerrixExchange { namespace Benchmarks {
namespace {

using Clock = std::chrono::steady_clock;

void ReadLongNumber(benchmark::State& state) {
    const std::string text = "676.338932466681666134865335218" + std::string(state.range(0), '0') + "1";
    const auto dimension = Units::Runtime::StressPhenomenon::dimension;
    const Units::Runtime::UnitRatio newtonMetre = Units::Runtime::UnitSystem("N", "m").GetSize(dimension);
    const Units::Runtime::UnitRatio poundFoot = Units::Runtime::UnitSystem("lbf", "ft").GetSize(dimension);
    Clock::duration floor{};
    Clock::duration measured{};
    double value = 0.0;
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        ParseReal(text, value, newtonMetre);
        const Clock::time_point middle = Clock::now();
        ParseReal(text, value, poundFoot);
        measured += Clock::now() - middle;
        floor += middle - start;
        benchmark::DoNotOptimize(value);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size() * 2));
    state.counters["digits"] = static_cast<double>(text.size());
    state.counters["lbf_ft_over_N_m"] = std::chrono::duration<double>(measured).count() /
                                        std::chrono::duration<double>(floor).count();
}

BENCHMARK(ReadLongNumber)->Arg(1000)->Arg(100000)->Arg(400000)->Unit(benchmark::kMillisecond);

}  // namespace
}}  // namespace TerrixExchange::Benchmarks
