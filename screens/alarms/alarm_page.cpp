#include "screens/alarms/alarm_page.h"

#include "localization/localization.h"

namespace {
constexpr auto kPriorityIcons = std::to_array<std::uint32_t>({0, 91, 85, 90});
}

AlarmRow AlarmRowOf(const AlarmEntry& entry) {
    displayClass& texts = displayClass::getInstance();
    AlarmRow row;
    texts.translateInto(TextIn(entry.name), row.name);
    texts.translateInto(TextIn(entry.qualifier), row.qualifier);
    WidenInto(TextIn(entry.startDate), row.startDate);
    WidenInto(TextIn(entry.startTime), row.startTime);
    row.hasEnded = entry.hasEnded.Get();
    if (row.hasEnded != 0) {
        WidenInto(TextIn(entry.endDate), row.endDate);
        WidenInto(TextIn(entry.endTime), row.endTime);
    }
    WidenInto(TextIn(entry.value), row.value);
    row.priority = entry.priority.Get();
    row.startSeconds = static_cast<std::uint32_t>(entry.startSeconds.Get());
    row.endSeconds = static_cast<std::uint32_t>(entry.endSeconds.Get());
    return row;
}

std::uint32_t PriorityIcon(std::uint32_t priority) {
    return priority < kPriorityIcons.size() ? kPriorityIcons[priority] : 0;
}
