#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "navigation/table_proofs.h"

/// Lists of settings that are shown, and changed, item by item.
enum class SetupList { Alarms, Resets, YesNo };

/// A register whose figures can be set back to zero.
struct ResetRow {
    std::uint32_t label;  // string number
    std::uint32_t registerId;
};

inline constexpr auto kResetRows = std::to_array<ResetRow>({
    {325, 1917},
    {328, 2031},
    {326, 1922},
    {321, 167},
    {324, 228},
    {322, 169},
    {323, 178},
    {327, 1969},
});
static_assert(kResetRows.size() == 8 && AllDiffer(kResetRows, &ResetRow::registerId));

/// The registers that are set to Yes or No, under the meter's own names.
inline constexpr auto kYesNoRegisters =
    std::to_array<std::uint32_t>({180, 181, 182, 184, 192, 185, 188, 189, 191, 194, 197, 196, 193});
static_assert(kYesNoRegisters.size() == 13 && AllDiffer(kYesNoRegisters, std::identity{}));

/// The value of one that is set.
inline constexpr std::string_view kYes = "Yes";

/// Most alarms that a list holds.
inline constexpr std::size_t kMaxSettableAlarms = 150;

/// Most items of a list.
constexpr std::size_t MostItems(SetupList list) {
    switch (list) {
        case SetupList::Alarms: return kMaxSettableAlarms;
        case SetupList::Resets: return kResetRows.size();
        case SetupList::YesNo: break;
    }
    return kYesNoRegisters.size();
}

/// Check marks of a list's items: what is on, and the other look that the meter may choose for an alarm.
inline constexpr std::uint32_t kCheckMark = 224;
inline constexpr std::uint32_t kOtherCheckMark = 225;

/// Pixels before the text of an item without an icon on its left, so that it stands under the title of its column.
inline constexpr int kItemIndent = 10;
