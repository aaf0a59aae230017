#include "screens/alarms/alarm_list_controller.h"

#include <algorithm>

#include "rda/meter_operations.h"

namespace {
constexpr std::uint32_t kPageSize = std::tuple_size_v<decltype(AlarmPage::rows)>;
}

AlarmListController::AlarmListController() : ListController(kPageSize), m_entries(kPageSize) {}

int AlarmListController::GetCount(std::uint32_t& count) {
    AlarmStats stats{};
    if (FetchStats(stats) != 0) return -1;
    count = stats.count.Get();
    m_unacknowledged = stats.unacknowledged.Get();
    return 0;
}

int AlarmListController::GetEntries(std::uint32_t first, std::uint32_t count) {
    const std::span<AlarmEntry> entries = std::span(m_entries).first(std::min(count, PageSize()));
    std::ranges::fill(entries, AlarmEntry{});
    return FetchAlarms(first, entries);
}

void AlarmListController::FillPage(AlarmPage& page) const {
    FillPosition(page);
    page.unacknowledged = m_unacknowledged;
    std::ranges::transform(m_entries, page.rows.begin(), AlarmRowOf);
}

ActiveAlarmListController& ActiveAlarmListController::getInstance() {
    static ActiveAlarmListController instance;
    return instance;
}

void ActiveAlarmListController::Acknowledge() { static_cast<void>(ALARMSINTERFACE_ackActiveAlarms()); }

int ActiveAlarmListController::FetchStats(AlarmStats& out) { return ALARMSINTERFACE_getActiveAlarmStats(out); }

int ActiveAlarmListController::FetchAlarms(std::uint32_t first, std::span<AlarmEntry> entries) {
    return ALARMSINTERFACE_getActiveAlarms(first, entries);
}

HistoricalAlarmListController& HistoricalAlarmListController::getInstance() {
    static HistoricalAlarmListController instance;
    return instance;
}

void HistoricalAlarmListController::Acknowledge() { static_cast<void>(ALARMSINTERFACE_ackHistoricalAlarms()); }

int HistoricalAlarmListController::FetchStats(AlarmStats& out) { return ALARMSINTERFACE_getHistoricalAlarmStats(out); }

int HistoricalAlarmListController::FetchAlarms(std::uint32_t first, std::span<AlarmEntry> entries) {
    return ALARMSINTERFACE_getHistoricalAlarms(first, entries);
}
