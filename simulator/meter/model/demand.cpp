#include "simulator/meter/model/demand.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace meter {
namespace {

using enum Quantity;

constexpr double kSubinterval = 60.0;                                 // seconds
constexpr double kThermalSeconds = 15.0 * 60.0 / std::numbers::ln10;  // time constant

std::array<double, kDemandFamilies> PowersOf(const Readings& readings) {
    const double active = readings[ActiveTotal];
    return {active, readings[ReactiveTotal], readings[ApparentTotal], std::max(active, 0.0), std::max(-active, 0.0)};
}

}  // namespace

void Demand::Step(double seconds, Readings& readings) {
    const auto powers = PowersOf(readings);
    const double kept = m_started ? std::exp(-seconds / kThermalSeconds) : 0.0;
    m_started = true;
    m_elapsed += seconds;
    const bool minuteOver = m_elapsed >= kSubinterval - 1e-6;
    if (minuteOver) m_filled = std::min(m_filled + 1, kSubintervals);
    for (std::size_t i = 0; i < kDemandFamilies; ++i) {
        Family& family = m_families[i];
        family.sum += powers[i] * seconds;
        family.thermal = family.thermal * kept + powers[i] * (1.0 - kept);
        readings[At(ThermalActive, i)] = family.thermal;
        if (minuteOver) {
            family.minutes[m_next] = family.sum / m_elapsed;
            family.sum = 0.0;
        }
        const double total = std::accumulate(family.minutes.begin(), family.minutes.end(), 0.0);
        readings[At(BlockActive, i)] = m_filled == 0 ? powers[i] : total / static_cast<double>(m_filled);
    }
    if (!minuteOver) return;
    m_next = (m_next + 1) % kSubintervals;
    m_elapsed = 0.0;
}

}  // namespace meter
