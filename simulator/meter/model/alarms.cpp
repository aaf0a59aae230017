#include "simulator/meter/model/alarms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

using enum Quantity;
using enum Compare;
using enum Reference;

constexpr std::size_t kHistoryCapacity = 1000;

// clang-format off
constexpr auto kDefinitions = std::to_array<AlarmDefinition>({
    {4001, "Overvoltage L1",      3, VoltageL1,        Unit::Volt,    Above, NominalVoltage,   1.06,  1.05,  10, true},
    {4002, "Overvoltage L2",      3, VoltageL2,        Unit::Volt,    Above, NominalVoltage,   1.06,  1.05,  10, true},
    {4003, "Overvoltage L3",      3, VoltageL3,        Unit::Volt,    Above, NominalVoltage,   1.06,  1.05,  10, true},
    {4004, "Undervoltage L1",     3, VoltageL1,        Unit::Volt,    Below, NominalVoltage,   0.94,  0.95,  10, true},
    {4005, "Undervoltage L2",     3, VoltageL2,        Unit::Volt,    Below, NominalVoltage,   0.94,  0.95,  10, true},
    {4006, "Undervoltage L3",     3, VoltageL3,        Unit::Volt,    Below, NominalVoltage,   0.94,  0.95,  10, true},
    {4007, "Voltage sag L1",      2, VoltageL1,        Unit::Volt,    Below, NominalVoltage,   0.90,  0.92,   0, true},
    {4008, "Voltage sag L2",      2, VoltageL2,        Unit::Volt,    Below, NominalVoltage,   0.90,  0.92,   0, true},
    {4009, "Voltage sag L3",      2, VoltageL3,        Unit::Volt,    Below, NominalVoltage,   0.90,  0.92,   0, true},
    {4010, "Voltage swell L1",    2, VoltageL1,        Unit::Volt,    Above, NominalVoltage,   1.10,  1.08,   0, true},
    {4011, "Voltage swell L2",    2, VoltageL2,        Unit::Volt,    Above, NominalVoltage,   1.10,  1.08,   0, true},
    {4012, "Voltage swell L3",    2, VoltageL3,        Unit::Volt,    Above, NominalVoltage,   1.10,  1.08,   0, true},
    {4013, "Phase loss",          3, MissingPhases,    Unit::Count,   Above, Absolute,         0.50,  0.50,   1, true},
    {4014, "Phase reversal",      3, PhaseOrder,       Unit::Count,   Below, Absolute,        -0.50, -0.50,   1, true},
    {4015, "Voltage unbalance",   2, Unbalance,        Unit::Percent, Above, Absolute,         2.00,  1.80,  10, true},
    {4016, "Overcurrent L1",      3, CurrentL1,        Unit::Ampere,  Above, NominalCurrent,   1.20,  1.10,   5, true},
    {4017, "Overcurrent L2",      3, CurrentL2,        Unit::Ampere,  Above, NominalCurrent,   1.20,  1.10,   5, true},
    {4018, "Overcurrent L3",      3, CurrentL3,        Unit::Ampere,  Above, NominalCurrent,   1.20,  1.10,   5, true},
    {4019, "Neutral overcurrent", 2, CurrentNeutral,   Unit::Ampere,  Above, NominalCurrent,   0.40,  0.35,   5, true},
    {4020, "Demand too high",     1, BlockActive,      Unit::Watt,    Above, NominalPower,     1.00,  0.95,   0, true},
    {4021, "Reverse power",       1, ActiveTotal,      Unit::Watt,    Below, NominalPower,    -0.10, -0.05, 120, true},
    {4022, "Low power factor",    1, PowerFactorTotal, Unit::None,    Below, Absolute,         0.40,  0.50, 300, false},
    {4023, "Voltage THD L1",      2, ThdVoltageL1,     Unit::Percent, Above, Absolute,         5.00,  4.50,  10, true},
    {4024, "Voltage THD L2",      2, ThdVoltageL2,     Unit::Percent, Above, Absolute,         5.00,  4.50,  10, true},
    {4025, "Voltage THD L3",      2, ThdVoltageL3,     Unit::Percent, Above, Absolute,         5.00,  4.50,  10, true},
    {4026, "Current THD L1",      1, ThdCurrentL1,     Unit::Percent, Above, Absolute,        25.00, 22.00,  10, true},
    {4027, "Current THD L2",      1, ThdCurrentL2,     Unit::Percent, Above, Absolute,        25.00, 22.00,  10, true},
    {4028, "Current THD L3",      1, ThdCurrentL3,     Unit::Percent, Above, Absolute,        25.00, 22.00,  10, true},
    {4029, "Overfrequency",       3, Frequency,        Unit::Hertz,   Above, NominalFrequency, 1.01,  1.005,  1, true},
    {4030, "Underfrequency",      3, Frequency,        Unit::Hertz,   Below, NominalFrequency, 0.99,  0.995,  1, true},
});

constexpr auto kPriorityNames = std::to_array<std::string_view>({"", "Low", "Medium", "High"});

// Global alarm status by priority of the gravest active alarm, and whether one of that priority waits for its
// acknowledgement.
struct StatusRow {
    std::uint32_t unacknowledged;
    std::uint32_t acknowledged;
};
constexpr auto kStatusByPriority = std::to_array<StatusRow>({{12, 12}, {6, 7}, {1, 3}, {0, 2}});
// clang-format on

double ReferenceValue(Reference reference, const Nominals& nominals) {
    switch (reference) {
        case Absolute: return 1.0;
        case NominalVoltage: return nominals.voltage;
        case NominalCurrent: return nominals.current;
        case NominalFrequency: return nominals.frequency;
        case NominalPower: return 3.0 * nominals.voltage * nominals.current;
    }
    return 1.0;
}

bool IsBeyond(Compare compare, double value, double limit) { return compare == Above ? value > limit : value < limit; }

}  // namespace

std::span<const AlarmDefinition> AlarmDefinitions() { return kDefinitions; }

std::string_view PriorityName(std::uint16_t priority) { return kPriorityNames[priority]; }

Alarms::Alarms() {
    for (const AlarmDefinition& definition : kDefinitions) m_states.push_back({.enabled = definition.enabled});
}

void Alarms::Step(const Readings& readings, const Nominals& nominals, double seconds, Instant now, EventLog& log) {
    for (std::size_t i = 0; i < kDefinitions.size(); ++i) {
        const AlarmDefinition& definition = kDefinitions[i];
        State& state = m_states[i];
        const double value = readings[definition.quantity];
        const double unit = ReferenceValue(definition.reference, nominals);
        const double limit = unit * (state.on ? definition.dropout : definition.pickup);
        const bool beyond =
            state.held || (state.enabled && !std::isnan(value) && IsBeyond(definition.compare, value, limit));
        if (state.on && !beyond) {
            End(i, now);
            log.Add(now, definition.name, texts::kAlarmEnded);
        }
        if (state.on) {
            Occurrence* running = Running(i);
            if (running != nullptr && IsBeyond(definition.compare, value, running->value)) running->value = value;
            continue;
        }
        if (!beyond) {
            state.beyondSeconds = 0.0;
            continue;
        }
        state.beyondSeconds += seconds;
        if (!state.held && state.beyondSeconds < definition.delaySeconds) continue;
        Begin(i, value, now);
        log.Add(now, definition.name, texts::kAlarmStarted);
    }
}

bool Alarms::Enable(std::uint32_t registerId, bool enabled) {
    const auto found = std::ranges::find(kDefinitions, registerId, &AlarmDefinition::registerId);
    if (found == kDefinitions.end()) return false;
    m_states[static_cast<std::size_t>(found - kDefinitions.begin())].enabled = enabled;
    return true;
}

std::vector<const Occurrence*> Alarms::Active() const {
    std::vector<const Occurrence*> active;
    for (auto it = m_occurrences.rbegin(); it != m_occurrences.rend(); ++it)
        if (!it->ended) active.push_back(&*it);
    return active;
}

std::vector<const Occurrence*> Alarms::History() const {
    std::vector<const Occurrence*> history;
    for (auto it = m_occurrences.rbegin(); it != m_occurrences.rend(); ++it) history.push_back(&*it);
    return history;
}

void Alarms::AcknowledgeActive() {
    for (Occurrence& occurrence : m_occurrences)
        if (!occurrence.ended) occurrence.acknowledged = true;
}

void Alarms::AcknowledgeHistory() {
    for (Occurrence& occurrence : m_occurrences) occurrence.historyAcknowledged = true;
}

std::uint32_t Alarms::GlobalStatus() const {
    std::uint16_t gravest = 0;
    bool waiting = false;
    for (const Occurrence& occurrence : m_occurrences) {
        if (occurrence.ended) continue;
        const std::uint16_t priority = kDefinitions[occurrence.definition].priority;
        if (priority > gravest) waiting = false;
        gravest = std::max(gravest, priority);
        if (priority == gravest && !occurrence.acknowledged) waiting = true;
    }
    const StatusRow& row = kStatusByPriority[gravest];
    return waiting ? row.unacknowledged : row.acknowledged;
}

void Alarms::Clear() {
    m_occurrences.clear();
    for (State& state : m_states) {
        state.held = false;
        state.on = false;
        state.beyondSeconds = 0.0;
    }
}

void Alarms::Flood(std::size_t count, Instant now) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t definition = i % kDefinitions.size();
        const Instant start = now - static_cast<Instant>(count - i) * 37 * 1000;
        Begin(definition, kDefinitions[definition].pickup, start);
        m_states[definition].on = false;
    }
}

void Alarms::Begin(std::size_t definition, double value, Instant now) {
    if (m_occurrences.size() == kHistoryCapacity) m_occurrences.pop_front();
    m_states[definition].on = true;
    m_occurrences.push_back({definition, value, now, 0, false, false, false});
}

void Alarms::End(std::size_t definition, Instant now) {
    State& state = m_states[definition];
    state.on = false;
    state.beyondSeconds = 0.0;
    Occurrence* running = Running(definition);
    if (running == nullptr) return;
    running->ended = true;
    running->end = now;
}

Occurrence* Alarms::Running(std::size_t definition) {
    const auto found = std::find_if(m_occurrences.rbegin(), m_occurrences.rend(), [definition](const Occurrence& one) {
        return one.definition == definition && !one.ended;
    });
    return found != m_occurrences.rend() ? &*found : nullptr;
}

}  // namespace meter
