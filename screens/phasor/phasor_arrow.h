#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "peg/core/sine_table.h"

/// Pixels right of and below the centre of the diagram.
struct ArrowPoint {
    int x;
    int y;

    friend constexpr bool operator==(const ArrowPoint&, const ArrowPoint&) = default;
};

/// An arrow from the centre of the diagram to its tip, with a head of two lines at 30 degrees to the shaft.
struct PhasorArrow {
    ArrowPoint tip;
    std::array<ArrowPoint, 2> barbs;  // ends of the head's lines
    bool alongAnAxis;                 // drawn wider, since such a shaft looks thinner than a sloped one
};

inline constexpr int kPhasorRadius = 76;

/// The arrow of a phasor of which the longest shown one, `longest`, reaches the circle. A negative magnitude points
/// the other way; far outside the diagram it is cut.
constexpr PhasorArrow ArrowOf(std::int32_t magnitude, std::int32_t longest, std::int32_t angle) {
    constexpr std::int64_t kLongestShaft = 1024;
    constexpr int kBarbFactor = 5;  // 5 * 1024 >> 9: barbs of 10 pixels
    constexpr int kBarbShift = 9;
    const std::int64_t length = longest == 0 ? 0 : std::int64_t{kPhasorRadius} * magnitude / longest;
    const auto shaft = static_cast<int>(std::clamp(length, -kLongestShaft, kLongestShaft));
    const int degrees = angle % 360;
    const ArrowPoint tip{shaft * CosineOf(degrees) >> kSineShift, -(shaft * SineOf(degrees) >> kSineShift)};
    const ArrowPoint left{tip.x - (kBarbFactor * CosineOf(degrees - 30) >> kBarbShift),
                          tip.y + (kBarbFactor * SineOf(degrees - 30) >> kBarbShift)};
    const ArrowPoint right{tip.x - (kBarbFactor * SineOf(60 - degrees) >> kBarbShift),
                           tip.y + (kBarbFactor * CosineOf(60 - degrees) >> kBarbShift)};
    return {tip, {left, right}, angle > -360 && angle < 360 && angle % 90 == 0};
}

static_assert(ArrowOf(100, 100, 90).tip == ArrowPoint{0, -76} && ArrowOf(100, 100, 90).alongAnAxis);
static_assert(ArrowOf(100, 100, -30).tip == ArrowPoint{65, 38} && !ArrowOf(100, 100, -30).alongAnAxis);
static_assert(ArrowOf(0, 0, 0).tip == ArrowPoint{0, 0} && ArrowOf(-1, 0, 45).tip == ArrowPoint{0, 0});
static_assert(ArrowOf(-50, 100, 0).tip == ArrowPoint{-38, 0} && !ArrowOf(1, 1, 360).alongAnAxis);
static_assert(ArrowOf(100, 100, 0).barbs == std::array{ArrowPoint{68, -5}, ArrowPoint{68, 5}});
static_assert(ArrowOf(INT32_MAX, INT32_MAX, INT32_MIN).tip == ArrowOf(1, 1, -128).tip);
