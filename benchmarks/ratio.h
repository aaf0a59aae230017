#pragma once

#include <sched.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/// Compares a part of the display with the least that the host needs for the same work.
///
/// Both run on one processor, turn and turn about, so that whatever else the machine does hurts both alike; the median
/// of the rounds counts.
namespace bench {

inline constexpr int kRounds = 31;

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

/// Prints the ratio of ours to bare, the goal and both absolute times. @return whether the goal is met
template <typename Ours, typename Bare>
bool Compare(const char* name, double goal, int repeats, Ours ours, Bare bare) {
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    std::vector<double> ratios;
    SecondsEach(repeats, ours);
    SecondsEach(repeats, bare);
    for (int round = 0; round < kRounds; ++round) {
        ourTimes.push_back(SecondsEach(repeats, ours));
        bareTimes.push_back(SecondsEach(repeats, bare));
        ratios.push_back(ourTimes.back() / bareTimes.back());
    }
    constexpr double kMicro = 1e6;
    const double ratio = Median(ratios);
    std::printf("%-32s ratio %5.2f  goal %4.2f  %s  ours %8.2f us  bare %8.2f us\n", name, ratio, goal,
                ratio <= goal ? "met   " : "MISSED", Median(ourTimes) * kMicro, Median(bareTimes) * kMicro);
    return ratio <= goal;
}

}  // namespace bench
