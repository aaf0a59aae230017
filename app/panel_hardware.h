#pragma once

#include <cstdint>
#include <span>

#include "platform/button_event.h"

// The display unit's devices: backlight, keys, output ports, and the fixed facts of the panel.
//
// Every operation opens its device, does its work and closes the device again, and may be called from any task. All
// return 0, or -1 when the device cannot be opened or has no answer, and then change nothing.

/// Sets the backlight up and switches it on at a quarter of the driver's level.
[[nodiscard]] int VEKHWIF_init();

/// Waits for a key to move.
/// @param timeoutSeconds  -1: without limit
/// @return 0, or -1 when nothing was read in time or it was no key of the panel
[[nodiscard]] int VEKHWIF_readButton(ButtonEvent& event, int timeoutSeconds);

int VEKHWIF_setBacklight(int on);
int VEKHWIF_setBrightness(int percent);

/// Drives an output line, 0 to 2, high or low.
int VEKHWIF_setGpio(int line, int level);

int VEKHWIF_getScreenWidth();
int VEKHWIF_getScreenHeight();
std::uint32_t VEKHWIF_getHwId();

// What this panel cannot tell: always -1, writing nothing.
[[nodiscard]] int VEKHWIF_getTemperature(std::int32_t& thousandthsOfDegree);
[[nodiscard]] int VEKHWIF_getSerialNumber(std::span<char> text);
[[nodiscard]] int VEKHWIF_getKernelVersion(std::uint32_t* word);
[[nodiscard]] int VEKHWIF_getOsPkgVersion(std::uint32_t* word);
