#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "navigation/table_proofs.h"

inline constexpr std::size_t kDataScreens = 98;

/// What the picture of soft key 4 says: that it leads on to a bar, detail or companion screen, or back.
enum class KeyFour : std::uint8_t { Onward, Back };

/// What a screen with meter data is called. A screen is a data screen exactly when it has a row here.
struct ScreenInfoRow {
    std::int32_t screen;
    std::int32_t title;  // string number; that of the menu item that leads to the screen, where there is one
    KeyFour keyFour;
};

// clang-format off
inline constexpr auto kScreenInfoRows = std::to_array<ScreenInfoRow>({
    {.screen = 4,   .title = 209, .keyFour = KeyFour::Onward},
    {.screen = 5,   .title = 400, .keyFour = KeyFour::Back},
    {.screen = 6,   .title = 401, .keyFour = KeyFour::Back},
    {.screen = 7,   .title = 197, .keyFour = KeyFour::Onward},
    {.screen = 8,   .title = 402, .keyFour = KeyFour::Onward},
    {.screen = 9,   .title = 208, .keyFour = KeyFour::Onward},
    {.screen = 10,  .title = 403, .keyFour = KeyFour::Onward},
    {.screen = 11,  .title = 404, .keyFour = KeyFour::Onward},
    {.screen = 12,  .title = 218, .keyFour = KeyFour::Onward},
    {.screen = 13,  .title = 405, .keyFour = KeyFour::Onward},
    {.screen = 14,  .title = 259, .keyFour = KeyFour::Onward},
    {.screen = 15,  .title = 261, .keyFour = KeyFour::Onward},
    {.screen = 16,  .title = 260, .keyFour = KeyFour::Onward},
    {.screen = 17,  .title = 406, .keyFour = KeyFour::Back},
    {.screen = 18,  .title = 407, .keyFour = KeyFour::Back},
    {.screen = 19,  .title = 263, .keyFour = KeyFour::Onward},
    {.screen = 20,  .title = 265, .keyFour = KeyFour::Onward},
    {.screen = 21,  .title = 264, .keyFour = KeyFour::Onward},
    {.screen = 22,  .title = 408, .keyFour = KeyFour::Back},
    {.screen = 23,  .title = 409, .keyFour = KeyFour::Back},
    {.screen = 24,  .title = 410, .keyFour = KeyFour::Back},
    {.screen = 25,  .title = 199, .keyFour = KeyFour::Onward},
    {.screen = 26,  .title = 222, .keyFour = KeyFour::Onward},
    {.screen = 27,  .title = 226, .keyFour = KeyFour::Onward},
    {.screen = 28,  .title = 225, .keyFour = KeyFour::Onward},
    {.screen = 29,  .title = 411, .keyFour = KeyFour::Back},
    {.screen = 30,  .title = 224, .keyFour = KeyFour::Onward},
    {.screen = 31,  .title = 223, .keyFour = KeyFour::Onward},
    {.screen = 32,  .title = 412, .keyFour = KeyFour::Back},
    {.screen = 33,  .title = 413, .keyFour = KeyFour::Back},
    {.screen = 34,  .title = 215, .keyFour = KeyFour::Onward},
    {.screen = 35,  .title = 414, .keyFour = KeyFour::Onward},
    {.screen = 36,  .title = 415, .keyFour = KeyFour::Onward},
    {.screen = 37,  .title = 416, .keyFour = KeyFour::Onward},
    {.screen = 38,  .title = 245, .keyFour = KeyFour::Onward},
    {.screen = 39,  .title = 244, .keyFour = KeyFour::Onward},
    {.screen = 40,  .title = 417, .keyFour = KeyFour::Back},
    {.screen = 41,  .title = 214, .keyFour = KeyFour::Onward},
    {.screen = 42,  .title = 242, .keyFour = KeyFour::Onward},
    {.screen = 43,  .title = 243, .keyFour = KeyFour::Onward},
    {.screen = 44,  .title = 206, .keyFour = KeyFour::Onward},
    {.screen = 45,  .title = 418, .keyFour = KeyFour::Back},
    {.screen = 46,  .title = 204, .keyFour = KeyFour::Onward},
    {.screen = 47,  .title = 419, .keyFour = KeyFour::Onward},
    {.screen = 48,  .title = 580, .keyFour = KeyFour::Onward},
    {.screen = 49,  .title = 257, .keyFour = KeyFour::Onward},
    {.screen = 50,  .title = 258, .keyFour = KeyFour::Onward},
    {.screen = 51,  .title = 202, .keyFour = KeyFour::Onward},
    {.screen = 52,  .title = 581, .keyFour = KeyFour::Onward},
    {.screen = 53,  .title = 228, .keyFour = KeyFour::Onward},
    {.screen = 54,  .title = 230, .keyFour = KeyFour::Onward},
    {.screen = 55,  .title = 232, .keyFour = KeyFour::Onward},
    {.screen = 56,  .title = 229, .keyFour = KeyFour::Onward},
    {.screen = 57,  .title = 231, .keyFour = KeyFour::Onward},
    {.screen = 58,  .title = 233, .keyFour = KeyFour::Onward},
    {.screen = 59,  .title = 207, .keyFour = KeyFour::Onward},
    {.screen = 60,  .title = 582, .keyFour = KeyFour::Onward},
    {.screen = 61,  .title = 238, .keyFour = KeyFour::Onward},
    {.screen = 62,  .title = 239, .keyFour = KeyFour::Onward},
    {.screen = 63,  .title = 240, .keyFour = KeyFour::Onward},
    {.screen = 64,  .title = 234, .keyFour = KeyFour::Onward},
    {.screen = 65,  .title = 235, .keyFour = KeyFour::Onward},
    {.screen = 66,  .title = 236, .keyFour = KeyFour::Onward},
    {.screen = 67,  .title = 237, .keyFour = KeyFour::Onward},
    {.screen = 68,  .title = 212, .keyFour = KeyFour::Onward},
    {.screen = 69,  .title = 205, .keyFour = KeyFour::Onward},
    {.screen = 70,  .title = 583, .keyFour = KeyFour::Onward},
    {.screen = 71,  .title = 203, .keyFour = KeyFour::Onward},
    {.screen = 72,  .title = 584, .keyFour = KeyFour::Onward},
    {.screen = 73,  .title = 585, .keyFour = KeyFour::Onward},
    {.screen = 74,  .title = 586, .keyFour = KeyFour::Onward},
    {.screen = 75,  .title = 587, .keyFour = KeyFour::Onward},
    {.screen = 76,  .title = 588, .keyFour = KeyFour::Onward},
    {.screen = 77,  .title = 589, .keyFour = KeyFour::Onward},
    {.screen = 78,  .title = 590, .keyFour = KeyFour::Onward},
    {.screen = 79,  .title = 591, .keyFour = KeyFour::Onward},
    {.screen = 80,  .title = 592, .keyFour = KeyFour::Onward},
    {.screen = 81,  .title = 593, .keyFour = KeyFour::Onward},
    {.screen = 82,  .title = 594, .keyFour = KeyFour::Onward},
    {.screen = 83,  .title = 246, .keyFour = KeyFour::Onward},
    {.screen = 84,  .title = 247, .keyFour = KeyFour::Onward},
    {.screen = 85,  .title = 248, .keyFour = KeyFour::Onward},
    {.screen = 86,  .title = 249, .keyFour = KeyFour::Onward},
    {.screen = 87,  .title = 256, .keyFour = KeyFour::Onward},
    {.screen = 88,  .title = 253, .keyFour = KeyFour::Onward},
    {.screen = 89,  .title = 254, .keyFour = KeyFour::Onward},
    {.screen = 90,  .title = 255, .keyFour = KeyFour::Onward},
    {.screen = 91,  .title = 250, .keyFour = KeyFour::Onward},
    {.screen = 92,  .title = 251, .keyFour = KeyFour::Onward},
    {.screen = 93,  .title = 252, .keyFour = KeyFour::Onward},
    {.screen = 94,  .title = 353, .keyFour = KeyFour::Onward},
    {.screen = 95,  .title = 354, .keyFour = KeyFour::Onward},
    {.screen = 96,  .title = 348, .keyFour = KeyFour::Onward},
    {.screen = 97,  .title = 349, .keyFour = KeyFour::Onward},
    {.screen = 98,  .title = 211, .keyFour = KeyFour::Onward},
    {.screen = 99,  .title = 201, .keyFour = KeyFour::Onward},
    {.screen = 200, .title = 270, .keyFour = KeyFour::Onward},
    {.screen = 201, .title = 337, .keyFour = KeyFour::Onward},
});
// clang-format on

constexpr bool IsDataScreenId(std::int32_t screen) {
    return std::ranges::find(kScreenInfoRows, screen, &ScreenInfoRow::screen) != kScreenInfoRows.end();
}

static_assert(kScreenInfoRows.size() == kDataScreens);
static_assert(AllDiffer(kScreenInfoRows, &ScreenInfoRow::screen), "a screen stands in two rows");
