#include "peg/core/text_thing.h"

#include <algorithm>
#include <string>

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kDefaultFont = 9;
constexpr std::uint32_t kSpareUnits = 32;
constexpr int kTextMargin = 1;
constexpr std::array<std::uint32_t, 4> kDefaultColors = {25, 25, 21, 22};
}  // namespace

PegTextThing::PegTextThing(const PegRect& rect, std::uint16_t id, std::uint32_t style)
    : PegThing(rect, id, style), m_font(PegResources::GetFont(kDefaultFont)), m_fontNumber(kDefaultFont) {
    for (unsigned i = 0; i < kDefaultColors.size(); ++i) PegThing::SetColor(i, kDefaultColors[i]);
    FitClient();
}

std::int32_t PegTextThing::Message(const PegMessage& message) {
    if (message.type == MSG_LANGUAGE || message.type == MSG_RESOURCES) {
        m_font = PegResources::GetFont(m_fontNumber);
        if (m_stringNumber != 0) SetTextById(m_stringNumber);
    }
    return PegThing::Message(message);
}

void PegTextThing::Resize(const PegRect& rect) {
    PegThing::Resize(rect);
    FitClient();
}

void PegTextThing::SetStyle(std::uint32_t style) {
    PegThing::SetStyle(style);
    FitClient();
}

void PegTextThing::SetTextById(std::uint32_t number) {
    SetText(PegResources::GetString(number));
    m_stringNumber = number;
}

void PegTextThing::SetText(const char16_t* text) {
    const std::size_t length = text != nullptr ? std::char_traits<char16_t>::length(text) : 0;
    if (length == 0) {
        m_copy.reset();
        m_capacity = 0;
        m_text = nullptr;
    } else if (HasStyle(kStyleCopyText)) {
        if (length + 1 > m_capacity) {
            m_capacity = static_cast<std::uint32_t>(length) + kSpareUnits;
            m_copy = std::make_unique<char16_t[]>(m_capacity);
        }
        std::copy_n(text, length + 1, m_copy.get());
        m_text = m_copy.get();
    } else {
        m_text = text;
    }
    m_stringNumber = 0;
    Invalidate();
}

std::int32_t PegTextThing::NumberInRange(std::int32_t lowest, std::int32_t highest) const {
    const char16_t* digit = m_text;
    if (digit == nullptr) return lowest;
    const bool negative = *digit == u'-';
    if (negative) ++digit;
    std::int64_t number = 0;
    for (; *digit >= u'0' && *digit <= u'9' && number <= INT32_MAX; ++digit) number = number * 10 + (*digit - u'0');
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(negative ? -number : number, lowest, highest));
}

void PegTextThing::SetFontNumber(std::uint32_t number) {
    m_fontNumber = number;
    m_font = PegResources::GetFont(number);
    Invalidate();
}

PegPoint PegTextThing::TextPosition(const PegRect& area) const {
    const int width = PegScreen::TextWidth(m_text, m_font);
    const int top = area.top + ((area.Height() - PegScreen::FontHeight(m_font)) >> 1);
    if (HasStyle(kStyleTextRight)) return PointOf(area.right - kTextMargin - width + 1, top);
    if (HasStyle(kStyleTextLeft)) return PointOf(area.left + kTextMargin, top);
    return PointOf(area.left + ((area.Width() - width) >> 1), top);
}

void PegTextThing::DrawTextIn(const PegRect& area, std::uint32_t color, std::uint32_t ground) {
    if (m_text == nullptr || m_font == nullptr) return;
    const PegBrush brush(PegResources::GetColor(color), PegResources::GetColor(ground));
    toolkit.screen->DrawText(TextPosition(area), m_text, brush, m_font, -1, &area);
}

int PegTextThing::BorderWidth(std::uint32_t style) {
    switch (style & kStyleBorders) {
        case kStyleBorderThin: return 1;
        case kStyleBorderRaised:
        case kStyleBorderRecessed: return 2;
        case kStyleBorderThick: return 5;
    }
    return 0;
}

void PegTextThing::FitClient() { SetClient(Inset(Real(), BorderWidth(GetStyle()))); }
