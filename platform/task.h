#pragma once

#include <cstddef>
#include <cstdint>

/// Tasks of the real-time operating system.
namespace os {

using TaskId = std::uintptr_t;
using TaskArgument = std::intptr_t;
using TaskEntry = int (*)(TaskArgument argument);

inline constexpr TaskId kTaskError = ~TaskId{0};      // what creation returns when it failed
inline constexpr int kTaskFloatingPoint = 0x1000000;  // task option: may use the floating-point unit

/// Creates a task that waits for `taskActivate`. A smaller priority number is more urgent; `stackSize` is in bytes.
/// @return the task, or kTaskError
[[nodiscard]] TaskId taskCreate(const char* name, int priority, int options, std::size_t stackSize, TaskEntry entry,
                                TaskArgument argument);

/// Lets a created task run. @return 0, or -1 when there is no such task
int taskActivate(TaskId task);

/// Creates and activates a task in one step. @return the task, or kTaskError
[[nodiscard]] TaskId taskSpawn(const char* name, int priority, int options, std::size_t stackSize, TaskEntry entry,
                               TaskArgument argument);

/// The calling task's id: never 0, never kTaskError, and not reused while the process lives.
TaskId taskIdSelf();

/// Sleeps for a number of system clock ticks; signals that arrive meanwhile are handled and do not shorten it.
int taskDelay(int ticks);

/// System clock ticks a second.
int sysClkRateGet();

}  // namespace os
