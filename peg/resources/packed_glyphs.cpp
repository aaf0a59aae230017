#include "peg/resources/packed_glyphs.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>

namespace {

constexpr int kPixelsPerStep = 4;
constexpr int kStepsPerWord = 4;
constexpr int kPixelsPerWord = kStepsPerWord * kPixelsPerStep;

static_assert(std::endian::native == std::endian::little, "a word's lowest byte comes first in memory");

/// 16 pixels of a row from any column on, the first in the upper half of the lowest byte.
std::uint64_t PixelsAt(const std::uint8_t* row, int column) {
    constexpr std::uint64_t kUpperHalves = 0xF0F0F0F0F0F0F0F0;
    std::uint64_t word;
    std::memcpy(&word, row + column / 2, sizeof word);
    if (column % 2 == 0) return word;
    const std::uint64_t next = word >> 8 | std::uint64_t{row[column / 2 + 8]} << 56;
    return (word << 4 & kUpperHalves) | (next >> 4 & ~kUpperHalves);
}

/// What of a glyph's last word of 16 pixels remains when only its first 1 to 16 pixels count.
std::uint64_t FirstPixels(int count) {
    std::uint64_t mask = 0;
    for (int pixel = 0; pixel < count; ++pixel)
        mask |= std::uint64_t{0xF} << (8 * (pixel / 2) + (pixel % 2 == 0 ? 4 : 0));
    return mask;
}

/// Writes a row of a glyph in `words` words; of the last one, what `lastPixels` covers. @return whether there is ink
bool PackRow(std::uint16_t* to, const std::uint8_t* row, int column, int words, std::uint64_t lastPixels) {
    std::uint64_t ink = 0;
    for (int word = 0; word < words; ++word, to += kStepsPerWord, column += kPixelsPerWord) {
        std::uint64_t pixels = PixelsAt(row, column);
        if (word + 1 == words) pixels &= lastPixels;
        std::memcpy(to, &pixels, sizeof pixels);
        ink |= pixels;
    }
    return ink != 0;
}

int StepsFor(int width) { return (width + kPixelsPerStep - 1) / kPixelsPerStep; }

}  // namespace

PackedGlyphs PackGlyphs(const std::uint8_t* rows, int height, int bytesPerRow, std::span<const std::uint16_t> offsets) {
    const std::size_t count = offsets.size() - 1;
    const auto widthOf = [&](std::size_t i) { return offsets[i + 1] - offsets[i]; };
    std::size_t most = kStepsPerWord;  // steps, with room for the last word
    for (std::size_t i = 0; i < count; ++i) most += static_cast<std::size_t>(StepsFor(widthOf(i)) * height);
    const auto steps = std::make_unique_for_overwrite<std::uint16_t[]>(most);

    PackedGlyphs packed;
    packed.glyphs.reserve(count);
    std::uint16_t* end = steps.get();  // of the rows with ink so far
    for (std::size_t i = 0; i < count; ++i) {
        const int stepsPerRow = StepsFor(widthOf(i));
        PackedGlyph glyph{static_cast<std::uint32_t>(end - steps.get()), static_cast<std::uint16_t>(stepsPerRow), 0, 0};
        const int words = (widthOf(i) + kPixelsPerWord - 1) / kPixelsPerWord;
        const std::uint64_t lastPixels = FirstPixels(widthOf(i) - (words - 1) * kPixelsPerWord);
        std::uint16_t* to = end;
        for (int y = 0; y < height; ++y) {
            const bool hasInk = PackRow(to, rows + std::ptrdiff_t{y} * bytesPerRow, offsets[i], words, lastPixels);
            if (!hasInk && to == end && glyph.rows == 0) {
                glyph.top = static_cast<std::uint8_t>(y + 1);
                continue;
            }
            to += stepsPerRow;
            if (!hasInk) continue;
            end = to;
            glyph.rows = static_cast<std::uint8_t>(y + 1 - glyph.top);
        }
        packed.glyphs.push_back(glyph);
    }
    packed.steps.assign(steps.get(), end);
    return packed;
}
