#include "peg/widgets/bitmap_button.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kStyleAtLeft = 0x40;
constexpr std::uint32_t kStyleAtRight = 0x20;
constexpr std::uint32_t kStyleAtTop = 0x200;
constexpr std::uint32_t kStyleAtBottom = 0x400;

/// Where something of `size` pixels begins between two edges: at one of them, or in the middle.
int Begin(int low, int high, int size, bool atLow, bool atHigh) {
    if (atLow) return low;
    if (atHigh) return high - size + 1;
    return low + (high - low - size + 1) / 2;
}

}  // namespace

PegBitmapButton::PegBitmapButton(const PegRect& rect, std::uint32_t normal, std::uint32_t pressed,
                                 std::uint32_t current, std::uint16_t id, std::uint32_t style)
    : PegButton(rect, id, style) {
    SetType(TYPE_BITMAP_BUTTON);
    SetBitmaps(normal, pressed, current, 0);
}

void PegBitmapButton::SetBitmaps(std::uint32_t normal, std::uint32_t pressed, std::uint32_t current,
                                 std::uint32_t disabled) {
    m_bitmaps = {normal, pressed, current != 0 ? current : normal, disabled != 0 ? disabled : normal};
    Invalidate();
}

void PegBitmapButton::SetBitmap(unsigned slot, std::uint32_t number) {
    if (slot >= m_bitmaps.size()) return;
    m_bitmaps[slot] = number;
    Invalidate();
}

unsigned PegBitmapButton::Look() const {
    if (!IsActive()) return Disabled;
    if (IsPressed()) return Pressed;
    return HasStatus(STAT_CURRENT) || HasStyle(kStyleHighlighted) ? Current : Normal;
}

void PegBitmapButton::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    if (const PegBitmap* bitmap = PegResources::GetBitmap(m_bitmaps[Look()])) {
        const int x = Begin(Real().left, Real().right, bitmap->width, HasStyle(kStyleAtLeft), HasStyle(kStyleAtRight));
        const int y = Begin(Real().top, Real().bottom, bitmap->height, HasStyle(kStyleAtTop), HasStyle(kStyleAtBottom));
        toolkit.screen->DrawBitmap(PointOf(x, y), bitmap);
    }
    DrawChildren(invalid);
}
