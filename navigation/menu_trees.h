#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "navigation/screen_ids.h"

/// An item of a menu: a level-1 item stands for itself or opens the level-2 items below it.
struct MenuItem {
    std::int32_t label;   // string number
    std::int32_t target;  // a screen; 0 only opens the sub-list; 1 to 3 name a menu and so a display mode
    std::int32_t icon;    // bitmap number
    std::int32_t level;
};

/// The menu of one display mode. The target of its first item is the mode's start screen.
struct MenuTree {
    std::int32_t menuId;
    std::span<const MenuItem> items;

    constexpr std::int32_t StartScreen() const { return items.front().target; }
};

inline constexpr std::int32_t kSubItemIcon = 181;

// clang-format off
inline constexpr auto kSetupGroup = std::to_array<MenuItem>({
    {.label = 317, .target = 100, .icon = kSubItemIcon, .level = 2},
    {.label = 130, .target = 198, .icon = kSubItemIcon, .level = 2},
    {.label = 313, .target = 130, .icon = kSubItemIcon, .level = 2},
    {.label = 315, .target = 169, .icon = kSubItemIcon, .level = 2},
    {.label = 314, .target = 181, .icon = kSubItemIcon, .level = 2},
    {.label = 312, .target = 190, .icon = kSubItemIcon, .level = 2},
    {.label = 316, .target = 179, .icon = kSubItemIcon, .level = 2},
    {.label = 319, .target = 192, .icon = kSubItemIcon, .level = 2},
    {.label = 318, .target = 194, .icon = kSubItemIcon, .level = 2},
});

inline constexpr auto kNormalItems = std::to_array<MenuItem>({
    {.label = 270, .target = 200, .icon = 207, .level = 1},
    {.label = 103, .target = 2,   .icon = 205, .level = 1},
    {.label = 336, .target = 3,   .icon = 208, .level = 1},
    {.label = 217, .target = 2,   .icon = 180, .level = 1},
});

inline constexpr auto kAlternateItems = std::to_array<MenuItem>({
    {.label = 209, .target = 4,  .icon = 171,          .level = 1},
    {.label = 198, .target = 0,  .icon = 163,          .level = 1},
    {.label = 197, .target = 7,  .icon = kSubItemIcon, .level = 2},
    {.label = 208, .target = 9,  .icon = kSubItemIcon, .level = 2},
    {.label = 200, .target = 0,  .icon = 187,          .level = 1},
    {.label = 218, .target = 12, .icon = kSubItemIcon, .level = 2},
    {.label = 199, .target = 25, .icon = kSubItemIcon, .level = 2},
    {.label = 206, .target = 44, .icon = kSubItemIcon, .level = 2},
    {.label = 213, .target = 0,  .icon = 176,          .level = 1},
    {.label = 215, .target = 34, .icon = kSubItemIcon, .level = 2},
    {.label = 202, .target = 51, .icon = kSubItemIcon, .level = 2},
    {.label = 214, .target = 41, .icon = kSubItemIcon, .level = 2},
    {.label = 204, .target = 46, .icon = 167,          .level = 1},
    {.label = 205, .target = 69, .icon = 168,          .level = 1},
    {.label = 216, .target = 0,  .icon = 178,          .level = 1},
    {.label = 203, .target = 71, .icon = kSubItemIcon, .level = 2},
    {.label = 207, .target = 59, .icon = kSubItemIcon, .level = 2},
    {.label = 212, .target = 68, .icon = kSubItemIcon, .level = 2},
    {.label = 210, .target = 0,  .icon = 172,          .level = 1},
    {.label = 353, .target = 94, .icon = kSubItemIcon, .level = 2},
    {.label = 354, .target = 95, .icon = kSubItemIcon, .level = 2},
    {.label = 348, .target = 96, .icon = kSubItemIcon, .level = 2},
    {.label = 349, .target = 97, .icon = kSubItemIcon, .level = 2},
    {.label = 211, .target = 98, .icon = 173,          .level = 1},
    {.label = 201, .target = 99, .icon = 183,          .level = 1},
    {.label = 269, .target = 1,  .icon = 206,          .level = 1},
    {.label = 217, .target = 0,  .icon = 180,          .level = 1},
});

inline constexpr auto kTestItems = std::to_array<MenuItem>({
    {.label = 337, .target = 201, .icon = 209, .level = 1},
    {.label = 137, .target = 1,   .icon = 210, .level = 1},
    {.label = 217, .target = 3,   .icon = 180, .level = 1},
});
// clang-format on

/// A mode's own items, and behind them the setup group that all modes have.
template <std::size_t count>
constexpr auto WithSetupGroup(const std::array<MenuItem, count>& own) {
    std::array<MenuItem, count + kSetupGroup.size()> items{};
    std::size_t at = 0;
    for (const MenuItem& item : own) items[at++] = item;
    for (const MenuItem& item : kSetupGroup) items[at++] = item;
    return items;
}

inline constexpr auto kNormalMenu = WithSetupGroup(kNormalItems);
inline constexpr auto kAlternateMenu = WithSetupGroup(kAlternateItems);
inline constexpr auto kTestMenu = WithSetupGroup(kTestItems);
static_assert(kNormalMenu.size() == 13 && kAlternateMenu.size() == 36 && kTestMenu.size() == 12);

/// By display mode.
inline constexpr std::array<MenuTree, kDisplayModes> kMenuTrees = {{
    {.menuId = MenuOfMode(DISPLAY_MODE_NORMAL), .items = kNormalMenu},
    {.menuId = MenuOfMode(DISPLAY_MODE_ALT), .items = kAlternateMenu},
    {.menuId = MenuOfMode(DISPLAY_MODE_TEST), .items = kTestMenu},
}};
static_assert(kMenuTrees[DISPLAY_MODE_NORMAL].StartScreen() == 200);
static_assert(kMenuTrees[DISPLAY_MODE_ALT].StartScreen() == 4);
static_assert(kMenuTrees[DISPLAY_MODE_TEST].StartScreen() == 201);
