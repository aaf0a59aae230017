#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using enum Quantity;

class Physics : public testing::Test {
protected:
    double Angle(Channel channel) { return std::arg(m_meter.GetNetwork().At(channel)); }

    Meter m_meter{bench::kSeed, bench::kStart};
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

TEST_F(Physics, LineVoltagesFollowFromPhaseVoltagesByTheCosineRule) {
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        const std::size_t next = (phase + 1) % kPhaseCount;
        const double a = m_meter.Value(At(VoltageL1, phase));
        const double b = m_meter.Value(At(VoltageL1, next));
        const double between = Angle(static_cast<Channel>(phase)) - Angle(static_cast<Channel>(next));
        EXPECT_NEAR(m_meter.Value(At(VoltageL12, phase)), std::sqrt(a * a + b * b - 2 * a * b * std::cos(between)),
                    1e-6);
    }
    EXPECT_NEAR(m_meter.Value(VoltageLlAverage), m_meter.Value(VoltageLnAverage) * std::numbers::sqrt3, 2.0);
}

TEST_F(Physics, EnergyIsTheIntegralOfPower) {
    const double before = m_meter.Value(ActiveEnergyIn) - m_meter.Value(ActiveEnergyOut);
    double tariffs =
        -(m_meter.Value(TariffA) + m_meter.Value(TariffB) + m_meter.Value(TariffC) + m_meter.Value(TariffD));
    const double imported = m_meter.Value(ActiveEnergyIn);
    double integral = 0.0;
    for (int second = 0; second < 3600; ++second) {
        const double atStart = m_meter.Value(ActiveTotal);
        m_meter.Advance(1000);
        integral += (atStart + m_meter.Value(ActiveTotal)) / 2.0 / 3600.0;
    }
    const double flowed = m_meter.Value(ActiveEnergyIn) - m_meter.Value(ActiveEnergyOut) - before;
    EXPECT_GT(std::abs(integral), 1000.0);
    EXPECT_NEAR(flowed, integral, 0.001 * std::abs(integral));
    tariffs += m_meter.Value(TariffA) + m_meter.Value(TariffB) + m_meter.Value(TariffC) + m_meter.Value(TariffD);
    EXPECT_NEAR(tariffs, m_meter.Value(ActiveEnergyIn) - imported, 1e-3);
}

TEST_F(Physics, BlockDemandIsTheMeanOfTheLastQuarterOfAnHour) {
    const double start = m_meter.Value(ActiveEnergyIn) - m_meter.Value(ActiveEnergyOut);
    m_meter.Advance(15 * kMinute);
    const double mean = (m_meter.Value(ActiveEnergyIn) - m_meter.Value(ActiveEnergyOut) - start) * 4.0;
    EXPECT_NEAR(m_meter.Value(BlockActive), mean, 1.0);
    EXPECT_NEAR(m_meter.Value(ThermalActive), m_meter.Value(BlockActive), 0.3 * std::abs(mean));
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
    const auto data = bench::Ask<HarmonicData>(m_meter, "PQINTERFACE_getHarmonicData", bench::Words({0, 4}));
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
