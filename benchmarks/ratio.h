#pragma once

#include <benchmark/benchmark.h>
#include <sched.h>

#include <algorithm>
#include <chrono>
#include <vector>

/// Compares a part of the display with the least that the host needs for the same work.
///
/// Both run on one processor, turn and turn about, so that whatever else the machine does hurts both alike; the median
/// of the rounds counts.
namespace bench {

inline constexpr int kRounds = 31;
inline bool goalMissed = false;

/// Keeps this process and the tasks it will start on the processor it is running on.
inline void StayOnOneProcessor() {
    cpu_set_t here;
    CPU_ZERO(&here);
    CPU_SET(static_cast<std::size_t>(sched_getcpu()), &here);
    sched_setaffinity(0, sizeof here, &here);
}

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

/// Runs the rounds of a benchmark and reports the ratio of ours to bare, its goal, and the time of bare in
/// microseconds.
template <typename Ours, typename Bare>
void Compare(benchmark::State& state, double goal, int repeats, Ours ours, Bare bare) {
    constexpr double kMicro = 1e6;
    std::vector<double> bareTimes;
    std::vector<double> ratios;
    SecondsEach(repeats, ours);
    SecondsEach(repeats, bare);
    for ([[maybe_unused]] auto round : state) {
        const double ourTime = SecondsEach(repeats, ours);
        bareTimes.push_back(SecondsEach(repeats, bare));
        ratios.push_back(ourTime / bareTimes.back());
        state.SetIterationTime(ourTime);
    }
    const double ratio = Median(ratios);
    state.counters["ratio"] = ratio;
    state.counters["goal"] = goal;
    state.counters["bare_us"] = Median(bareTimes) * kMicro;
    state.SetLabel(ratio <= goal ? "met" : "MISSED");
    goalMissed = goalMissed || ratio > goal;
}

/// How every comparison is run.
inline void Rounds(benchmark::internal::Benchmark* benchmark) {
    benchmark->Iterations(kRounds)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

/// Runs the registered comparisons. @return the exit status: 0 when every goal is met
inline int RunAll(int argc, char** argv) {
    StayOnOneProcessor();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    return goalMissed ? 1 : 0;
}

}  // namespace bench
