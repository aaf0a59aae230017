#pragma once

#include <cstdint>

#include "simulator/bench/panel_bench.h"

/// Somebody at the panel of the whole application: enters a screen, watches it for a refresh, and acts. What the meter
/// answers is up to the owner.
class PanelWalk : public PanelBench {
public:
    /// What can be done at a panel. Soft1 to Home are its keys.
    // clang-format off
    enum class Act : std::uint8_t {
        Soft1, Soft2, Soft3, Soft4, Soft23, Home,
        Second, TenSeconds,             // pass
        TaskOfASecond,                  // has its turn
        Digit, Enter,                   // of the keyboard, while it is there
        AltMode, TestMode, NormalMode,  // commanded by the meter
    };
    // clang-format on
    static constexpr std::size_t kActs = static_cast<std::size_t>(Act::NormalMode) + 1;

    PanelWalk();

    void Enter(std::int32_t screen);
    void Do(Act act);
    /// Logs out and goes back to a screen that asks for little. What was noted of the devices is forgotten.
    void Leave();

    using PanelBench::meter;
    using PanelBench::Navigation;
    using PanelBench::Screen;

private:
    void Type(std::uint16_t key);
};
