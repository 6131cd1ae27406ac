#pragma once

// Benchmark figures as ratios measured in one run: the machines are shared
// and noisy, so a time means little alone, but a time against a floor taken
// beside it does. The reporter keeps the CPU time of each benchmark as it
// prints it (the fastest of its repetitions); the ratios are printed after all of them have run.

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace TerrixExchange { namespace Benchmarks {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.iterations == 0) continue;
            // Of repetitions (--benchmark_repetitions), the fastest: what the
            // others lost went to the machine's other work.
            const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
            const auto known = seconds_.find(run.benchmark_name());
            if (known == seconds_.end() || seconds < known->second) seconds_[run.benchmark_name()] = seconds;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // "<text>: 3.12x" for the time of `measured` over that of `floor`, when
    // both ran (a filter may leave either out).
    void PrintRatio(const std::string& text, const std::string& measured, const std::string& floor) const {
        const auto m = seconds_.find(measured);
        const auto f = seconds_.find(floor);
        if (m != seconds_.end() && f != seconds_.end())
            std::printf("%-58s %8.2fx\n", text.c_str(), m->second / f->second);
    }

    // How the time grows from `small` to `large` runs of sizes in the ratio
    // `sizeRatio`: t ~ n^exponent. Each argument names the benchmarks whose
    // times add up to one measurement.
    void PrintGrowth(const std::string& text, const std::vector<std::string>& small,
                     const std::vector<std::string>& large, double sizeRatio) const {
        double smallSeconds = 0.0;
        double largeSeconds = 0.0;
        if (!Sum(small, smallSeconds) || !Sum(large, largeSeconds)) return;
        std::printf("%-58s %8.1f ms, %.1f ms, exponent %.2f\n", text.c_str(), smallSeconds * 1e3,
                    largeSeconds * 1e3, std::log(largeSeconds / smallSeconds) / std::log(sizeRatio));
    }

private:
    bool Sum(const std::vector<std::string>& names, double& seconds) const {
        for (const std::string& name : names) {
            const auto found = seconds_.find(name);
            if (found == seconds_.end()) return false;
            seconds += found->second;
        }
        return true;
    }

    std::map<std::string, double> seconds_;
};

}}  // namespace TerrixExchange::Benchmarks
