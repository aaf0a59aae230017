#pragma once

#include <array>
#include <cstddef>

#include "rda/wire.h"

/// One register as it is shown: every text is ready, nothing is left to format.
struct RegisterValue {
    std::array<char, 132> description;
    std::array<char, 40> label;
    std::array<char, 45> value;
    std::array<char, 10> unit;
    std::array<char, 11> date;  // of an extreme value; empty otherwise
    std::array<char, 26> time;
};
static_assert(sizeof(RegisterValue) == 264 && kIsWireRecord<RegisterValue>);
static_assert(offsetof(RegisterValue, label) == 132 && offsetof(RegisterValue, value) == 172);
static_assert(offsetof(RegisterValue, unit) == 217 && offsetof(RegisterValue, date) == 227);
static_assert(offsetof(RegisterValue, time) == 238);

/// The meter's answer to a write.
struct RegisterWriteResult {
    WireU32 result;              // 0: accepted
    std::array<char, 128> text;  // why it was refused
};
static_assert(sizeof(RegisterWriteResult) == 132 && kIsWireRecord<RegisterWriteResult>);

/// Which of its items a register with a choice of texts holds.
struct EnumerationValue {
    WireU32 result;  // 0: the meter could read the register
    std::array<char, 128> text;
    WireU32 current;  // index of the selected item
};
static_assert(sizeof(EnumerationValue) == 136 && kIsWireRecord<EnumerationValue>);

inline constexpr std::size_t kMaxEnumerationItems = 40;

/// A register with a choice of texts: all its items, and which of them it holds.
struct EnumerationData {
    WireU32 result;  // 0: the meter could read the register
    std::array<char, 128> text;
    WireU32 count;  // items that follow, not more than there is room for
    WireU32 current;
    std::array<std::array<char, 40>, kMaxEnumerationItems> items;
};
static_assert(sizeof(EnumerationData) == 1740 && kIsWireRecord<EnumerationData>);
static_assert(offsetof(EnumerationData, count) == 132 && offsetof(EnumerationData, current) == 136);
static_assert(offsetof(EnumerationData, items) == 140);

inline constexpr std::size_t kMaxPageParameters = 6;

/// One page of quantities that the meter composed.
struct CustomScreenData {
    WireU32 status;       // 0: the page is valid
    WireU32 isFirstPage;  // 1: there is no page before this one
    WireU32 isLastPage;   // 1: there is no page after this one
    std::array<char, 32> title;
    WireU32 count;  // parameters in use, 1 to 6
    std::array<RegisterValue, kMaxPageParameters> parameters;
};
static_assert(sizeof(CustomScreenData) == 1632 && kIsWireRecord<CustomScreenData>);
static_assert(offsetof(CustomScreenData, isLastPage) == 8 && offsetof(CustomScreenData, title) == 12);
static_assert(offsetof(CustomScreenData, count) == 44 && offsetof(CustomScreenData, parameters) == 48);

/// Page commands of the custom screen operations.
inline constexpr std::uint32_t kPagePrevious = 0;
inline constexpr std::uint32_t kPageCurrent = 1;
inline constexpr std::uint32_t kPageNext = 2;
inline constexpr std::uint32_t kPageFirst = 3;
