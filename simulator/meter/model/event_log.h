#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "simulator/meter/model/statistics.h"

/// What happened to the meter and who changed it.
namespace meter {

/// The modules that log events. The display shows the description instead of the first two.
inline constexpr std::string_view kFrontPanelModule = "Front panel";
inline constexpr std::string_view kFactoryModule = "Factory";
inline constexpr std::string_view kMeterModule = "Meter";

struct Event {
    std::uint32_t number;
    Instant when;
    std::string source;
    std::string description;
};

class EventLog {
public:
    void Add(Instant when, std::string_view source, std::string_view description);
    void Clear() { m_events.clear(); }

    std::size_t Count() const { return m_events.size(); }
    /// Entry 0 is the newest. `index` is below Count().
    const Event& At(std::size_t index) const { return m_events[m_events.size() - 1 - index]; }

private:
    static constexpr std::size_t kCapacity = 500;

    std::deque<Event> m_events;
    std::uint32_t m_next = 1;
};

}  // namespace meter
