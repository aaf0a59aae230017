#include "peg/resources/bitmap.h"

namespace {

/// Walks the runs of one row. Returns the index behind them, or `size` + 1 when they leave the data or miss the width.
template <typename Count>
std::size_t SkipRow(const Count* data, std::size_t size, std::size_t at, unsigned width, std::size_t unitsPerPixel) {
    constexpr unsigned kLiteral = 1U << (sizeof(Count) * 8 - 1);
    for (unsigned covered = 0; covered < width;) {
        if (at >= size) return size + 1;
        const unsigned count = data[at];
        const unsigned pixels = (count & (kLiteral - 1)) + 1;
        at += 1 + ((count & kLiteral) != 0 ? pixels : 1U) * unitsPerPixel;
        covered += pixels;
        if (covered > width || at > size) return size + 1;
    }
    return at;
}

template <typename Count>
bool RunsFit(const Count* data, std::size_t size, const PegBitmap& bitmap, std::size_t unitsPerPixel) {
    std::size_t at = 0;
    for (int row = 0; row < bitmap.height && at <= size; ++row) {
        at = SkipRow(data, size, at, bitmap.width, unitsPerPixel);
    }
    return at <= size;
}

}  // namespace

bool HoldsItsRows(const PegBitmap& bitmap, std::size_t size) {
    const bool alpha = bitmap.bitsPerPixel == 32;
    if (bitmap.bitsPerPixel != 8 && bitmap.bitsPerPixel != 16 && !alpha) return false;
    if (alpha != bitmap.Has(PegBitmap::kAlpha)) return false;
    if (!bitmap.Has(PegBitmap::kRunLength)) {
        return size == std::size_t{bitmap.width} * bitmap.height * (bitmap.bitsPerPixel / 8U);
    }
    if (bitmap.bitsPerPixel == 8) return RunsFit(bitmap.Bytes(), size, bitmap, 1);
    return RunsFit(bitmap.data, size / 2, bitmap, alpha ? 2 : 1);
}
