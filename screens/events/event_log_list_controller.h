#pragma once

#include <span>
#include <vector>

#include "rda/records/identity.h"
#include "screens/lists/list_controller.h"

/// Scrolls through the event log, newest entry first. Entries on view stay there while new events arrive, unless the
/// newest is among them.
class EventLogListController : public ListController {
public:
    explicit EventLogListController(std::uint32_t pageSize) : ListController(pageSize), m_entries(pageSize) {}

    int GetCount(std::uint32_t& count) override;
    int GetEntries(std::uint32_t first, std::uint32_t count) override;

    /// The page that was read last; behind the end of the log without meaning.
    std::span<const EventLogEntry> Entries() const { return m_entries; }

    using ListController::FillPosition;
    using ListController::Reset;

private:
    std::vector<EventLogEntry> m_entries;
};
