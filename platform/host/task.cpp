#include "platform/task.h"

#include <pthread.h>
#include <sched.h>
#include <semaphore.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <deque>
#include <mutex>

#include "platform/host/clock.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HOST_HAS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HOST_HAS_SANITIZER 1
#endif
#endif
#ifndef HOST_HAS_SANITIZER
#define HOST_HAS_SANITIZER 0
#endif

namespace os {
namespace {

constexpr std::size_t kSmallestStack = std::size_t{HOST_HAS_SANITIZER != 0 ? 2048 : 256} * 1024;
constexpr std::size_t kStackGrain = std::size_t{64} * 1024;  // a multiple of every page size in use
constexpr std::size_t kNameBytes = 16;  // what the host keeps of a thread's name, terminator included
constexpr int kLeastUrgent = 255;

struct Task {
    TaskId id = 0;
    TaskEntry entry = nullptr;  // null: a thread that the host started
    TaskArgument argument = 0;
    std::array<char, kNameBytes> name{};
    sem_t activated{};
};

/// Every task there ever was, so that no id is given twice. Ids count from 1.
std::mutex tasksLock;
std::deque<Task>& Tasks() {
    static auto* tasks = new std::deque<Task>;  // outlives every task
    return *tasks;
}

thread_local TaskId self = 0;

Task& AddTask() {
    const std::lock_guard<std::mutex> lock(tasksLock);
    Task& task = Tasks().emplace_back();
    task.id = Tasks().size();
    return task;
}

Task* FindTask(TaskId id) {
    const std::lock_guard<std::mutex> lock(tasksLock);
    if (id == 0 || id > Tasks().size()) return nullptr;
    Task& task = Tasks()[id - 1];
    return task.entry != nullptr ? &task : nullptr;
}

void* RunTask(void* argument) {
    Task& task = *static_cast<Task*>(argument);
    self = task.id;
    pthread_setname_np(pthread_self(), task.name.data());
    while (sem_wait(&task.activated) != 0) {
    }
    task.entry(task.argument);
    return nullptr;
}

/// Priorities run from 0, the most urgent, to 255; the host's the other way round within its own limits.
int HostPriority(int priority) {
    const int lowest = sched_get_priority_min(SCHED_FIFO);
    const int highest = sched_get_priority_max(SCHED_FIFO);
    return highest - std::clamp(priority, 0, kLeastUrgent) * (highest - lowest) / kLeastUrgent;
}

/// Starts the thread with its real-time priority or, where the process may not have one, without. @return 0 or an error
int StartThread(Task& task, int priority, std::size_t stackSize) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    const std::size_t wanted = std::max(stackSize, kSmallestStack);
    pthread_attr_setstacksize(&attributes, (wanted + kStackGrain - 1) / kStackGrain * kStackGrain);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    sched_param urgency{};
    urgency.sched_priority = HostPriority(priority);
    pthread_attr_setschedpolicy(&attributes, SCHED_FIFO);
    pthread_attr_setschedparam(&attributes, &urgency);
    pthread_attr_setinheritsched(&attributes, PTHREAD_EXPLICIT_SCHED);
    pthread_t thread{};
    int result = pthread_create(&thread, &attributes, RunTask, &task);
    if (result == EPERM) {
        pthread_attr_setinheritsched(&attributes, PTHREAD_INHERIT_SCHED);
        result = pthread_create(&thread, &attributes, RunTask, &task);
    }
    pthread_attr_destroy(&attributes);
    return result;
}

}  // namespace

TaskId taskCreate(const char* name, int priority, int /*options*/, std::size_t stackSize, TaskEntry entry,
                  TaskArgument argument) {
    if (entry == nullptr) return kTaskError;
    Task& task = AddTask();
    task.argument = argument;
    std::snprintf(task.name.data(), task.name.size(), "%s", name != nullptr ? name : "task");
    sem_init(&task.activated, 0, 0);
    task.entry = entry;
    return StartThread(task, priority, stackSize) == 0 ? task.id : kTaskError;
}

int taskActivate(TaskId task) {
    Task* created = FindTask(task);
    return created != nullptr ? sem_post(&created->activated) : -1;
}

TaskId taskSpawn(const char* name, int priority, int options, std::size_t stackSize, TaskEntry entry,
                 TaskArgument argument) {
    const TaskId task = taskCreate(name, priority, options, stackSize, entry, argument);
    if (task != kTaskError) taskActivate(task);
    return task;
}

TaskId taskIdSelf() {
    if (self == 0) self = AddTask().id;
    return self;
}

int taskDelay(int ticks) {
    if (ticks <= 0) return sched_yield();
    const timespec end = host::After(ticks);
    // The plain call, since a thread sanitizer delivers signals in it and not in clock_nanosleep.
    for (std::int64_t left = host::NanosecondsUntil(end); left > 0; left = host::NanosecondsUntil(end)) {
        const timespec pause = host::TimeOf(left);
        nanosleep(&pause, nullptr);
    }
    return 0;
}

int sysClkRateGet() { return host::kTicksPerSecond; }

}  // namespace os
