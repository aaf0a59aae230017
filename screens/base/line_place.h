#pragma once

#include "peg/core/rect.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

/// The place of a text of a font whose letters stand on line `y`.
inline PegRect PlaceOnLine(int y, int left, int right, std::uint32_t font) {
    const int height = PegScreen::FontHeight(PegResources::GetFont(font));
    const int top = y - height + height / 5 - 2;
    return RectOf(left, top, right, top + height);
}
