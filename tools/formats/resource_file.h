#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/formats/byte_writer.h"
#include "tools/formats/string_table.h"

constexpr std::uint8_t kFontFourBits = 0x04;
constexpr std::uint8_t kFontCompressed = 0x08;  // in the file only

constexpr std::uint8_t kBitmapRunLength = 0x01;
constexpr std::uint8_t kBitmapAlphaFirst = 0x04;
constexpr std::uint8_t kBitmapTransparent = 0x10;
constexpr std::uint8_t kBitmapAlpha = 0x80;

/// A contiguous range of characters of a font: one picture, `height` rows of `bytesPerRow` bytes, in which each
/// character owns the columns from its offset up to the next one.
struct FontPage {
    std::uint8_t flags = 0;
    std::uint8_t ascent = 0;
    std::uint8_t descent = 0;
    std::uint8_t height = 0;
    std::array<std::uint8_t, 3> kept{};
    std::uint16_t bytesPerRow = 0;
    std::uint16_t firstChar = 0;
    std::uint16_t lastChar = 0;
    std::vector<std::uint16_t> offsets;
    Bytes glyphs;

    /// Coverage 0..15 of a pixel; `column` counts from the page's left edge.
    [[nodiscard]] std::uint8_t Coverage(std::size_t column, std::size_t row) const;
    bool operator==(const FontPage&) const = default;
};

struct Font {
    std::string name;
    std::vector<FontPage> pages;

    [[nodiscard]] const FontPage* PageOf(char16_t character) const;
    /// Sum of the characters' widths; characters in no page count nothing.
    [[nodiscard]] int TextWidth(std::u16string_view text) const;
    [[nodiscard]] int Height() const;
    bool operator==(const Font&) const = default;
};

/// A bitmap as the file keeps it: `data` is run-length encoded when its flag says so, and its 16-bit words stand in
/// the machine's order.
struct Bitmap {
    std::uint32_t number = 0;
    std::uint8_t flags = 0;
    std::uint8_t bitsPerPixel = 16;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint32_t transparent = 0;
    Bytes data;

    bool operator==(const Bitmap&) const = default;
};

struct Colour {
    std::uint32_t number = 0;
    std::uint16_t value = 0;  // RGB565

    bool operator==(const Colour&) const = default;
};

struct ResourceSet {
    std::vector<Font> fonts;  // take the numbers 32, 33, ... in this order
    std::vector<Bitmap> bitmaps;
    std::vector<Colour> colours;
    std::optional<std::array<std::uint8_t, 768>> palette;

    bool operator==(const ResourceSet&) const = default;
};

struct ResourceFile {
    std::optional<StringTable> strings;  // numbers 100 and up
    std::vector<ResourceSet> sets;

    bool operator==(const ResourceFile&) const = default;
};

constexpr std::uint32_t kFirstFontNumber = 32;
constexpr std::uint32_t kFirstToolkitString = 100;

enum class Packing { Plain, Compressed };

[[nodiscard]] Bytes WriteResourceFile(const ResourceFile& file, ByteOrder order, Packing packing);

/// @throws SourceError when the bytes are no resource file; `name` stands in its message
[[nodiscard]] ResourceFile ReadResourceFile(const std::string& name, std::span<const std::uint8_t> bytes);
