#include "navigation/widgets/custom_prompt.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

custPpromptClass::custPpromptClass(const PegRect& rect, const char16_t* text, std::uint16_t id, std::uint32_t style,
                                   VerticalAlignment alignment)
    : PegPrompt(rect, text, id, style), m_alignment(alignment) {}

void custPpromptClass::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawPromptBackground();
    const PegBrush brush(PegResources::GetColor(GetColor(TextSlot())),
                         PegResources::GetColor(GetColor(BackgroundSlot())));
    toolkit.screen->DrawText(TextCorner(), Text(), brush, Font());
    DrawChildren(invalid);
}

PegPoint custPpromptClass::TextCorner() const {
    const int width = PegScreen::TextWidth(Text(), Font());
    const int height = PegScreen::FontHeight(Font());
    int x = Real().left + (Real().Width() - width) / 2;
    if (HasStyle(kStyleTextLeft)) x = Real().left + m_margin + kEdgeGap;
    if (HasStyle(kStyleTextRight)) x = Real().right - m_margin - width;
    switch (m_alignment) {
        case VerticalAlignment::Top: return PointOf(x, Real().top);
        case VerticalAlignment::Bottom: return PointOf(x, Real().bottom - height + 1);
        case VerticalAlignment::Centre: break;
    }
    return PointOf(x, Real().top + ((Real().Height() - height) >> 1));
}
