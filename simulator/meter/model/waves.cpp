#include "simulator/meter/model/waves.h"

namespace meter {
namespace {

void Approach(double& value, std::optional<double> target, double share) {
    if (target) value += (*target - value) * share;
}

void Approach(Phases& values, const std::optional<Phases>& targets, double share) {
    for (std::size_t phase = 0; targets && phase < values.size(); ++phase)
        Approach(values[phase], (*targets)[phase], share);
}

}  // namespace

Disturbance Waves::At(std::int64_t milliseconds, Disturbance disturbance) const {
    for (const Wave& wave : m_waves) {
        const std::int64_t since = milliseconds - wave.at;
        if (since < 0) break;
        const double share = since >= wave.over ? 1.0 : static_cast<double>(since) / static_cast<double>(wave.over);
        Approach(disturbance.voltage, wave.voltage, share);
        Approach(disturbance.current, wave.current, share);
        Approach(disturbance.voltageAngle, wave.voltageAngle, share);
        Approach(disturbance.currentAngle, wave.currentAngle, share);
        Approach(disturbance.harmonics, wave.harmonics, share);
        Approach(disturbance.frequency, wave.frequency, share);
        disturbance.reversed = wave.reversed.value_or(disturbance.reversed);
    }
    return disturbance;
}

}  // namespace meter
