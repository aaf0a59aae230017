#pragma once

#include <string>

#include "simulator/bench/keyboard_keys.h"
#include "simulator/bench/panel_bench.h"

/// A person at the keyboard, and a meter that says what it thinks of his password.
class KeyboardBench : public PanelBench {
protected:
    static constexpr std::string_view kVerify = "SECURITYINTERFACE_verifyFrontPanelPassword";

    static void Verdict(std::uint32_t result) { meter().Answer(kVerify, result); }

    void PressKey(std::uint16_t code) {
        FocusKey(code);
        Press(KEY_SOFT_4);
    }

    /// Types a text and confirms it.
    void Enter(std::string_view text) {
        for (const char character : text) PressKey(static_cast<std::uint16_t>(character));
        PressKey(kKeyEnter);
    }
    static bool IsKeyboardShown() { return keyboardWin::getInstance().IsVisible(); }

    /// User and password as the meter was asked about them last.
    static std::string Asked() {
        const auto payload = meter().LastPayload(kVerify);
        return {reinterpret_cast<const char*>(payload.data()), payload.size()};
    }
};
