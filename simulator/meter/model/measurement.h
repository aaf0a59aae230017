#pragma once

#include "simulator/meter/model/network.h"
#include "simulator/meter/model/quantity.h"

/// From the network's phasors to the instantaneous quantities.
namespace meter {

/// Writes voltages, currents, powers, power factors, distortion, unbalance and phase order; leaves the others alone.
/// Values that the wiring does not offer become NaN.
void Measure(const Network& network, const Connection& connection, Readings& readings);

/// Negative-sequence voltage in percent of the positive-sequence voltage.
double UnbalanceOf(Phasor first, Phasor second, Phasor third);

}  // namespace meter
