#pragma once

#include <array>
#include <cstdint>

#include "screens/lists/list_controller.h"

/// An event as screens show it.
struct EventRow {
    std::uint32_t unused = 0;         // the meter's own
    std::array<char16_t, 11> date{};  // as long as the meter's field, perhaps unterminated
    std::array<char16_t, 12> time{};  // likewise
    std::array<char16_t, 50>
        source{};  // what stands in a list: the source, or what says more; in the selected language
    std::array<char16_t, 50> description{};
};
static_assert(sizeof(EventRow) == 252);

/// As many events as a screen shows at a time, at most four.
struct EventPage : ListPage {
    std::array<EventRow, 4> rows{};
};

/// A list leads with the description of an event that was logged by the front panel or the factory, whose name alone
/// says nothing. A detail shows source and description.
enum class EventPageMode { Detail, List };

class EventLogListController;

/// Takes the page on view. The page is empty when the log is.
void FillEventPage(const EventLogListController& controller, EventPage& page, EventPageMode mode);
