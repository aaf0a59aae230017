#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <semaphore>
#include <thread>

#include "platform/task.h"

namespace session {

/// Time of the session's own clock, in milliseconds since its start; also the system clock ticks of the display.
using Instant = std::int64_t;
inline constexpr Instant kNever = INT64_MAX;

/// Runs the display's tasks one at a time on a clock that jumps from one deadline to the next.
///
/// The most urgent task that is ready runs until it waits; of equals, the one created first. Work takes no time. So the
/// same inputs at the same times give the same run, to the byte. One in a process; the thread that calls `RunUntil`
/// is no task. Tasks never end before the process does.
class Scheduler {
public:
    static Scheduler& Instance();

    Instant Now() const { return m_now; }

    /// Lets everything happen that is due up to `when`, and makes it that time.
    void RunUntil(Instant when);

    /// @return the new task, which waits for `Activate`
    os::TaskId Create(int priority, std::function<void()> body);
    bool Activate(os::TaskId task);
    /// The running task, or kOutside.
    os::TaskId Self() const { return m_running != nullptr ? m_running->id : kOutside; }

    /// The running task waits until something holds, at most until a time. @return whether it holds
    bool Wait(const std::function<bool()>& holds, Instant until);

    /// Has `action` run outside the tasks, first at `first` and then every `period`. There is one such timer.
    void SetTimer(Instant first, Instant period, std::function<void()> action);

    static constexpr os::TaskId kOutside = 0x7FFF;

private:
    struct Task {
        os::TaskId id = 0;
        int priority = 0;
        bool activated = false;
        bool ended = false;
        const std::function<bool()>* holds = nullptr;  // null: it waits for nothing
        Instant until = 0;
        std::binary_semaphore turn{0};
        std::thread thread;
    };

    bool IsReady(const Task& task) const;
    Task* MostUrgent();
    Instant NextDeadline() const;
    void GiveTurn(Task& task);

    Instant m_now = 0;
    std::deque<Task> m_tasks;
    Task* m_running = nullptr;
    std::binary_semaphore m_turn{0};  // of the thread outside
    Instant m_timerDue = kNever;
    Instant m_timerPeriod = 0;
    std::function<void()> m_timer;
};

}  // namespace session
