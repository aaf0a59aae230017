#pragma once

#include <cstdint>
#include <memory>

#include "peg/resources/bitmap.h"
#include "peg/resources/resource_set.h"

/// With what lines, rectangles, arcs and text are drawn. Colours are RGB565.
struct PegBrush {
    static constexpr std::uint32_t kFill = 0x01;       // shapes filled with the background colour; text opaque
    static constexpr std::uint32_t kPattern = 0x02;    // shapes filled by tiling the pattern
    static constexpr std::uint32_t kUnderline = 0x20;  // text
    static constexpr std::uint32_t kCentred = 0x80;    // a wide line lies on both sides of its coordinates

    PegBrush() = default;
    PegBrush(std::uint16_t foregroundColor, std::uint16_t backgroundColor, std::uint32_t styleBits = 0,
             std::int32_t lineWidth = 1)
        : foreground(foregroundColor), background(backgroundColor), width(lineWidth), style(styleBits) {}

    bool Has(std::uint32_t bit) const { return (style & bit) != 0; }

    std::uint16_t foreground = 0;
    std::uint16_t background = 0;
    std::int32_t width = 1;  // pixels
    std::uint32_t style = 0;
    const PegBitmap* pattern = nullptr;
    std::unique_ptr<LoadedBitmap> ownedBitmap;  // lives as long as the brush
};
