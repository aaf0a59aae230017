#pragma once

#include <array>
#include <cstdint>

#include "rda/records/alarm.h"
#include "screens/lists/list_controller.h"

/// An alarm as screens show it: texts in the selected language.
struct AlarmRow {
    std::array<char16_t, 30> name{};
    std::array<char16_t, 20> qualifier{};
    std::array<char16_t, 11> startDate{};
    std::array<char16_t, 13> startTime{};  // with milliseconds
    std::array<char16_t, 11> endDate{};    // empty while the alarm is on, as the end time
    std::array<char16_t, 12> endTime{};
    std::array<char16_t, 45> value{};
    std::uint32_t hasEnded = 0;
    std::uint32_t priority = 0;
    std::uint32_t startSeconds = 0;
    std::uint32_t endSeconds = 0;
};
static_assert(sizeof(AlarmRow) == 300);

/// Four alarms of a list.
struct AlarmPage : ListPage {
    std::uint32_t unacknowledged = 0;
    std::array<AlarmRow, 4> rows{};  // those beyond the list have no meaning
};

AlarmRow AlarmRowOf(const AlarmEntry& entry);

/// The bitmap that stands for a priority; 0 for none.
std::uint32_t PriorityIcon(std::uint32_t priority);
