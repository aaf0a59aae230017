#include "setup/view/setting_line.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/show_text.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kBitmap = 146;
constexpr std::uint32_t kFirstBitmap = 150;
constexpr std::uint32_t kSelectedBitmap = 145;

// What the bitmaps are filled with, for the edges of the letters.
constexpr std::uint32_t kGround = 25;
constexpr std::uint32_t kSelectedGround = 93;

constexpr std::uint32_t kStyle = kStyleActive | kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kValueStyle = kStyleActive | kStyleTransparent | kStyleTextRight | kStyleBorderNone;
static_assert(kStyle == 0xC0000041 && kValueStyle == 0xC0000021);

constexpr std::int32_t kFont = FontForSize(13, kPanelHeight);
constexpr int kAfterName = Divided(kPanelWidth, 12.8);
static_assert(kAfterName == 25);
constexpr int kIndent = 5;  // between a text and the end of the line

PegRect LinePlace() { return RectOf(1, 1, PegResources::BitmapWidth(kBitmap), PegResources::BitmapHeight(kBitmap)); }

PegBitmapPrompt& AddText(PegThing& line, std::uint32_t style) {
    PegBitmapPrompt& text = AddNew<PegBitmapPrompt>(line, line.Real(), nullptr, std::uint16_t{0}, style);
    text.SetFontNumber(kFont);
    text.SetTextIndent(kIndent);
    text.SetColor(kBackground, kGround);
    return text;
}

template <std::size_t size>
std::array<char16_t, size> NotYetRead() {
    constexpr std::uint32_t kNotYetRead = 538;
    return ComposedText<size>().Add(LocalizedString(kNotYetRead)).Units();
}

}  // namespace

SettingLine::SettingLine(Place place)
    : PegBitmapPrompt(LinePlace(), nullptr, std::uint16_t{0}, kStyle),
      m_name(AddText(*this, kStyle)),
      m_value(AddText(*this, kValueStyle)) {
    SetBitmapNumber(Background, place == Place::First ? kFirstBitmap : kBitmap);
    SetBitmapNumber(HighlightBackground, kSelectedBitmap);
    DivideAfterName(Real().Width() / 2 + kAfterName);
    ShowText(m_name, m_nameText, NotYetRead<std::tuple_size_v<Name>>());
    ShowText(m_value, m_valueText, NotYetRead<std::tuple_size_v<Value>>());
}

void SettingLine::Show(const Name& name, const Value& value) {
    if (name != m_nameText) DivideAfterName(PegScreen::TextWidth(name.data(), m_name.Font()) + kAfterName);
    ShowText(m_name, m_nameText, name);
    ShowText(m_value, m_valueText, value);
}

/// @param nameRight  on the panel; names that leave no room for a value are cut
void SettingLine::DivideAfterName(int nameRight) {
    const int right = std::min<int>(nameRight, Real().right - 1);
    m_name.Resize(RectOf(Real().left, Real().top, right, Real().bottom));
    m_value.Resize(RectOf(right, Real().top, Real().right, Real().bottom));
}

void SettingLine::StandOut(bool selected) {
    for (PegPrompt* text : {&m_name, &m_value}) {
        text->SetColor(kBackground, selected ? kSelectedGround : kGround);
    }
}
