#include "screens/alarms/alarm_list_screen.h"

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "screens/alarms/alarm_detail_screen.h"
#include "screens/base/line_place.h"

namespace {

constexpr PegRect kList = RectOf(9, 60, 303, 187);
constexpr PegRect kIndicator = RectOf(304, 60, 314, 180);
constexpr int kRowsDrop = 16;  // the headings stand above the rows
constexpr ListScreen::Places kPlaces = {.list = kList, .indicator = kIndicator, .rowsDrop = kRowsDrop};

constexpr std::uint32_t kRowFont = FontForSize(11, kPanelHeight);
constexpr ListScreen::RowLook kRowLook = {.background = 105, .selectedBackground = 106, .width = 300};
constexpr std::uint32_t kEndedIcon = 241;
constexpr int kIconGap = 3;
constexpr int kIconRoom = 20;  // the width of a priority icon
constexpr int kTextIndent = 4;
constexpr int kTextWidth = kList.Width() - 2 * (kIconGap + kIconRoom + kTextIndent);  // between the icons

constexpr std::uint32_t kHeadingFont = FontForSize(12, kPanelHeight);
constexpr std::uint32_t kHeadingColor = 0x57;
constexpr std::uint32_t kHeadingTextColor = 0x0F;
constexpr int kHeadingLine = 72;
constexpr int kDateColumn = kList.left + kIconGap + kIconRoom + kTextIndent;
constexpr int kNameColumn = kDateColumn + 62;
constexpr std::uint32_t kStrip = kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kLeft = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kRight = kStyleTransparent | kStyleTextRight | kStyleBorderNone;
static_assert(kRight == 0x40000021);

constexpr std::uint32_t kUnacknowledgedStyle = kStyleTransparent | kStyleBorderNone;
constexpr int kUnacknowledgedLine = 206;
constexpr std::uint32_t kWaitingColor = 1;
constexpr std::uint32_t kNoneWaitsColor = 7;

constexpr std::uint32_t kEnd = 100;  // string numbers
constexpr std::uint32_t kUnacknowledged = 101;
constexpr std::uint32_t kAlarm = 102;
constexpr std::uint32_t kDate = 114;

PegRect HeadingPlace(int left, int right) { return PlaceOnLine(kHeadingLine, left, right, kHeadingFont); }

void LookLikeHeading(PegPrompt& prompt) {
    prompt.SetFontNumber(kHeadingFont);
    prompt.SetColor(kBackground, kHeadingColor);
    prompt.SetColor(kText, kHeadingTextColor);
}

void ShowIcon(PegBitmapPrompt& row, PegBitmapPrompt::Slot slot, std::uint32_t icon) {
    if (row.BitmapNumber(slot) != icon) row.SetBitmapNumber(slot, icon);
}

}  // namespace

almActiveListScrnClass::almActiveListScrnClass(std::int32_t screenId, AlarmListController& controller)
    : ListScreen(screenId, kPlaces, {kRowLook, kRowLook, kRowLook, kRowLook}),
      m_controller(controller),
      m_alarmHeading(
          AddNew<PegBitmapPrompt>(*this, HeadingPlace(kList.left, kList.right), nullptr, std::uint16_t{0}, kStrip)),
      m_dateHeading(AddNew<PegPrompt>(*this, HeadingPlace(kDateColumn, kNameColumn), nullptr, std::uint16_t{0}, kLeft)),
      m_endHeading(AddNew<PegPrompt>(*this, HeadingPlace(kNameColumn, kList.right - kTextIndent), nullptr,
                                     std::uint16_t{0}, kRight)),
      m_unacknowledged(AddNew<PegPrompt>(*this, PlaceOnLine(kUnacknowledgedLine, kList.left, kList.right, kRowFont),
                                         nullptr, std::uint16_t{0}, kUnacknowledgedStyle)) {
    for (PegPrompt* heading : {static_cast<PegPrompt*>(&m_alarmHeading), &m_dateHeading, &m_endHeading}) {
        LookLikeHeading(*heading);
    }
    m_alarmHeading.SetTextIndent(kNameColumn - kList.left);
    m_unacknowledged.SetFontNumber(kRowFont);
    for (std::uint32_t i = 0; i < kRows; ++i) {
        Row(i).SetFontNumber(kRowFont);
        Row(i).SetGap(kIconGap);
    }
}

void almActiveListScrnClass::InitScreenData() {
    m_alarmHeading.SetText(LocalizedString(kAlarm));
    m_dateHeading.SetText(LocalizedString(kDate));
    m_endHeading.SetText(LocalizedString(kEnd));
}

void almActiveListScrnClass::UpdateScreenData() { Scroll(ScrollStep::Stay); }

void almActiveListScrnClass::Scroll(ScrollStep step) {
    if (m_controller.Refresh(step) == 0) {
        m_controller.FillPage(m_page);
    } else {
        m_page.total = 0;
        m_page.unacknowledged = 0;
        m_page.indicatorMaximum = 0;
    }
    ShowCounts();
    for (std::uint32_t row = 0; row < kRows; ++row) ShowRow(row);
    ShowPosition();
}

void almActiveListScrnClass::ShowCounts() {
    const auto total = ComposedText<16>().Add(u"  (").AddNumber(m_page.total).Add(u")");
    SetTitleSuffix(total.Text(), SuffixTranslation::TitleOnly);
    const auto waiting = ComposedText<kUnacknowledgedUnits>()
                             .Add(LocalizedString(kUnacknowledged))
                             .Add(u"  (")
                             .AddNumber(m_page.unacknowledged)
                             .Add(u")");
    if (!m_unacknowledgedText.Show(m_unacknowledged, waiting)) return;
    m_unacknowledged.SetColor(kText, m_page.unacknowledged != 0 ? kWaitingColor : kNoneWaitsColor);
}

void almActiveListScrnClass::ShowRow(std::uint32_t row) {
    ComposedText<48> text;
    std::uint32_t priorityIcon = 0;
    std::uint32_t endedIcon = 0;
    if (row < m_page.total) {
        const AlarmRow& alarm = m_page.rows[row];
        text.Add(TextIn(alarm.startDate)).Add(u"  ").Add(TextIn(alarm.name));
        text.FitInto(kTextWidth, Row(row).Font());
        priorityIcon = PriorityIcon(alarm.priority);
        if (alarm.hasEnded != 0) endedIcon = kEndedIcon;
    }
    PegBitmapPrompt& prompt = Row(row);
    m_texts[row].Show(prompt, text);
    // A row without icon stands in line with the others.
    prompt.SetTextIndent(priorityIcon != 0 ? kTextIndent : kIconGap + kIconRoom + kTextIndent);
    ShowIcon(prompt, PegBitmapPrompt::LeftIcon, priorityIcon);
    ShowIcon(prompt, PegBitmapPrompt::RightIcon, endedIcon);
}

void almActiveListScrnClass::PrepareDetail(std::uint32_t row) {
    const AlarmRow& alarm = m_page.rows[row];
    m_detail->SetAlarm(alarm, PriorityIcon(alarm.priority));
}

void almActiveListScrnClass::SoftKey23Action() { m_controller.Acknowledge(); }
