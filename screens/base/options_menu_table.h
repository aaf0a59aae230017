#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "screens/base/screen_info_table.h"

/// An item of the options menu of a data screen. The items of one screen stand together, in the menu's order.
struct OptionsMenuItem {
    std::int32_t screen;
    std::int32_t label;   // string number
    std::int32_t target;  // a data screen
};

// clang-format off
inline constexpr auto kOptionsMenuItems = std::to_array<OptionsMenuItem>({
    {.screen = 12, .label = 259, .target = 14},
    {.screen = 12, .label = 261, .target = 15},
    {.screen = 12, .label = 260, .target = 16},
    {.screen = 11, .label = 263, .target = 19},
    {.screen = 11, .label = 265, .target = 20},
    {.screen = 11, .label = 264, .target = 21},
    {.screen = 25, .label = 222, .target = 26},
    {.screen = 25, .label = 226, .target = 27},
    {.screen = 25, .label = 224, .target = 30},
    {.screen = 25, .label = 225, .target = 28},
    {.screen = 25, .label = 223, .target = 31},
    {.screen = 34, .label = 245, .target = 38},
    {.screen = 34, .label = 244, .target = 39},
    {.screen = 41, .label = 243, .target = 43},
    {.screen = 41, .label = 242, .target = 42},
    {.screen = 47, .label = 257, .target = 49},
    {.screen = 47, .label = 258, .target = 50},
    {.screen = 51, .label = 228, .target = 53},
    {.screen = 51, .label = 230, .target = 54},
    {.screen = 51, .label = 232, .target = 55},
    {.screen = 52, .label = 229, .target = 56},
    {.screen = 52, .label = 231, .target = 57},
    {.screen = 52, .label = 233, .target = 58},
    {.screen = 59, .label = 238, .target = 61},
    {.screen = 59, .label = 239, .target = 62},
    {.screen = 59, .label = 240, .target = 63},
    {.screen = 60, .label = 234, .target = 64},
    {.screen = 60, .label = 235, .target = 65},
    {.screen = 60, .label = 236, .target = 66},
    {.screen = 60, .label = 237, .target = 67},
    {.screen = 71, .label = 246, .target = 83},
    {.screen = 73, .label = 247, .target = 84},
    {.screen = 74, .label = 248, .target = 85},
    {.screen = 75, .label = 249, .target = 86},
    {.screen = 76, .label = 256, .target = 87},
    {.screen = 77, .label = 253, .target = 88},
    {.screen = 78, .label = 254, .target = 89},
    {.screen = 79, .label = 255, .target = 90},
    {.screen = 80, .label = 250, .target = 91},
    {.screen = 81, .label = 251, .target = 92},
    {.screen = 82, .label = 252, .target = 93},
});
// clang-format on

inline constexpr std::size_t kMostOptions = 10;

/// The options of a screen, in order; none for most screens.
constexpr std::span<const OptionsMenuItem> OptionsOf(std::int32_t screen) {
    const auto first = std::ranges::find(kOptionsMenuItems, screen, &OptionsMenuItem::screen);
    const auto end = std::find_if(first, kOptionsMenuItems.end(),
                                  [screen](const OptionsMenuItem& item) { return item.screen != screen; });
    return {first, end};
}

static_assert(AllDiffer(kOptionsMenuItems, &OptionsMenuItem::target), "a screen stands in two menus");
static_assert(std::ranges::all_of(kOptionsMenuItems, IsDataScreenId, &OptionsMenuItem::screen));
static_assert(std::ranges::all_of(kOptionsMenuItems, IsDataScreenId, &OptionsMenuItem::target),
              "an item leads nowhere");
static_assert(std::ranges::all_of(kOptionsMenuItems,
                                  [](const OptionsMenuItem& item) {
                                      return OptionsOf(item.screen).size() ==
                                             static_cast<std::size_t>(std::ranges::count(kOptionsMenuItems, item.screen,
                                                                                         &OptionsMenuItem::screen));
                                  }),
              "the items of a screen do not stand together");
