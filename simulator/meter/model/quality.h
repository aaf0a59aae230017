#pragma once

#include <array>
#include <cstddef>

#include "simulator/meter/model/network.h"
#include "simulator/meter/model/quantity.h"

/// Voltage quality after EN 50160: intervals observed and intervals outside the limits.
namespace meter {

class Quality {
public:
    /// Takes in the readings of `seconds` and counts the intervals that ended: ten seconds for the frequency, ten
    /// minutes for everything else.
    void Step(double seconds, const Network& network, double nominalFrequency, double nominalVoltage,
              Readings& readings);

    static void Reset(Readings& readings);

private:
    void EndTenMinutes(const Network& network, double nominalVoltage, Readings& readings);

    static constexpr std::size_t kLongFlickerIntervals = 12;

    double m_frequencySeconds = 0.0;
    double m_seconds = 0.0;
    std::array<double, kPhaseCount> m_voltageSum{};  // V times seconds of the running interval
    std::array<std::array<double, kLongFlickerIntervals>, kPhaseCount> m_flicker{};
    std::size_t m_intervals = 0;
};

}  // namespace meter
