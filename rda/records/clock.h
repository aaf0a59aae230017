#pragma once

#include <array>

#include "rda/wire.h"

/// The meter's local date and time, in the meter's own format.
struct DateTimeStrings {
    std::array<char, 11> date;
    std::array<char, 12> time;
};
static_assert(sizeof(DateTimeStrings) == 23 && kIsWireRecord<DateTimeStrings>);
