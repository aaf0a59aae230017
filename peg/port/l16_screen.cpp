#include "peg/port/l16_screen.h"

#include <algorithm>

L16Screen::L16Screen(int width, int height)
    : PegScreen(width, height),
      m_frame(new (kFrameAlignment)
                  std::uint16_t[static_cast<std::size_t>(width) * static_cast<std::size_t>(height)]()) {}

std::size_t L16Screen::FrameBytes() const {
    return static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()) * sizeof(std::uint16_t);
}

PegBitmap L16Screen::ScreenBitmap(int width, int height) {
    constexpr std::uint16_t kFrameItself = 0x1002;
    return {kFrameItself, 16, static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), 0, m_frame.get()};
}

void L16Screen::FillArea(const PegRect& area, std::uint16_t color) {
    // Rows as wide as the frame follow each other without a gap.
    if (area.Width() == Width()) {
        std::fill_n(RowAt(area.top), area.Height() * Width(), color);
        return;
    }
    for (int y = area.top; y <= area.bottom; ++y) std::fill_n(RowAt(y) + area.left, area.Width(), color);
}
