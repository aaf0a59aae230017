#pragma once

#include <map>
#include <vector>

/// What the display asked of its devices: it takes the place of the panel hardware in this program.
struct HardwareDouble {
    std::vector<int> brightness;  // percent, in the order asked
    std::map<int, int> lines;     // the last level of each output line
    int backlight = -1;
    bool devicesMissing = false;
};

HardwareDouble& Hardware();
