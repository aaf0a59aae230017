#include "peg/widgets/bitmap_prompt.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

PegBitmapPrompt::PegBitmapPrompt(const PegRect& rect, const char16_t* text, std::uint16_t id, std::uint32_t style)
    : PegPrompt(rect, text, id, style) {
    SetType(TYPE_BITMAP_PROMPT);
}

void PegBitmapPrompt::SetBitmapNumber(unsigned slot, std::uint32_t number) {
    if (slot >= m_bitmaps.size()) return;
    m_bitmaps[slot] = number;
    Invalidate();
}

void PegBitmapPrompt::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    const std::uint32_t background = m_bitmaps[HasStyle(kStyleHighlighted) ? HighlightBackground : Background];
    if (const PegBitmap* bitmap = PegResources::GetBitmap(background)) {
        toolkit.screen->DrawBitmap(PointOf(Real().left, Real().top), bitmap);
    } else {
        DrawPromptBackground();
    }
    const PegRect& client = ClientRect();
    const int leftTaken = DrawIcon(LeftIcon) + (HasStyle(kStyleTextLeft) ? m_indent : 0);
    const int rightTaken = DrawIcon(RightIcon) + (HasStyle(kStyleTextRight) ? m_indent : 0);
    DrawTextIn(RectOf(client.left + leftTaken, client.top, client.right - rightTaken, client.bottom),
               GetColor(TextSlot()), GetColor(BackgroundSlot()));
    DrawChildren(invalid);
}

/// Draws an icon at its side. Returns how many pixels of the client's width it takes from the text.
int PegBitmapPrompt::DrawIcon(unsigned slot) {
    const PegBitmap* icon = PegResources::GetBitmap(m_bitmaps[slot]);
    if (icon == nullptr) return 0;
    const PegRect& client = ClientRect();
    const int left = slot == LeftIcon ? client.left + m_gap : client.right - m_gap - icon->width + 1;
    toolkit.screen->DrawBitmap(PointOf(left, client.top + (client.Height() - icon->height) / 2), icon);
    return m_gap + icon->width;
}
