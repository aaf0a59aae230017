#include <algorithm>
#include <cstring>

#include "peg/port/l16_screen.h"
#include "peg/port/pixel.h"

// Text: glyphs of one or four bits a pixel, cut to the visible area.

namespace {

/// The columns of one glyph that are to be drawn, and where.
struct GlyphSpan {
    int firstColumn;  // in the page's rows
    int endColumn;
    int x;  // of the first column on the screen
};

void PaintPixel(std::uint16_t* to, unsigned coverage, const ColorRamp& ramp) {
    if (coverage != 0) *to = ramp[coverage];
}

/// Two pixels a step; a glyph may begin and end in the middle of a byte.
void PaintFourBitRow(std::uint16_t* to, const std::uint8_t* row, const GlyphSpan& span, const ColorRamp& ramp,
                     const PixelPairs& pairs) {
    int column = span.firstColumn;
    if ((column & 1) != 0) PaintPixel(to++, row[column++ >> 1] & 0xFU, ramp);
    const std::uint8_t* pair = row + (column >> 1);
    for (; column + 1 < span.endColumn; column += 2, to += 2, ++pair) {
        if (*pair == 0) continue;
        std::uint32_t pixels;
        std::memcpy(&pixels, to, sizeof pixels);
        pixels = (pixels & kKeptOfPair[*pair]) | pairs.colors[*pair];
        std::memcpy(to, &pixels, sizeof pixels);
    }
    if (column < span.endColumn) PaintPixel(to, *pair >> 4U, ramp);
}

void PaintOneBitRow(std::uint16_t* to, const std::uint8_t* row, const GlyphSpan& span, std::uint16_t color) {
    for (int column = span.firstColumn; column < span.endColumn; ++column, ++to) {
        if ((row[column >> 3] << (column & 7) & 0x80) != 0) *to = color;
    }
}

}  // namespace

/// The ramp of a brush; that of the last brush is kept, for most texts are of one colour on one background.
const ColorRamp& L16Screen::RampOf(const PegBrush& brush) {
    if (brush.background != m_ramp[0] || brush.foreground != m_ramp[15]) {
        m_ramp = RampBetween(brush.background, brush.foreground);
        m_pairs = PixelPairs(m_ramp);
    }
    return m_ramp;
}

void L16Screen::PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                          const PegFont& font) {
    const ColorRamp& ramp = RampOf(brush);
    int x = topLeft.x;
    for (const char16_t code : text) {
        if (x > area.right) break;
        const PegFont* page = PageOf(&font, code);
        if (page == nullptr) continue;
        const int left = std::max<int>(x, area.left);
        const int right = std::min<int>(x + page->Width(code) - 1, area.right);
        const int top = std::max<int>(topLeft.y, area.top);
        const int bottom = std::min<int>(topLeft.y + page->height - 1, area.bottom);
        const int firstColumn = page->Column(code) + left - x;
        const GlyphSpan span{firstColumn, firstColumn + right - left + 1, left};
        x += page->Width(code);
        if (left > right || top > bottom) continue;
        if (brush.Has(PegBrush::kFill)) FillArea(RectOf(left, top, right, bottom), brush.background);
        const bool fourBits = (page->flags & PegFont::kFourBits) != 0;
        const std::uint8_t* row = page->glyphs + (top - topLeft.y) * page->bytesPerRow;
        for (int y = top; y <= bottom; ++y, row += page->bytesPerRow) {
            if (fourBits) {
                PaintFourBitRow(RowAt(y) + span.x, row, span, ramp, m_pairs);
            } else {
                PaintOneBitRow(RowAt(y) + span.x, row, span, brush.foreground);
            }
        }
    }
}
