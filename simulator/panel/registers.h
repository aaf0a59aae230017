#pragma once

#include <string>

namespace panel {

/// Every register of the simulated meter with its label, and the texts of those that choose among some, as JSON.
std::string RegistersJson();

}  // namespace panel
