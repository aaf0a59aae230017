#pragma once

#include <array>

#include "peg/core/screen.h"
#include "peg/port/pixel.h"
#include "peg/resources/pixels.h"

/// A screen whose frame is a block of 16-bit RGB565 pixels in memory, row after row from the top.
class L16Screen : public PegScreen {
public:
    L16Screen(int width, int height);

    PegBitmap ScreenBitmap(int width, int height) override;

    /// The pixel at the start of a row.
    const std::uint16_t* Row(int y) const { return m_frame.get() + std::ptrdiff_t{y} * Width(); }
    std::size_t FrameBytes() const;

protected:
    void FillArea(const PegRect& area, std::uint16_t color) override;
    void PaintBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) override;
    void PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                   const PegFont& font) override;

private:
    std::uint16_t* RowAt(int y) { return m_frame.get() + std::ptrdiff_t{y} * Width(); }
    const GlyphColors& ColorsOf(const PegBrush& brush);
    void PaintPacked(const PegRect& visible, const PegRect& cell, const PegFont& page, char16_t code,
                     const PegBrush& brush);
    void PaintRunLength(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap);

    static constexpr std::size_t kSparePixels = 4;  // behind the frame: a glyph's last step may reach beyond its end
    PixelBlock m_frame;
    // Of the texts drawn last: most are of a few colours on a few backgrounds.
    std::array<GlyphColors, 4> m_glyphColors{};
    std::size_t m_oldestColors = 0;
};
