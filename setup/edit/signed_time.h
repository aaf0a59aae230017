#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

/// A signed span of time as the meter holds it, a number of seconds, and as a person reads it, "-01:30:00".
using TimeText = std::array<char, 16>;

/// @return nothing for a text that is no whole number of 32 bits
std::optional<std::int32_t> SecondsIn(std::string_view number);

/// Hours, minutes and seconds with a sign where they are negative.
TimeText TimeOf(std::int32_t seconds);

/// The seconds of hours, minutes and seconds, each at most two digits, behind a sign.
std::int32_t SecondsOf(std::string_view time);
