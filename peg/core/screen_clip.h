#pragma once

#include <algorithm>
#include <limits>

#include "peg/core/rect.h"

/// A rectangle from coordinates that may lie far outside the screen.
constexpr PegRect ClampedRect(int left, int top, int right, int bottom) {
    constexpr auto clamp = [](int value) {
        return std::clamp<int>(value, std::numeric_limits<std::int16_t>::min(),
                               std::numeric_limits<std::int16_t>::max());
    };
    return RectOf(clamp(left), clamp(top), clamp(right), clamp(bottom));
}
