#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/meter/model/clock.h"

namespace meter {

enum class Callee : std::uint8_t { Meter, Display };

/// One call of the link as it ended, for whoever watches. What it names lives only while it is reported.
struct LinkCall {
    Callee to = Callee::Meter;
    std::string_view operation;
    std::span<const std::byte> payload;
    std::span<const std::byte> reply;   // what goes or came back: nothing, all, or what a fault left of it
    std::chrono::microseconds taken{};  // until then, with the time for which a fault holds the reply back
    std::string_view result;            // "ok", "failed", or the fault that spoiled it
};

using CallObserver = std::function<void(const LinkCall& call)>;

/// A call as one line of JSON with its fields decoded.
/// @param number  of the call, counted from the start of the program
/// @param now     simulated time; milliseconds in the line
std::string TraceLine(const LinkCall& call, std::uint64_t number, Instant now);

}  // namespace meter
