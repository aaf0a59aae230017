#include "peg/widgets/prompt.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::array<std::uint32_t, 4> kPromptColors = {25, 24, 21, 22};
constexpr std::uint32_t kActiveStatus = 0x400;
}  // namespace

PegPrompt::PegPrompt(const PegRect& rect, const char16_t* text, std::uint16_t id, std::uint32_t style)
    : PegTextThing(rect, id, style) {
    SetType(TYPE_PROMPT);
    for (unsigned i = 0; i < kPromptColors.size(); ++i) PegThing::SetColor(i, kPromptColors[i]);
    if (HasStyle(kStyleActive)) {
        SetStatusBits(kActiveStatus);
        EnableSignal(kSignalClicked);
        EnableSignal(kSignalSelected);
    } else {
        ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
    }
    PegTextThing::SetText(text);
}

void PegPrompt::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawPromptBackground();
    DrawTextIn(ClientRect(), GetColor(TextSlot()), GetColor(BackgroundSlot()));
    DrawChildren(invalid);
}

void PegPrompt::DrawPromptBackground() {
    const bool marked = HasStyle(kStyleHighlighted) && GetColor(kBackground) != GetColor(kHighlightBackground);
    if (IsTransparent() && marked) {
        toolkit.screen->Fill(Real(), PegResources::GetColor(GetColor(kHighlightBackground)));
    } else {
        DrawFrame(GetColor(BackgroundSlot()));
    }
}
