#include <algorithm>
#include <cstring>

#include "peg/port/l16_screen.h"
#include "peg/port/pixel_rows.h"
#include "peg/resources/resources.h"

// Bitmaps of every format, cut to the visible area.

namespace {

/// Puts pixels of one format into a row of the frame. The source is in units of the format: bytes or 16-bit words.
class Painter {
public:
    explicit Painter(const PegBitmap& bitmap)
        : m_transparent(bitmap.transparent),
          m_skips(bitmap.Has(PegBitmap::kTransparent)),
          m_alphaFirst(bitmap.Has(PegBitmap::kAlphaFirst)) {}

    void Copy(std::uint16_t* to, const std::uint8_t* from, int count) const {
        const auto& colors = PegResources::IndexedColors();
        for (int i = 0; i < count; ++i) {
            if (!m_skips || from[i] != m_transparent) to[i] = colors[from[i]];
        }
    }
    void Repeat(std::uint16_t* to, const std::uint8_t* from, int count) const {
        if (!m_skips || *from != m_transparent) FillPixels(to, count, PegResources::IndexedColors()[*from]);
    }

    void Copy(std::uint16_t* to, const std::uint16_t* from, int count) const {
        if (!m_skips) {
            std::memmove(to, from, static_cast<std::size_t>(count) * sizeof *to);
            return;
        }
        for (int i = 0; i < count; ++i) {
            if (from[i] != m_transparent) to[i] = from[i];
        }
    }
    void Repeat(std::uint16_t* to, const std::uint16_t* from, int count) const {
        if (!m_skips || *from != m_transparent) FillPixels(to, count, *from);
    }

    void Blend(std::uint16_t* to, const std::uint16_t* from, int count) const {
        if (m_alphaFirst) {
            BlendPixels<1>(to, from, count, m_skips, kTransparentPixel);
        } else {
            BlendPixels<0>(to, from, count, m_skips, kTransparentPixel);
        }
    }
    void BlendRepeat(std::uint16_t* to, const std::uint16_t* from, int count) const {
        for (int i = 0; i < count; ++i) Blend(to + i, from, 1);
    }

private:
    std::uint32_t m_transparent;
    bool m_skips;
    bool m_alphaFirst;
};

/// Walks the runs of a run-length bitmap from its first row and hands each run that meets the columns `left` to `right`
/// of a row from `top` on to `paint(row, column, source, count, repeated)`.
template <typename Count, typename Paint>
void WalkRuns(const Count* data, int unitsPerPixel, const PegBitmap& bitmap, const PegRect& part, Paint paint) {
    constexpr unsigned kLiteral = 1U << (sizeof(Count) * 8 - 1);
    for (int row = 0; row <= part.bottom; ++row) {
        for (int column = 0; column < bitmap.width;) {
            const unsigned count = *data++;
            const bool literal = (count & kLiteral) != 0;
            const int pixels = static_cast<int>(count & (kLiteral - 1)) + 1;
            const int first = std::max<int>(column, part.left);
            const int last = std::min<int>(column + pixels - 1, part.right);
            if (row >= part.top && first <= last) {
                paint(row, first, data + (literal ? (first - column) * unitsPerPixel : 0), last - first + 1, !literal);
            }
            data += (literal ? pixels : 1) * unitsPerPixel;
            column += pixels;
        }
    }
}

}  // namespace

void L16Screen::PaintBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) {
    if (bitmap.Has(PegBitmap::kRunLength)) {
        PaintRunLength(area, topLeft, bitmap);
        return;
    }
    const Painter painter(bitmap);
    const bool gapless = area.Width() == Width() && bitmap.width == Width();
    if (gapless && bitmap.bitsPerPixel == 16) {
        painter.Copy(RowAt(area.top), bitmap.data + std::ptrdiff_t{area.top - topLeft.y} * Width(),
                     area.Height() * Width());
        return;
    }
    for (int y = area.top; y <= area.bottom; ++y) {
        const std::ptrdiff_t first = static_cast<std::ptrdiff_t>(y - topLeft.y) * bitmap.width + area.left - topLeft.x;
        std::uint16_t* to = RowAt(y) + area.left;
        switch (bitmap.bitsPerPixel) {
            case 8: painter.Copy(to, bitmap.Bytes() + first, area.Width()); break;
            case 16: painter.Copy(to, bitmap.data + first, area.Width()); break;
            default: painter.Blend(to, bitmap.data + 2 * first, area.Width()); break;
        }
    }
}

void L16Screen::PaintRunLength(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) {
    const Painter painter(bitmap);
    PegRect part = area;
    part.Shift(-topLeft.x, -topLeft.y);
    const auto copy = [&](int row, int column, const auto* from, int count, bool repeated) {
        std::uint16_t* to = RowAt(topLeft.y + row) + topLeft.x + column;
        if (repeated) {
            painter.Repeat(to, from, count);
        } else {
            painter.Copy(to, from, count);
        }
    };
    const auto blend = [&](int row, int column, const std::uint16_t* from, int count, bool repeated) {
        std::uint16_t* to = RowAt(topLeft.y + row) + topLeft.x + column;
        if (repeated) {
            painter.BlendRepeat(to, from, count);
        } else {
            painter.Blend(to, from, count);
        }
    };
    switch (bitmap.bitsPerPixel) {
        case 8: WalkRuns(bitmap.Bytes(), 1, bitmap, part, copy); break;
        case 16: WalkRuns(bitmap.data, 1, bitmap, part, copy); break;
        default: WalkRuns(bitmap.data, 2, bitmap, part, blend); break;
    }
}
