#include "tests/fuzz/panel_walk.h"

#include <array>

#include "app/application.h"
#include "app/one_second_task.h"
#include "navigation/password_handler.h"
#include "simulator/bench/hardware_double.h"
#include "simulator/bench/keyboard_keys.h"

namespace {

constexpr std::int32_t kNeutral = 1;
constexpr std::array kKeys = {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4, KEY_SOFT_2_3, KEY_HOME};

}  // namespace

PanelWalk::PanelWalk() {
    BuildApplication(Manager());
    m_board.Remove();  // the fuzzer ends the process as it likes
}

void PanelWalk::Enter(std::int32_t screen) {
    Show(screen);
    Do(Act::Second);
}

void PanelWalk::Do(Act act) {
    switch (act) {
        case Act::Second: return Ticks(kTicksPerSecond + 1);
        case Act::TenSeconds: return Ticks(10 * kTicksPerSecond);
        case Act::TaskOfASecond: return oneSecondUpdate();
        case Act::Digit: return Type('0');
        case Act::Enter: return Type(kKeyEnter);
        case Act::AltMode: navigationHandlerClass::postAltModeState(1); return Pump();
        case Act::TestMode: navigationHandlerClass::postTestModeState(1); return Pump();
        case Act::NormalMode: navigationHandlerClass::postAltModeState(0); return Pump();
        default: return Press(kKeys[static_cast<std::size_t>(act)]);
    }
}

void PanelWalk::Type(std::uint16_t key) {
    if (!keyboardWin::getInstance().IsVisible()) return;
    FocusKey(key);
    Press(KEY_SOFT_4);
}

void PanelWalk::Leave() {
    PHC_passwordHandlerClass::getInstance().logout();
    Show(kNeutral);
    Hardware().brightness.clear();
}
