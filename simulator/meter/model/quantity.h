#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// What the meter measures, each as one number in its base unit (V, A, W, Wh, Hz, percent).
namespace meter {

enum class Unit : std::uint8_t {
    None,
    Volt,
    Ampere,
    Watt,
    Var,
    VoltAmpere,
    WattHour,
    VarHour,
    VoltAmpereHour,
    Hertz,
    Percent,
    Count
};

/// Three-phase families stand together: L1, L2, L3, then their total or average, so that `At(first, phase)` finds one.
// clang-format off
enum class Quantity : std::uint8_t {
    Frequency,
    VoltageL1, VoltageL2, VoltageL3, VoltageLnAverage,
    VoltageL12, VoltageL23, VoltageL31, VoltageLlAverage,
    VoltageNeutral,
    CurrentL1, CurrentL2, CurrentL3, CurrentAverage, CurrentNeutral,
    ActiveL1, ActiveL2, ActiveL3, ActiveTotal,
    ReactiveL1, ReactiveL2, ReactiveL3, ReactiveTotal,
    ApparentL1, ApparentL2, ApparentL3, ApparentTotal,
    PowerFactorL1, PowerFactorL2, PowerFactorL3, PowerFactorTotal,
    PowerFactorLagging, PowerFactorLeading,
    BlockActive, BlockReactive, BlockApparent, BlockImport, BlockExport,
    ThermalActive, ThermalReactive, ThermalApparent, ThermalImport, ThermalExport,
    ActiveEnergyTotal, ReactiveEnergyTotal, ApparentEnergyTotal,
    ActiveEnergyIn, ReactiveEnergyIn, ApparentEnergyIn,
    ActiveEnergyOut, ReactiveEnergyOut, ApparentEnergyOut,
    TariffA, TariffB, TariffC, TariffD,
    ThdVoltageL1, ThdVoltageL2, ThdVoltageL3,
    ThdCurrentL1, ThdCurrentL2, ThdCurrentL3, ThdCurrentNeutral,
    Unbalance,
    ShortFlickerL1, ShortFlickerL2, ShortFlickerL3,
    LongFlickerL1, LongFlickerL2, LongFlickerL3,
    FrequencyIntervals, FrequencyOutsideNarrow, FrequencyOutsideWide,
    MagnitudeIntervalsL1, MagnitudeIntervalsL2, MagnitudeIntervalsL3,
    MagnitudeOutsideNarrowL1, MagnitudeOutsideNarrowL2, MagnitudeOutsideNarrowL3,
    MagnitudeOutsideWideL1, MagnitudeOutsideWideL2, MagnitudeOutsideWideL3,
    FlickerIntervalsL1, FlickerIntervalsL2, FlickerIntervalsL3,
    FlickerOutsideL1, FlickerOutsideL2, FlickerOutsideL3,
    HarmonicIntervalsL1, HarmonicIntervalsL2, HarmonicIntervalsL3,
    HarmonicOutsideNarrowL1, HarmonicOutsideNarrowL2, HarmonicOutsideNarrowL3,
    HarmonicOutsideWideL1, HarmonicOutsideWideL2, HarmonicOutsideWideL3,
    PhaseOrder,     // 1 as set up, -1 reversed, 0 when it cannot be told
    MissingPhases,  // how many are dead
    None
};
// clang-format on

inline constexpr std::size_t kQuantityCount = static_cast<std::size_t>(Quantity::None);
inline constexpr std::size_t kPhaseCount = 3;

constexpr std::size_t IndexOf(Quantity quantity) { return static_cast<std::size_t>(quantity); }

/// The member of a three-phase family: `At(Quantity::VoltageL1, 2)` is the voltage of phase 3.
constexpr Quantity At(Quantity first, std::size_t phase) { return static_cast<Quantity>(IndexOf(first) + phase); }

/// The short name of a quantity in bars and phasors; empty where it has none.
std::string_view Symbol(Quantity quantity);

/// One value per quantity. NaN where the wiring offers none (for instance phase voltages on a delta system).
class Readings {
public:
    Readings() { m_values.fill(0.0); }
    double& operator[](Quantity quantity) { return m_values[IndexOf(quantity)]; }
    double operator[](Quantity quantity) const { return m_values[IndexOf(quantity)]; }

private:
    std::array<double, kQuantityCount> m_values;
};

}  // namespace meter
