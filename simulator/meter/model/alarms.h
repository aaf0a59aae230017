#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/meter/model/event_log.h"
#include "simulator/meter/model/settings.h"
#include "simulator/meter/model/statistics.h"

/// Alarms that follow limits.
namespace meter {

enum class Compare : std::uint8_t { Above, Below };

/// What a limit is a multiple of.
enum class Reference : std::uint8_t { Absolute, NominalVoltage, NominalCurrent, NominalFrequency, NominalPower };

/// One alarm. Its register switches it on and off with "Enabled" and "Disabled".
struct AlarmDefinition {
    std::uint16_t registerId;
    std::string_view name;
    std::uint16_t priority;  // 1 low, 2 medium, 3 high
    Quantity quantity;
    Unit unit;
    Compare compare;
    Reference reference;
    double pickup;
    double dropout;
    double delaySeconds;
    bool enabled;  // as the meter leaves the factory
};

std::span<const AlarmDefinition> AlarmDefinitions();

/// What alarm lists call a priority of 1 to 3.
std::string_view PriorityName(std::uint16_t priority);

/// One time that an alarm was on.
struct Occurrence {
    std::size_t definition;
    double value;  // the one farthest beyond the limit
    Instant start;
    Instant end;  // counts once `ended`
    bool ended;
    bool acknowledged;         // in the list of active alarms
    bool historyAcknowledged;  // in the history
};

class Alarms {
public:
    Alarms();

    /// Compares the readings that held for `seconds` up to `now` with the limits.
    void Step(const Readings& readings, const Nominals& nominals, double seconds, Instant now, EventLog& log);

    bool IsEnabled(std::size_t definition) const { return m_states[definition].enabled; }
    /// Switches the alarm of a register. @return false when no alarm has that register
    bool Enable(std::uint32_t registerId, bool enabled);

    /// Holds an alarm on whatever its limit says and whether it is enabled, or leaves it to its limit again.
    void Hold(std::size_t definition, bool held) { m_states[definition].held = held; }
    bool IsHeld(std::size_t definition) const { return m_states[definition].held; }

    /// Newest first; the references hold until the next step.
    std::vector<const Occurrence*> Active() const;
    std::vector<const Occurrence*> History() const;
    void AcknowledgeActive();
    void AcknowledgeHistory();

    /// The status that drives the display's alarm lamp.
    std::uint32_t GlobalStatus() const;

    /// Forgets what was on, and holds none.
    void Clear();
    /// Fills both lists with so many alarms that stay on.
    void Flood(std::size_t count, Instant now);

private:
    struct State {
        bool enabled;
        bool held = false;
        bool on = false;
        double beyondSeconds = 0.0;
    };

    void Begin(std::size_t definition, double value, Instant now);
    void End(std::size_t definition, Instant now);
    Occurrence* Running(std::size_t definition);

    std::vector<State> m_states;
    std::deque<Occurrence> m_occurrences;  // oldest first
};

}  // namespace meter
