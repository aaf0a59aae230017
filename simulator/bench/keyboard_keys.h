#pragma once

#include "navigation/entry/keyboard_window.h"
#include "peg/core/presentation_manager.h"
#include "peg/core/toolkit.h"

// The keys of the on-screen keyboard as tests reach them: by their codes.

/// The button that stands in a key's place.
inline PegThing& KeyButton(std::uint16_t code) {
    const PegRect place = PlaceOf(kKeyboard[IndexOfKey(code)]);
    PegThing* child = keyboardWin::getInstance().FirstChild();
    while (child->Real() != place) child = child->Next();
    return *child;
}

inline void FocusKey(std::uint16_t code) { toolkit.manager->SetFocus(KeyButton(code)); }

/// The code of the key in focus, or 0.
inline std::uint16_t FocusedKey() {
    for (const KeyboardKey& key : kKeyboard) {
        if (&KeyButton(key.code) == toolkit.manager->Focus()) return key.code;
    }
    return 0;
}
