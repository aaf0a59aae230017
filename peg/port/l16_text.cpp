#include <algorithm>
#include <cstring>

#include "peg/port/l16_screen.h"
#include "peg/port/pixel.h"

// Text: glyphs of one or four bits a pixel, cut to the visible area.

namespace {

constexpr int kPixelsPerStep = 4;

/// Draws a row of a glyph in whole steps. Pixels without coverage are written as they are, also those of the last step
/// that lie right of the glyph.
void PaintSteps(std::uint16_t* to, const std::uint16_t* steps, int count, const GlyphColors& colors) {
    for (int i = 0; i < count; ++i, to += kPixelsPerStep) {
        const GlyphColors::Pair& left = colors.pairs[steps[i] & 0xFFU];
        const GlyphColors::Pair& right = colors.pairs[steps[i] >> 8U];
        std::array<std::uint32_t, 2> pixels;
        std::memcpy(pixels.data(), to, sizeof pixels);
        pixels = {(pixels[0] & left.kept) | left.color, (pixels[1] & right.kept) | right.color};
        std::memcpy(to, pixels.data(), sizeof pixels);
    }
}

/// Draws the pixels `first` to `last` of a row of a glyph.
void PaintPixels(std::uint16_t* to, const std::uint16_t* steps, int first, int last, const ColorRamp& ramp) {
    constexpr int kShifts[kPixelsPerStep] = {4, 0, 12, 8};
    for (int x = first; x <= last; ++x) {
        const unsigned coverage = steps[x / kPixelsPerStep] >> kShifts[x % kPixelsPerStep] & 0xFU;
        if (coverage != 0) to[x] = ramp[coverage];
    }
}

/// Draws the bits `first` to `last` of a row.
void PaintBits(std::uint16_t* to, const std::uint8_t* row, int first, int last, std::uint16_t color) {
    for (int bit = first; bit <= last; ++bit, ++to) {
        if ((row[bit >> 3] << (bit & 7) & 0x80) != 0) *to = color;
    }
}

}  // namespace

const GlyphColors& L16Screen::ColorsOf(const PegBrush& brush) {
    for (const GlyphColors& colors : m_glyphColors) {
        if (colors.AreOf(brush.background, brush.foreground)) return colors;
    }
    GlyphColors& oldest = m_glyphColors[m_oldestColors];
    m_oldestColors = (m_oldestColors + 1) % m_glyphColors.size();
    return oldest = GlyphColors(brush.background, brush.foreground);
}

void L16Screen::PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                          const PegFont& font) {
    int x = topLeft.x;
    for (const char16_t code : text) {
        if (x > area.right) break;
        const PegFont* page = PageOf(&font, code);
        if (page == nullptr) continue;
        const PegRect cell = RectOf(x, topLeft.y, x + page->Width(code) - 1, topLeft.y + page->height - 1);
        x += page->Width(code);
        const PegRect visible = Intersection(cell, area);
        if (visible.IsEmpty()) continue;
        if (brush.Has(PegBrush::kFill)) FillArea(visible, brush.background);
        if (page->packed != nullptr) {
            PaintPacked(visible, cell, *page, code, brush);
        } else if (page->glyphs != nullptr) {
            const int first = page->Column(code) + visible.left - cell.left;
            const std::uint8_t* row = page->glyphs + std::ptrdiff_t{visible.top - cell.top} * page->bytesPerRow;
            for (int y = visible.top; y <= visible.bottom; ++y, row += page->bytesPerRow) {
                PaintBits(RowAt(y) + visible.left, row, first, first + visible.Width() - 1, brush.foreground);
            }
        }
    }
}

void L16Screen::PaintPacked(const PegRect& visible, const PegRect& cell, const PegFont& page, char16_t code,
                            const PegBrush& brush) {
    const GlyphColors& colors = ColorsOf(brush);
    const PackedGlyph& glyph = page.packed->glyphs[code - page.firstChar];
    const int inkTop = cell.top + glyph.top;
    const int top = std::max<int>(inkTop, visible.top);
    const int bottom = std::min<int>(inkTop + glyph.rows - 1, visible.bottom);
    const std::uint16_t* steps =
        page.packed->steps.data() + glyph.firstStep + std::ptrdiff_t{top - inkTop} * glyph.stepsPerRow;
    const bool whole = visible.Width() == cell.Width();
    for (int y = top; y <= bottom; ++y, steps += glyph.stepsPerRow) {
        std::uint16_t* to = RowAt(y) + cell.left;
        if (whole) {
            PaintSteps(to, steps, glyph.stepsPerRow, colors);
        } else {
            PaintPixels(to, steps, visible.left - cell.left, visible.right - cell.left, colors.ramp);
        }
    }
}
