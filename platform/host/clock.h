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

/// The time from now until `when`; not above zero when that has come.
inline timespec LeftUntil(const timespec& when) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    timespec left{when.tv_sec - now.tv_sec, when.tv_nsec - now.tv_nsec};
    if (left.tv_nsec < 0) {
        left.tv_sec -= 1;
        left.tv_nsec += kNanosecondsPerSecond;
    }
    return left;
}

inline bool IsTimeLeft(const timespec& left) { return left.tv_sec >= 0 && (left.tv_sec > 0 || left.tv_nsec > 0); }

}  // namespace os::host
