// The files of the Python module's benchmark (python_benchmark.py), and the
// time of the C++ import it is compared with:
//
//   terrix_python_benchmark_files DIR
//
// writes DIR/stream.terrix, the benchmarks' stream of 1,000 generated
// profiles, and DIR/layers-2000.terrix, the large version 4 profile of the
// query benchmark with 4,000 numbered layers (2,000 layers once split and
// joined), then prints the best of five imports of the stream from memory,
// with the units deduced per profile: as a host imports it, and noting the
// source lines as terrix and the Python module import it.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

#include "LayeredProfileGenerator.h"
#include "ProfileGenerator.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Benchmarks;

namespace {

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file) throw std::runtime_error(path + ": cannot write");
}

template <class Import>
double BestMilliseconds(const std::string& text, Import import) {
    double best = 1e300;
    for (int run = 0; run < 5; ++run) {
        std::istringstream stream(text);
        TerrixMultipleSoilProfiles profiles;
        const auto start = std::chrono::steady_clock::now();
        import(stream, profiles);
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count());
    }
    return best;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: terrix_python_benchmark_files DIR\n";
        return 2;
    }
    const std::string dir = argv[1];
    std::ostringstream stream;
    GenerateProfiles(1000).Export(stream, "kN", "m", streamHeaderLines);
    const std::string text = stream.str();
    WriteFile(dir + "/stream.terrix", text);
    std::ostringstream layered;
    GenerateLayeredProfile(4000).Export(layered, "kN", "m", {"Benchmark profile of 4,000 numbered layers"}, true);
    WriteFile(dir + "/layers-2000.terrix", layered.str());

    const double plain = BestMilliseconds(text, [](std::istream& in, TerrixMultipleSoilProfiles& profiles) {
        profiles.Import(in);
    });
    const double withLines = BestMilliseconds(text, [](std::istream& in, TerrixMultipleSoilProfiles& profiles) {
        std::vector<SourceLines> lines;
        profiles.Import(in, lines);
    });
    std::printf("stream_MB %.1f\ncpp_import_ms %.1f\ncpp_import_with_lines_ms %.1f\n",
                static_cast<double>(text.size()) / (1024.0 * 1024.0), plain, withLines);
    return 0;
}
