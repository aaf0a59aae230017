#pragma once

#include <functional>
#include <vector>

/// A piece of the display's work whose cost is watched.
struct Work {
    const char* name;
    double peer;  // frame copies that the best-known open library of this kind needs for the same; 0: none measured
    double goal;  // frame copies
    int repeats;  // in a row, for one figure

    /// Sets everything up and returns what is to be measured.
    std::function<std::function<void()>()> prepare;
};

/// What the screen driver does, and what whole screens cost.
std::vector<Work> DrawingWork();
std::vector<Work> ScreenWork();

/// The same in several sizes, for counting only.
std::vector<Work> GrowthWork();
