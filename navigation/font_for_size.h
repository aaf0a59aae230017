#pragma once

#include <array>
#include <cstdint>

/// The font of a nominal pixel size `size` on a panel of `height` lines, scaled to one of 240. @return -1 below 1 pixel
constexpr std::int32_t FontForSize(int size, int height) {
    struct Step {
        int upTo;
        std::int32_t font;
    };
    constexpr auto kSteps = std::to_array<Step>({
        {0, -1},
        {10, 32},
        {11, 33},
        {12, 34},
        {13, 35},
        {14, 36},
        {15, 37},
        {17, 38},
        {18, 39},
        {20, 40},
        {23, 41},
        {25, 42},
        {33, 43},
        {34, 44},
        {43, 45},
        {51, 47},
        {63, 46},
    });
    constexpr std::int32_t kLargestFont = 48;
    const int scaled = static_cast<int>(static_cast<float>(size) * static_cast<float>(height) / 240.0F);
    for (const Step& step : kSteps) {
        if (scaled <= step.upTo) return step.font;
    }
    return kLargestFont;
}
static_assert(FontForSize(0, 240) == -1 && FontForSize(11, 240) == 33 && FontForSize(14, 240) == 36);
static_assert(FontForSize(17, 240) == 38 && FontForSize(44, 240) == 47 && FontForSize(52, 240) == 46);
static_assert(FontForSize(64, 240) == 48 && FontForSize(22, 480) == 47);
