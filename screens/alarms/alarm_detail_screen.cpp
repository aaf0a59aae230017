#include "screens/alarms/alarm_detail_screen.h"

#include <cstdio>

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/table_proofs.h"
#include "platform/panel.h"
#include "screens/base/line_place.h"

namespace {

// clang-format off
constexpr auto kDetailRows = std::to_array<AlarmDetailRow>({
    {.screen = 8,  .name = 80, .qualifier = 110, .start = 140, .duration = 0,   .end = 170, .value = 200},
    {.screen = 10, .name = 76, .qualifier = 103, .start = 130, .duration = 157, .end = 184, .value = 211},
});
// clang-format on
static_assert(AllDiffer(kDetailRows, &AlarmDetailRow::screen));
static_assert(std::ranges::all_of(kDetailRows, IsDataScreenId, &AlarmDetailRow::screen));

constexpr std::uint32_t kFont = FontForSize(12, kPanelHeight);
constexpr DetailColumns kColumns = {.labelLeft = 25, .labelRight = 100, .valueLeft = 115, .valueRight = 300};
constexpr DetailColumns kQualifierColumns = {.labelLeft = 25, .labelRight = 100, .valueLeft = 135, .valueRight = 300};
constexpr int kIconLeft = 110;
constexpr std::uint32_t kIconStyle = kStyleTextLeft | kStyleBorderNone;

constexpr std::uint32_t kEndedColor = 0;
constexpr std::uint32_t kStillOnColor = 1;

constexpr std::uint32_t kEnd = 100;  // string numbers
constexpr std::uint32_t kAlarm = 102;
constexpr std::uint32_t kStart = 114;
constexpr std::uint32_t kDays = 115;
constexpr std::uint32_t kDuration = 119;
constexpr std::uint32_t kStillOn = 272;
constexpr std::uint32_t kPriority = 289;
constexpr std::uint32_t kValue = 533;

constexpr std::int32_t kSecondsPerDay = 86400;

/// Days, if any, and time of day between two instants in seconds; their difference wraps around at 32 bits.
DetailField::ValueText DurationText(std::uint32_t start, std::uint32_t end) {
    const auto seconds = static_cast<std::int32_t>(end - start);
    std::array<char, 36> clock;
    std::snprintf(clock.data(), clock.size(), "%02d:%02d:%02d", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
    DetailField::ValueText text;
    if (-kSecondsPerDay < seconds && seconds < kSecondsPerDay) return text.Add(clock.data());
    std::array<char, 12> days;
    std::snprintf(days.data(), days.size(), "%0d", seconds / kSecondsPerDay);
    return text.Add(days.data()).Add(u" ").Add(LocalizedString(kDays)).Add(u" + ").Add(clock.data());
}

DetailField::ValueText InstantText(std::u16string_view date, std::u16string_view time) {
    return DetailField::ValueText().Add(date).Add(u" ").Add(time);
}

}  // namespace

const AlarmDetailRow* AlarmDetailRowOf(std::int32_t screenId) {
    return FindRow(kDetailRows, &AlarmDetailRow::screen, screenId);
}

almDetailScrnClass::almDetailScrnClass(const AlarmDetailRow& places)
    : DSBC_dataScrnBaseClass(places.screen),
      m_name(*this, places.name, kColumns, kFont, kAlarm),
      m_qualifier(*this, places.qualifier, kQualifierColumns, kFont, kPriority),
      m_priority(AddNew<PegBitmapPrompt>(
          *this, PlaceOnLine(places.qualifier, kIconLeft, kQualifierColumns.valueLeft - 1, kFont), nullptr,
          std::uint16_t{0}, kIconStyle)),
      m_start(*this, places.start, kColumns, kFont, kStart),
      m_end(*this, places.end, kColumns, kFont, kEnd),
      m_value(*this, places.value, kColumns, kFont, kValue) {
    if (places.duration != 0) m_duration.emplace(*this, places.duration, kColumns, kFont, kDuration);
}

void almDetailScrnClass::SetAlarm(const AlarmRow& alarm, std::uint32_t icon) {
    m_alarm = alarm;
    m_icon = icon;
}

void almDetailScrnClass::UpdateScreenData() {
    for (DetailField* field : {&m_name, &m_qualifier, &m_start, &m_end, &m_value}) field->Relabel();
    if (m_duration.has_value()) m_duration->Relabel();
    if (!m_alarm.has_value()) return;
    m_name.Show(DetailField::ValueText().Add(TextIn(m_alarm->name)));
    m_qualifier.Show(DetailField::ValueText().Add(u"(").Add(TextIn(m_alarm->qualifier)).Add(u")"));
    if (m_priority.BitmapNumber(PegBitmapPrompt::LeftIcon) != m_icon) {
        m_priority.SetBitmapNumber(PegBitmapPrompt::LeftIcon, m_icon);
    }
    m_start.Show(InstantText(TextIn(m_alarm->startDate), TextIn(m_alarm->startTime)));
    const bool ended = m_alarm->hasEnded != 0;
    m_end.SetValueColor(ended ? kEndedColor : kStillOnColor);
    m_end.Show(ended ? InstantText(TextIn(m_alarm->endDate), TextIn(m_alarm->endTime))
                     : DetailField::ValueText().Add(LocalizedString(kStillOn)));
    m_value.Show(DetailField::ValueText().Add(TextIn(m_alarm->value)));
    if (m_duration.has_value()) m_duration->Show(DurationText(m_alarm->startSeconds, m_alarm->endSeconds));
}
