#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>

#include "navigation/table_proofs.h"
#include "screens/base/screen_info_table.h"

inline constexpr int kMostParameters = 6;

/// Which registers a parameter screen reads: all as they stand, or with the voltage that suits the wiring.
enum class ParameterUpdate : std::uint8_t { Standard, ByWiring };

/// The registers of a parameter screen, from the top row down.
struct ParamScreenRow {
    std::int32_t screen;
    std::int32_t count;
    ParameterUpdate update;
    std::array<std::uint32_t, kMostParameters> registers;
};

constexpr ParamScreenRow Rows(std::int32_t screen, std::initializer_list<std::uint32_t> registers,
                              ParameterUpdate update = ParameterUpdate::Standard) {
    ParamScreenRow row{screen, static_cast<std::int32_t>(registers.size()), update, {}};
    std::copy(registers.begin(), registers.end(), row.registers.begin());
    return row;
}

// clang-format off
inline constexpr auto kParamScreenRows = std::to_array<ParamScreenRow>({
    Rows(4, {3708, 298, 1890, 2055}, ParameterUpdate::ByWiring),
    Rows(11, {3705, 3711, 3714}),
    Rows(12, {3681, 3693, 3699}),
    Rows(13, {2675}),
    Rows(14, {3687}),
    Rows(19, {3708}),
    Rows(25, {284, 312, 326, 273}),
    Rows(26, {298}),
    Rows(34, {1872, 1707, 1542}),
    Rows(35, {1749, 1584, 1419}),
    Rows(36, {1750, 1585, 1420}),
    Rows(37, {1751, 1586, 1421}),
    Rows(41, {2055, 2052, 2053, 2054}),
    Rows(44, {204}),
    Rows(49, {1880, 1882}),
    Rows(50, {1884, 1886}),
    Rows(59, {3008, 3338, 3668}),
    Rows(60, {640, 922, 1204}),
    Rows(71, {200, 2368, 2367, 2366}),
    Rows(72, {2658}),
    Rows(73, {2374, 2373, 2372}),
    Rows(74, {2393, 2392, 2391}),
    Rows(75, {2412, 2411, 2410}),
    Rows(76, {1942}),
    Rows(77, {2383, 2384, 2385}),
    Rows(78, {2402, 2403, 2404}),
    Rows(79, {2421, 2422, 2423}),
    Rows(80, {2378, 2379}),
    Rows(81, {2397, 2398}),
    Rows(82, {2416, 2417}),
    Rows(83, {210, 212, 214, 211}),
    Rows(84, {2989, 2991, 2993, 2990}),
    Rows(85, {3319, 3321, 3323, 3320}),
    Rows(86, {3649, 3651, 3653, 3650}),
    Rows(87, {3719, 3721, 3720}),
    Rows(88, {2970, 2972, 2974, 2971}),
    Rows(89, {3300, 3302, 3304, 3301}),
    Rows(90, {3630, 3632, 3634, 3631}),
    Rows(91, {2714, 2716, 2715}),
    Rows(92, {3044, 3046, 3045}),
    Rows(93, {3374, 3376, 3375}),
});
// clang-format on

static_assert(kParamScreenRows.size() == 41);
static_assert(AllDiffer(kParamScreenRows, &ParamScreenRow::screen), "a screen stands in two rows");
static_assert(std::ranges::all_of(kParamScreenRows, IsDataScreenId, &ParamScreenRow::screen),
              "a row is for no data screen");
static_assert(std::ranges::all_of(kParamScreenRows, [](const ParamScreenRow& row) { return row.count >= 1; }));
