#include "navigation/widgets/setup_vertical_list.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kStripBitmap = 144;
constexpr std::uint32_t kRowBitmap = 146;
constexpr std::uint32_t kSelectedRowBitmap = 145;

constexpr int kLeft = Divided(kPanelWidth, 40.0);
constexpr int kRight = kPanelWidth - kLeft;
constexpr int kVerticalMargin = Divided(kPanelHeight, 24.0);  // from title band and soft keys
static_assert(kLeft == 8 && kRight == 312 && kVerticalMargin == 10);

constexpr int kFirstTitleExtra = Divided(kPanelWidth, 29.09);
constexpr int kTitleRight = kRight - Divided(kPanelWidth, 35.55);
constexpr int kLastTitleWidth = Divided(kPanelWidth, 4.44);
static_assert(kFirstTitleExtra == 11 && kTitleRight == 303 && kLastTitleWidth == 72);

constexpr std::uint32_t kInvisibleStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kItemStyle = kStyleActive | kStyleTextLeft | kStyleBorderNone;
static_assert(kItemStyle == 0x80000041);
constexpr std::uint32_t kFirstTitleFont = 35;
constexpr std::uint32_t kFont = 33;
constexpr std::uint32_t kStripColor = 94;  // that of the strip's bitmap
constexpr std::uint32_t kSelectedText = 0;
constexpr std::uint32_t kSelectedColor = 25;
constexpr std::uint32_t kTint = 93;  // that of the selected row's bitmap

PegRect ItemPlace() {
    return RectOf(1, 1, PegResources::BitmapWidth(kRowBitmap), PegResources::BitmapHeight(kRowBitmap));
}

}  // namespace

SetupListItem::SetupListItem(SetupItemLook look, std::uint32_t label, std::uint32_t leftIcon, std::uint32_t rightIcon)
    : PegBitmapPrompt(ItemPlace(), nullptr, std::uint16_t{0}, kItemStyle), m_label(label) {
    SetFontNumber(kFont);
    SetColor(kHighlightText, kSelectedText);
    SetColor(kHighlightBackground, look == SetupItemLook::ShowSelected ? kTint : kSelectedColor);
    SetBitmapNumber(Background, kRowBitmap);
    SetBitmapNumber(HighlightBackground, look == SetupItemLook::ShowSelected ? kSelectedRowBitmap : kRowBitmap);
    SetBitmapNumber(LeftIcon, leftIcon);
    SetBitmapNumber(RightIcon, rightIcon);
    relabel();
}

void SetupListItem::relabel() { SetText(LocalizedString(m_label)); }

PegRect setupVerticalList::PlaceFor(const SetupListLayout& layout) {
    const int rowHeight = PegResources::BitmapHeight(kRowBitmap);
    const int stripHeight = PegResources::BitmapHeight(kStripBitmap);
    const int room = kSoftKeyLine - kHeaderBottom - 2 * kVerticalMargin;
    const int rows = rowHeight > 0 ? std::clamp(room / rowHeight, 0, layout.visibleItems) : 0;
    const int height = rows * rowHeight + stripHeight;
    const int top = kHeaderBottom + (kSoftKeyLine - kHeaderBottom - height) / 2;
    return RectOf(kLeft, top, kRight, top + height - 1);
}

setupVerticalList::setupVerticalList(const SetupListLayout& layout, SetupItemLook look)
    : PegWindow(PlaceFor(layout), std::uint16_t{0}, kInvisibleStyle),
      m_look(look),
      m_titleNumbers(layout.columnTitles),
      m_strip(AddNew<PegBitmapPrompt>(
          *this, RectOf(kLeft, Real().top, kRight, Real().top + PegResources::BitmapHeight(kStripBitmap) - 1), nullptr,
          std::uint16_t{0}, kInvisibleStyle)),
      m_items(AddNew<PegVertList>(*this, RectOf(kLeft, m_strip.Real().bottom + 1, kRight, Real().bottom),
                                  std::uint16_t{0}, kInvisibleStyle)) {
    ClearStatusBits(STAT_VIEWPORT);
    m_strip.SetBitmapNumber(PegBitmapPrompt::Background, kStripBitmap);
    const int firstRight = kLeft + layout.firstColumnWidth + kFirstTitleExtra;
    const int secondRight = kTitleRight - kLastTitleWidth;
    m_titles = {&AddTitle(kLeft, firstRight, kFirstTitleFont, kStyleTextLeft),
                &AddTitle(firstRight, secondRight, kFont, kStyleTextLeft),
                &AddTitle(secondRight, kTitleRight, kFont, kStyleTextRight)};
    if (layout.firstColumnWidth == 0) m_titleNumbers[0] = 0;
    relabel();
}

PegPrompt& setupVerticalList::AddTitle(int left, int right, std::uint32_t font, std::uint32_t alignment) {
    auto& title = AddNew<PegPrompt>(m_strip, RectOf(left, m_strip.Real().top, right, m_strip.Real().bottom), nullptr,
                                    std::uint16_t{0}, kInvisibleStyle | alignment);
    title.SetFontNumber(font);
    title.SetColor(kBackground, kStripColor);
    title.SetColor(kHighlightText, kSelectedText);
    title.SetColor(kHighlightBackground, kSelectedColor);
    return title;
}

SetupListItem& setupVerticalList::addItem(std::uint32_t label, std::uint32_t leftIcon, std::uint32_t rightIcon) {
    SetupListItem* item = makeItem(label, leftIcon, rightIcon).release();  // the list's from here on
    m_items.AddChildAtEnd(*item);
    return *item;
}

std::unique_ptr<SetupListItem> setupVerticalList::makeItem(std::uint32_t label, std::uint32_t leftIcon,
                                                           std::uint32_t rightIcon) const {
    return std::make_unique<SetupListItem>(m_look, label, leftIcon, rightIcon);
}

void setupVerticalList::relabel() {
    for (std::size_t column = 0; column < m_titles.size(); ++column) {
        if (m_titleNumbers[column] != 0) m_titles[column]->SetText(LocalizedString(m_titleNumbers[column]));
    }
}
