#pragma once

#include <array>
#include <cstdint>

#include "rda/records/power_quality.h"

/// One phasor as the phasor screen shows it: labels in the selected language, figures as the meter wrote them.
struct PhasorDisplay {
    std::array<char16_t, 40> magnitudeLabel{};
    std::array<char16_t, 40> magnitudeText{};
    std::int32_t magnitude = 0;
    std::array<char16_t, 40> angleLabel{};
    std::array<char16_t, 40> angleText{};
    std::int32_t angle = 0;   // degrees
    std::uint32_t shown = 0;  // 1: drawn in the diagram
};
static_assert(sizeof(PhasorDisplay) == 332);

/// A spectrum and the figures of its selected harmonic. Without an answer: no magnitudes, no texts, a scale of 1.
struct HarmonicDisplay {
    std::array<std::uint32_t, kMaxHarmonics> magnitudes{};  // entry 0 is the fundamental
    std::uint32_t fullScale = 1;                            // the magnitude that fills the chart
    std::uint32_t labelChoice = 0;                          // 1: the other label for the first figure
    std::array<std::array<char16_t, 40>, static_cast<std::size_t>(HarmonicText::Count)> texts{};

    const std::array<char16_t, 40>& Text(HarmonicText place) const { return texts[static_cast<std::size_t>(place)]; }

    friend bool operator==(const HarmonicDisplay&, const HarmonicDisplay&) = default;
};
static_assert(sizeof(HarmonicDisplay) == 980);

/// One value of a bar.
struct MinMaxDisplayValue {
    alignas(8) std::uint32_t valid = 0;
    alignas(8) double value = 0.0;
    std::array<char16_t, 48> text{};
};

/// A quantity's extremes and its present value. Whether the minimum is valid counts for the maximum too.
struct MinMaxBarDisplay {
    MinMaxDisplayValue minimum;
    MinMaxDisplayValue maximum;
    MinMaxDisplayValue present;
    std::array<char16_t, 40> label{};

    bool IsValid() const { return minimum.valid == 1 && present.valid != 0; }
};
static_assert(sizeof(MinMaxBarDisplay) == 416);
