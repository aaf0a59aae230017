#pragma once

#include <string>
#include <vector>

/// A task that the display asked for. None of them runs in this program: a test does their work when it wants to.
struct AskedTask {
    std::string name;
    int priority;
    int options;
    std::size_t stack;
    bool activated;

    friend bool operator==(const AskedTask&, const AskedTask&) = default;
};

struct TaskDouble {
    std::vector<AskedTask> asked;
    bool refuse = false;  // creation fails
};

TaskDouble& Tasks();
