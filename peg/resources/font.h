#pragma once

#include <cstdint>
#include <string_view>

#include "peg/resources/packed_glyphs.h"

/// One page of a font: the glyphs of a run of character codes. Pages are chained; a font is named by its first page.
struct PegFont {
    static constexpr std::uint8_t kBuiltIn = 0x01;
    static constexpr std::uint8_t kFourBits = 0x04;    // 16 levels of coverage a pixel; clear: one bit a pixel
    static constexpr std::uint8_t kCompressed = 0x08;  // in a file only

    std::uint8_t flags;
    std::uint8_t ascent;   // pixels above the base line
    std::uint8_t descent;  // pixels below it
    std::uint8_t height;   // rows of every glyph
    std::uint8_t kept[2];
    std::uint8_t underline;  // thickness of an underline is 1 + (underline >> 5) pixels
    std::uint16_t
        bytesPerRow;  // of a page in a file, or of one bit a pixel: the glyphs side by side in one wide picture
    std::uint16_t firstChar;
    std::uint16_t lastChar;
    const std::uint16_t* offsets;  // lastChar - firstChar + 2 pixel columns, never falling
    const PegFont* next;
    const std::uint8_t* glyphs;  // one bit a pixel: height rows of bytesPerRow bytes, top row first
    const PackedGlyphs* packed;  // four bits a pixel

    bool Holds(char16_t code) const { return code >= firstChar && code <= lastChar; }
    int Column(char16_t code) const { return offsets[code - firstChar]; }
    int Width(char16_t code) const { return offsets[code - firstChar + 1] - offsets[code - firstChar]; }
    int PixelsPerByte() const { return (flags & kFourBits) != 0 ? 2 : 8; }
};

/// The first page that holds a character, or null.
const PegFont* PageOf(const PegFont* font, char16_t code);

/// The largest height of the font's pages in pixels; 0 without a font.
int HeightOf(const PegFont* font);

/// The sum of the characters' widths in pixels; characters in no page count 0.
int WidthOf(std::u16string_view text, const PegFont* font);
