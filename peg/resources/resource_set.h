#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "peg/resources/bitmap.h"
#include "peg/resources/font.h"
#include "peg/resources/pixels.h"

/// One page of a loaded font with the memory it stands in.
struct LoadedPage {
    PegFont page{};
    std::vector<std::uint16_t> offsets;
    std::vector<std::uint8_t> glyphs;  // one bit a pixel
    PackedGlyphs packed;               // four bits
};

struct LoadedFont {
    std::uint32_t number = 0;
    std::vector<std::unique_ptr<LoadedPage>> pages;  // chained in this order, never empty
};

struct LoadedBitmap {
    std::uint32_t number = 0;
    PegBitmap bitmap{};
    PixelBlock pixels;
    std::size_t bytes = 0;  // of pixels, or of the runs that make them
};

struct LoadedColor {
    std::uint32_t number = 0;
    std::uint16_t value = 0;  // RGB565
};

using Palette = std::array<std::array<std::uint8_t, 3>, 256>;  // red, green, blue

/// What one set of a resource file brings: it owns the fonts and bitmaps that the tables then point at.
struct PegResourceSet {
    std::vector<LoadedFont> fonts;
    std::vector<std::unique_ptr<LoadedBitmap>> bitmaps;
    std::vector<LoadedColor> colors;
    std::unique_ptr<Palette> palette;
};
