#pragma once

#include <array>

#include "peg/core/text_thing.h"

/// Shows a text from the buffer that the thing keeps pointing at. The same text again changes nothing on the panel.
template <std::size_t size>
void ShowText(PegTextThing& thing, std::array<char16_t, size>& shown, const std::array<char16_t, size>& text) {
    if (shown == text) return;
    shown = text;
    thing.SetText(shown.data());
}
