#pragma once

#include <array>
#include <cstddef>

#include "rda/wire.h"

/// One voltage or current phasor.
struct PhasorEntry {
    std::array<char, 40> magnitudeLabel;
    std::array<char, 40> magnitudeText;
    WireI32 magnitude;  // in a unit common to all phasors of a reply
    std::array<char, 40> angleLabel;
    std::array<char, 40> angleText;
    WireI32 angle;  // whole degrees, counter-clockwise from the positive x axis
    WireU32 shown;  // 1: drawn in the diagram
};
static_assert(sizeof(PhasorEntry) == 172 && kIsWireRecord<PhasorEntry>);
static_assert(offsetof(PhasorEntry, magnitudeText) == 40 && offsetof(PhasorEntry, magnitude) == 80);
static_assert(offsetof(PhasorEntry, angleLabel) == 84 && offsetof(PhasorEntry, angleText) == 124);
static_assert(offsetof(PhasorEntry, angle) == 164 && offsetof(PhasorEntry, shown) == 168);

inline constexpr std::size_t kMaxHarmonics = 63;

/// The places of the texts of a HarmonicData.
enum class HarmonicText : std::size_t {
    First,
    Second,
    Third,
    Fourth,
    FourthInParentheses,
    Fifth,
    AxisTop,
    AxisMiddle,
    AxisBottom,
    Count
};

/// The spectrum of one channel, and the figures of its selected harmonic.
struct HarmonicData {
    std::array<WireU32, kMaxHarmonics> magnitudes;  // entry 0 is the fundamental
    WireU32 unused;
    WireU32 fullScale;    // the magnitude that fills the chart
    WireU32 labelChoice;  // 1: the other label for the first figure
    std::array<std::array<char, 40>, static_cast<std::size_t>(HarmonicText::Count)> texts;
    std::array<std::uint8_t, 16> reserved;

    [[nodiscard]] std::string_view Text(HarmonicText place) const {
        return TextIn(texts[static_cast<std::size_t>(place)]);
    }
};
static_assert(sizeof(HarmonicData) == 640 && kIsWireRecord<HarmonicData>);
static_assert(offsetof(HarmonicData, fullScale) == 256 && offsetof(HarmonicData, labelChoice) == 260);
static_assert(offsetof(HarmonicData, texts) == 264);

/// One value of a bar.
struct MinMaxValue {
    WireU32 valid;
    WireU32 unused;
    WireF64 value;
};
static_assert(offsetof(MinMaxValue, valid) == 0 && offsetof(MinMaxValue, value) == 8);

/// A quantity's extremes and its present value.
struct MinMaxBarData {
    MinMaxValue minimum;  // valid: 1
    std::array<char, 48> minimumText;
    MinMaxValue maximum;
    std::array<char, 48> maximumText;
    MinMaxValue present;  // valid: any but 0
    std::array<char, 45> presentText;
    std::array<char, 43> label;
};
static_assert(sizeof(MinMaxBarData) == 232 && kIsWireRecord<MinMaxBarData>);
static_assert(offsetof(MinMaxBarData, minimumText) == 16 && offsetof(MinMaxBarData, maximum) == 64);
static_assert(offsetof(MinMaxBarData, maximumText) == 80 && offsetof(MinMaxBarData, present) == 128);
static_assert(offsetof(MinMaxBarData, presentText) == 144 && offsetof(MinMaxBarData, label) == 189);
