#include "screens/events/event_log_list_controller.h"

#include <algorithm>

#include "rda/meter_operations.h"

int EventLogListController::GetCount(std::uint32_t& count) {
    std::uint32_t entries = 0;
    if (EVLIF_getEventLogEntryCount(entries) != 0) return -1;
    count = entries;
    if (!IsAtTop() && count > GetTotal()) MoveFirst(count - GetTotal());
    return 0;
}

int EventLogListController::GetEntries(std::uint32_t first, std::uint32_t count) {
    const std::span<EventLogEntry> entries = std::span(m_entries).first(std::min(count, PageSize()));
    std::ranges::fill(entries, EventLogEntry{});
    return EVLIF_getEventLogData(first, entries);
}
