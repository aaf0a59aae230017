#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/meter/model/alarms.h"
#include "simulator/meter/model/catalogue.h"
#include "simulator/meter/model/demand.h"
#include "simulator/meter/model/energy.h"
#include "simulator/meter/model/event_log.h"
#include "simulator/meter/model/io_points.h"
#include "simulator/meter/model/network.h"
#include "simulator/meter/model/pages.h"
#include "simulator/meter/model/quality.h"
#include "simulator/meter/model/scenario.h"
#include "simulator/meter/model/security.h"
#include "simulator/meter/model/settings.h"
#include "simulator/meter/model/statistics.h"
#include "simulator/meter/model/waves.h"

namespace meter {

/// What a setting makes the meter tell the display.
struct DisplayCommand {
    std::string_view operation;
    std::uint32_t value;
};

/// A register as text.
struct RegisterText {
    std::string_view label;
    std::string value;
    std::string_view unit;
    std::optional<Instant> when;  // of an extreme
};

/// A three-phase meter: one running model, from which every answer follows.
///
/// Deterministic: the same seed, start and calls give the same answers. It begins with a week of history behind it.
/// One thread only.
class Meter {
public:
    Meter(std::uint64_t seed, Instant start);

    /// Moves simulated time on; how the time is cut into calls makes no difference.
    void Advance(std::int64_t milliseconds);

    /// Answers one operation. Fills the response exactly, or returns false when the meter has no answer: an unknown
    /// operation, a payload of another shape, or a response of another size.
    bool Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response);

    /// Puts the meter into a situation, which outlives it; the one before it ends. Its waves begin now.
    void Play(const Scenario& scenario, Waves waves = {});
    const Scenario& PlayedScenario() const { return *m_scenario; }

    /// Writes a register as the front panel does (lock and login hold) or as the meter's own software does.
    /// @return why it was refused, or nothing
    std::optional<std::string_view> WriteFromPanel(std::uint32_t id, std::string_view text);
    std::optional<std::string_view> Write(std::uint32_t id, std::string_view text, std::string_view module);

    std::optional<RegisterText> Read(std::uint32_t id) const;
    /// The number behind a register; nothing for settings, NaN where the wiring offers none.
    std::optional<double> Reading(std::uint32_t id) const;
    double Value(Quantity quantity) const { return m_readings[quantity]; }

    /// The commands that settings gave rise to since the last call.
    std::vector<DisplayCommand> TakeCommands();

    /// What scenarios say of the lock on the housing and of writes holds until it is said anew.
    void SetHardwareLock(bool closed) { m_hardwareLock = closed; }
    /// Why every write is refused, or nothing.
    void SetRefusal(std::optional<std::string> why) { m_refusal = std::move(why); }
    const std::optional<std::string>& Refusal() const { return m_refusal; }

    /// A new life: connection and login are gone, settings and energies stay.
    void Restart();

    Instant Now() const { return m_now; }
    std::uint32_t ConnectionId() const { return m_connectionId; }
    bool HasHardwareLock() const { return m_hardwareLock; }

    const Network& GetNetwork() const { return m_network; }
    const Settings& GetSettings() const { return m_settings; }
    const Clock& GetClock() const { return m_clock; }
    const Statistics& GetStatistics() const { return m_statistics; }
    Alarms& GetAlarms() { return m_alarms; }
    EventLog& GetEventLog() { return m_log; }
    Security& GetSecurity() { return m_security; }
    const IoPoints& GetIoPoints() const { return m_io; }
    PageCursor& CursorOf(PageSet set) { return m_cursors[static_cast<std::size_t>(set)]; }

    /// Display modes as the meter keeps them.
    std::uint32_t altMode = 0;
    std::uint32_t testMode = 0;

private:
    void LiveThroughHistory();
    void Step(std::int64_t milliseconds, const Disturbance& disturbance);
    void Apply(const Register& target);
    void TakeSettings();
    void Clear(ResetScope scope);
    void Queue(std::string_view operation, std::uint32_t value) { m_commands.push_back({operation, value}); }
    RegisterText ReadingText(const Register& row) const;

    Instant m_now;
    std::int64_t m_pending = 0;  // milliseconds not yet simulated
    Settings m_settings;
    Connection m_connection;  // what the settings come to, taken anew after each change
    Clock m_clock;
    Nominals m_nominals;
    Network m_network;
    Readings m_readings;
    Demand m_demand;
    Quality m_quality;
    Statistics m_statistics;
    Alarms m_alarms;
    EventLog m_log;
    Security m_security;
    IoPoints m_io;
    std::array<PageCursor, kPageSetCount> m_cursors;
    const Scenario* m_scenario;
    bool m_hardwareLock = false;
    std::optional<std::string> m_refusal;
    Waves m_waves;
    Instant m_wavesStart = 0;
    std::uint32_t m_connectionId;
    std::vector<DisplayCommand> m_commands;
};

}  // namespace meter
