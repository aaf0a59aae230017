#pragma once

#include <ctime>

/// How system clock ticks become times of the host's monotonic clock.
namespace os::host {

inline constexpr int kTicksPerSecond = 1000;
inline constexpr long kNanosecondsPerSecond = 1'000'000'000;

/// The monotonic time that many ticks from now.
inline timespec After(int ticks) {
    timespec when{};
    clock_gettime(CLOCK_MONOTONIC, &when);
    when.tv_sec += ticks / kTicksPerSecond;
    when.tv_nsec += (ticks % kTicksPerSecond) * (kNanosecondsPerSecond / kTicksPerSecond);
    if (when.tv_nsec >= kNanosecondsPerSecond) {
        when.tv_sec += 1;
        when.tv_nsec -= kNanosecondsPerSecond;
    }
    return when;
}

}  // namespace os::host
