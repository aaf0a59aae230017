#pragma once

#include <csignal>
#include <ctime>

/// POSIX timers and signals, and the clocks.
namespace os {

inline constexpr int kTickSignal = SIGUSR1;  // the user signal that the tick timer raises

/// Creates a timer that signals the calling task, and no other, with `event->sigev_signo` and `event->sigev_value`.
/// @return 0, or -1
[[nodiscard]] int timer_create(clockid_t clock, const sigevent* event, timer_t* timer);

/// @return 0, or -1
[[nodiscard]] int timer_settime(timer_t timer, int flags, const itimerspec* value, itimerspec* previous);

/// @return 0, or -1
[[nodiscard]] int sigaction(int signal, const struct ::sigaction* action, struct ::sigaction* previous);

/// Whole seconds of the real-time clock.
std::time_t time();

}  // namespace os
