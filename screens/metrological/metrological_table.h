#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "navigation/table_proofs.h"
#include "screens/base/screen_info_table.h"

inline constexpr std::size_t kMetrologicalRows = 3;

/// The registers of a metrological screen, from the top row down.
struct MetrologicalScreenRow {
    std::int32_t screen;
    std::array<std::uint32_t, kMetrologicalRows> registers;
};

// clang-format off
inline constexpr auto kMetrologicalScreenRows = std::to_array<MetrologicalScreenRow>({
    {.screen = 46, .registers = {1890, 1725, 1560}},
    {.screen = 47, .registers = {1878, 1713, 1548}},
    {.screen = 48, .registers = {1900, 1735, 1570}},
    {.screen = 51, .registers = {1780, 1615, 1450}},
    {.screen = 52, .registers = {1842, 1677, 1512}},
});
// clang-format on

static_assert(AllDiffer(kMetrologicalScreenRows, &MetrologicalScreenRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kMetrologicalScreenRows, IsDataScreenId, &MetrologicalScreenRow::screen),
              "a row is for no data screen");
static_assert(std::ranges::all_of(kMetrologicalScreenRows,
                                  [](const auto& row) { return std::ranges::count(row.registers, 0U) == 0; }),
              "a row has a register too few");
