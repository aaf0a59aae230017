#pragma once

#include <array>
#include <complex>
#include <cstdint>

#include "simulator/meter/model/noise.h"
#include "simulator/meter/model/quantity.h"

/// The three-phase network behind the meter's terminals.
namespace meter {

using Phasor = std::complex<double>;
using Phases = std::array<double, kPhaseCount>;

enum class Wiring : std::uint8_t { FourWireWye, ThreeWireWye, Delta, SinglePhase };

/// How the meter is connected: what turns the network into primary volts and amperes.
struct Connection {
    Wiring wiring = Wiring::FourWireWye;
    double voltagePrimary = 400.0;  // V between lines at nominal voltage
    double currentPrimary = 400.0;  // A at full secondary current
    double neutralScale = 1.0;      // reading of the neutral's own transformer against the truth
    double nominalFrequency = 50.0;
    bool clockwise = true;  // expected order L1, L2, L3
    Phases voltagePolarity = {1.0, 1.0, 1.0};
    std::array<double, 4> currentPolarity = {1.0, 1.0, 1.0, 1.0};
};

/// What a scenario does to the network. All factors 1: nothing.
struct Disturbance {
    Phases voltage = {1.0, 1.0, 1.0};
    Phases current = {1.0, 1.0, 1.0};
    Phases voltageAngle = {};  // degrees ahead of where they should be
    Phases currentAngle = {};
    double harmonics = 1.0;
    double frequency = 0.0;  // Hz above the nominal
    bool reversed = false;
};

/// When it is, as far as the plant cares.
struct DayTime {
    double hour = 0.0;  // 0 to 24, local
    bool weekend = false;
};

inline constexpr std::size_t kHarmonicOrders = 63;
inline constexpr std::size_t kChannelCount = 8;  // V1 to V4, then I1 to I4

/// The channels in the order in which phasors and spectra are asked for.
enum class Channel : std::uint8_t { V1, V2, V3, V4, I1, I2, I3, I4 };

/// Magnitudes of one channel in percent of its fundamental; entry 0 is the fundamental.
using Spectrum = std::array<double, kHarmonicOrders>;

/// Voltages, currents and frequency as they are now. Loads follow the time of day, everything wanders a little.
class Network {
public:
    explicit Network(std::uint64_t seed);

    /// Moves on by `seconds` to the given time of day.
    void Step(double seconds, DayTime time, const Connection& connection, const Disturbance& disturbance);

    double Frequency() const { return m_frequency; }
    /// V or A at the primary, fundamental, effective value; angles relative to an ideal L1.
    Phasor At(Channel channel) const { return m_channels[static_cast<std::size_t>(channel)]; }
    Spectrum SpectrumOf(Channel channel) const;
    double Thd(Channel channel) const;                                    // percent of the fundamental
    double Flicker(std::size_t phase) const { return m_flicker[phase]; }  // short-term severity

private:
    Noise m_noise;
    double m_frequency = 50.0;
    double m_harmonics = 1.0;
    Wiring m_wiring = Wiring::FourWireWye;
    Drift m_frequencyDrift{0.018, 90.0};
    Drift m_gridDrift{0.012, 1800.0};
    Drift m_loadDrift{0.10, 900.0};
    Drift m_cloudDrift{0.12, 1800.0};
    Drift m_distortionDrift{0.12, 600.0};
    std::array<Drift, kPhaseCount> m_voltageDrift{Drift{0.004, 300.0}, Drift{0.004, 300.0}, Drift{0.004, 300.0}};
    std::array<Drift, kPhaseCount> m_currentDrift{Drift{0.06, 240.0}, Drift{0.06, 240.0}, Drift{0.06, 240.0}};
    std::array<double, kPhaseCount> m_flicker{};
    std::array<Phasor, kChannelCount> m_channels{};
};

}  // namespace meter
