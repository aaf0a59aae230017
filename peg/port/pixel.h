#pragma once

#include <array>
#include <cstdint>

/// Arithmetic on RGB565 pixels.

/// The colours of the 16 levels of coverage between a background and a foreground.
using ColorRamp = std::array<std::uint16_t, 16>;

constexpr ColorRamp RampBetween(std::uint16_t background, std::uint16_t foreground) {
    ColorRamp ramp{};
    for (int step = 0; step < 15; ++step) {
        const auto channel = [=](int shift, int mask) {
            const int from = background >> shift & mask;
            const int to = foreground >> shift & mask;
            return (from + ((step * (to - from)) >> 4)) << shift;
        };
        ramp[static_cast<std::size_t>(step)] =
            static_cast<std::uint16_t>(channel(11, 0x1F) | channel(5, 0x3F) | channel(0, 0x1F));
    }
    ramp[15] = foreground;
    return ramp;
}

/// How the glyphs of a text in one colour on one background are drawn.
struct GlyphColors {
    /// What a byte of a glyph, two pixels side by side, does to two pixels of the frame as one word of memory: bits
    /// that it keeps, and bits that it sets.
    struct Pair {
        std::uint32_t kept;
        std::uint32_t color;
    };

    ColorRamp ramp{};
    std::array<Pair, 256> pairs{};

    GlyphColors() : GlyphColors(0, 0) {}
    GlyphColors(std::uint16_t background, std::uint16_t foreground) : ramp(RampBetween(background, foreground)) {
        for (unsigned pair = 0; pair < pairs.size(); ++pair) {
            const unsigned left = pair >> 4;
            const unsigned right = pair & 0xF;
            pairs[pair] = {PairOf(left != 0 ? 0 : 0xFFFF, right != 0 ? 0 : 0xFFFF),
                           PairOf(left != 0 ? ramp[left] : 0, right != 0 ? ramp[right] : 0)};
        }
    }

    bool AreOf(std::uint16_t background, std::uint16_t foreground) const {
        return ramp[0] == background && ramp[15] == foreground;
    }

private:
    /// The left pixel comes first in memory, which on this processor is the low half.
    static constexpr std::uint32_t PairOf(std::uint32_t left, std::uint32_t right) { return left | right << 16; }
};
