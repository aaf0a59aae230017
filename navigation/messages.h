#pragma once

#include <cstdint>

/// Messages of the application, and the codes of the panel's keys.

enum ApplicationMessage : std::uint16_t {
    NAV_MSG_TEST_MODE = 0x4000,  // param: 0 leave test mode, else enter it
    NAV_MSG_ALT_MODE = 0x4001,   // param: 1 enter alternate mode, else go to normal mode
    NAV_MSG_DISP_TEST = 0x4002,  // go to the factory display test
    NAV_MSG_NAVIGATE = 0x4003,   // param: screen id
    MSG_ALARM_STATUS = 0x4004,   // param: indicator phase; data[0]: the meter's global alarm status
};

enum KeyCode : std::int16_t {
    KEY_SOFT_1 = 5000,
    KEY_SOFT_2 = 5001,
    KEY_SOFT_3 = 5002,
    KEY_SOFT_4 = 5003,
    KEY_HOME = 5004,
    KEY_SOFT_2_3 = 5005,   // soft keys 2 and 3 together
    KEY_SIMULATED = 5006,  // data[0], data[1]: what the meter simulates
};
