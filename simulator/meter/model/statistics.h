#pragma once

#include <array>
#include <cstdint>

#include "simulator/meter/model/quantity.h"

/// Minima, maxima, means and deviations of every quantity since they were last reset.
namespace meter {

/// Milliseconds since 1970, universal time.
using Instant = std::int64_t;

struct Extreme {
    double value = 0.0;
    Instant when = 0;
};

/// What is known of one quantity. Nothing counts before the first value.
struct Statistic {
    Extreme minimum;
    Extreme maximum;
    Extreme previousMaximum;  // the maximum before the last reset of peaks
    double mean = 0.0;
    double squares = 0.0;  // sum of squared distances from the mean, weighted by time
    double weight = 0.0;   // seconds

    bool IsKnown() const { return weight > 0.0; }
    double Deviation() const;
};

class Statistics {
public:
    /// Takes in the readings that held for `seconds` up to `now`. NaN is no value.
    void Add(const Readings& readings, double seconds, Instant now);

    const Statistic& Of(Quantity quantity) const { return m_statistics[IndexOf(quantity)]; }
    void Reset(Quantity quantity) { m_statistics[IndexOf(quantity)] = {}; }

    /// Starts the maximum anew and keeps the old one as the previous maximum.
    void ResetPeak(Quantity quantity);

private:
    std::array<Statistic, kQuantityCount> m_statistics{};
};

}  // namespace meter
