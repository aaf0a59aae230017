#pragma once

#include <optional>

#include "peg/widgets/bitmap_prompt.h"
#include "screens/alarms/alarm_page.h"
#include "screens/base/data_screen.h"
#include "screens/lists/detail_field.h"

/// Where the fields of an alarm stand on a detail screen.
struct AlarmDetailRow {
    std::int32_t screen;
    std::int16_t name;  // the lines of the fields; 0: not shown
    std::int16_t qualifier;
    std::int16_t start;
    std::int16_t duration;
    std::int16_t end;
    std::int16_t value;
};

/// The places on a detail screen, or null for any other screen.
const AlarmDetailRow* AlarmDetailRowOf(std::int32_t screenId);

/// Shows all fields of one alarm, as they were when it was chosen from the list; the labels alone until one
/// was chosen. Asks the meter for nothing.
class almDetailScrnClass : public DSBC_dataScrnBaseClass {
public:
    explicit almDetailScrnClass(const AlarmDetailRow& places);

    void UpdateScreenData() override;

    /// @param icon  bitmap of the alarm's priority; 0 for none
    void SetAlarm(const AlarmRow& alarm, std::uint32_t icon);

private:
    std::optional<AlarmRow> m_alarm;
    std::uint32_t m_icon = 0;
    DetailField m_name;
    DetailField m_qualifier;
    PegBitmapPrompt& m_priority;
    DetailField m_start;
    std::optional<DetailField> m_duration;
    DetailField m_end;
    DetailField m_value;
};
