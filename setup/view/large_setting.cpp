#include "setup/view/large_setting.h"

#include "navigation/geometry.h"
#include "navigation/widgets/show_text.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

namespace {

constexpr int kNameLeft = Share(kPanelWidth, 0.03125);
constexpr int kNameRight = kPanelWidth + kNameLeft - 2 * kNameLeft;
constexpr int kValueLeft = Share(kPanelWidth, 0.0625);
constexpr int kValueRight = kPanelWidth - kNameLeft;
static_assert(kNameLeft == 10 && kNameRight == 310 && kValueLeft == 20 && kValueRight == 310);

constexpr std::uint32_t kNameFont = 38;
constexpr std::uint32_t kValueFont = 42;
constexpr auto kSmallerFonts = std::to_array<std::int32_t>({41, 40, 39, 38, 36, 34});
static_assert(kSmallerFonts.size() == dataPegPromptClass::kFitFonts);

constexpr std::uint32_t kNameStyle = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
static_assert(kNameStyle == 0x40000041);

PegRect Line(int left, int top, int right, std::uint32_t font) {
    return RectOf(left, top, right, top + PegScreen::FontHeight(PegResources::GetFont(font)));
}

}  // namespace

LargeSetting::LargeSetting(PegThing& screen, int nameTop, int valueTop)
    : m_name(AddNew<PegPrompt>(screen, Line(kNameLeft, nameTop, kNameRight, kNameFont), nullptr, std::uint16_t{0},
                               kNameStyle)),
      m_value(AddNew<dataPegPromptClass>(screen, Line(kValueLeft, valueTop, kValueRight, kValueFont), nullptr,
                                         std::uint16_t{0}, kNameStyle)) {
    m_name.SetFontNumber(kNameFont);
    m_value.SetFontNumber(kValueFont);
    for (std::size_t i = 0; i < kSmallerFonts.size(); ++i) m_value.setFitFont(i, kSmallerFonts[i]);
    m_value.setOverflowFrame(true);
}

void LargeSetting::Show(const LargeSettingText& text) {
    ShowText(m_name, m_shown.name, text.name);
    ShowText(m_value, m_shown.value, text.value);
}
