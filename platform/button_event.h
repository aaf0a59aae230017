#pragma once

#include <cstdint>

/// A key of the panel that moved, or an input that the meter simulates.
struct ButtonEvent {
    std::uint32_t kind;     // kPanelKey or kSimulatedInput
    std::uint32_t pressed;  // 1 pressed, 0 released
    std::uint32_t value;    // panel key: its index, 0 to 5; simulated input: the first data word
    std::uint32_t extra;    // simulated input: the second data word
};
static_assert(sizeof(ButtonEvent) == 16);

inline constexpr std::uint32_t kPanelKey = 0;
inline constexpr std::uint32_t kSimulatedInput = 1;
