#pragma once

#include <span>
#include <vector>

#include "screens/alarms/alarm_page.h"
#include "screens/lists/list_controller.h"

/// Scrolls through a list of alarms, four at a time.
class AlarmListController : public ListController {
public:
    int GetCount(std::uint32_t& count) override;
    int GetEntries(std::uint32_t first, std::uint32_t count) override;

    void FillPage(AlarmPage& page) const;

    /// Tells the meter that a person has seen all alarms of the list. What comes of it, the next refresh shows.
    virtual void Acknowledge() = 0;

protected:
    AlarmListController();

private:
    virtual int FetchStats(AlarmStats& out) = 0;
    virtual int FetchAlarms(std::uint32_t first, std::span<AlarmEntry> entries) = 0;

    std::vector<AlarmEntry> m_entries;  // a page
    std::uint32_t m_unacknowledged = 0;
};

/// The alarms that are on. One in the process: the scroll position outlives the screen.
class ActiveAlarmListController : public AlarmListController {
public:
    static ActiveAlarmListController& getInstance();
    void Acknowledge() override;

private:
    ActiveAlarmListController() = default;
    int FetchStats(AlarmStats& out) override;
    int FetchAlarms(std::uint32_t first, std::span<AlarmEntry> entries) override;
};

/// All alarms that have been. One in the process, likewise.
class HistoricalAlarmListController : public AlarmListController {
public:
    static HistoricalAlarmListController& getInstance();
    void Acknowledge() override;

private:
    HistoricalAlarmListController() = default;
    int FetchStats(AlarmStats& out) override;
    int FetchAlarms(std::uint32_t first, std::span<AlarmEntry> entries) override;
};
