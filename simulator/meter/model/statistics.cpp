#include "simulator/meter/model/statistics.h"

#include <cmath>

namespace meter {

double Statistic::Deviation() const { return IsKnown() ? std::sqrt(squares / weight) : 0.0; }

void Statistics::Add(const Readings& readings, double seconds, Instant now) {
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const double value = readings[static_cast<Quantity>(i)];
        if (std::isnan(value)) continue;
        Statistic& statistic = m_statistics[i];
        if (!statistic.IsKnown() || value < statistic.minimum.value) statistic.minimum = {value, now};
        if (!statistic.IsKnown() || value > statistic.maximum.value) statistic.maximum = {value, now};
        statistic.weight += seconds;
        const double distance = value - statistic.mean;
        statistic.mean += distance * seconds / statistic.weight;
        statistic.squares += seconds * distance * (value - statistic.mean);
    }
}

void Statistics::ResetPeak(Quantity quantity) {
    Statistic& statistic = m_statistics[IndexOf(quantity)];
    const Extreme old = statistic.maximum;
    statistic = {};
    statistic.previousMaximum = old;
}

}  // namespace meter
