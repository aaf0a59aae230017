#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "peg/core/rect.h"

class PegThing;

/// Everything that reaches a thing. Copied by value into and out of the toolkit queue.
struct PegMessage {
    PegThing* source = nullptr;
    PegThing* target = nullptr;  // null lets the presentation manager choose the receiver
    std::uint16_t type = 0;
    std::int16_t param = 0;               // key code, timer id, id of the sending control
    std::array<std::uint32_t, 3> data{};  // words; a rectangle in the first two

    PegRect Rect() const { return std::bit_cast<PegRect>(std::array{data[0], data[1]}); }
    void SetRect(const PegRect& rect) {
        const auto words = std::bit_cast<std::array<std::uint32_t, 2>>(rect);
        data[0] = words[0];
        data[1] = words[1];
    }
};
static_assert(sizeof(PegMessage) == 16 + 2 * sizeof(void*));

/// What a message is about. The toolkit has 1 to 0x3FFF, the application 0x4000 to 0x7FFF; codes with the top bit set
/// are signals of controls.
enum PegMessageType : std::uint16_t {
    MSG_ADD = 1,
    MSG_REMOVE = 2,
    MSG_DESTROY = 3,
    MSG_RESIZE = 4,
    MSG_CLOSE = 6,
    MSG_HIDE = 7,
    MSG_SHOW = 8,
    MSG_BUTTON_DOWN = 10,
    MSG_BUTTON_UP = 11,
    MSG_REDRAW = 14,
    MSG_FOCUS_IN = 15,
    MSG_FOCUS_OUT = 16,
    MSG_INPUT_IN = 17,
    MSG_INPUT_OUT = 18,
    MSG_LANGUAGE = 19,
    MSG_POINTER_ENTER = 20,
    MSG_POINTER_LEAVE = 21,
    MSG_EXIT = 22,
    MSG_IGNORED = 25,
    MSG_TIMER = 32,
    MSG_KEY_DOWN = 33,
    MSG_KEY_UP = 34,
    MSG_KEY_LAST = 37,
    MSG_REFOCUS = 42,
    MSG_RESOURCES = 44,
    MSG_SET_CANVAS = 45,
    MSG_FIRST_USER = 0x4000,
    MSG_FIRST_SIGNAL = 0x8000,
};

/// The message type by which control `id` tells its parent about event `signal` (0 to 15).
constexpr std::uint16_t SIGNAL_TYPE(unsigned id, unsigned signal) {
    return static_cast<std::uint16_t>(((id + 0x800U) << 4) + signal);
}
static_assert(SIGNAL_TYPE(1, 4) == 0x8014 && SIGNAL_TYPE(0x7FF, 15) == 0xFFFF);

constexpr std::uint16_t SIGNAL_MASK(unsigned signal) { return static_cast<std::uint16_t>(1U << signal); }

/// Signals that every control may send.
inline constexpr unsigned kSignalResized = 0;
inline constexpr unsigned kSignalClicked = 1;
inline constexpr unsigned kSignalFocusLost = 2;
inline constexpr unsigned kSignalKey = 3;
inline constexpr unsigned kSignalSelected = 4;

/// Key codes of the toolkit.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeyHome = 604;
inline constexpr int kKeyEnd = 605;
inline constexpr int kKeyUp = 606;
inline constexpr int kKeyDown = 607;
inline constexpr int kKeyLeft = 608;
inline constexpr int kKeyRight = 609;
inline constexpr int kKeyShift = 612;
inline constexpr int kKeyCloseWindow = 653;
