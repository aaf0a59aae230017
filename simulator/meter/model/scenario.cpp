#include "simulator/meter/model/scenario.h"

#include <algorithm>
#include <array>

namespace meter {
namespace {

// clang-format off
constexpr auto kScenarios = std::to_array<Scenario>({
    {.name = "normal", .purpose = "an ordinary low-voltage plant"},
    {.name = "sag", .purpose = "voltage of L2 at 70 %", .disturbance = {.voltage = {0.98, 0.70, 0.98}, .current = {1.02, 1.3, 1.02}}},
    {.name = "swell", .purpose = "all voltages at 115 %", .disturbance = {.voltage = {1.15, 1.15, 1.15}}},
    {.name = "unbalance", .purpose = "unequal voltages and currents", .disturbance = {.voltage = {1.03, 0.95, 1.0}, .current = {1.5, 0.6, 1.0}}},
    {.name = "phase-loss", .purpose = "L3 is dead", .disturbance = {.voltage = {1.0, 1.0, 0.0}, .current = {1.2, 1.2, 0.0}}},
    {.name = "reversed-phase", .purpose = "L2 and L3 are swapped", .disturbance = {.reversed = true}},
    {.name = "harmonics", .purpose = "four times the usual distortion", .disturbance = {.harmonics = 4.0}},
    {.name = "delta", .purpose = "three wires without a neutral", .delta = true},
    {.name = "500-alarms", .purpose = "500 alarms on at once", .alarms = 500},
    {.name = "empty-log", .purpose = "no alarms, no events", .emptyLog = true},
    {.name = "hardware-lock", .purpose = "the lock on the housing is closed", .hardwareLock = true},
    {.name = "refused-writes", .purpose = "no setting is accepted", .refuseWrites = true},
    {.name = "slow", .purpose = "each answer takes a second", .fault = Fault::Slow},
    {.name = "silent", .purpose = "connected, but no answers", .fault = Fault::Silent},
    {.name = "half", .purpose = "answers break off half-way", .fault = Fault::Half},
    {.name = "garbage", .purpose = "answers of the right length that mean nothing", .fault = Fault::Garbage},
    {.name = "reset", .purpose = "each call ends the connection", .fault = Fault::Reset},
    {.name = "absent", .purpose = "nobody listens", .fault = Fault::Absent},
});

constexpr auto kFaultNames = std::to_array<std::string_view>({"none", "slow", "silent", "half", "garbage", "reset", "absent",
    "late", "drip", "cut", "flood", "infinite", "endless", "huge"});
static_assert(kFaultNames.size() == static_cast<std::size_t>(Fault::Huge) + 1);
// clang-format on

}  // namespace

std::span<const Scenario> Scenarios() { return kScenarios; }

const Scenario* FindScenario(std::string_view name) {
    const auto found = std::ranges::find(kScenarios, name, &Scenario::name);
    return found != kScenarios.end() ? &*found : nullptr;
}

std::span<const std::string_view> FaultNames() { return kFaultNames; }

std::string_view FaultName(Fault fault) { return kFaultNames[static_cast<std::size_t>(fault)]; }

bool FindFault(std::string_view name, Fault& fault) {
    const auto found = std::ranges::find(kFaultNames, name);
    if (found == kFaultNames.end()) return false;
    fault = static_cast<Fault>(found - kFaultNames.begin());
    return true;
}

}  // namespace meter
