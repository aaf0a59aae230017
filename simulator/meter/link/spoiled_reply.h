#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "simulator/meter/model/scenario.h"

namespace meter {

/// Puts into the fields of a whole reply what no meter should send: numbers that are none or infinite, texts without an
/// end, or counts as large as can be. Nothing for other faults and for operations that nobody knows.
void SpoilFields(Fault fault, std::string_view operation, std::span<std::byte> reply);

}  // namespace meter
