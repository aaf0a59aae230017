#pragma once

#include <algorithm>
#include <cstdint>

#include "navigation/geometry.h"
#include "rda/records/power_quality.h"

/// The lines of the chart and how wide it is.
inline constexpr int kChartLeft = Divided(kPanelWidth, 7.44);
inline constexpr int kChartRight = Divided(kPanelWidth, 1.03);
inline constexpr int kChartTop = Divided(kPanelHeight, 2.18);
inline constexpr int kChartBottom = Divided(kPanelHeight, 1.2);
static_assert(kChartLeft == 43 && kChartRight == 310 && kChartTop == 110 && kChartBottom == 200);

inline constexpr int kFullBarHeight = kChartBottom - kChartTop - 2;
static_assert(kFullBarHeight == 88);

/// How many harmonics a chart has, and where their bars stand.
struct BarLayout {
    static constexpr std::uint32_t kUsualHarmonics = 31;

    int harmonics;
    int pitch;
    int width;

    /// The left edge of a harmonic's bar; the fundamental is harmonic 0 here.
    constexpr int Left(int index) const { return kChartLeft + 3 + pitch * index; }
};

/// The layout for as many harmonics as the meter wants shown: the usual number for 0, and no more than a spectrum has.
constexpr BarLayout BarLayoutFor(std::uint32_t wanted) {
    constexpr int kGap = Divided(kPanelWidth, kPanelWidth);
    constexpr auto kMost = static_cast<std::uint32_t>(kMaxHarmonics);
    const int harmonics = static_cast<int>(wanted == 0 ? BarLayout::kUsualHarmonics : std::min(wanted, kMost));
    const int pitch = (kChartRight - kChartLeft) / harmonics;
    return {.harmonics = harmonics, .pitch = pitch, .width = pitch - kGap};
}
static_assert(BarLayoutFor(31).pitch == 8 && BarLayoutFor(31).width == 7 && BarLayoutFor(0).harmonics == 31);
static_assert(BarLayoutFor(63).pitch == 4 && BarLayoutFor(63).width == 3 && BarLayoutFor(64).harmonics == 63);
static_assert(BarLayoutFor(63).Left(1) == 50 && BarLayoutFor(63).Left(62) == 294);

/// How high a magnitude's bar is. One above the full scale is higher than the chart, up to the height of the panel.
constexpr int BarHeight(std::uint32_t magnitude, std::uint32_t fullScale) {
    if (fullScale == 0) return 0;
    const std::uint64_t height = std::uint64_t{kFullBarHeight} * magnitude / fullScale;
    return static_cast<int>(std::min<std::uint64_t>(height, kPanelHeight));
}
static_assert(BarHeight(100, 100) == 88 && BarHeight(1, 88) == 1 && BarHeight(1, 89) == 0 && BarHeight(7, 0) == 0);
static_assert(BarHeight(110, 100) == 96 && BarHeight(0xFFFFFFFF, 0xFFFFFFFF) == 88);
static_assert(BarHeight(0xFFFFFFFF, 1) == kPanelHeight);
