#pragma once

#include <array>
#include <cstddef>

#include "simulator/meter/model/quantity.h"

/// Demand: mean power over the last quarter of an hour, as a sliding block and as a thermal meter shows it.
namespace meter {

inline constexpr std::size_t kDemandFamilies = 5;  // active, reactive, apparent, imported, exported

class Demand {
public:
    /// Takes in the powers that held for `seconds` and writes the demands into the readings. A block moves on every
    /// minute; a thermal demand reaches 90 % of a new power in a quarter of an hour.
    void Step(double seconds, Readings& readings);

private:
    static constexpr std::size_t kSubintervals = 15;

    struct Family {
        std::array<double, kSubintervals> minutes{};
        double sum = 0.0;  // power times seconds of the running minute
        double thermal = 0.0;
    };

    std::array<Family, kDemandFamilies> m_families{};
    std::size_t m_next = 0;
    std::size_t m_filled = 0;
    double m_elapsed = 0.0;  // seconds of the running minute
    bool m_started = false;
};

}  // namespace meter
