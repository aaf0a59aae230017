#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

/// Repeatable randomness: the same seed gives the same sequence on every machine.
namespace meter {

class Noise {
public:
    explicit Noise(std::uint64_t seed) : m_state(seed) {}

    /// Evenly spread over 0 to 1, 1 excluded.
    double Even() { return static_cast<double>(Next() >> 11U) * 0x1.0p-53; }

    std::byte Byte() { return static_cast<std::byte>(Next() >> 56U); }

    /// Bell-shaped with mean 0 and deviation 1: twelve even numbers are close enough.
    double Bell() {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i) sum += Even();
        return sum;
    }

private:
    // The splitmix64 step.
    std::uint64_t Next() {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    std::uint64_t m_state;
};

/// A value that wanders about zero and keeps returning: slow drift, whatever the length of a step.
class Drift {
public:
    Drift(double deviation, double seconds) : m_deviation(deviation), m_seconds(seconds) {}

    void Step(Noise& noise, double seconds) {
        const double kept = std::exp(-seconds / m_seconds);
        m_value = m_value * kept + m_deviation * std::sqrt(1.0 - kept * kept) * noise.Bell();
    }
    double Value() const { return m_value; }

private:
    double m_deviation;
    double m_seconds;
    double m_value = 0.0;
};

}  // namespace meter
