#include "screens/lists/list_screen.h"

#include <algorithm>
#include <cstdio>

#include "peg/resources/resources.h"

namespace {

constexpr std::size_t kUpKey = 1;
constexpr std::size_t kDownKey = 2;
constexpr std::size_t kDetailKey = 3;

constexpr std::uint32_t kRowStyle = kStyleActive | kStyleTransparent | kStyleTextLeft | kStyleBorderNone;

}  // namespace

ListScreen::ListScreen(std::int32_t screenId, const Places& places, const std::array<RowLook, kRows>& looks)
    : DSBC_dataScrnBaseClass(screenId),
      m_list(AddNew<PegVertList>(*this, places.list, std::uint16_t{0}, kStyleBorderNone)),
      m_indicator(AddNew<ScrollIndicator>(*this, places.indicator, std::int32_t{kRows})) {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const int height = PegResources::BitmapHeight(looks[i].background);
        m_rows[i] = new PegBitmapPrompt(RectOf(0, 0, looks[i].width - 1, height - 1), nullptr, 0, kRowStyle);
        m_rows[i]->SetBitmapNumber(PegBitmapPrompt::Background, looks[i].background);
        m_rows[i]->SetBitmapNumber(PegBitmapPrompt::HighlightBackground, looks[i].selectedBackground);
        m_list.AddChildAtEnd(*m_rows[i]);
    }
    m_list.SetScroll(-places.rowsDrop);
    m_list.SelectIndex(0);
    SetSoftKeyImages(kUpKey, KeyImage::Up);
    SetSoftKeyImages(kDownKey, KeyImage::Down);
}

std::uint32_t ListScreen::SelectedRow() const {
    return static_cast<std::uint32_t>(std::max(m_list.SelectedIndex(), 0));
}

void ListScreen::SelectRow(std::uint32_t row) {
    if (row != SelectedRow()) m_list.SelectIndex(static_cast<int>(row));
}

void ListScreen::ShowPosition() {
    const ListPage& page = Page();
    m_indicator.SetPosition(static_cast<std::int32_t>(page.indicatorMinimum),
                            static_cast<std::int32_t>(page.indicatorMaximum), static_cast<std::int32_t>(page.first));
    const std::uint32_t lastRow = page.total == 0 ? 0 : std::min(page.total, kRows) - 1;
    SelectRow(std::min(SelectedRow(), lastRow));
    const std::uint32_t selected = SelectedRow();
    const bool filled = page.total != 0;
    EnableSoftKey(kUpKey, filled && !(page.isAtTop && selected == 0));
    EnableSoftKey(kDownKey, filled && !(page.isAtBottom && selected == lastRow));
    EnableSoftKey(kDetailKey, filled);
}

void ListScreen::SoftKey2Action() {
    if (IsOptionsMenuOpen()) {
        DSBC_dataScrnBaseClass::SoftKey2Action();
    } else if (SelectedRow() > 0) {
        SelectRow(SelectedRow() - 1);
        ShowPosition();
    } else if (!Page().isAtTop) {
        Scroll(ScrollStep::Up);
    }
}

void ListScreen::SoftKey3Action() {
    if (IsOptionsMenuOpen()) {
        DSBC_dataScrnBaseClass::SoftKey3Action();
    } else if (SelectedRow() == kRows - 1) {
        if (!Page().isAtBottom) Scroll(ScrollStep::Down);
    } else if (SelectedRow() + 1 < Page().total) {
        SelectRow(SelectedRow() + 1);
        ShowPosition();
    }
}

void ListScreen::SoftKey4Action() {
    if (!IsOptionsMenuOpen()) {
        if (!HasDetailScreen()) {
            std::printf("No detail screen has been associated to the current screen.");
            return;
        }
        if (Page().total == 0) return;
        PrepareDetail(SelectedRow());
    }
    DSBC_dataScrnBaseClass::SoftKey4Action();
}
