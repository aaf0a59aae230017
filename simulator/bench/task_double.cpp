#include "simulator/bench/task_double.h"

#include "platform/task.h"

// The operating system's tasks, without any running.

TaskDouble& Tasks() {
    static TaskDouble tasks;
    return tasks;
}

namespace os {

TaskId taskCreate(const char* name, int priority, int options, std::size_t stackSize, TaskEntry, TaskArgument) {
    if (Tasks().refuse) return kTaskError;
    Tasks().asked.push_back({name, priority, options, stackSize, false});
    return Tasks().asked.size();
}

int taskActivate(TaskId task) {
    if (task == 0 || task > Tasks().asked.size()) return -1;
    Tasks().asked[task - 1].activated = true;
    return 0;
}

TaskId taskSpawn(const char* name, int priority, int options, std::size_t stackSize, TaskEntry entry,
                 TaskArgument argument) {
    const TaskId task = taskCreate(name, priority, options, stackSize, entry, argument);
    taskActivate(task);
    return task;
}

TaskId taskIdSelf() { return 1000; }

int taskDelay(int) { return 0; }

int sysClkRateGet() { return 1000; }

}  // namespace os
