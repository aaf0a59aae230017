#include "simulator/meter/model/io_points.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "simulator/meter/model/format.h"
#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

struct InputRow {
    std::string_view label;
    double changesPerHour;
};

// clang-format off
constexpr auto kDigitalInputRows = std::to_array<InputRow>({
    {"Main breaker", 0.02}, {"Feeder breaker", 0.1}, {"Door contact", 0.4}, {"Water meter", 120.0},
    {"Gas meter", 60.0}, {"Sync input", 4.0},
});
constexpr auto kDigitalOutputRows = std::to_array<std::string_view>({"Alarm relay", "Energy pulse", "Load shedding", "Capacitor step"});
constexpr auto kAnalogInputRows = std::to_array<std::string_view>({"Transformer temp.", "Oil pressure", "Ambient temp."});
constexpr auto kAnalogOutputRows = std::to_array<std::string_view>({"Active power", "Line voltage"});
// clang-format on

constexpr double kWattHoursPerPulse = 100.0;
constexpr double kShedAbove = 150e3;  // W
constexpr double kFullPower = 300e3;  // W at 20 mA
constexpr double kFullVoltage = 500.0;

std::string OnOff(bool on) { return std::string(on ? texts::kOn : texts::kOff); }
std::string Milliamperes(double share) {
    return Grouped(4.0 + 16.0 * std::clamp(share, 0.0, 1.0), 2, Grouping::Plain) + " mA";
}

}  // namespace

void IoPoints::Step(double seconds, const Readings& readings, std::uint32_t alarmStatus) {
    static_assert(kDigitalInputRows.size() == kDigitalInputs);
    for (std::size_t i = 0; i < kDigitalInputs; ++i) {
        const double chance = 1.0 - std::exp(-kDigitalInputRows[i].changesPerHour * seconds / 3600.0);
        if (m_noise.Even() >= chance) continue;
        m_inputs[i].on = !m_inputs[i].on;
        if (m_inputs[i].on) ++m_inputs[i].pulses;
    }
    m_temperature.Step(m_noise, seconds);
    m_pressure.Step(m_noise, seconds);
    m_onSeconds += seconds;
    m_energyIn = readings[Quantity::ActiveEnergyIn];
    m_power = readings[Quantity::ActiveTotal];
    m_voltage = readings[Quantity::VoltageLlAverage];
    m_alarm = alarmStatus < 8;
}

std::vector<std::string_view> IoPoints::Labels() {
    std::vector<std::string_view> labels;
    for (const InputRow& row : kDigitalInputRows) labels.push_back(row.label);
    for (const auto& rows :
         {std::span<const std::string_view>(kDigitalOutputRows), {kAnalogInputRows}, {kAnalogOutputRows}})
        labels.insert(labels.end(), rows.begin(), rows.end());
    return labels;
}

std::size_t IoPoints::Count(IoKind kind) const {
    switch (kind) {
        case IoKind::DigitalInput: return kDigitalInputRows.size();
        case IoKind::DigitalOutput: return kDigitalOutputRows.size();
        case IoKind::AnalogInput: return kAnalogInputRows.size();
        case IoKind::AnalogOutput: return kAnalogOutputRows.size();
    }
    return 0;
}

IoText IoPoints::At(IoKind kind, std::size_t index) const {
    switch (kind) {
        case IoKind::DigitalInput:
            return {kDigitalInputRows[index].label, OnOff(m_inputs[index].on), std::to_string(m_inputs[index].pulses)};
        case IoKind::DigitalOutput: {
            const std::array<bool, 4> states = {m_alarm,
                                                std::fmod(m_energyIn, 2 * kWattHoursPerPulse) < kWattHoursPerPulse,
                                                m_power > kShedAbove, m_power > kShedAbove / 2};
            return {kDigitalOutputRows[index], OnOff(states[index]), {}};
        }
        case IoKind::AnalogInput: {
            const std::array<std::string, 3> values = {Grouped(58.0 + 2.0 * m_temperature.Value(), 1, Grouping::Plain) +
                                                           " \xB0"
                                                           "C",
                                                       Grouped(4.2 + m_pressure.Value(), 2, Grouping::Plain) + " bar",
                                                       Grouped(21.5 + m_temperature.Value(), 1, Grouping::Plain) +
                                                           " \xB0"
                                                           "C"};
            return {kAnalogInputRows[index], values[index], {}};
        }
        case IoKind::AnalogOutput: {
            const double voltage = std::isnan(m_voltage) ? 0.0 : m_voltage;
            return {
                kAnalogOutputRows[index], Milliamperes(index == 0 ? m_power / kFullPower : voltage / kFullVoltage), {}};
        }
    }
    return {};
}

void IoPoints::ResetCounters() {
    for (DigitalInput& input : m_inputs) input.pulses = 0;
}

}  // namespace meter
