#include "peg/widgets/icon_button.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"

PegIconButton::PegIconButton(const PegRect& rect, const PegBitmap* icon, std::uint16_t id, std::uint32_t style)
    : PegButton(rect, id, style), m_icon(icon) {
    SetType(TYPE_ICON_BUTTON);
}

void PegIconButton::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawFrame(GetColor(kBackground));
    if (m_icon != nullptr) {
        const int pressed = IsPressed() ? 1 : 0;
        const PegPoint at = PointOf(ClientRect().left + (ClientRect().Width() - m_icon->width) / 2 + pressed,
                                    ClientRect().top + (ClientRect().Height() - m_icon->height) / 2 + pressed);
        toolkit.screen->DrawBitmap(at, m_icon);
    }
    DrawChildren(invalid);
}
