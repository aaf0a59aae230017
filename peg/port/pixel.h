#pragma once

#include <array>
#include <cstdint>

/// Arithmetic on RGB565 pixels.

/// The three channels of a pixel spread over a word, with room above each for a product with 256.
constexpr std::uint64_t SpreadPixel(std::uint16_t pixel) {
    return (pixel & 0x001FU) | std::uint64_t{pixel & 0x07E0U} << 11 | std::uint64_t{pixel & 0xF800U} << 21;
}

constexpr std::uint16_t GatherPixel(std::uint64_t spread) {
    return static_cast<std::uint16_t>((spread & 0x1F) | (spread >> 11 & 0x07E0) | (spread >> 21 & 0xF800));
}
static_assert(GatherPixel(SpreadPixel(0xA5C3)) == 0xA5C3);

/// (source x alpha + destination x (256 - alpha)) / 256 on each channel; alpha is 0 to 256.
constexpr std::uint16_t BlendPixel(std::uint16_t source, std::uint16_t destination, unsigned alpha) {
    return GatherPixel((SpreadPixel(source) * alpha + SpreadPixel(destination) * (256 - alpha)) >> 8);
}
static_assert(BlendPixel(0xFFFF, 0x0000, 128) == 0x7BEF && BlendPixel(0x1234, 0xFEDC, 0) == 0xFEDC);

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

/// What a byte of a four-bit glyph, two pixels side by side, does to two pixels of the frame as one word of memory.
struct PixelPairs {
    std::array<std::uint32_t, 256> colors{};

    explicit PixelPairs(const ColorRamp& ramp) {
        for (unsigned pair = 0; pair < colors.size(); ++pair) {
            colors[pair] = PairOf(pair >> 4 != 0 ? ramp[pair >> 4] : 0, (pair & 0xF) != 0 ? ramp[pair & 0xF] : 0);
        }
    }

    /// The left pixel comes first in memory, which on this processor is the low half.
    static constexpr std::uint32_t PairOf(std::uint32_t left, std::uint32_t right) { return left | right << 16; }
};

/// The pixels of a pair that a glyph's byte leaves alone.
inline constexpr auto kKeptOfPair = [] {
    std::array<std::uint32_t, 256> masks{};
    for (unsigned pair = 0; pair < masks.size(); ++pair) {
        masks[pair] = PixelPairs::PairOf(pair >> 4 != 0 ? 0 : 0xFFFF, (pair & 0xF) != 0 ? 0 : 0xFFFF);
    }
    return masks;
}();
