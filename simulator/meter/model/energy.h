#pragma once

#include <cstdint>

#include "simulator/meter/model/clock.h"
#include "simulator/meter/model/quantity.h"

/// Energy: power added up over time, by direction and by tariff.
namespace meter {

enum class Tariff : std::uint8_t { A, B, C, D };  // day, night, weekend, evening peak

/// The tariff that holds at a local time.
Tariff TariffAt(const CivilTime& time);

/// The local hour (1 to 24) at which the tariff of `time` may give way to another.
int NextTariffHour(const CivilTime& time);

/// Adds what flowed during `seconds` at the present powers to the energies among the readings.
void AddEnergy(double seconds, Tariff tariff, Readings& readings);

void ResetEnergy(Readings& readings);

}  // namespace meter
