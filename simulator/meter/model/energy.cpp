#include "simulator/meter/model/energy.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace meter {
namespace {

using enum Quantity;

constexpr double kSecondsPerHour = 3600.0;

/// Where the energy of one kind of power is kept.
struct EnergyFamily {
    Quantity power;
    Quantity total;
    Quantity in;
    Quantity out;
};

// clang-format off
constexpr auto kFamilies = std::to_array<EnergyFamily>({
    {ActiveTotal,   ActiveEnergyTotal,   ActiveEnergyIn,   ActiveEnergyOut},
    {ReactiveTotal, ReactiveEnergyTotal, ReactiveEnergyIn, ReactiveEnergyOut},
});

// The tariffs of a working day, by the local hour at which they end.
struct TariffSlot {
    int endHour;
    Tariff tariff;
};
constexpr auto kWorkingDay = std::to_array<TariffSlot>({
    {6, Tariff::B}, {17, Tariff::A}, {20, Tariff::D}, {22, Tariff::A}, {24, Tariff::B},
});
// clang-format on

const TariffSlot& SlotAt(int hour) {
    return *std::ranges::find_if(kWorkingDay, [hour](const TariffSlot& slot) { return hour < slot.endHour; });
}

}  // namespace

Tariff TariffAt(const CivilTime& time) { return IsWeekend(time) ? Tariff::C : SlotAt(time.hour).tariff; }

int NextTariffHour(const CivilTime& time) { return IsWeekend(time) ? 24 : SlotAt(time.hour).endHour; }

void AddEnergy(double seconds, Tariff tariff, Readings& readings) {
    const double hours = seconds / kSecondsPerHour;
    for (const EnergyFamily& family : kFamilies) {
        const double energy = readings[family.power] * hours;
        readings[energy >= 0.0 ? family.in : family.out] += std::abs(energy);
        readings[family.total] += std::abs(energy);
    }
    const bool importing = readings[ActiveTotal] >= 0.0;
    const double apparent = readings[ApparentTotal] * hours;
    readings[importing ? ApparentEnergyIn : ApparentEnergyOut] += apparent;
    readings[ApparentEnergyTotal] += apparent;
    if (importing) readings[At(TariffA, static_cast<std::size_t>(tariff))] += readings[ActiveTotal] * hours;
}

void ResetEnergy(Readings& readings) {
    for (std::size_t i = IndexOf(ActiveEnergyTotal); i <= IndexOf(TariffD); ++i) readings[static_cast<Quantity>(i)] = 0;
}

}  // namespace meter
