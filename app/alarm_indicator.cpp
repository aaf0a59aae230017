#include "app/alarm_indicator.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "app/backlight.h"
#include "app/panel_hardware.h"
#include "navigation/messages.h"
#include "navigation/navigation_handler.h"
#include "navigation/table_proofs.h"
#include "peg/core/message_queue.h"
#include "peg/core/toolkit.h"
#include "rda/meter_operations.h"

namespace {

/// What the lamp's output line does; the lamp is lit while its line is low.
enum class LampLine : std::uint8_t { High, Low, Alternating };

/// What one global alarm status does.
struct IndicatorRow {
    std::uint32_t status;
    bool blink;  // the icon of the shown screen alternates
    bool flash;  // so does the backlight, once it would be dim
    LampLine line;
};

// clang-format off
constexpr auto kIndicatorRows = std::to_array<IndicatorRow>({
    {0,  true,  true,  LampLine::Alternating},  // and every status without a row of its own
    {1,  true,  false, LampLine::Alternating},
    {2,  false, false, LampLine::Low},
    {3,  false, false, LampLine::Low},
    {4,  true,  false, LampLine::Alternating},
    {5,  true,  false, LampLine::Alternating},
    {6,  true,  false, LampLine::Alternating},
    {7,  false, false, LampLine::Low},
    {8,  false, false, LampLine::High},
    {9,  false, false, LampLine::High},
    {10, false, false, LampLine::High},
    {11, false, false, LampLine::High},
    {12, false, false, LampLine::High},
});
// clang-format on
static_assert(StandInOrder(kIndicatorRows, &IndicatorRow::status));

constexpr std::uint32_t kStatusWithoutMeter = 4;
constexpr int kLampLine = 2;

// The one-second task's own.
std::uint32_t lastAlarmStatus = 12;
std::uint32_t indicatorPhase = 0;
PegThing* lastAlarmTarget = nullptr;

void TellScreen(PegThing* screen, std::uint32_t status, std::uint32_t phase) {
    PegMessage message;
    message.target = screen;
    message.type = MSG_ALARM_STATUS;
    message.param = static_cast<std::int16_t>(phase);
    message.data[0] = status;
    if (screen != nullptr) toolkit.queue->Push(message);
    lastAlarmTarget = screen;
}

}  // namespace

void alarmIndicatorUpdate() {
    std::uint32_t status = 0;
    if (ALARMSINTERFACE_getGlobalAlarmStatus(status) != 0) status = kStatusWithoutMeter;
    const IndicatorRow& row = kIndicatorRows[status < kIndicatorRows.size() ? status : 0];
    PegThing* screen = navigationHandlerClass::getInstance().getCurrentScreen();
    if (status != lastAlarmStatus) {
        lastAlarmStatus = status;
        backlightSetAlarmFlash(row.flash);
        VEKHWIF_setGpio(kLampLine, row.line != LampLine::Low ? 1 : 0);
        TellScreen(screen, status, row.blink ? 0 : 1);
        indicatorPhase = 0;
    } else {
        indicatorPhase ^= 1;
        if (row.blink) {
            TellScreen(screen, status, indicatorPhase);
        } else if (screen != lastAlarmTarget) {
            TellScreen(screen, status, 1);
        }
        if (row.line == LampLine::Alternating) VEKHWIF_setGpio(kLampLine, indicatorPhase == 0 ? 1 : 0);
    }
    backlightTick();
}
