#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>

#include "navigation/table_proofs.h"
#include "screens/base/screen_info_table.h"

inline constexpr int kMostExtremes = 3;

/// The registers of a list of extremes, from the top row down.
struct ExtremesRow {
    std::int32_t screen;
    std::int32_t count;
    std::array<std::uint32_t, kMostExtremes> registers;
};

constexpr ExtremesRow Extremes(std::int32_t screen, std::initializer_list<std::uint32_t> registers) {
    ExtremesRow row{screen, static_cast<std::int32_t>(registers.size()), {}};
    std::copy(registers.begin(), registers.end(), row.registers.begin());
    return row;
}

// clang-format off
inline constexpr auto kExtremesRows = std::to_array<ExtremesRow>({
    Extremes(15, {3685, 3697, 3703}),
    Extremes(16, {3686, 3698, 3704}),
    Extremes(20, {3706, 3712, 3715}),
    Extremes(21, {3707, 3713, 3716}),
    Extremes(27, {289, 317, 331}),
    Extremes(28, {290, 318, 332}),
    Extremes(31, {1346}),
    Extremes(30, {1345}),
    Extremes(39, {1877, 1712, 1547}),
    Extremes(38, {1876, 1711, 1546}),
    Extremes(43, {2049, 2040}),
    Extremes(42, {2050, 2041}),
    Extremes(53, {1807, 1646, 1477}),
    Extremes(54, {1808, 1809}),
    Extremes(55, {1810, 1811}),
    Extremes(56, {1816, 1655, 1486}),
    Extremes(57, {1817, 1818}),
    Extremes(58, {1819, 1820}),
});
// clang-format on
static_assert(kExtremesRows.size() == 18);
static_assert(AllDiffer(kExtremesRows, &ExtremesRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kExtremesRows, IsDataScreenId, &ExtremesRow::screen), "a row is for no data screen");
static_assert(std::ranges::all_of(kExtremesRows, [](const ExtremesRow& row) { return row.count >= 1; }));

inline constexpr std::size_t kMostBars = 4;

/// The registers that a bar spans and marks.
struct BarRegisters {
    std::uint32_t minimum;
    std::uint32_t maximum;
    std::uint32_t present;

    friend constexpr bool operator==(const BarRegisters&, const BarRegisters&) = default;
};

/// Which registers the bars read: as they stand, or the voltage that suits the wiring.
enum class BarUpdate : std::uint8_t { Standard, ByWiring };

/// The bars of a screen, from the top down.
struct BarScreenRow {
    std::int32_t screen;
    std::size_t count;
    BarUpdate update;
    std::array<BarRegisters, kMostBars> bars;
};

constexpr BarScreenRow Bars(std::int32_t screen, std::initializer_list<BarRegisters> bars,
                            BarUpdate update = BarUpdate::Standard) {
    BarScreenRow row{screen, bars.size(), update, {}};
    std::copy(bars.begin(), bars.end(), row.bars.begin());
    return row;
}

inline constexpr BarRegisters kLineVoltageBar = {3691, 3692, 3687};
inline constexpr BarRegisters kNeutralVoltageBar = {3709, 3710, 3708};

// clang-format off
inline constexpr auto kBarScreenRows = std::to_array<BarScreenRow>({
    Bars(5,  {kLineVoltageBar}, BarUpdate::ByWiring),
    Bars(6,  {{303, 304, 298}}),
    Bars(17, {{3685, 3686, 3681}, {3697, 3698, 3693}, {3703, 3704, 3699}}),
    Bars(18, {kLineVoltageBar}),
    Bars(22, {{3706, 3707, 3705}, {3712, 3713, 3711}, {3715, 3716, 3714}}),
    Bars(23, {kNeutralVoltageBar}),
    Bars(24, {{2679, 2680, 2675}}),
    Bars(29, {{289, 290, 284}, {317, 318, 312}, {331, 332, 326}}),
    Bars(32, {{1345, 1346, 273}}),
    Bars(33, {{303, 304, 298}}),
    Bars(40, {{1876, 1877, 1872}, {1711, 1712, 1707}, {1546, 1547, 1542}}),
    Bars(45, {{208, 209, 204}}),
});
// clang-format on
static_assert(kBarScreenRows.size() == 12);
static_assert(AllDiffer(kBarScreenRows, &BarScreenRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kBarScreenRows, IsDataScreenId, &BarScreenRow::screen),
              "a row is for no data screen");
static_assert(std::ranges::all_of(kBarScreenRows, [](const BarScreenRow& row) { return row.count >= 1; }));
static_assert(std::ranges::all_of(kBarScreenRows,
                                  [](const BarScreenRow& row) {
                                      return row.update == BarUpdate::Standard ||
                                             (row.count == 1 && row.bars[0] == kLineVoltageBar);
                                  }),
              "only a single bar of the voltage follows the wiring");
