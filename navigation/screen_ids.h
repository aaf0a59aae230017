#pragma once

#include <cstdint>

/// Numbers of screens. 0 stands for the menu of the current display mode.
inline constexpr std::int32_t kCurrentMenu = 0;
inline constexpr std::int32_t SCREEN_ID_FACTORY_TEST = -3;
inline constexpr std::int32_t kLastCommandedScreen = 201;  // the largest id that the meter may name

enum DisplayMode : std::int32_t { DISPLAY_MODE_NORMAL = 0, DISPLAY_MODE_ALT = 1, DISPLAY_MODE_TEST = 2 };
inline constexpr int kDisplayModes = 3;

/// The menu screen of a display mode.
constexpr std::int32_t MenuOfMode(std::int32_t mode) { return mode + 1; }

enum ScreenKind : std::int32_t {
    SCREEN_KIND_DATA = 0,
    SCREEN_KIND_SETUP_VIEW = 1,
    SCREEN_KIND_SETUP_EDIT = 2,
    SCREEN_KIND_MENU = 3,
    SCREEN_KIND_FACTORY_TEST = 4,
};
