#include "simulator/meter/model/measurement.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace meter {
namespace {

using enum Quantity;

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
constexpr double kPhaseLossShare = 0.5;  // of the strongest phase

Phasor Voltage(const Network& network, std::size_t phase) { return network.At(static_cast<Channel>(phase)); }
Phasor Current(const Network& network, std::size_t phase) { return network.At(static_cast<Channel>(phase + 4)); }

struct Sequences {
    double positive;
    double negative;
};

Sequences SequencesOf(Phasor first, Phasor second, Phasor third) {
    const Phasor turn = std::polar(1.0, 2.0 * std::numbers::pi / 3.0);
    return {std::abs(first + turn * second + turn * turn * third) / 3.0,
            std::abs(first + turn * turn * second + turn * third) / 3.0};
}

void MeasureVoltages(const Network& network, Wiring wiring, Readings& readings) {
    double sum = 0.0;
    double lineSum = 0.0;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        const Phasor own = Voltage(network, phase);
        readings[At(VoltageL1, phase)] = std::abs(own);
        readings[At(VoltageL12, phase)] = std::abs(own - Voltage(network, (phase + 1) % kPhaseCount));
        sum += readings[At(VoltageL1, phase)];
        lineSum += readings[At(VoltageL12, phase)];
    }
    readings[VoltageLnAverage] = sum / kPhaseCount;
    readings[VoltageLlAverage] = lineSum / kPhaseCount;
    readings[VoltageNeutral] = std::abs(network.At(Channel::V4));
    if (wiring == Wiring::Delta)
        for (Quantity quantity : {VoltageL1, VoltageL2, VoltageL3, VoltageLnAverage, VoltageNeutral})
            readings[quantity] = kMissing;
    if (wiring == Wiring::SinglePhase) {
        for (Quantity quantity : {VoltageL2, VoltageL3, VoltageL12, VoltageL23, VoltageL31, VoltageLlAverage})
            readings[quantity] = kMissing;
        readings[VoltageLnAverage] = readings[VoltageL1];
    }
}

void MeasureCurrents(const Network& network, Wiring wiring, Readings& readings) {
    double sum = 0.0;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        readings[At(CurrentL1, phase)] = std::abs(Current(network, phase));
        sum += readings[At(CurrentL1, phase)];
    }
    const bool single = wiring == Wiring::SinglePhase;
    readings[CurrentAverage] = single ? readings[CurrentL1] : sum / kPhaseCount;
    readings[CurrentNeutral] = std::abs(network.At(Channel::I4));
    if (single) readings[CurrentL2] = readings[CurrentL3] = kMissing;
    if (wiring == Wiring::Delta || wiring == Wiring::ThreeWireWye) readings[CurrentNeutral] = kMissing;
}

double PowerFactor(double active, double apparent) { return apparent > 0.0 ? active / apparent : 1.0; }

void MeasurePowers(const Network& network, Wiring wiring, Readings& readings) {
    Phasor total;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        const Phasor power = Voltage(network, phase) * std::conj(Current(network, phase));
        readings[At(ActiveL1, phase)] = power.real();
        readings[At(ReactiveL1, phase)] = power.imag();
        readings[At(ApparentL1, phase)] = std::abs(power);
        readings[At(PowerFactorL1, phase)] = PowerFactor(power.real(), std::abs(power));
        total += power;
    }
    readings[ActiveTotal] = total.real();
    readings[ReactiveTotal] = total.imag();
    readings[ApparentTotal] = std::abs(total);
    readings[PowerFactorTotal] = PowerFactor(total.real(), std::abs(total));
    const bool lagging = total.real() * total.imag() >= 0.0;
    readings[PowerFactorLagging] = lagging ? std::abs(readings[PowerFactorTotal]) : kMissing;
    readings[PowerFactorLeading] = lagging ? kMissing : std::abs(readings[PowerFactorTotal]);
    const std::size_t firstMissing = wiring == Wiring::Delta ? 0 : (wiring == Wiring::SinglePhase ? 1 : kPhaseCount);
    for (std::size_t phase = firstMissing; phase < kPhaseCount; ++phase)
        for (Quantity family : {ActiveL1, ReactiveL1, ApparentL1, PowerFactorL1})
            readings[At(family, phase)] = kMissing;
}

std::size_t CountMissingPhases(const Network& network, Wiring wiring) {
    if (wiring == Wiring::SinglePhase) return 0;
    double strongest = 0.0;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase)
        strongest = std::max(strongest, std::abs(Voltage(network, phase)));
    std::size_t missing = 0;
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase)
        if (std::abs(Voltage(network, phase)) <= kPhaseLossShare * strongest) ++missing;
    return missing;
}

double OrderOf(const Network& network, Wiring wiring, bool clockwise) {
    if (wiring == Wiring::SinglePhase) return 1.0;
    const Sequences found = SequencesOf(Voltage(network, 0), Voltage(network, 1), Voltage(network, 2));
    return (found.positive > found.negative) == clockwise ? 1.0 : -1.0;
}

}  // namespace

double UnbalanceOf(Phasor first, Phasor second, Phasor third) {
    const Sequences found = SequencesOf(first, second, third);
    const double strong = std::max(found.positive, found.negative);
    return strong > 0.0 ? 100.0 * std::min(found.positive, found.negative) / strong : 0.0;
}

void Measure(const Network& network, const Connection& connection, Readings& readings) {
    readings[Frequency] = network.Frequency();
    MeasureVoltages(network, connection.wiring, readings);
    MeasureCurrents(network, connection.wiring, readings);
    MeasurePowers(network, connection.wiring, readings);
    for (std::size_t phase = 0; phase < kPhaseCount; ++phase) {
        const bool missing = std::isnan(readings[At(CurrentL1, phase)]);
        readings[At(ThdVoltageL1, phase)] = missing ? kMissing : network.Thd(static_cast<Channel>(phase));
        readings[At(ThdCurrentL1, phase)] = missing ? kMissing : network.Thd(static_cast<Channel>(phase + 4));
    }
    readings[ThdCurrentNeutral] = std::isnan(readings[CurrentNeutral]) ? kMissing : network.Thd(Channel::I4);
    readings[Unbalance] = connection.wiring == Wiring::SinglePhase
                              ? kMissing
                              : UnbalanceOf(Voltage(network, 0), Voltage(network, 1), Voltage(network, 2));
    const std::size_t missingPhases = CountMissingPhases(network, connection.wiring);
    readings[MissingPhases] = static_cast<double>(missingPhases);
    readings[PhaseOrder] = missingPhases > 0 ? 0.0 : OrderOf(network, connection.wiring, connection.clockwise);
}

}  // namespace meter
