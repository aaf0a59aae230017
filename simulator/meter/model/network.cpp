#include "simulator/meter/model/network.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace meter {
namespace {

constexpr double kThirdTurn = 2.0 * std::numbers::pi / 3.0;
constexpr double kRootThree = std::numbers::sqrt3;
constexpr double kLineDrop = 0.025;    // of the nominal voltage at full current
constexpr double kSolarPeak = 0.27;    // of full current
constexpr double kCapacitors = 0.10;   // of full current, always on
constexpr double kWeekendShare = 0.4;  // of the load on a working day
constexpr Phases kShare = {1.03, 0.99, 0.98};
constexpr Phases kTangent = {0.46, 0.42, 0.49};  // reactive to active power of the load
constexpr double kNeutralResistance = 0.045;     // ohm to earth

// What each order contributes to a typical office and workshop, in percent of the fundamental.
struct OrderLevel {
    std::size_t order;
    double voltage;
    double current;
};
// clang-format off
constexpr auto kOrderLevels = std::to_array<OrderLevel>({
    {3, 0.50, 6.8}, {5, 1.90, 9.6}, {7, 1.20, 5.9}, {9, 0.22, 1.7}, {11, 0.85, 3.6}, {13, 0.62, 2.4},
    {15, 0.15, 0.7}, {17, 0.38, 1.3}, {19, 0.30, 1.0}, {23, 0.21, 0.7}, {25, 0.18, 0.5},
});
// clang-format on

double Bump(double hour, double centre, double width) {
    const double distance = (hour - centre) / width;
    return std::exp(-distance * distance);
}

/// Active power that the plant draws, as a share of full current at nominal voltage.
double LoadShape(double hour) { return 0.17 + 0.36 * Bump(hour, 10.0, 3.2) + 0.27 * Bump(hour, 17.5, 3.0); }

double SunShape(double hour) { return std::max(0.0, std::sin((hour - 6.0) / 12.0 * std::numbers::pi)); }

Phasor Turn(double degrees) { return std::polar(1.0, degrees * std::numbers::pi / 180.0); }

double Background(std::size_t order) { return 1.0 / static_cast<double>(order); }

}  // namespace

Network::Network(std::uint64_t seed) : m_noise(seed) {}

void Network::Step(double seconds, DayTime time, const Connection& connection, const Disturbance& disturbance) {
    for (Drift* drift : {&m_frequencyDrift, &m_gridDrift, &m_loadDrift, &m_cloudDrift, &m_distortionDrift})
        drift->Step(m_noise, seconds);
    m_frequency = connection.nominalFrequency + disturbance.frequency + m_frequencyDrift.Value();
    m_harmonics = disturbance.harmonics * std::max(0.4, 1.0 + m_distortionDrift.Value());
    m_wiring = connection.wiring;

    const double sun = kSolarPeak * SunShape(time.hour) * std::clamp(0.8 + m_cloudDrift.Value(), 0.1, 1.0);
    const double load = (time.weekend ? kWeekendShare : 1.0) * LoadShape(time.hour) * (1.0 + m_loadDrift.Value());
    const double turn = connection.clockwise != disturbance.reversed ? -kThirdTurn : kThirdTurn;
    const double nominal = connection.voltagePrimary / kRootThree;
    Phasor neutral;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        m_voltageDrift[phase].Step(m_noise, seconds);
        m_currentDrift[phase].Step(m_noise, seconds);
        const double drawn = load * kShare[phase] * (1.0 + m_currentDrift[phase].Value());
        const double active = drawn - sun;
        const double reactive = drawn * kTangent[phase] - kCapacitors;
        const double level =
            1.012 + m_gridDrift.Value() + m_voltageDrift[phase].Value() + 0.0006 * m_noise.Bell() - kLineDrop * active;
        const bool connected = connection.wiring != Wiring::SinglePhase || phase == 0;
        const double magnitude = connected ? nominal * level * disturbance.voltage[phase] : 0.0;
        const Phasor unit = std::polar(1.0, turn * static_cast<double>(phase));
        const double amperes = connected ? connection.currentPrimary * disturbance.current[phase] : 0.0;
        // I = conj(S / U): a load that draws reactive power lets its current lag.
        const Phasor current = amperes * Phasor(active, -reactive) * unit * (1.0 + 0.002 * m_noise.Bell()) *
                               Turn(disturbance.currentAngle[phase]);
        m_channels[phase] =
            connection.voltagePolarity[phase] * magnitude * unit * Turn(disturbance.voltageAngle[phase]);
        m_channels[phase + 4] = connection.currentPolarity[phase] * current;
        neutral += current;
        m_flicker[phase] = std::max(0.12, 0.38 + 12.0 * std::abs(m_voltageDrift[phase].Value()) +
                                              0.4 * std::abs(disturbance.voltage[phase] - 1.0));
    }
    const bool hasNeutral = connection.wiring == Wiring::FourWireWye || connection.wiring == Wiring::SinglePhase;
    if (!hasNeutral) {
        // Without a neutral the three currents add up to nothing.
        for (std::size_t phase = 0; phase < kPhaseCount; ++phase)
            m_channels[phase + 4] -= neutral / static_cast<double>(kPhaseCount);
        neutral = 0.0;
    }
    m_channels[static_cast<std::size_t>(Channel::V4)] = neutral * kNeutralResistance;
    m_channels[static_cast<std::size_t>(Channel::I4)] =
        connection.currentPolarity[3] * connection.neutralScale * neutral;
}

Spectrum Network::SpectrumOf(Channel channel) const {
    const bool voltage = channel <= Channel::V4;
    const auto index = static_cast<std::size_t>(channel);
    Spectrum spectrum{};
    if (std::abs(m_channels[index]) == 0.0) return spectrum;
    const double own = 1.0 + 0.04 * std::sin(1.7 * static_cast<double>(index));
    for (std::size_t order = 2; order <= kHarmonicOrders; ++order)
        spectrum[order - 1] = (voltage ? 0.05 : 0.25) * Background(order) * own * m_harmonics;
    for (const OrderLevel& level : kOrderLevels) {
        const bool triple = level.order % 3 == 0;
        const double neutralGain = !voltage && channel == Channel::I4 && triple ? 6.0 : 1.0;
        const double deltaGain = m_wiring == Wiring::Delta && triple ? 0.1 : 1.0;
        const double ripple = 1.0 + 0.05 * std::sin(static_cast<double>(level.order * (index + 1)));
        spectrum[level.order - 1] =
            (voltage ? level.voltage : level.current) * own * ripple * neutralGain * deltaGain * m_harmonics;
    }
    spectrum[0] = 100.0;
    return spectrum;
}

double Network::Thd(Channel channel) const {
    const Spectrum spectrum = SpectrumOf(channel);
    double sum = 0.0;
    for (std::size_t i = 1; i < spectrum.size(); ++i) sum += spectrum[i] * spectrum[i];
    return std::sqrt(sum);
}

}  // namespace meter
