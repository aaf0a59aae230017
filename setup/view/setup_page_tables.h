#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "navigation/table_proofs.h"
#include "setup/base/setup_lists.h"
#include "setup/edit/choice_table.h"
#include "setup/edit/list_table.h"
#include "setup/edit/value_table.h"
#include "setup/view/setup_view_table.h"

// What the setup view screens show: registers of the meter and the setup edit screens that change them.

/// A setting: its register and the screen that changes it, or kNoScreen.
struct SettingRow {
    std::uint32_t registerId;  // 0: no such line
    std::int32_t editScreen;
};

inline constexpr std::size_t kMostSettingLines = 6;

/// A page of lines, each with a name and a value.
struct SettingLinesRow {
    std::int32_t screen;
    std::array<SettingRow, kMostSettingLines> lines;

    constexpr std::size_t Count() const {
        return static_cast<std::size_t>(std::ranges::find(lines, 0U, &SettingRow::registerId) - lines.begin());
    }
    constexpr std::span<const SettingRow> Lines() const { return std::span(lines).first(Count()); }
};

// clang-format off
inline constexpr auto kSettingLinesRows = std::to_array<SettingLinesRow>({
    {.screen = 100, .lines = {{{3717, 101}, {2063, 102}}}},
    {.screen = 110, .lines = {{{3676, 112}, {3679, 114}, {3680, 116}}}},
    {.screen = 117, .lines = {{{1358, 119}, {1359, 121}, {1360, 123}, {1347, 125}}}},
    {.screen = 126, .lines = {{{2658, 127}, {354, 128}, {1945, 129}}}},
    {.screen = 132, .lines = {{{2590, 133}, {2592, 134}, {2591, 135}, {1916, kNoScreen}}}},
    {.screen = 136, .lines = {{{26, kNoScreen}, {28, kNoScreen}, {27, kNoScreen}, {1916, kNoScreen}}}},
    {.screen = 144, .lines = {{{94, 145}, {93, 146}, {97, 147}, {99, 148}, {98, 149}, {95, 150}}}},
    {.screen = 151, .lines = {{{101, 152}, {100, 153}, {103, 154}, {105, 155}, {104, 156}}}},
    {.screen = 157, .lines = {{{106, 158}, {108, 159}}}},
    {.screen = 181, .lines = {{{2601, 183}, {145, 184}, {2616, 185}, {177, 186}}}},
    {.screen = 182, .lines = {{{78, 187}, {2604, 188}, {2605, 189}}}},
    {.screen = 192, .lines = {{{2608, kNoScreen}, {2609, kNoScreen}, {2610, kNoScreen}, {2611, kNoScreen}}}},
    {.screen = 193, .lines = {{{2512, kNoScreen}, {2513, kNoScreen}, {2514, kNoScreen}, {2515, kNoScreen}}}},
    {.screen = 169, .lines = {{{54, 172}}}},
    {.screen = 170, .lines = {{{2062, 173}, {1919, 174}, {2033, 197}}}},
    {.screen = 171, .lines = {{{166, 175}, {3718, 176}, {113, 177}, {2364, 178}}}},
});
// clang-format on

/// Registers that hold a number of seconds, shown as hours, minutes and seconds.
inline constexpr auto kSecondsRegisters = std::to_array<std::uint32_t>({2616, 177});

inline constexpr std::size_t kGridColumns = 2;
inline constexpr std::size_t kGridRows = 3;

/// The page with two values a row.
struct SettingGrid {
    struct Row {
        std::uint32_t name;  // string number
        std::array<SettingRow, kGridColumns> values;
    };

    std::int32_t screen;
    std::array<std::uint32_t, kGridColumns> titles;  // string numbers
    std::array<Row, kGridRows> rows;
};

// clang-format off
inline constexpr SettingGrid kSettingGrid = {
    .screen = 103,
    .titles = {288, 297},
    .rows = {{
        {.name = 290, .values = {{{2461, 104}, {2462, 105}}}},
        {.name = 111, .values = {{{111, 106},  {112, 107}}}},
        {.name = 149, .values = {{{1215, 108}, {1216, 109}}}},
    }},
};
// clang-format on

inline constexpr std::size_t kMostLargeSettings = 2;

/// A page of one or two settings in large type. The second register is 0 where there is only one.
struct LargeSettingsRow {
    std::int32_t screen;
    std::array<std::uint32_t, kMostLargeSettings> registers;
    std::int32_t editScreen;

    constexpr std::size_t Count() const { return registers[1] == 0 ? 1 : kMostLargeSettings; }
};

// clang-format off
inline constexpr auto kLargeSettingsRows = std::to_array<LargeSettingsRow>({
    {.screen = 130, .registers = {1409},       .editScreen = 131},
    {.screen = 137, .registers = {1410},       .editScreen = 138},
    {.screen = 139, .registers = {1412},       .editScreen = kNoScreen},
    {.screen = 140, .registers = {2594, 2593}, .editScreen = kNoScreen},
    {.screen = 141, .registers = {30, 29},     .editScreen = kNoScreen},
    {.screen = 142, .registers = {198, 172},   .editScreen = kNoScreen},
    {.screen = 167, .registers = {1947},       .editScreen = kNoScreen},
    {.screen = 168, .registers = {2521},       .editScreen = kNoScreen},
    {.screen = 143, .registers = {2430, 2517}, .editScreen = kNoScreen},
    {.screen = 179, .registers = {1914},       .editScreen = 180},
});
// clang-format on

/// A page that lists many settings; one edit screen changes them all.
struct SetupListRow {
    std::int32_t screen;
    std::int32_t editScreen;
    SetupList list;
};

// clang-format off
inline constexpr auto kSetupListRows = std::to_array<SetupListRow>({
    {.screen = 190, .editScreen = 191, .list = SetupList::Alarms},
    {.screen = 194, .editScreen = 195, .list = SetupList::Resets},
    {.screen = 198, .editScreen = 199, .list = SetupList::YesNo},
});
// clang-format on

enum class ChainStep { Previous, Next };

/// A page from which the way depends on a setting: whether an address is stored in the meter or comes from elsewhere.
struct SwitchPointRow {
    std::int32_t screen;
    ChainStep step;
    std::uint32_t registerId;
    std::int32_t whenStored;
    std::int32_t otherwise;
};

// clang-format off
inline constexpr auto kSwitchPointRows = std::to_array<SwitchPointRow>({
    {.screen = 130, .step = ChainStep::Next,     .registerId = 1409, .whenStored = 132, .otherwise = 136},
    {.screen = 139, .step = ChainStep::Previous, .registerId = 1409, .whenStored = 132, .otherwise = 136},
    {.screen = 137, .step = ChainStep::Next,     .registerId = 1410, .whenStored = 140, .otherwise = 141},
    {.screen = 142, .step = ChainStep::Previous, .registerId = 1410, .whenStored = 140, .otherwise = 141},
});
// clang-format on

static_assert(kSettingLinesRows.size() == 16 && kLargeSettingsRows.size() == 10 && kSetupListRows.size() == 3);
static_assert(std::ranges::all_of(kSettingLinesRows,
                                  [](const SettingLinesRow& row) {
                                      return row.Count() > 0 &&
                                             std::all_of(row.lines.begin() + row.Count(), row.lines.end(),
                                                         [](const SettingRow& line) { return line.registerId == 0; });
                                  }),
              "a page is empty, or has a gap between its lines");

/// True when a setting's screen changes its register.
constexpr bool LeadsToItsEditScreen(const SettingRow& setting) {
    const auto edits = [&setting](const auto& row) {
        return row.screen == setting.editScreen && row.registerId == setting.registerId;
    };
    return setting.editScreen == kNoScreen || std::ranges::any_of(kChoiceRows, edits) ||
           std::ranges::any_of(kValueRows, edits);
}
static_assert(std::ranges::all_of(kSettingLinesRows, [](const SettingLinesRow& row) {
    return std::ranges::all_of(row.Lines(), LeadsToItsEditScreen);
}));
static_assert(std::ranges::all_of(kSettingGrid.rows, [](const SettingGrid::Row& row) {
    return std::ranges::all_of(row.values, LeadsToItsEditScreen);
}));
static_assert(std::ranges::all_of(kLargeSettingsRows, [](const LargeSettingsRow& row) {
    return LeadsToItsEditScreen({row.registers[0], row.editScreen});
}));
static_assert(std::ranges::all_of(kSetupListRows, [](const SetupListRow& row) {
    return std::ranges::any_of(
        kListRows, [&row](const ListRow& edit) { return edit.screen == row.editScreen && edit.list == row.list; });
}));

/// Every setup view screen has its content in one table, and nothing else has.
consteval bool EveryViewHasOneContent() {
    std::array<std::int32_t, kSetupViewRows.size()> screens{kSettingGrid.screen};
    std::size_t count = 1;
    const auto enter = [&](const auto& table) {
        for (const auto& row : table) {
            if (count < screens.size()) screens[count] = row.screen;
            ++count;
        }
    };
    enter(kSettingLinesRows);
    enter(kLargeSettingsRows);
    enter(kSetupListRows);
    return count == screens.size() && AllDiffer(screens, std::identity{}) && std::ranges::all_of(screens, IsSetupView);
}
static_assert(EveryViewHasOneContent());

/// True when a switch point lies on a page in large type, leads to pages, and to that of the setup view table when an
/// address is stored.
constexpr bool AgreesWithChain(const SwitchPointRow& row) {
    const auto isTheWay = [&row](const SetupViewRow& view) {
        return view.screen == row.screen &&
               (row.step == ChainStep::Previous ? view.previous : view.next) == row.whenStored;
    };
    return std::ranges::any_of(kSetupViewRows, isTheWay) && IsSetupView(row.otherwise) &&
           std::ranges::count(kLargeSettingsRows, row.screen, &LargeSettingsRow::screen) == 1;
}
static_assert(kSwitchPointRows.size() == 4 && std::ranges::all_of(kSwitchPointRows, AgreesWithChain));
static_assert(AllDiffer(kSwitchPointRows, &SwitchPointRow::screen), "a page has two switch points");
