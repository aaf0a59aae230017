#include "app/backlight.h"

#include <atomic>

#include "app/panel_hardware.h"
#include "rda/meter_operations.h"

namespace {

constexpr std::uint32_t kTimeoutWithoutMeter = 300;  // seconds
constexpr int kFull = 100;                           // percent
constexpr int kDim = 25;

std::atomic<std::int32_t> backlightTimeout = 0;    // seconds without a key until it dims
std::atomic<std::int32_t> backlightCountdown = 0;  // seconds left
bool countdownRunning = false;                     // the one-second task's
bool backlightBright = false;                      // likewise: the level that its last change set
bool alarmFlash = false;                           // likewise

void SetBright(bool bright) {
    if (backlightBright == bright) return;
    backlightBright = bright;
    VEKHWIF_setBrightness(bright ? kFull : kDim);
}

}  // namespace

void backlightTimeoutInit() {
    VEKHWIF_setBacklight(1);
    std::uint32_t timeout = 0;
    if (BACKLIGHTINTERFACE_getTimeout(timeout) != 0) timeout = kTimeoutWithoutMeter;
    backlightSetTimeout(timeout);
}

void backlightSetTimeout(std::uint32_t seconds) {
    backlightTimeout = static_cast<std::int32_t>(seconds);
    backlightKeyPress();
}

void backlightKeyPress() {
    VEKHWIF_setBrightness(kFull);
    backlightCountdown = backlightTimeout.load();
}

void backlightSetAlarmFlash(bool flash) { alarmFlash = flash; }

void backlightTick() {
    const std::int32_t before = backlightCountdown;
    if (before > 0) {
        backlightCountdown = before - 1;
        countdownRunning = before > 1;
        if (countdownRunning) {
            SetBright(true);
            return;
        }
    } else if (countdownRunning) {
        SetBright(false);
        return;
    }
    SetBright(alarmFlash && !backlightBright);
}
