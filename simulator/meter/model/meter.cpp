#include "simulator/meter/model/meter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "simulator/meter/model/measurement.h"
#include "simulator/meter/model/operations.h"
#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

constexpr std::int64_t kStep = 200;  // milliseconds of one step of the running model
constexpr std::int64_t kHistoryStep = kMinute;
constexpr std::int64_t kHistory = 7 * kDay;
constexpr double kDipChance = 1.0 / 2500.0;  // of a dip in a minute of history

constexpr std::uint16_t kPeakReset = 2031;

// What was on the registers before the history that the meter lives through.
struct OpeningBalance {
    Quantity quantity;
    double value;  // Wh and the like
};
// clang-format off
constexpr auto kOpeningBalances = std::to_array<OpeningBalance>({
    {Quantity::ActiveEnergyIn,      412.6e6}, {Quantity::ActiveEnergyOut,    9.31e6},
    {Quantity::ActiveEnergyTotal,   421.91e6},
    {Quantity::ReactiveEnergyIn,    121.4e6}, {Quantity::ReactiveEnergyOut,  15.2e6},
    {Quantity::ReactiveEnergyTotal, 136.6e6},
    {Quantity::ApparentEnergyIn,    431.8e6}, {Quantity::ApparentEnergyOut,  12.6e6},
    {Quantity::ApparentEnergyTotal, 444.4e6},
    {Quantity::TariffA, 201.5e6}, {Quantity::TariffB, 83.1e6}, {Quantity::TariffC, 71.2e6}, {Quantity::TariffD, 56.8e6},
});

// Settings that the display is told of at once.
struct CommandRow {
    std::uint16_t id;
    std::string_view operation;
};
constexpr auto kCommands = std::to_array<CommandRow>({
    {reg::kLanguage,         "DISPCFG_setLanguage"},
    {reg::kPhaseLabels,      "DISPCFG_setPhaseLabels"},
    {reg::kSymbols,          "DISPCFG_setMeasSymbols"},
    {reg::kBacklightTimeout, "BACKLIGHT_setTimeout"},
});
// clang-format on

bool IsPeak(Quantity quantity) { return quantity >= Quantity::BlockActive && quantity <= Quantity::ThermalExport; }
bool IsDistortion(Quantity quantity) {
    return quantity >= Quantity::ThdVoltageL1 && quantity <= Quantity::ThdCurrentNeutral;
}

double AspectValue(const Statistic& statistic, Aspect aspect, double now) {
    if (aspect == Aspect::Now) return now;
    if (aspect == Aspect::PreviousMaximum) return statistic.previousMaximum.value;
    if (!statistic.IsKnown()) return std::numeric_limits<double>::quiet_NaN();
    switch (aspect) {
        case Aspect::Minimum: return statistic.minimum.value;
        case Aspect::Maximum: return statistic.maximum.value;
        case Aspect::Mean: return statistic.mean;
        default: return statistic.Deviation();
    }
}

std::optional<Instant> AspectTime(const Statistic& statistic, Aspect aspect) {
    switch (aspect) {
        case Aspect::Minimum: return statistic.IsKnown() ? std::optional(statistic.minimum.when) : std::nullopt;
        case Aspect::Maximum: return statistic.IsKnown() ? std::optional(statistic.maximum.when) : std::nullopt;
        case Aspect::PreviousMaximum: return statistic.previousMaximum.when;
        default: return std::nullopt;
    }
}

}  // namespace

Meter::Meter(std::uint64_t seed, Instant start)
    : m_now(start - kHistory),
      m_network(seed),
      m_io(seed),
      m_scenario(FindScenario("normal")),
      m_connectionId(static_cast<std::uint32_t>(seed * 2654435761U) | 1U) {
    for (const OpeningBalance& balance : kOpeningBalances) m_readings[balance.quantity] = balance.value;
    TakeSettings();
    LiveThroughHistory();
}

void Meter::LiveThroughHistory() {
    m_log.Add(m_now, kFactoryModule, texts::kFactorySettings);
    m_log.Add(m_now, kMeterModule, texts::kPowerRestored);
    Noise noise(m_connectionId);
    const Instant end = m_now + kHistory;
    while (m_now < end) {
        // The middle of the week closes a billing period, so that there are peaks before and after it.
        if (m_now == end - kHistory / 2) {
            Write(kPeakReset, "1", kMeterModule);
            m_alarms.AcknowledgeHistory();
        }
        Disturbance dip;
        if (noise.Even() < kDipChance)
            dip.voltage[static_cast<std::size_t>(noise.Even() * 3.0)] = 0.6 + 0.25 * noise.Even();
        Step(kHistoryStep, dip);
    }
    m_alarms.AcknowledgeActive();
    m_log.Add(m_now, kFrontPanelModule, texts::kDisplayConnected);
}

void Meter::Advance(std::int64_t milliseconds) {
    m_pending += milliseconds;
    for (; m_pending >= kStep; m_pending -= kStep)
        Step(kStep, m_waves.At(m_now - m_wavesStart, m_scenario->disturbance));
}

void Meter::Step(std::int64_t milliseconds, const Disturbance& disturbance) {
    m_now += milliseconds;
    const double seconds = static_cast<double>(milliseconds) / 1000.0;
    Connection connection = m_connection;
    if (m_scenario->delta) connection.wiring = Wiring::Delta;

    m_network.Step(seconds, m_clock.TimeOfDay(m_now), connection, disturbance);
    Measure(m_network, connection, m_readings);
    AddEnergy(seconds, TariffAt(m_clock.LocalTime(m_now)), m_readings);
    m_demand.Step(seconds, m_readings);
    m_quality.Step(seconds, m_network, m_nominals.frequency, m_nominals.voltage, m_readings);
    m_statistics.Add(m_readings, seconds, m_now);
    m_alarms.Step(m_readings, m_nominals, seconds, m_now, m_log);
    m_io.Step(seconds, m_readings, m_alarms.GlobalStatus());
}

bool Meter::Answer(std::string_view operation, std::span<const std::byte> payload, std::span<std::byte> response) {
    return AnswerOperation(*this, operation, payload, response);
}

void Meter::Play(const Scenario& scenario, Waves waves) {
    m_waves = std::move(waves);
    m_wavesStart = m_now;
    if (m_scenario->alarms > 0 || scenario.emptyLog) m_alarms.Clear();
    m_scenario = &scenario;
    m_hardwareLock = scenario.hardwareLock;
    m_refusal = scenario.refuseWrites ? std::optional(std::string(texts::kRefused)) : std::nullopt;
    if (scenario.alarms > 0) m_alarms.Flood(scenario.alarms, m_now);
    if (scenario.emptyLog) m_log.Clear();
}

std::optional<std::string_view> Meter::WriteFromPanel(std::uint32_t id, std::string_view text) {
    if (HasHardwareLock()) return texts::kHardwareLocked;
    if (!m_security.IsLoggedIn()) return texts::kNotLoggedIn;
    return Write(id, text, kFrontPanelModule);
}

std::optional<std::string_view> Meter::Write(std::uint32_t id, std::string_view text, std::string_view module) {
    if (m_refusal) return *m_refusal;
    const auto alarms = AlarmDefinitions();
    const auto alarm = std::ranges::find(alarms, id, &AlarmDefinition::registerId);
    if (alarm != alarms.end()) {
        if (text != "Enabled" && text != "Disabled") return texts::kNotAChoice;
        m_alarms.Enable(id, text == "Enabled");
        m_log.Add(m_now, module, std::string(alarm->name) + ": " + std::string(text));
        return std::nullopt;
    }
    const Register* target = FindRegister(id);
    if (target == nullptr) return texts::kUnknownRegister;
    if (const auto objection = Settings::Objection(*target, text)) return objection;
    m_settings.Write(*target, text);
    const bool isReset = target->kind == Kind::Reset;
    m_log.Add(m_now, module,
              isReset ? "Reset: " + std::string(target->label) : std::string(target->label) + ": " + std::string(text));
    Apply(*target);
    return std::nullopt;
}

void Meter::TakeSettings() {
    m_connection = m_settings.ConnectionSettings();
    m_clock = m_settings.ClockSettings();
    m_nominals = m_settings.NominalValues();
}

void Meter::Apply(const Register& target) {
    TakeSettings();
    if (target.kind == Kind::Reset) Clear(target.reset);
    const auto command = std::ranges::find(kCommands, target.id, &CommandRow::id);
    if (command == kCommands.end()) return;
    Queue(command->operation, target.kind == Kind::Choice ? m_settings.Item(target.id)
                                                          : static_cast<std::uint32_t>(m_settings.Number(target.id)));
}

void Meter::Clear(ResetScope scope) {
    const bool everything = scope == ResetScope::Everything;
    if (everything || scope == ResetScope::Energy) ResetEnergy(m_readings);
    if (everything || scope == ResetScope::InputCounters) m_io.ResetCounters();
    if (everything || scope == ResetScope::OnTime) m_io.ResetOnTime();
    if (everything || scope == ResetScope::Disturbances) Quality::Reset(m_readings);
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        if (IsPeak(quantity)) {
            if (everything || scope == ResetScope::PeakDemand) m_statistics.ResetPeak(quantity);
            continue;
        }
        const bool hit = IsDistortion(quantity) ? scope == ResetScope::Harmonics : scope == ResetScope::Extremes;
        if (everything || hit) m_statistics.Reset(quantity);
    }
}

std::optional<RegisterText> Meter::Read(std::uint32_t id) const {
    const Register* row = FindRegister(id);
    if (row == nullptr) return std::nullopt;
    if (row->kind == Kind::Reading) return ReadingText(*row);
    if (id == reg::kWiring && m_scenario->delta) return RegisterText{row->label, "DELTA", {}, std::nullopt};
    if (id == reg::kActiveRate) {
        const Tariff tariff = TariffAt(m_clock.LocalTime(m_now));
        return RegisterText{row->label, std::string(1, "ABCD"[static_cast<std::size_t>(tariff)]), {}, std::nullopt};
    }
    if (id == reg::kNextRateChange) {
        std::string text = std::to_string(NextTariffHour(m_clock.LocalTime(m_now)) % 24) + ":00";
        if (text.size() < 5) text.insert(0, 1, '0');
        return RegisterText{row->label, std::move(text), {}, std::nullopt};
    }
    const std::string_view unit = row->kind == Kind::Number ? Format(0.0, row->unit, {}).unit : std::string_view();
    return RegisterText{row->label, std::string(m_settings.Text(row->id)), unit, std::nullopt};
}

std::optional<double> Meter::Reading(std::uint32_t id) const {
    const Register* row = FindRegister(id);
    if (row == nullptr || row->kind != Kind::Reading) return std::nullopt;
    return AspectValue(m_statistics.Of(row->quantity), row->aspect, m_readings[row->quantity]);
}

RegisterText Meter::ReadingText(const Register& row) const {
    const Statistic& statistic = m_statistics.Of(row.quantity);
    const double value = AspectValue(statistic, row.aspect, m_readings[row.quantity]);
    ValueText text = Format(value, row.unit, m_settings.NumberSettings());
    const bool isFactor = row.quantity >= Quantity::PowerFactorL1 && row.quantity <= Quantity::PowerFactorTotal;
    if (isFactor && !std::isnan(value)) {
        const std::size_t phase = IndexOf(row.quantity) - IndexOf(Quantity::PowerFactorL1);
        const double active = m_readings[At(Quantity::ActiveL1, phase)];
        const double reactive = m_readings[At(Quantity::ReactiveL1, phase)];
        const bool lagging = active * reactive >= 0.0;
        const bool ieee = m_settings.Item(reg::kPowerFactorSign) == 1;
        if (ieee) text = Format(lagging ? -std::abs(value) : std::abs(value), row.unit, m_settings.NumberSettings());
        text.unit = lagging ? texts::kLagging : texts::kLeading;
    }
    return {row.label, std::move(text.value), text.unit, AspectTime(statistic, row.aspect)};
}

std::vector<DisplayCommand> Meter::TakeCommands() { return std::exchange(m_commands, {}); }

void Meter::Restart() {
    ++m_connectionId;
    m_security.LogOut();
    altMode = testMode = 0;
    m_log.Add(m_now, kMeterModule, texts::kPowerRestored);
}

}  // namespace meter
