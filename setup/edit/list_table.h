#pragma once

#include "setup/base/setup_lists.h"
#include "setup/edit/edit_table.h"

/// A screen that switches the items of a list on and off.
struct ListRow {
    std::int32_t screen;
    SetupList list;
};

inline constexpr auto kListRows = std::to_array<ListRow>({
    {191, SetupList::Alarms},
    {195, SetupList::Resets},
    {199, SetupList::YesNo},
});
static_assert(AllDiffer(kListRows, &ListRow::screen) && AllDiffer(kListRows, &ListRow::list));
static_assert(AllEdit(kListRows, &ListRow::screen, EditForm::List), "a screen without a title");
static_assert(std::ranges::count(kSetupEditRows, EditForm::List, &SetupEditRow::form) == std::ssize(kListRows));
