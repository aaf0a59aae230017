#pragma once

#include <cstdint>
#include <ctime>

/// How system clock ticks become times of the host's monotonic clock.
namespace os::host {

inline constexpr int kTicksPerSecond = 1000;
inline constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

inline std::int64_t Nanoseconds(const timespec& time) { return time.tv_sec * kNanosecondsPerSecond + time.tv_nsec; }

inline timespec TimeOf(std::int64_t nanoseconds) {
    return {static_cast<std::time_t>(nanoseconds / kNanosecondsPerSecond),
            static_cast<long>(nanoseconds % kNanosecondsPerSecond)};
}

inline std::int64_t MonotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return Nanoseconds(now);
}

/// The monotonic time that many ticks from now.
inline timespec After(int ticks) { return TimeOf(MonotonicNow() + ticks * (kNanosecondsPerSecond / kTicksPerSecond)); }

/// Nanoseconds from now until `when`; not above zero when that has come.
inline std::int64_t NanosecondsUntil(const timespec& when) { return Nanoseconds(when) - MonotonicNow(); }

}  // namespace os::host
