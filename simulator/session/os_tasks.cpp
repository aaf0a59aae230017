#include <csignal>
#include <cstdio>
#include <cstring>

#include "platform/process.h"
#include "platform/semaphore.h"
#include "platform/shown_screen.h"
#include "platform/task.h"
#include "platform/timer.h"
#include "simulator/session/scheduler.h"
#include "simulator/session/world.h"

// Tasks, mutexes and timers of the display on the session's clock: they take the place of platform/host/.

namespace os {
namespace {

using session::IsRefused;
using session::OsCall;
using session::Scheduler;

constexpr int kTicksPerSecond = 1000;
constexpr session::Instant kNanosecondsPerTick = 1'000'000;

// The display has one timer and one signal for it.
sigevent timerEvent{};
struct ::sigaction signalAction {};

session::Instant TicksOf(const timespec& time) {
    return static_cast<session::Instant>(time.tv_sec) * kTicksPerSecond + time.tv_nsec / kNanosecondsPerTick;
}

void RaiseSignal() {
    siginfo_t information{};
    information.si_signo = timerEvent.sigev_signo;
    information.si_value = timerEvent.sigev_value;
    signalAction.sa_sigaction(timerEvent.sigev_signo, &information, nullptr);
}

}  // namespace

TaskId taskCreate(const char* name, int priority, int /*options*/, std::size_t /*stackSize*/, TaskEntry entry,
                  TaskArgument argument) {
    if (entry == nullptr || IsRefused(OsCall::CreateTask, name)) return kTaskError;
    return Scheduler::Instance().Create(priority, [entry, argument] { entry(argument); });
}

int taskActivate(TaskId task) {
    return !IsRefused(OsCall::ActivateTask) && Scheduler::Instance().Activate(task) ? 0 : -1;
}

TaskId taskSpawn(const char* name, int priority, int options, std::size_t stackSize, TaskEntry entry,
                 TaskArgument argument) {
    const TaskId task = taskCreate(name, priority, options, stackSize, entry, argument);
    if (task != kTaskError) taskActivate(task);
    return task;
}

TaskId taskIdSelf() { return Scheduler::Instance().Self(); }

int taskDelay(int ticks) {
    Scheduler& scheduler = Scheduler::Instance();
    scheduler.Wait([] { return false; }, scheduler.Now() + ticks);
    return 0;
}

int sysClkRateGet() { return kTicksPerSecond; }

struct Semaphore {
    TaskId owner = 0;  // 0: free
    int taken = 0;
};

SemaphoreId semMCreate(int /*options*/) { return IsRefused(OsCall::CreateMutex) ? nullptr : new Semaphore; }

int semTake(SemaphoreId semaphore) {
    if (semaphore == nullptr) return -1;
    const TaskId self = taskIdSelf();
    Scheduler::Instance().Wait([=] { return semaphore->owner == 0 || semaphore->owner == self; }, session::kNever);
    semaphore->owner = self;
    ++semaphore->taken;
    return 0;
}

int semGive(SemaphoreId semaphore) {
    if (semaphore == nullptr || semaphore->owner != taskIdSelf()) return -1;
    if (--semaphore->taken == 0) semaphore->owner = 0;
    return 0;
}

int timer_create(clockid_t /*clock*/, const sigevent* event, timer_t* timer) {
    if (IsRefused(OsCall::CreateTimer)) return -1;
    timerEvent = *event;
    *timer = reinterpret_cast<timer_t>(&timerEvent);
    return 0;
}

int timer_settime(timer_t /*timer*/, int /*flags*/, const itimerspec* value, itimerspec* /*previous*/) {
    if (IsRefused(OsCall::SetTimer)) return -1;
    Scheduler& scheduler = Scheduler::Instance();
    scheduler.SetTimer(scheduler.Now() + TicksOf(value->it_value), TicksOf(value->it_interval), RaiseSignal);
    return 0;
}

int sigaction(int signal, const struct ::sigaction* action, struct ::sigaction* /*previous*/) {
    if (IsRefused(OsCall::SetSignal, ::sigabbrev_np(signal))) return -1;
    if (signal == kTickSignal) signalAction = *action;
    return 0;
}

std::time_t time() {
    return static_cast<std::time_t>(session::TheWorld().StartSeconds() + Scheduler::Instance().Now() / kTicksPerSecond);
}

void startProcess() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    tellShownScreen(kNoScreen);
}

}  // namespace os
