#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

#include "benchmarks/processor.h"

/// Compares a part of the display with the least that the host needs for the same work.
///
/// Both run on one processor, turn and turn about, so that whatever else the machine does hurts both alike; the median
/// of the rounds counts.
namespace bench {

inline constexpr int kRounds = 31;

/// What a ratio is held against.
struct Yardstick {
    double goal;
    double peer = 0;  // the ratio of the best-known open library of this kind; 0: none
};

/// Seconds that `repeats` runs of `work` take, each.
template <typename Work>
double SecondsEach(int repeats, Work& work) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repeats; ++i) work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / repeats;
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Runs the rounds of a benchmark and reports the ratio of ours to bare, and the time of bare in microseconds.
template <typename Ours, typename Bare>
void Compare(benchmark::State& state, const Yardstick& yardstick, int repeats, Ours ours, Bare bare) {
    constexpr double kMicro = 1e6;
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    std::vector<double> ratios;
    SecondsEach(repeats, ours);
    SecondsEach(repeats, bare);
    for ([[maybe_unused]] auto round : state) {
        ourTimes.push_back(SecondsEach(repeats, ours));
        bareTimes.push_back(SecondsEach(repeats, bare));
        ratios.push_back(ourTimes.back() / bareTimes.back());
        state.SetIterationTime(ourTimes.back());
    }
    state.counters["ratio"] = Median(ratios);
    state.counters["goal"] = yardstick.goal;
    state.counters["peer"] = yardstick.peer;
    state.counters["us"] = Median(ourTimes) * kMicro;
    state.counters["bare_us"] = Median(bareTimes) * kMicro;
}

template <typename Function>
void Register(const char* name, Function function) {
    benchmark::RegisterBenchmark(name, std::move(function))
        ->Iterations(kRounds)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

/// Prints a line for each comparison.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override {
        std::printf("%-40s %10s %8s %8s %8s\n", "", "us", "ratio", "goal", "peer");
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const auto value = [&run](const char* name) { return run.counters.at(name).value; };
            std::printf("%-40s %10.2f %8.2f %8.2f ", run.run_name.function_name.c_str(), value("us"), value("ratio"),
                        value("goal"));
            if (value("peer") > 0) {
                std::printf("%8.2f", value("peer"));
            } else {
                std::printf("%8s", "");
            }
            std::printf("%s\n", value("ratio") > value("goal") ? "  MISSED" : "");
        }
    }
};

/// Runs the registered comparisons and prints them. @return the exit status: 2 for wrong arguments
inline int RunAll(int argc, char** argv) {
    StayOnOneProcessor();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    TableReporter table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}

}  // namespace bench
