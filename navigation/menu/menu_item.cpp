#include "navigation/menu/menu_item.h"

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "peg/resources/resources.h"

namespace {

/// How the items of a level look.
struct LevelLook {
    std::uint32_t font;
    std::uint32_t background;
    std::uint32_t selectedBackground;
    int textMargin;
};

constexpr LevelLook kTopItem = {
    .font = 38, .background = 81, .selectedBackground = 82, .textMargin = kPanelWidth / 320};
constexpr LevelLook kSubItem = {
    .font = 37, .background = 161, .selectedBackground = 182, .textMargin = kPanelWidth / 80};
static_assert(kTopItem.textMargin == 1 && kSubItem.textMargin == 4);

constexpr std::uint16_t kItemId = 200;
constexpr std::uint32_t kItemStyle = kStyleActive | kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
static_assert(kItemStyle == 0xC0000041);
constexpr std::uint32_t kSelectedText = 15;
constexpr std::uint32_t kSelectedColor = 89;

constexpr int kLeft = Divided(kPanelWidth, 26.67);
constexpr int kRight = Divided(kPanelWidth, 1.04);
constexpr int kSubItemBottom = Divided(kPanelHeight, 9.23);
static_assert(kLeft == 11 && kRight == 307 && kSubItemBottom == 26);

const LevelLook& LookOf(const MenuItem& row) { return row.level == 1 ? kTopItem : kSubItem; }

PegRect PlaceOf(const MenuItem& row) {
    const int bottom = row.level == 1 ? PegResources::BitmapHeight(kTopItem.selectedBackground) - 1 : kSubItemBottom;
    return RectOf(kLeft, 0, kRight, bottom);
}

}  // namespace

menuBitmapButtonClass::menuBitmapButtonClass(const MenuItem& row)
    : PegBitmapPrompt(PlaceOf(row), nullptr, kItemId, kItemStyle), m_label(row.label) {
    const LevelLook& look = LookOf(row);
    SetFontNumber(look.font);
    SetTextIndent(look.textMargin);
    SetBitmapNumber(Background, look.background);
    SetBitmapNumber(HighlightBackground, look.selectedBackground);
    SetBitmapNumber(LeftIcon, static_cast<std::uint32_t>(row.icon));
    SetColor(kHighlightText, kSelectedText);
    SetColor(kHighlightBackground, kSelectedColor);
    relabel();
}

const char16_t* menuBitmapButtonClass::Label() const { return LocalizedString(static_cast<std::uint32_t>(m_label)); }

void menuBitmapButtonClass::addSubItem(menuBitmapButtonClass* item) {
    if (item == nullptr || m_subItemCount == m_subItems.size()) return;
    m_subItems[m_subItemCount++] = item;
}
