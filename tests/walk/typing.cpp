#include "tests/walk/typing.h"

#include <algorithm>
#include <deque>

#include "navigation/entry/keyboard_window.h"
#include "tests/navigation/keyboard_keys.h"
#include "tests/walk/stroke.h"

namespace {
constexpr std::array<int, 3> kArrows = {kKeyUp, kKeyLeft, kKeyRight};  // of soft keys 1 to 3
}

Typing::Typing() {
    for (std::size_t key = 0; key < kKeyboardKeys; ++key) {
        for (std::size_t arrow = 0; arrow < kArrows.size(); ++arrow) {
            FocusKey(kKeyboard[key].code);
            keyboardWin::getInstance().moveFocus(kArrows[arrow]);
            m_next[key][arrow] = IndexOfKey(FocusedKey());
        }
    }
}

std::uint8_t Typing::KeyTowards(std::uint16_t code) const {
    const std::size_t start = IndexOfKey(FocusedKey());
    if (start == kKeyboardKeys) return kSoftKey3;
    if (kKeyboard[start].code == code) return kSoftKey4;
    // From the start outwards; each key remembers by which arrow the way to it began.
    std::array<std::uint8_t, kKeyboardKeys> firstKey{};
    std::deque<std::size_t> border = {start};
    while (!border.empty()) {
        const std::size_t key = border.front();
        border.pop_front();
        for (std::size_t arrow = 0; arrow < kArrows.size(); ++arrow) {
            const std::size_t next = m_next[key][arrow];
            if (next == start || next == kKeyboardKeys || firstKey[next] != 0) continue;
            firstKey[next] = key == start ? static_cast<std::uint8_t>(kSoftKey1 + arrow) : firstKey[key];
            border.push_back(next);
        }
    }
    return std::max(firstKey[IndexOfKey(code)], kSoftKey1);
}
