#include <cmath>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using enum Quantity;

class Physics : public bench::MeterAlone {
protected:
    double Angle(Channel channel) { return std::arg(m_meter.GetNetwork().At(channel)); }
};

TEST_F(Physics, PowersFollowFromVoltagesCurrentsAndAngles) {
    for (int round = 0; round < 50; ++round) {
        m_meter.Advance(60'000);
        double active = 0.0;
        double reactive = 0.0;
        for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
            const double product = m_meter.Value(At(VoltageL1, phase)) * m_meter.Value(At(CurrentL1, phase));
            const double shift = Angle(static_cast<Channel>(phase)) - Angle(static_cast<Channel>(phase + 4));
            EXPECT_NEAR(m_meter.Value(At(ActiveL1, phase)), product * std::cos(shift), 1e-6 * product);
            EXPECT_NEAR(m_meter.Value(At(ReactiveL1, phase)), product * std::sin(shift), 1e-6 * product);
            EXPECT_NEAR(m_meter.Value(At(ApparentL1, phase)), product, 1e-6 * product);
            active += product * std::cos(shift);
            reactive += product * std::sin(shift);
        }
        const double apparent = m_meter.Value(ApparentTotal);
        EXPECT_NEAR(m_meter.Value(ActiveTotal), active, 1e-6 * apparent);
        EXPECT_NEAR(apparent * apparent, active * active + reactive * reactive, 1e-6 * apparent * apparent);
        EXPECT_NEAR(m_meter.Value(PowerFactorTotal), active / apparent, 1e-9);
    }
}

TEST_F(Physics, EnergyIsTheIntegralOfPowerAndDemandIsItsMeanOverAQuarterOfAnHour) {
    const auto net = [this] { return m_meter.Value(ActiveEnergyIn) - m_meter.Value(ActiveEnergyOut); };
    const auto tariffs = [this] {
        return m_meter.Value(TariffA) + m_meter.Value(TariffB) + m_meter.Value(TariffC) + m_meter.Value(TariffD);
    };
    const double before = net();
    const double untaxed = m_meter.Value(ActiveEnergyIn) - tariffs();
    double lastQuarter = 0.0;
    double integral = 0.0;
    for (int second = 0; second < 3600; ++second) {
        if (second == 2700) lastQuarter = net();
        const double atStart = m_meter.Value(ActiveTotal);
        m_meter.Advance(1000);
        integral += (atStart + m_meter.Value(ActiveTotal)) / 2.0 / 3600.0;
    }
    EXPECT_GT(std::abs(integral), 1000.0);
    EXPECT_NEAR(net() - before, integral, 0.001 * std::abs(integral));
    EXPECT_NEAR(m_meter.Value(ActiveEnergyIn) - tariffs(), untaxed, 1e-3);
    EXPECT_NEAR(m_meter.Value(BlockActive), (net() - lastQuarter) * 4.0, 1.0);
    EXPECT_NEAR(m_meter.Value(ThermalActive), m_meter.Value(BlockActive), 0.3 * std::abs(integral));
}

TEST_F(Physics, ExtremesBracketThePresentAndAreNotInTheFuture) {
    m_meter.Advance(10 * kMinute);
    for (std::size_t i = 0; i < kQuantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const double value = m_meter.Value(quantity);
        if (std::isnan(value)) continue;
        const Statistic& statistic = m_meter.GetStatistics().Of(quantity);
        EXPECT_LE(statistic.minimum.value, value) << i;
        EXPECT_GE(statistic.maximum.value, value) << i;
        EXPECT_LE(statistic.minimum.value, statistic.mean + 1e-9 * std::abs(statistic.mean)) << i;
        EXPECT_LE(statistic.maximum.when, m_meter.Now()) << i;
        EXPECT_GT(statistic.maximum.when, bench::kStart - 8 * kDay) << i;
    }
}

TEST_F(Physics, DistortionFollowsFromTheSpectrum) {
    const auto data = Ask<HarmonicData>("PQINTERFACE_getHarmonicData", bench::Words({0, 4}));
    double sum = 0.0;
    for (std::size_t i = 1; i < kMaxHarmonics; ++i) sum += std::pow(data.magnitudes[i].Get() / 100.0, 2);
    EXPECT_NEAR(m_meter.Value(ThdVoltageL1), std::sqrt(sum), 0.05);
    for (std::size_t i = 1; i < kMaxHarmonics; ++i) EXPECT_LE(data.magnitudes[i].Get(), data.fullScale.Get());
}

TEST_F(Physics, TimeMayBeCutInAnyPieces) {
    Meter other{bench::kSeed, bench::kStart};
    m_meter.Advance(60'000);
    for (int i = 0; i < 600; ++i) other.Advance(i % 2 == 0 ? 37 : 163);
    EXPECT_EQ(m_meter.Now(), other.Now());
    EXPECT_EQ(m_meter.Value(ActiveTotal), other.Value(ActiveTotal));
    EXPECT_EQ(m_meter.Value(ActiveEnergyIn), other.Value(ActiveEnergyIn));
}

}  // namespace
