#pragma once

#include <memory>
#include <new>

#include "peg/core/screen.h"
#include "peg/port/pixel.h"

/// A screen whose frame is a block of 16-bit RGB565 pixels in memory, row after row from the top.
class L16Screen : public PegScreen {
public:
    L16Screen(int width, int height);

    PegBitmap ScreenBitmap(int width, int height) override;

    /// The pixel at the start of a row.
    const std::uint16_t* Row(int y) const { return m_frame.get() + y * Width(); }
    std::size_t FrameBytes() const;

protected:
    void FillArea(const PegRect& area, std::uint16_t color) override;
    void PaintBitmap(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap) override;
    void PaintText(const PegRect& area, PegPoint topLeft, std::u16string_view text, const PegBrush& brush,
                   const PegFont& font) override;

private:
    std::uint16_t* RowAt(int y) { return m_frame.get() + y * Width(); }
    const ColorRamp& RampOf(const PegBrush& brush);
    void PaintRunLength(const PegRect& area, PegPoint topLeft, const PegBitmap& bitmap);

    // The frame begins with a cache line: drawing is not split at its rows, and the device takes it in faster.
    static constexpr std::align_val_t kFrameAlignment{64};
    struct FreeFrame {
        void operator()(std::uint16_t* frame) const { ::operator delete[](frame, kFrameAlignment); }
    };

    std::unique_ptr<std::uint16_t[], FreeFrame> m_frame;
    ColorRamp m_ramp{};  // of the text drawn last, and what follows from it
    PixelPairs m_pairs{m_ramp};
};
