#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/meter/model/meter.h"

/// Control lines that put the meter into a condition by hand: alarms, events, lock, rights and refusals.
namespace meter {

/// @return "ok" or "error" with the reason; nothing when the word begins no such line
std::optional<std::string> ExecuteConditionLine(Meter& meter, std::string_view word, std::string_view rest);

/// The conditions as the state tells them, and the names of the alarms that there are.
nlohmann::json Conditions(Meter& meter);

}  // namespace meter
