#pragma once

#include <functional>
#include <string>

/// Runs a trial in a process of its own, which is ended when it takes longer than so many seconds.
///
/// What the trial prints goes to its console. The calling process has one thread: so the trial may start the display.
/// @return what the trial returned; when its process did not end by itself, a semicolon, why, and its last words
std::string Try(const std::function<std::string()>& trial, unsigned seconds = 60);

/// What the process of a trial has printed so far, on standard output and standard error.
std::string Console();
