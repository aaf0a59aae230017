#pragma once

#include <cstdint>

// The backlight dims when no key has moved for the meter's time-out: to a quarter, or, while an alarm asks for it, back
// and forth every second.
//
// The state is a few single words that the button task, the one-second task and the command server write without a
// lock; a lost update costs a second of the wrong brightness.

/// Full brightness and the meter's time-out; 300 seconds when the meter does not tell.
void backlightTimeoutInit();

/// A new time-out in seconds: full brightness, and the time begins anew. 0: a backlight at full brightness stays so.
void backlightSetTimeout(std::uint32_t seconds);

/// A key was pressed: full brightness, and the time begins anew.
void backlightKeyPress();

/// Whether the backlight flashes instead of staying dim.
void backlightSetAlarmFlash(bool flash);

/// A second has passed.
void backlightTick();
