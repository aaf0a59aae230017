#pragma once

#include <string>

#include "simulator/descriptor.h"

namespace panel {

/// A connection to the control socket of the simulated meter, sending and receiving with some patience.
/// @return an empty descriptor when nobody is there
Descriptor ConnectToMeter(const std::string& path);

/// @return whether the line could be sent
bool SendLine(const Descriptor& meter, const std::string& line);

}  // namespace panel
