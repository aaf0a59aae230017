#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "simulator/meter/model/network.h"

namespace meter {

/// A change of the network that begins at a time and is complete some time later. What it does not name stays.
struct Wave {
    std::int64_t at = 0;    // milliseconds since the waves began
    std::int64_t over = 0;  // milliseconds until it is complete; on its way it changes evenly
    std::optional<Phases> voltage = {};
    std::optional<Phases> current = {};
    std::optional<Phases> voltageAngle = {};
    std::optional<Phases> currentAngle = {};
    std::optional<double> harmonics = {};
    std::optional<double> frequency = {};
    std::optional<bool> reversed = {};
};

/// How the network changes over time, one wave after the other.
class Waves {
public:
    Waves() = default;
    /// @param waves  in the order of their times
    explicit Waves(std::vector<Wave> waves) : m_waves(std::move(waves)) {}

    /// The disturbance at a time, beginning with that of the situation.
    Disturbance At(std::int64_t milliseconds, Disturbance disturbance) const;

private:
    std::vector<Wave> m_waves;
};

}  // namespace meter
