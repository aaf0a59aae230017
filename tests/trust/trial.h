#pragma once

#include <functional>
#include <string>

/// What became of a trial.
struct Verdict {
    std::string death;   // why its process did not end by itself; empty: it did
    std::string report;  // what the trial returned
};

/// Runs a trial in a process of its own, which is ended when it takes longer than so many seconds.
///
/// What the trial prints goes to its console. The calling process has one thread: so the trial may start the display.
Verdict Try(const std::function<std::string()>& trial, unsigned seconds = 60);

/// What the process of a trial has printed so far, on standard output and standard error.
std::string Console();
