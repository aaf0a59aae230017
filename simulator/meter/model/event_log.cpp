#include "simulator/meter/model/event_log.h"

namespace meter {

void EventLog::Add(Instant when, std::string_view source, std::string_view description) {
    if (m_events.size() == kCapacity) m_events.pop_front();
    m_events.push_back({m_next++, when, std::string(source), std::string(description)});
}

}  // namespace meter
