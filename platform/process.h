#pragma once

/// What the process does before anything else.
namespace os {

/// Prepares the process for its work: the console writes every line at once, whatever it is connected to.
/// Called once, first thing in the process, by the initial task.
void startProcess();

}  // namespace os
