#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/meter/model/noise.h"
#include "simulator/meter/model/quantity.h"

/// The meter's input and output points.
namespace meter {

enum class IoKind : std::uint8_t { DigitalInput, DigitalOutput, AnalogInput, AnalogOutput };

/// One point as it is shown.
struct IoText {
    std::string_view label;
    std::string state;
    std::string second;  // pulses counted, digital inputs only
};

class IoPoints {
public:
    explicit IoPoints(std::uint64_t seed) : m_noise(seed ^ 0x10U) {}

    /// Inputs change now and then, outputs and analog values follow the readings.
    void Step(double seconds, const Readings& readings, std::uint32_t alarmStatus);

    static std::vector<std::string_view> Labels();
    std::size_t Count(IoKind kind) const;
    /// `index` is below Count(kind).
    IoText At(IoKind kind, std::size_t index) const;

    void ResetCounters();
    void ResetOnTime() { m_onSeconds = 0.0; }
    double OnSeconds() const { return m_onSeconds; }

private:
    static constexpr std::size_t kDigitalInputs = 6;

    struct DigitalInput {
        bool on = false;
        std::uint32_t pulses = 0;
    };

    Noise m_noise;
    std::array<DigitalInput, kDigitalInputs> m_inputs{};
    Drift m_temperature{3.0, 3600.0};
    Drift m_pressure{0.4, 600.0};
    double m_onSeconds = 0.0;
    double m_energyIn = 0.0;  // Wh, for the pulse output
    double m_power = 0.0;     // W
    double m_voltage = 0.0;   // V
    bool m_alarm = false;
};

}  // namespace meter
