#include "peg/port/l16_screen.h"

#include "peg/port/pixel_rows.h"

L16Screen::L16Screen(int width, int height)
    : PegScreen(width, height),
      m_frame(MakePixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + kSparePixels)) {}

std::size_t L16Screen::FrameBytes() const {
    return static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()) * sizeof(std::uint16_t);
}

PegBitmap L16Screen::ScreenBitmap(int width, int height) {
    constexpr std::uint16_t kFrameItself = 0x1002;
    return {kFrameItself, 16, static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0, m_frame.get()};
}

void L16Screen::FillArea(const PegRect& area, std::uint16_t color) {
    std::uint16_t* to = RowAt(area.top) + area.left;
    const int width = area.Width();
    // Rows as wide as the frame follow each other without a gap.
    if (width == Width()) {
        FillPixels(to, area.Height() * width, color);
        return;
    }
    for (int rows = area.Height(); rows > 0; --rows, to += Width()) FillPixels(to, width, color);
}
