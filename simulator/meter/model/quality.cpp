#include "simulator/meter/model/quality.h"

#include <algorithm>
#include <cmath>

namespace meter {
namespace {

using enum Quantity;

constexpr double kFrequencyInterval = 10.0;  // seconds
constexpr double kInterval = 600.0;

constexpr double kThdLimit = 8.0;         // percent
constexpr double kFifthOrderLimit = 6.0;  // percent; the order that comes closest to its limit
constexpr double kFlickerLimit = 1.0;

void Count(bool outside, Quantity counter, Readings& readings) {
    if (outside) readings[counter] += 1.0;
}

bool IsOutside(double share, double low, double high) { return share < low || share > high; }

}  // namespace

void Quality::Step(double seconds, const Network& network, double nominalFrequency, double nominalVoltage,
                   Readings& readings) {
    m_frequencySeconds += seconds;
    const double share = readings[Frequency] / nominalFrequency;
    for (; m_frequencySeconds >= kFrequencyInterval; m_frequencySeconds -= kFrequencyInterval) {
        readings[FrequencyIntervals] += 1.0;
        Count(IsOutside(share, 0.99, 1.01), FrequencyOutsideNarrow, readings);
        Count(IsOutside(share, 0.94, 1.04), FrequencyOutsideWide, readings);
    }
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase)
        m_voltageSum[phase] += std::abs(network.At(static_cast<Channel>(phase))) * seconds;
    m_seconds += seconds;
    if (m_seconds >= kInterval - 1e-6) EndTenMinutes(network, nominalVoltage, readings);
}

void Quality::EndTenMinutes(const Network& network, double nominalVoltage, Readings& readings) {
    const std::size_t place = m_intervals++ % kLongFlickerIntervals;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        const double share = m_voltageSum[phase] / m_seconds / nominalVoltage;
        readings[At(MagnitudeIntervalsL1, phase)] += 1.0;
        Count(IsOutside(share, 0.90, 1.10), At(MagnitudeOutsideNarrowL1, phase), readings);
        Count(IsOutside(share, 0.85, 1.10), At(MagnitudeOutsideWideL1, phase), readings);

        const auto channel = static_cast<Channel>(phase);
        readings[At(HarmonicIntervalsL1, phase)] += 1.0;
        Count(network.Thd(channel) > kThdLimit, At(HarmonicOutsideNarrowL1, phase), readings);
        Count(network.SpectrumOf(channel)[4] > kFifthOrderLimit, At(HarmonicOutsideWideL1, phase), readings);

        m_flicker[phase][place] = network.Flicker(phase);
        double cubes = 0.0;
        for (double severity : m_flicker[phase]) cubes += severity * severity * severity;
        const auto observed = static_cast<double>(std::min(m_intervals, kLongFlickerIntervals));
        readings[At(ShortFlickerL1, phase)] = network.Flicker(phase);
        readings[At(LongFlickerL1, phase)] = std::cbrt(cubes / observed);
        readings[At(FlickerIntervalsL1, phase)] += 1.0;
        Count(readings[At(LongFlickerL1, phase)] > kFlickerLimit, At(FlickerOutsideL1, phase), readings);
        m_voltageSum[phase] = 0.0;
    }
    m_seconds = 0.0;
}

void Quality::Reset(Readings& readings) {
    for (std::size_t i = IndexOf(FrequencyIntervals); i <= IndexOf(HarmonicOutsideWideL3); ++i)
        readings[static_cast<Quantity>(i)] = 0.0;
}

}  // namespace meter
