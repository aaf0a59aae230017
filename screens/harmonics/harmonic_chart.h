#pragma once

#include <array>

#include "navigation/power_quality_display.h"
#include "peg/core/thing.h"
#include "screens/harmonics/bar_layout.h"

/// A bar for each harmonic but the fundamental, between two axes, with numbers under some; the selected bar stands out.
class HarmonicChart : public PegThing {
public:
    /// A chart on the lines of bar_layout.h; `top` is as far as bars reach that go beyond the scale.
    HarmonicChart(int top, const BarLayout& layout, std::uint32_t axisColor);

    void Draw(const PegRect& invalid) override;

    /// Takes a spectrum and the index of the selected harmonic; the same again change nothing on the panel.
    void Show(const HarmonicDisplay& spectrum, int selected);

private:
    void AddNumbers();

    BarLayout m_layout;
    std::uint32_t m_axisColor;
    int m_selected = 0;
    std::array<int, kMaxHarmonics> m_heights{};
};
