#include "navigation/widgets/data_prompt.h"

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kFrameColor = 1;
constexpr int kFrameWidth = 2;
}  // namespace

dataPegPromptClass::dataPegPromptClass(const PegRect& rect, const char16_t* text, std::uint16_t id, std::uint32_t style,
                                       VerticalAlignment alignment)
    : custPpromptClass(rect, text, id, style, alignment), m_baseFont(FontNumber()) {
    m_fitFonts.fill(kNoFont);
}

void dataPegPromptClass::SetText(const char16_t* text) {
    custPpromptClass::SetText(text);
    Fit();
}

void dataPegPromptClass::SetFontNumber(std::uint32_t number) {
    m_baseFont = number;
    custPpromptClass::SetFontNumber(number);
    Fit();
}

void dataPegPromptClass::Resize(const PegRect& rect) {
    custPpromptClass::Resize(rect);
    Fit();
}

void dataPegPromptClass::setFitFont(std::size_t index, std::int32_t font) {
    if (index >= m_fitFonts.size()) return;
    m_fitFonts[index] = font;
    Fit();
}

void dataPegPromptClass::setOverflowFrame(bool on) {
    m_overflowFrame = on;
    Invalidate();
}

bool dataPegPromptClass::Fits() const {
    return PegScreen::TextWidth(Text(), Font()) <= Real().Width() - Margin() - kEdgeGap;
}

void dataPegPromptClass::Fit() {
    if (FontNumber() != m_baseFont) custPpromptClass::SetFontNumber(m_baseFont);
    for (const std::int32_t font : m_fitFonts) {
        if (font == kNoFont || Fits()) return;
        custPpromptClass::SetFontNumber(static_cast<std::uint32_t>(font));
    }
}

void dataPegPromptClass::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    custPpromptClass::Draw(invalid);
    if (!m_overflowFrame || Fits()) return;
    toolkit.screen->DrawRectangle(Real(), PegBrush(PegResources::GetColor(kFrameColor), 0, 0, kFrameWidth));
}
