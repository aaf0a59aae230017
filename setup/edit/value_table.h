#pragma once

#include <string_view>

#include "navigation/entry/masked_value.h"
#include "setup/edit/edit_table.h"

/// A screen that composes a number, an address or a time.
struct ValueRow {
    std::int32_t screen;
    std::uint32_t registerId;
    std::string_view mask;
    ZeroReads zero;
};

inline constexpr std::string_view kDecimalMask = "?????#.#?";
inline constexpr std::string_view kAddressMask = "??#.??#.??#.??#";
inline constexpr std::string_view kWholeMask = "???#";
inline constexpr std::string_view kDelayMask = "?#.#??";
inline constexpr std::string_view kTimeMask = "S?#:?#:?#";

// clang-format off
inline constexpr auto kValueRows = std::to_array<ValueRow>({
    {104, 2461, kDecimalMask, ZeroReads::Digits},
    {105, 2462, kDecimalMask, ZeroReads::Digits},
    {106, 111,  kDecimalMask, ZeroReads::Digits},
    {107, 112,  kDecimalMask, ZeroReads::Digits},
    {108, 1215, kDecimalMask, ZeroReads::Digits},
    {109, 1216, kDecimalMask, ZeroReads::Digits},
    {127, 2658, kDecimalMask, ZeroReads::Digits},
    {128, 354,  kDecimalMask, ZeroReads::Digits},
    {133, 2590, kAddressMask, ZeroReads::None},
    {134, 2592, kAddressMask, ZeroReads::None},
    {135, 2591, kAddressMask, ZeroReads::None},
    {148, 99,   kWholeMask,   ZeroReads::Digits},
    {155, 105,  kWholeMask,   ZeroReads::Digits},
    {159, 108,  kWholeMask,   ZeroReads::Digits},
    {172, 54,   kWholeMask,   ZeroReads::Digits},
    {147, 97,   kDelayMask,   ZeroReads::Digits},
    {154, 103,  kDelayMask,   ZeroReads::Digits},
    {185, 2616, kTimeMask,    ZeroReads::Digits},
    {186, 177,  kTimeMask,    ZeroReads::Digits},
});
// clang-format on
static_assert(kValueRows.size() == 19);
static_assert(AllDiffer(kValueRows, &ValueRow::screen) && AllDiffer(kValueRows, &ValueRow::registerId));
static_assert(AllEdit(kValueRows, &ValueRow::screen, EditForm::Value), "a screen without a title");
static_assert(std::ranges::all_of(kValueRows, [](const ValueRow& row) {
    return !row.mask.empty() && row.mask.size() <= MaskedValue::kLongest;
}));

/// A time is shown as hours, minutes and seconds and held by the meter as a signed number of seconds.
constexpr bool HoldsSeconds(const ValueRow& row) { return row.mask == kTimeMask; }
