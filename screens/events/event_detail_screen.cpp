#include "screens/events/event_detail_screen.h"

#include <cstdio>

#include "navigation/font_for_size.h"
#include "platform/panel.h"
#include "screens/events/event_list_screen.h"
#include "screens/events/event_log_list_controller.h"

namespace {

constexpr std::size_t kNewerKey = 1;
constexpr std::size_t kOlderKey = 2;

constexpr std::uint32_t kFont = FontForSize(14, kPanelHeight);
constexpr DetailColumns kColumns = {.labelLeft = 25, .labelRight = 114, .valueLeft = 115, .valueRight = 315};
constexpr int kDateLine = 80;
constexpr int kTimeLine = 110;
constexpr int kSourceLine = 140;
constexpr int kDescriptionLine = 170;
constexpr PegRect kDescriptionBox = RectOf(kColumns.valueLeft, 148, kColumns.valueRight, 210);
constexpr std::uint32_t kDescriptionStyle = 0x40000441;
constexpr std::size_t kLongestDescription = std::tuple_size_v<decltype(EventRow::description)>;

constexpr std::uint32_t kDate = 114;  // string numbers
constexpr std::uint32_t kDescription = 133;
constexpr std::uint32_t kSource = 134;
constexpr std::uint32_t kTime = 339;

/// The position within the log, one for all detail screens.
EventLogListController& TakeController() {
    static EventLogListController controller(1);
    static bool taken = false;
    if (taken) {
        std::printf(
            "!!!ERROR!!! eventDetails_listController_p is a static pointer and has already been initialized!!!!\n");
    }
    taken = true;
    return controller;
}

}  // namespace

eventDetailScrnClass::eventDetailScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId),
      m_controller(TakeController()),
      m_date(*this, kDateLine, kColumns, kFont, kDate),
      m_time(*this, kTimeLine, kColumns, kFont, kTime),
      m_source(*this, kSourceLine, kColumns, kFont, kSource),
      m_descriptionLabel(*this, kDescriptionLine, kColumns, kFont, kDescription),
      m_description(
          AddNew<PegTextBox>(*this, kDescriptionBox, std::uint16_t{0}, kDescriptionStyle, kLongestDescription)) {
    m_description.SetFontNumber(kFont);
    SetSoftKeyImages(kNewerKey, KeyImage::Up);
    SetSoftKeyImages(kOlderKey, KeyImage::Down);
}

void eventDetailScrnClass::ShowFrom(std::uint32_t index) {
    m_index = index;
    m_showFrom = true;
}

void eventDetailScrnClass::UpdateScreenData() {
    if (m_showFrom) Take(m_controller.ShowFrom(m_index));
    Show();
}

void eventDetailScrnClass::SoftKey1Action() {
    if (m_list != nullptr) m_list->RestoreFrom(m_index);
    DSBC_dataScrnBaseClass::SoftKey1Action();
}

void eventDetailScrnClass::SoftKey2Action() { Step(ScrollStep::Up); }

void eventDetailScrnClass::SoftKey3Action() { Step(ScrollStep::Down); }

void eventDetailScrnClass::Step(ScrollStep step) {
    Take(m_controller.Refresh(step));
    Show();
}

/// Takes what was read. What could not be read is read again with the next refresh.
void eventDetailScrnClass::Take(int status) {
    m_showFrom = status != 0;
    if (status != 0) {
        m_page.total = 0;
        m_page.indicatorMaximum = 0;
        return;
    }
    FillEventPage(m_controller, m_page, EventPageMode::Detail);
    m_index = m_page.first;
}

void eventDetailScrnClass::Show() {
    const bool read = m_page.total != 0;
    EnableSoftKey(kNewerKey, read && !m_page.isAtTop);
    EnableSoftKey(kOlderKey, read && !m_page.isAtBottom);
    for (DetailField* field : {&m_date, &m_time, &m_source}) field->Relabel();
    m_descriptionLabel.Relabel();
    const EventRow event = read ? m_page.rows.front() : EventRow{};
    m_date.Show(DetailField::ValueText().Add(TextIn(event.date)));
    m_time.Show(DetailField::ValueText().Add(TextIn(event.time)));
    m_source.Show(DetailField::ValueText().Add(TextIn(event.source)));
    m_description.SetText(DetailField::ValueText().Add(TextIn(event.description)).Text());
}
