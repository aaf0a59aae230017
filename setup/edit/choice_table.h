#pragma once

#include "setup/edit/edit_table.h"

/// A screen that chooses among the texts of a register.
struct ChoiceRow {
    std::int32_t screen;
    std::uint32_t registerId;
};

// clang-format off
inline constexpr auto kChoiceRows = std::to_array<ChoiceRow>({
    {101, 3717},
    {102, 2063},
    {112, 3676},
    {114, 3679},
    {116, 3680},
    {119, 1358},
    {121, 1359},
    {123, 1360},
    {125, 1347},
    {129, 1945},
    {131, 1409},
    {138, 1410},
    {145, 94},
    {146, 93},
    {149, 98},
    {150, 95},
    {152, 101},
    {153, 100},
    {156, 104},
    {158, 106},
    {180, 1914},
    {173, 2062},
    {174, 1919},
    {175, 166},
    {176, 3718},
    {177, 113},
    {178, 2364},
    {197, 2033},
    {183, 2601},
    {184, 145},
    {187, 78},
    {188, 2604},
    {189, 2605},
});
// clang-format on
static_assert(kChoiceRows.size() == 33);
static_assert(AllDiffer(kChoiceRows, &ChoiceRow::screen) && AllDiffer(kChoiceRows, &ChoiceRow::registerId));
static_assert(AllEdit(kChoiceRows, &ChoiceRow::screen, EditForm::Value), "a screen without a title");

/// The screen that chooses the language, whose items are each shown in their own.
inline constexpr std::int32_t kLanguageScreen = 180;
static_assert(std::ranges::count(kChoiceRows, kLanguageScreen, &ChoiceRow::screen) == 1);
