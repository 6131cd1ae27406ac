// Import and export of a stream of about a thousand soil profiles, in
// megabytes of text per second, with the peak heap of an import.

#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <new>
#include <sstream>
#include <string>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "ProfileGenerator.h"

// The heap of the whole program, counted in the global operator new and
// delete: the library's own objects, the importer's buffer and the standard
// containers alike.
namespace {
std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

void* CountedNew(std::size_t size) {
    void* pointer = std::malloc(size == 0 ? 1 : size);
    if (pointer == nullptr) throw std::bad_alloc();
    liveBytes += malloc_usable_size(pointer);
    if (liveBytes > peakBytes) peakBytes = liveBytes;
    return pointer;
}

void CountedDelete(void* pointer) noexcept {
    if (pointer == nullptr) return;
    liveBytes -= malloc_usable_size(pointer);
    std::free(pointer);
}
}  // namespace

void* operator new(std::size_t size) { return CountedNew(size); }
void* operator new[](std::size_t size) { return CountedNew(size); }
void operator delete(void* pointer) noexcept { CountedDelete(pointer); }
void operator delete[](void* pointer) noexcept { CountedDelete(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { CountedDelete(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { CountedDelete(pointer); }

namespace TerrixExchange { namespace Benchmarks {
namespace {

const std::uint32_t profileCount = 1000;
const double megabyte = 1024.0 * 1024.0;

TerrixMultipleSoilProfiles& Profiles() {
    static TerrixMultipleSoilProfiles profiles = GenerateProfiles(profileCount);
    return profiles;
}

const std::string& StreamText() {
    static const std::string text = [] {
        std::ostringstream stream;
        Profiles().Export(stream, "kN", "m", streamHeaderLines);
        return stream.str();
    }();
    return text;
}

void ExportStream(benchmark::State& state) {
    TerrixMultipleSoilProfiles& profiles = Profiles();
    std::size_t bytes = 0;
    for (auto _ : state) {
        std::ostringstream stream;
        profiles.Export(stream, "kN", "m", streamHeaderLines);
        bytes = stream.str().size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["profiles"] = static_cast<double>(profiles.GetSoilProfiles().size());
    state.counters["text_MB"] = static_cast<double>(bytes) / megabyte;
}

// Units deduced from each profile, as a host reads a file of unknown units.
void ImportStream(benchmark::State& state) {
    const std::string& text = StreamText();
    std::size_t profiles = 0;
    double peakImportMB = 0.0;
    for (auto _ : state) {
        std::istringstream stream(text);
        const std::size_t before = liveBytes;
        peakBytes = liveBytes;
        TerrixMultipleSoilProfiles imported;
        imported.Import(stream);
        profiles = imported.GetSoilProfiles().size();
        // Everything the import took at its peak, the profiles it returns
        // included, beyond the input text that the caller holds.
        peakImportMB = static_cast<double>(peakBytes - before) / megabyte;
        benchmark::DoNotOptimize(profiles);
    }
    if (profiles != profileCount) state.SkipWithError("the stream did not read back");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
    state.counters["profiles"] = static_cast<double>(profiles);
    state.counters["text_MB"] = static_cast<double>(text.size()) / megabyte;
    state.counters["peak_import_heap_MB"] = peakImportMB;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["process_max_rss_MB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

BENCHMARK(ExportStream)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(ImportStream)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
}}  // namespace TerrixExchange::Benchmarks

BENCHMARK_MAIN();
