#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "navigation/table_proofs.h"

/// Whether a screen of settings changes one value or a list of items.
enum class EditForm : std::int32_t { Value = 0, List = 1 };

/// What a screen that edits settings is called. Rows are found by screen. 161 to 166 have a title only.
struct SetupEditRow {
    std::int32_t screen;
    std::uint32_t title;  // string number
    EditForm form;
};

// clang-format off
inline constexpr auto kSetupEditRows = std::to_array<SetupEditRow>({
    {101, 514, EditForm::Value},
    {102, 480, EditForm::Value},
    {104, 485, EditForm::Value},
    {105, 486, EditForm::Value},
    {106, 450, EditForm::Value},
    {107, 451, EditForm::Value},
    {108, 151, EditForm::Value},
    {109, 152, EditForm::Value},
    {112, 511, EditForm::Value},
    {114, 512, EditForm::Value},
    {116, 513, EditForm::Value},
    {119, 460, EditForm::Value},
    {121, 461, EditForm::Value},
    {123, 462, EditForm::Value},
    {125, 150, EditForm::Value},
    {127, 478, EditForm::Value},
    {128, 475, EditForm::Value},
    {129, 476, EditForm::Value},
    {131, 464, EditForm::Value},
    {133, 468, EditForm::Value},
    {134, 469, EditForm::Value},
    {135, 467, EditForm::Value},
    {138, 470, EditForm::Value},
    {199, 130, EditForm::List},
    {145, 426, EditForm::Value},
    {146, 425, EditForm::Value},
    {147, 428, EditForm::Value},
    {148, 431, EditForm::Value},
    {149, 429, EditForm::Value},
    {150, 427, EditForm::Value},
    {152, 434, EditForm::Value},
    {153, 433, EditForm::Value},
    {154, 435, EditForm::Value},
    {155, 438, EditForm::Value},
    {156, 436, EditForm::Value},
    {158, 440, EditForm::Value},
    {159, 441, EditForm::Value},
    {161, 444, EditForm::Value},
    {162, 443, EditForm::Value},
    {163, 446, EditForm::Value},
    {164, 449, EditForm::Value},
    {165, 447, EditForm::Value},
    {166, 445, EditForm::Value},
    {180, 474, EditForm::Value},
    {172, 488, EditForm::Value},
    {173, 498, EditForm::Value},
    {174, 494, EditForm::Value},
    {175, 492, EditForm::Value},
    {176, 502, EditForm::Value},
    {177, 491, EditForm::Value},
    {178, 499, EditForm::Value},
    {197, 496, EditForm::Value},
    {183, 507, EditForm::Value},
    {184, 453, EditForm::Value},
    {185, 508, EditForm::Value},
    {186, 456, EditForm::Value},
    {187, 423, EditForm::Value},
    {188, 505, EditForm::Value},
    {189, 506, EditForm::Value},
    {191, 421, EditForm::List},
    {195, 487, EditForm::List},
});
// clang-format on
static_assert(kSetupEditRows.size() == 61);
static_assert(AllDiffer(kSetupEditRows, &SetupEditRow::screen), "a screen stands in two rows");
static_assert(AllDiffer(kSetupEditRows, &SetupEditRow::title), "two screens have one title");

/// True when every row's screen has a title and edits in that form.
template <typename Table, typename Field>
constexpr bool AllEdit(const Table& table, Field screen, EditForm form) {
    return std::ranges::all_of(table, [screen, form](const auto& row) {
        const std::int32_t id = std::invoke(screen, row);
        return std::ranges::any_of(kSetupEditRows, [id, form](const SetupEditRow& titled) {
            return titled.screen == id && titled.form == form;
        });
    });
}
