#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "navigation/geometry.h"
#include "navigation/table_proofs.h"
#include "rda/meter_operations.h"
#include "screens/base/screen_info_table.h"

inline constexpr std::size_t kIoColumns = 3;

/// What an I/O screen shows: the kind of points, how to ask the meter for them, and the columns of its table. A column
/// of no width does not exist.
struct IoScreenRow {
    std::int32_t screen;
    int (*getCount)(std::uint32_t& count);
    int (*getData)(std::uint32_t first, std::span<IoPointEntry> entries);
    std::array<std::uint32_t, kIoColumns> headings;  // string numbers
    std::array<int, kIoColumns> widths;              // pixels
};

inline constexpr int kLabelWidth = Divided(kPanelWidth, 1.88);
inline constexpr int kStateWidth = Divided(kPanelWidth, 4.57);
inline constexpr int kPulsesWidth = Divided(kPanelWidth, 6.4);
static_assert(kLabelWidth == 170 && kStateWidth == 70 && kPulsesWidth == 50);

// clang-format off
inline constexpr auto kIoScreenRows = std::to_array<IoScreenRow>({
    {.screen = 94, .getCount = IOI_getDigitalInputCount,  .getData = IOI_getDigitalInputData,  .headings = {157, 159, 156}, .widths = {kLabelWidth, kStateWidth, kPulsesWidth}},
    {.screen = 95, .getCount = IOI_getDigitalOutputCount, .getData = IOI_getDigitalOutputData, .headings = {158, 159},      .widths = {kLabelWidth, kStateWidth}},
    {.screen = 96, .getCount = IOI_getAnalogInputCount,   .getData = IOI_getAnalogInputData,   .headings = {157, 533},      .widths = {kLabelWidth, kStateWidth}},
    {.screen = 97, .getCount = IOI_getAnalogOutputCount,  .getData = IOI_getAnalogOutputData,  .headings = {158, 533},      .widths = {kLabelWidth, kStateWidth}},
});
// clang-format on

static_assert(AllDiffer(kIoScreenRows, &IoScreenRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kIoScreenRows, IsDataScreenId, &IoScreenRow::screen), "a row is for no data screen");
static_assert(std::ranges::all_of(kIoScreenRows,
                                  [](const IoScreenRow& row) {
                                      return std::ranges::count(row.headings, 0U) == std::ranges::count(row.widths, 0);
                                  }),
              "a column has no heading, or a heading no column");
