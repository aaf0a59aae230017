#pragma once

#include <array>
#include <cstdint>

#include "navigation/entry/keyboard_layout.h"

/// The shortest ways over the on-screen keyboard, found by walking it once.
class Typing {
public:
    /// Moves the focus of the keyboard everywhere; it must be on the panel.
    Typing();

    /// The key of the panel to press next, to press a key of the keyboard.
    /// @param code  of the keyboard's key
    std::uint8_t KeyTowards(std::uint16_t code) const;

private:
    // By key of the keyboard and soft key 1 to 3: where its arrow leads.
    std::array<std::array<std::size_t, 3>, kKeyboardKeys> m_next{};
};
