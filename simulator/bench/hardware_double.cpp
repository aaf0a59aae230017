#include "simulator/bench/hardware_double.h"

#include <mutex>

#include "app/panel_hardware.h"

HardwareDouble& Hardware() {
    static HardwareDouble hardware;
    return hardware;
}

namespace {
int Result() { return Hardware().devicesMissing ? -1 : 0; }
}  // namespace

int VEKHWIF_init() { return Result(); }

int VEKHWIF_readButton(ButtonEvent&, int) { return -1; }

int VEKHWIF_setBacklight(int on) {
    Hardware().backlight = on;
    return Result();
}

int VEKHWIF_setBrightness(int percent) {
    // Each task that takes a key sets it.
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    Hardware().brightness.push_back(percent);
    return Result();
}

int VEKHWIF_setGpio(int line, int level) {
    Hardware().lines[line] = level;
    return Result();
}

int VEKHWIF_getScreenWidth() { return 320; }

int VEKHWIF_getScreenHeight() { return 240; }

std::uint32_t VEKHWIF_getHwId() { return 3; }

int VEKHWIF_getTemperature(std::int32_t&) { return -1; }

int VEKHWIF_getSerialNumber(std::span<char>) { return -1; }

int VEKHWIF_getKernelVersion(std::uint32_t*) { return -1; }

int VEKHWIF_getOsPkgVersion(std::uint32_t*) { return -1; }
