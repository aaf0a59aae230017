#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "simulator/meter/model/network.h"

/// Situations in which the display has to prove itself.
namespace meter {

/// What the link does to the display.
enum class Fault : std::uint8_t {
    None,
    Slow,
    Silent,
    Half,
    Garbage,
    Reset,
    Absent,
    Late,      // replies come when the display has given them up
    Drip,      // a byte a second
    Cut,       // half a reply, and the end of the connection
    Flood,     // each reply three times
    Infinite,  // numbers that are none or infinite
    Endless,   // texts without an end
    Huge       // whole numbers as large as can be
};

struct Scenario {
    std::string_view name;
    std::string_view purpose;
    Disturbance disturbance = {};
    bool delta = false;
    std::uint32_t alarms = 0;  // so many active alarms besides those that follow limits
    bool emptyLog = false;     // no events, no alarms
    bool hardwareLock = false;
    bool refuseWrites = false;
    Fault fault = Fault::None;
};

std::span<const Scenario> Scenarios();

/// @return the scenario, or null when there is none of that name
const Scenario* FindScenario(std::string_view name);

/// The names of the faults as commands spell them, in the order of their values.
std::span<const std::string_view> FaultNames();
std::string_view FaultName(Fault fault);
bool FindFault(std::string_view name, Fault& fault);

}  // namespace meter
