#include "screens/events/event_list_screen.h"

#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "screens/events/event_detail_screen.h"

namespace {

constexpr ListScreen::Places kPlaces = {
    .list = RectOf(4, 62, 304, 206), .indicator = RectOf(305, 62, 315, 206), .rowsDrop = 0};
constexpr int kRowWidth = 304;
constexpr ListScreen::RowLook kFirstRow = {.background = 155, .selectedBackground = 156, .width = kRowWidth};
constexpr ListScreen::RowLook kOtherRow = {.background = 154, .selectedBackground = 157, .width = kRowWidth};

constexpr std::uint32_t kTextStyle = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kEventFont = FontForSize(13, kPanelHeight);
constexpr std::uint32_t kWhenFont = FontForSize(11, kPanelHeight);
constexpr std::uint32_t kWhenColor = 87;
constexpr int kTextLeft = 6;  // within the row
constexpr int kEventTop = 2;
constexpr int kEventHeight = 17;
constexpr int kWhenBottom = 33;

}  // namespace

eventLogScrnClass::eventLogScrnClass(std::int32_t screenId)
    : ListScreen(screenId, kPlaces, {kFirstRow, kOtherRow, kOtherRow, kOtherRow}) {
    for (std::uint32_t row = 0; row < kRows; ++row) AddTexts(row);
}

void eventLogScrnClass::AddTexts(std::uint32_t row) {
    const PegRect& place = Row(row).Real();
    const int left = place.left + kTextLeft;
    const int middle = place.top + kEventTop + kEventHeight;
    RowTexts& texts = m_texts[row];
    texts.event = &AddNew<PegBitmapPrompt>(Row(row), RectOf(left, place.top + kEventTop, place.right, middle - 1),
                                           nullptr, std::uint16_t{0}, kTextStyle);
    texts.when = &AddNew<PegBitmapPrompt>(Row(row), RectOf(left, middle, place.right, place.top + kWhenBottom), nullptr,
                                          std::uint16_t{0}, kTextStyle);
    texts.event->SetFontNumber(kEventFont);
    texts.when->SetFontNumber(kWhenFont);
    texts.when->SetColor(kText, kWhenColor);
}

void eventLogScrnClass::RestoreFrom(std::uint32_t index) {
    m_restoreIndex = index;
    m_restore = true;
    // An event below the page at the top is not on it: the list need not stay there.
    if (index >= kRows) m_page.isAtTop = false;
}

void eventLogScrnClass::UpdateScreenData() {
    if (m_page.isAtTop) m_controller.Reset();
    if (m_restore) {
        Restore();
    } else {
        Scroll(ScrollStep::Stay);
    }
}

/// Shows the event that is to be restored, and selects it. At the top the list stays there.
void eventLogScrnClass::Restore() {
    const std::uint32_t index = m_restoreIndex;
    const int status = m_page.isAtTop ? m_controller.Refresh(ScrollStep::Stay) : m_controller.ShowFrom(index);
    m_restore = status != 0;
    Show(status);
    if (status != 0 || index < m_page.first || index - m_page.first >= kRows) return;
    SelectRow(index - m_page.first);
    ShowPosition();
}

void eventLogScrnClass::Scroll(ScrollStep step) { Show(m_controller.Refresh(step)); }

void eventLogScrnClass::Show(int status) {
    if (status == 0) {
        FillEventPage(m_controller, m_page, EventPageMode::List);
    } else {
        m_page.total = 0;
        m_page.indicatorMaximum = 0;
    }
    if (m_page.total != 0) m_restoreIndex = m_page.first;
    for (std::uint32_t row = 0; row < kRows; ++row) ShowRow(row);
    ShowPosition();
}

void eventLogScrnClass::ShowRow(std::uint32_t row) {
    ComposedText<50> event;
    ComposedText<24> when;
    if (row < m_page.total) {
        const EventRow& shown = m_page.rows[row];
        const std::u16string_view date = TextIn(shown.date);
        const std::u16string_view time = TextIn(shown.time);
        event.Add(TextIn(shown.source));
        // A text that fills its field has no end and says nothing.
        const bool complete = date.size() < shown.date.size() && time.size() < shown.time.size();
        if (complete && !date.empty() && !time.empty()) when.Add(date).Add(u" ").Add(time);
    }
    RowTexts& texts = m_texts[row];
    texts.eventText.Show(*texts.event, event);
    texts.whenText.Show(*texts.when, when);
}

void eventLogScrnClass::PrepareDetail(std::uint32_t row) { m_detail->ShowFrom(m_page.first + row); }
