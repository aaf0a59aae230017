#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "screens/base/screen_info_table.h"

/// What a soft key does instead of going to a screen.
inline constexpr std::int32_t kNoTarget = -1;
inline constexpr std::int32_t kGoBack = -2;
inline constexpr std::int32_t kOptionsMenu = 196;  // soft key 1 only

/// Where the soft keys of a data screen lead. The home key of every data screen leads to the menu of the display mode.
struct SoftKeyRow {
    std::int32_t screen;
    std::array<std::int32_t, 4> targets;  // screens, or one of the above
};

// clang-format off
inline constexpr auto kSoftKeyRows = std::to_array<SoftKeyRow>({
    {.screen = 4,   .targets = {kOptionsMenu, kNoTarget, kNoTarget,         5}},
    {.screen = 5,   .targets = {kOptionsMenu, kNoTarget,         6,         4}},
    {.screen = 6,   .targets = {kOptionsMenu,         5, kNoTarget,         4}},
    {.screen = 7,   .targets = {kOptionsMenu, kNoTarget, kNoTarget,         8}},
    {.screen = 8,   .targets = {           7, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 9,   .targets = {   kNoTarget, kNoTarget, kNoTarget,        10}},
    {.screen = 10,  .targets = {           9, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 12,  .targets = {kOptionsMenu, kNoTarget,        11,        17}},
    {.screen = 11,  .targets = {kOptionsMenu,        12,        13,        22}},
    {.screen = 13,  .targets = {kOptionsMenu,        11, kNoTarget,        24}},
    {.screen = 14,  .targets = {          12, kNoTarget, kNoTarget,        18}},
    {.screen = 15,  .targets = {          12, kNoTarget, kNoTarget,        17}},
    {.screen = 16,  .targets = {          12, kNoTarget, kNoTarget,        17}},
    {.screen = 17,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 18,  .targets = {   kNoTarget, kNoTarget, kNoTarget,        14}},
    {.screen = 19,  .targets = {          11, kNoTarget, kNoTarget,        23}},
    {.screen = 20,  .targets = {          11, kNoTarget, kNoTarget,        22}},
    {.screen = 21,  .targets = {          11, kNoTarget, kNoTarget,        22}},
    {.screen = 22,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 23,  .targets = {   kNoTarget, kNoTarget, kNoTarget,        19}},
    {.screen = 24,  .targets = {   kNoTarget, kNoTarget, kNoTarget,        13}},
    {.screen = 25,  .targets = {kOptionsMenu, kNoTarget, kNoTarget,        29}},
    {.screen = 26,  .targets = {          25, kNoTarget, kNoTarget,        33}},
    {.screen = 27,  .targets = {          25, kNoTarget, kNoTarget,        29}},
    {.screen = 28,  .targets = {          25, kNoTarget, kNoTarget,        29}},
    {.screen = 30,  .targets = {          25, kNoTarget, kNoTarget,        32}},
    {.screen = 31,  .targets = {          25, kNoTarget, kNoTarget,        32}},
    {.screen = 29,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 33,  .targets = {   kNoTarget, kNoTarget, kNoTarget,        26}},
    {.screen = 32,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 34,  .targets = {kOptionsMenu, kNoTarget,        35,        40}},
    {.screen = 35,  .targets = {kOptionsMenu,        34,        36, kNoTarget}},
    {.screen = 36,  .targets = {kOptionsMenu,        35,        37, kNoTarget}},
    {.screen = 37,  .targets = {kOptionsMenu,        36, kNoTarget, kNoTarget}},
    {.screen = 38,  .targets = {          34, kNoTarget, kNoTarget,        40}},
    {.screen = 39,  .targets = {          34, kNoTarget, kNoTarget,        40}},
    {.screen = 40,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 41,  .targets = {kOptionsMenu, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 43,  .targets = {          41, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 42,  .targets = {          41, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 44,  .targets = {kOptionsMenu, kNoTarget, kNoTarget,        45}},
    {.screen = 45,  .targets = {   kNoTarget, kNoTarget, kNoTarget,   kGoBack}},
    {.screen = 46,  .targets = {kOptionsMenu, kNoTarget,        47, kNoTarget}},
    {.screen = 47,  .targets = {kOptionsMenu,        46,        48, kNoTarget}},
    {.screen = 48,  .targets = {kOptionsMenu,        47, kNoTarget, kNoTarget}},
    {.screen = 49,  .targets = {          47, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 50,  .targets = {          47, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 51,  .targets = {kOptionsMenu, kNoTarget,        52, kNoTarget}},
    {.screen = 52,  .targets = {kOptionsMenu,        51, kNoTarget, kNoTarget}},
    {.screen = 53,  .targets = {          51, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 54,  .targets = {          51, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 55,  .targets = {          51, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 56,  .targets = {          52, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 57,  .targets = {          52, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 58,  .targets = {          52, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 59,  .targets = {kOptionsMenu, kNoTarget,        60, kNoTarget}},
    {.screen = 60,  .targets = {kOptionsMenu,        59, kNoTarget, kNoTarget}},
    {.screen = 61,  .targets = {          59, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 62,  .targets = {          59, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 63,  .targets = {          59, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 64,  .targets = {          60, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 65,  .targets = {          60, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 66,  .targets = {          60, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 67,  .targets = {          60, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 68,  .targets = {kOptionsMenu, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 69,  .targets = {   kNoTarget, kNoTarget, kNoTarget,        70}},
    {.screen = 70,  .targets = {          69, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 71,  .targets = {kOptionsMenu, kNoTarget,        72, kNoTarget}},
    {.screen = 72,  .targets = {kOptionsMenu,        71,        73, kNoTarget}},
    {.screen = 73,  .targets = {kOptionsMenu,        72,        74, kNoTarget}},
    {.screen = 74,  .targets = {kOptionsMenu,        73,        75, kNoTarget}},
    {.screen = 75,  .targets = {kOptionsMenu,        74,        76, kNoTarget}},
    {.screen = 76,  .targets = {kOptionsMenu,        75,        77, kNoTarget}},
    {.screen = 77,  .targets = {kOptionsMenu,        76,        78, kNoTarget}},
    {.screen = 78,  .targets = {kOptionsMenu,        77,        79, kNoTarget}},
    {.screen = 79,  .targets = {kOptionsMenu,        78,        80, kNoTarget}},
    {.screen = 80,  .targets = {kOptionsMenu,        79,        81, kNoTarget}},
    {.screen = 81,  .targets = {kOptionsMenu,        80,        82, kNoTarget}},
    {.screen = 82,  .targets = {kOptionsMenu,        81, kNoTarget, kNoTarget}},
    {.screen = 83,  .targets = {          71, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 84,  .targets = {          73, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 85,  .targets = {          74, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 86,  .targets = {          75, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 87,  .targets = {          76, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 88,  .targets = {          77, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 89,  .targets = {          78, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 90,  .targets = {          79, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 91,  .targets = {          80, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 92,  .targets = {          81, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 93,  .targets = {          82, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 94,  .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 95,  .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 96,  .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 97,  .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 98,  .targets = {kOptionsMenu, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 99,  .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 200, .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
    {.screen = 201, .targets = {   kNoTarget, kNoTarget, kNoTarget, kNoTarget}},
});
// clang-format on

static_assert(kSoftKeyRows.size() == kDataScreens);
static_assert(AllDiffer(kSoftKeyRows, &SoftKeyRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kSoftKeyRows, IsDataScreenId, &SoftKeyRow::screen), "a row is for no data screen");
static_assert(std::ranges::all_of(kSoftKeyRows,
                                  [](const SoftKeyRow& row) {
                                      return std::ranges::all_of(row.targets, [](std::int32_t target) {
                                          return target == kNoTarget || target == kGoBack || target == kOptionsMenu ||
                                                 IsDataScreenId(target);
                                      });
                                  }),
              "a key leads nowhere");
