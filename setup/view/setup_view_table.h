#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "navigation/table_proofs.h"

/// A key that leads nowhere, and a setting that the front panel does not change.
inline constexpr std::int32_t kNoScreen = -1;

/// What a setup view screen is called and what stands before and behind it in its chain of pages.
struct SetupViewRow {
    std::int32_t screen;
    std::uint32_t title;    // string number
    std::int32_t previous;  // a screen of this table, or kNoScreen
    std::int32_t next;
};

// clang-format off
inline constexpr auto kSetupViewRows = std::to_array<SetupViewRow>({
    {.screen = 100, .title = 514, .previous = kNoScreen, .next = 103},
    {.screen = 103, .title = 484, .previous = 100,       .next = 110},
    {.screen = 110, .title = 515, .previous = 103,       .next = 117},
    {.screen = 117, .title = 452, .previous = 110,       .next = 126},
    {.screen = 126, .title = 477, .previous = 117,       .next = kNoScreen},
    {.screen = 130, .title = 465, .previous = kNoScreen, .next = 132},
    {.screen = 132, .title = 466, .previous = 130,       .next = 139},
    {.screen = 136, .title = 463, .previous = 130,       .next = 139},
    {.screen = 137, .title = 471, .previous = 139,       .next = 140},
    {.screen = 139, .title = 458, .previous = 132,       .next = 137},
    {.screen = 140, .title = 473, .previous = 137,       .next = 142},
    {.screen = 141, .title = 420, .previous = 137,       .next = 142},
    {.screen = 142, .title = 459, .previous = 140,       .next = 143},
    {.screen = 143, .title = 455, .previous = 142,       .next = 144},
    {.screen = 144, .title = 424, .previous = 143,       .next = 151},
    {.screen = 151, .title = 432, .previous = 144,       .next = 157},
    {.screen = 157, .title = 439, .previous = 151,       .next = 167},
    {.screen = 167, .title = 479, .previous = 157,       .next = 168},
    {.screen = 168, .title = 504, .previous = 167,       .next = kNoScreen},
    {.screen = 198, .title = 130, .previous = kNoScreen, .next = kNoScreen},
    {.screen = 169, .title = 500, .previous = kNoScreen, .next = 170},
    {.screen = 170, .title = 493, .previous = 169,       .next = 171},
    {.screen = 171, .title = 495, .previous = 170,       .next = kNoScreen},
    {.screen = 181, .title = 454, .previous = kNoScreen, .next = 182},
    {.screen = 182, .title = 422, .previous = 181,       .next = kNoScreen},
    {.screen = 190, .title = 421, .previous = kNoScreen, .next = kNoScreen},
    {.screen = 192, .title = 509, .previous = kNoScreen, .next = 193},
    {.screen = 193, .title = 510, .previous = 192,       .next = kNoScreen},
    {.screen = 179, .title = 474, .previous = kNoScreen, .next = kNoScreen},
    {.screen = 194, .title = 487, .previous = kNoScreen, .next = kNoScreen},
});
// clang-format on

constexpr bool IsSetupView(std::int32_t screen) {
    return std::ranges::find(kSetupViewRows, screen, &SetupViewRow::screen) != kSetupViewRows.end();
}
constexpr bool IsSetupViewOrNone(std::int32_t screen) { return screen == kNoScreen || IsSetupView(screen); }

static_assert(kSetupViewRows.size() == 30);
static_assert(AllDiffer(kSetupViewRows, &SetupViewRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kSetupViewRows, IsSetupViewOrNone, &SetupViewRow::previous), "a row leads nowhere");
static_assert(std::ranges::all_of(kSetupViewRows, IsSetupViewOrNone, &SetupViewRow::next), "a row leads nowhere");
