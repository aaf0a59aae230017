#include "app/application.h"
#include "navigation/entry/keyboard_window.h"
#include "tests/bench/allocation_count.h"
#include "tests/bench/panel_bench.h"
#include "tests/navigation/keyboard_keys.h"

namespace {

/// The application after the hand-over, with everything in it that a person can reach.
class Heap : public PanelBench {
protected:
    Heap() { BuildApplication(Manager()); }

    void PressAllKeys() {
        for (const KeyCode key :
             {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_4, KEY_SOFT_4, KEY_SOFT_1}) {
            Press(key);
            Ticks(2);
        }
    }
    void LogInWhenAsked() {
        if (!keyboardWin::getInstance().IsVisible()) return;
        for (const std::uint16_t code : {std::uint16_t{kKeyEnter}, std::uint16_t{'0'}, std::uint16_t{kKeyEnter}}) {
            FocusKey(code);
            Press(KEY_SOFT_4);
        }
    }
};

TEST_F(Heap, IsLeftAloneAfterTheHandOver) {
    long before = AllocationCount::taken;
    for (const bool silent : {false, true}) {
        if (silent) meter().FallSilent();
        for (std::int32_t id = SCREEN_ID_FACTORY_TEST; id <= kLastCommandedScreen; ++id) {
            Show(id);
            PressAllKeys();
            LogInWhenAsked();
            Ticks(21);
            PressAllKeys();
            EXPECT_EQ(AllocationCount::taken, before) << "screen " << id << (silent ? ", silent meter" : "");
            before = AllocationCount::taken;
        }
    }
}

}  // namespace
