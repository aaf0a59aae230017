#pragma once

#include <array>
#include <cstdint>
#include <cstring>

// Rows of RGB565 pixels: one kernel for each job, plain enough for the compiler to make wide stores of it.

/// Sets `count` pixels to a colour.
inline void FillPixels(std::uint16_t* to, int count, std::uint16_t color) {
    constexpr int kBlock = 8;
    std::array<std::uint16_t, kBlock> block;
    block.fill(color);
    if (count >= kBlock) {
        // The last block may overlap the one before it.
        std::uint16_t* const last = to + count - kBlock;
        for (; to < last; to += kBlock) std::memcpy(to, block.data(), sizeof block);
        std::memcpy(last, block.data(), sizeof block);
        return;
    }
    for (int part = kBlock / 2; part > 0; part /= 2) {
        if ((count & part) == 0) continue;
        std::memcpy(to, block.data(), static_cast<std::size_t>(part) * sizeof *to);
        to += part;
    }
}

/// Blends `count` pixels of two words each, colour and strength, over what is there: each channel becomes
/// (colour x strength + below x (256 - strength)) / 256. A strength of 255 and more covers what is below; pixels of
/// the colour `key` change nothing when `keyed`.
/// @tparam colorWord  which of the two words is the colour
template <int colorWord>
void BlendPixels(std::uint16_t* to, const std::uint16_t* from, int count, bool keyed, std::uint16_t key) {
    using Word = std::uint16_t;
    constexpr Word kOpaque = 255;
    const Word keyMask = keyed ? 0xFFFF : 0;
    for (int i = 0; i < count; ++i) {
        const Word color = from[2 * i + colorWord];
        const Word given = from[2 * i + 1 - colorWord];
        const Word alpha = given >= kOpaque ? Word{256} : given;
        const Word strength = color == key ? static_cast<Word>(alpha & ~keyMask) : alpha;
        const Word rest = static_cast<Word>(256 - strength);
        const Word below = to[i];
        const Word red = static_cast<Word>((color >> 11) * strength + (below >> 11) * rest);
        const Word green = static_cast<Word>((color >> 5 & 0x3F) * strength + (below >> 5 & 0x3F) * rest);
        const Word blue = static_cast<Word>((color & 0x1F) * strength + (below & 0x1F) * rest);
        to[i] = static_cast<Word>(red >> 8 << 11 | green >> 8 << 5 | blue >> 8);
    }
}
