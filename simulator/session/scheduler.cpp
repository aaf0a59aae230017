#include "simulator/session/scheduler.h"

#include <algorithm>
#include <cassert>

namespace session {

Scheduler& Scheduler::Instance() {
    static auto* instance = new Scheduler;  // outlives its tasks
    return *instance;
}

void Scheduler::RunUntil(Instant when) {
    for (;;) {
        while (Task* task = MostUrgent()) GiveTurn(*task);
        const Instant next = std::min(NextDeadline(), m_timerDue);
        if (next > when) break;
        m_now = std::max(m_now, next);
        if (m_timerDue <= m_now) {
            m_timerDue += m_timerPeriod;
            m_timer();
        }
    }
    m_now = std::max(m_now, when);
}

os::TaskId Scheduler::Create(int priority, std::function<void()> body) {
    Task& task = m_tasks.emplace_back();
    task.id = m_tasks.size();
    task.priority = priority;
    task.thread = std::thread([this, &task, body = std::move(body)] {
        task.turn.acquire();
        body();
        task.ended = true;
        m_turn.release();
    });
    task.thread.detach();
    return task.id;
}

bool Scheduler::Activate(os::TaskId task) {
    if (task == 0 || task > m_tasks.size()) return false;
    m_tasks[task - 1].activated = true;
    return true;
}

bool Scheduler::Wait(const std::function<bool()>& holds, Instant until) {
    assert(m_running != nullptr);
    if (holds()) return true;
    Task& self = *m_running;
    self.holds = &holds;
    self.until = until;
    m_turn.release();
    self.turn.acquire();
    self.holds = nullptr;
    return holds();
}

void Scheduler::SetTimer(Instant first, Instant period, std::function<void()> action) {
    m_timerDue = first;
    m_timerPeriod = period;
    m_timer = std::move(action);
}

bool Scheduler::IsReady(const Task& task) const {
    if (!task.activated || task.ended) return false;
    return task.holds == nullptr || task.until <= m_now || (*task.holds)();
}

Scheduler::Task* Scheduler::MostUrgent() {
    Task* found = nullptr;
    for (Task& task : m_tasks)
        if (IsReady(task) && (found == nullptr || task.priority < found->priority)) found = &task;
    return found;
}

Instant Scheduler::NextDeadline() const {
    Instant next = kNever;
    for (const Task& task : m_tasks)
        if (task.activated && !task.ended) next = std::min(next, task.until);
    return next;
}

void Scheduler::GiveTurn(Task& task) {
    m_running = &task;
    task.turn.release();
    m_turn.acquire();
    m_running = nullptr;
}

}  // namespace session
