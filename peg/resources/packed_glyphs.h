#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// One glyph of four bits a pixel as text drawing wants it: only its rows with ink, four pixels a step.
struct PackedGlyph {
    std::uint32_t firstStep;  // in the steps of its page
    std::uint16_t stepsPerRow;
    std::uint8_t top;  // of its first row, from the top of the page
    std::uint8_t rows;
};

/// The glyphs of one page. A step holds the leftmost pixel in the upper half of its low byte; what lies right of a
/// glyph's last pixel has no coverage.
struct PackedGlyphs {
    std::vector<PackedGlyph> glyphs;   // by character, from the page's first on
    std::vector<std::uint16_t> steps;  // row after row, glyph after glyph
};

/// Bytes that must be readable behind the rows of a page that is packed.
inline constexpr std::size_t kPackingReadsBeyond = 16;

/// Packs the glyphs of a page of `height` rows of `bytesPerRow` bytes, side by side from column to column of `offsets`.
PackedGlyphs PackGlyphs(const std::uint8_t* rows, int height, int bytesPerRow, std::span<const std::uint16_t> offsets);
