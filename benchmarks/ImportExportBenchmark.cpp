// Import and export against the floors of the machine, in one run, on two
// generated texts:
//  - stream: a thousand version 5 profiles one after another (about 22 MB),
//  - layered: one version 4 profile of 4,000 numbered layers with manual
//    curves of all six kinds for four diameters (about 14 MB).
// The figures printed at the end are ratios of CPU times taken side by side:
// the import of the text in memory (ImportText) against going over every line
// and against converting every number token with std::from_chars; the
// import of a stream against walking the stream's iterator alone; the export
// against writing every number with std::to_chars; reading and writing in
// pounds and feet against the same in kilonewtons and metres.

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/spirit/home/support/iterators/istream_iterator.hpp>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "Floors.h"
#include "LayeredProfileGenerator.h"
#include "ProfileGenerator.h"
#include "Ratios.h"

namespace TerrixExchange { namespace Benchmarks {
namespace {

enum class Text { Stream, Layered };

const std::uint32_t streamProfiles = 1000;
const int layeredLayers = 4000;

TerrixMultipleSoilProfiles& Profiles(Text which) {
    static TerrixMultipleSoilProfiles stream = GenerateProfiles(streamProfiles);
    static TerrixMultipleSoilProfiles layered = [] {
        TerrixMultipleSoilProfiles generated;
        generated.AddSoilProfile(GenerateLayeredProfile(layeredLayers));
        return generated;
    }();
    return which == Text::Stream ? stream : layered;
}

std::string Exported(Text which, const std::string& force, const std::string& length) {
    std::ostringstream out;
    Profiles(which).Export(out, force, length, {"Benchmark text", "Generated profiles"});
    return out.str();
}

const std::string& TextOf(Text which) {
    static const std::string stream = Exported(Text::Stream, "kN", "m");
    static const std::string layered = Exported(Text::Layered, "kN", "m");
    return which == Text::Stream ? stream : layered;
}

const std::vector<double>& NumbersOf(Text which) {
    static const std::vector<double> stream = ParseEveryNumber(TextOf(Text::Stream));
    static const std::vector<double> layered = ParseEveryNumber(TextOf(Text::Layered));
    return which == Text::Stream ? stream : layered;
}

void CountBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["text_MB"] = static_cast<double>(bytes) / (1024.0 * 1024.0);
}

void ReadEveryLine(benchmark::State& state, Text which) {
    const std::string& text = TextOf(which);
    for (auto _ : state) benchmark::DoNotOptimize(Benchmarks::ReadEveryLine(text));
    CountBytes(state, text.size());
}

void ParseEveryNumber(benchmark::State& state, Text which) {
    const std::string& text = TextOf(which);
    for (auto _ : state) benchmark::DoNotOptimize(Benchmarks::ParseEveryNumber(text).size());
    CountBytes(state, text.size());
}

// Every character through the multi-pass iterator that the import reads the
// stream with: the part of the import's time that the iterator takes.
void WalkStreamIterator(benchmark::State& state, Text which) {
    const std::string& text = TextOf(which);
    for (auto _ : state) {
        std::istringstream stream(text);
        stream.unsetf(std::ios::skipws);
        std::size_t sum = 0;
        for (boost::spirit::basic_istream_iterator<char> it(stream), end; it != end; ++it) sum += *it;
        benchmark::DoNotOptimize(sum);
    }
    CountBytes(state, text.size());
}

// The import of the text in memory, or (`fromStream`) of a stream that
// holds it.
void Import(benchmark::State& state, Text which, const std::string& force, const std::string& length,
            bool fromStream) {
    const std::string text = force == "kN" ? TextOf(which) : Exported(which, force, length);
    std::size_t profiles = 0;
    for (auto _ : state) {
        TerrixMultipleSoilProfiles imported;
        if (fromStream) {
            std::istringstream stream(text);
            imported.Import(stream, force, length);
        } else {
            imported.ImportText(text, force, length);
        }
        profiles = imported.GetSoilProfiles().size();
        benchmark::DoNotOptimize(profiles);
    }
    if (profiles != Profiles(which).GetSoilProfiles().size()) state.SkipWithError("the text did not read back");
    CountBytes(state, text.size());
}

void WriteEveryNumber(benchmark::State& state, Text which) {
    const std::vector<double>& numbers = NumbersOf(which);
    for (auto _ : state) benchmark::DoNotOptimize(Benchmarks::WriteEveryNumber(numbers).size());
    CountBytes(state, TextOf(which).size());
}

void Export(benchmark::State& state, Text which, const char* force, const char* length) {
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = Exported(which, force, length).size();
        benchmark::DoNotOptimize(bytes);
    }
    CountBytes(state, bytes);
}

#define TERRIX_TEXT_BENCHMARKS(name, which)                                                     \
    BENCHMARK_CAPTURE(ReadEveryLine, name, which)->Unit(benchmark::kMillisecond);              \
    BENCHMARK_CAPTURE(ParseEveryNumber, name, which)->Unit(benchmark::kMillisecond);           \
    BENCHMARK_CAPTURE(WalkStreamIterator, name, which)->Unit(benchmark::kMillisecond);         \
    BENCHMARK_CAPTURE(Import, name, which, "kN", "m", false)->Unit(benchmark::kMillisecond);     \
    BENCHMARK_CAPTURE(Import, name##_lbf_ft, which, "lbf", "ft", false)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(Import, name##_stream, which, "kN", "m", true)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(WriteEveryNumber, name, which)->Unit(benchmark::kMillisecond);           \
    BENCHMARK_CAPTURE(Export, name, which, "kN", "m")->Unit(benchmark::kMillisecond);            \
    BENCHMARK_CAPTURE(Export, name##_lbf_ft, which, "lbf", "ft")->Unit(benchmark::kMillisecond);

TERRIX_TEXT_BENCHMARKS(stream, Text::Stream)
TERRIX_TEXT_BENCHMARKS(layered, Text::Layered)

}  // namespace
}}  // namespace TerrixExchange::Benchmarks

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    TerrixExchange::Benchmarks::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const std::string text : {"stream", "layered"}) {
        std::printf("\n%s:\n", text.c_str());
        reporter.PrintRatio("  import from memory / every line read", "Import/" + text, "ReadEveryLine/" + text);
        reporter.PrintRatio("  import from memory / every number token through from_chars", "Import/" + text,
                            "ParseEveryNumber/" + text);
        reporter.PrintRatio("  import of a stream / walk of its multi-pass iterator", "Import/" + text + "_stream",
                            "WalkStreamIterator/" + text);
        reporter.PrintRatio("  walk of the stream's multi-pass iterator / from_chars", "WalkStreamIterator/" + text,
                            "ParseEveryNumber/" + text);
        reporter.PrintRatio("  import in lbf and ft / import in kN and m", "Import/" + text + "_lbf_ft",
                            "Import/" + text);
        reporter.PrintRatio("  export / every number through to_chars", "Export/" + text,
                            "WriteEveryNumber/" + text);
        reporter.PrintRatio("  export in lbf and ft / export in kN and m", "Export/" + text + "_lbf_ft",
                            "Export/" + text);
    }
    benchmark::Shutdown();
    return 0;
}
