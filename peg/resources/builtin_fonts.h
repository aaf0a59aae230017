#pragma once

#include <array>
#include <cstdint>

#include "peg/resources/font.h"

/// The two fonts that are there without a resource file, and the slots of the font table that they stand in.
const PegFont& BuiltInFontA();  // 16 pixels high
const PegFont& BuiltInFontB();  // 13 pixels high

inline constexpr auto kSlotsOfFontA = std::to_array<std::uint32_t>({0, 2, 9, 10, 11, 15, 19, 20, 30});
inline constexpr auto kSlotsOfFontB = std::to_array<std::uint32_t>({1, 3, 4, 5, 6, 7, 8, 12, 13, 14, 16, 17, 18, 31});
