#include "peg/widgets/text_button.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kFace = 26;
constexpr std::uint32_t kGrey = 8;
}  // namespace

PegTextButton::PegTextButton(const PegRect& rect, const char16_t* text, std::uint16_t id, std::uint32_t style)
    : PegButton(rect, id, style) {
    SetType(TYPE_TEXT_BUTTON);
    PegThing::SetColor(kBackground, kFace);
    PegTextThing::SetText(text);
}

void PegTextButton::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    const bool marked = HasStatus(STAT_CURRENT) || HasStyle(kStyleHighlighted);
    const std::uint32_t ground = GetColor(marked ? kHighlightBackground : kBackground);
    toolkit.screen->Fill(Real(), PegResources::GetColor(ground));
    DrawFrame(ground);
    PegRect area = ClientRect();
    if (IsPressed()) area.Shift(1, 1);
    DrawTextIn(area, IsActive() ? GetColor(marked ? kHighlightText : kText) : kGrey, ground);
    DrawChildren(invalid);
}
