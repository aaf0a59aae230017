#pragma once

#include <array>
#include <cstdint>

#include "screens/base/column_span.h"
#include "screens/parameters/parameter_tables.h"

/// How a page of one to six quantities is laid out: where label, value and unit of its rows stand, and on which lines.
/// Font numbers name resource fonts.
struct RowLayout {
    int rows;
    ColumnSpan label;
    ColumnSpan value;
    ColumnSpan unit;
    std::array<std::int16_t, kMostParameters> labelLines;
    std::array<std::int16_t, kMostParameters> valueLines;  // of the value and its unit
    std::uint32_t labelFont;                               // of the label and the unit
    std::uint32_t valueFont;
};

using RowLayouts = std::array<RowLayout, kMostParameters>;

// clang-format off
/// Pages with a fixed set of registers, by number of rows.
inline constexpr RowLayouts kParameterLayouts = {{
    {1, {10, 310}, {10, 266},  {267, 315}, {99},                           {171},                          39, 46},
    {2, {10, 310}, {10, 253},  {254, 315}, {76, 156},                      {126, 205},                     38, 44},
    {3, {10, 139}, {140, 260}, {261, 315}, {94, 150, 205},                 {94, 150, 205},                 37, 43},
    {4, {10, 139}, {140, 260}, {261, 315}, {85, 126, 166, 208},            {85, 126, 166, 208},            36, 42},
    {5, {10, 135}, {136, 264}, {265, 315}, {81, 113, 143, 175, 205},       {81, 113, 143, 175, 205},       35, 40},
    {6, {10, 139}, {140, 260}, {261, 315}, {80, 104, 129, 154, 180, 205},  {80, 104, 129, 154, 180, 205},  34, 38},
}};

/// Pages that the meter composes.
inline constexpr RowLayouts kCustomLayouts = {{
    {1, {15, 305}, {15, 265},  {266, 305}, {99},                           {170},                          39, 46},
    {2, {15, 305}, {15, 246},  {247, 305}, {77, 157},                      {126, 206},                     38, 44},
    {3, {15, 140}, {141, 260}, {261, 305}, {95, 150, 205},                 {95, 150, 205},                 37, 43},
    {4, {15, 140}, {141, 260}, {261, 305}, {85, 126, 167, 208},            {85, 126, 167, 208},            36, 42},
    {5, {15, 135}, {136, 265}, {266, 305}, {82, 113, 144, 175, 206},       {82, 113, 144, 175, 206},       35, 40},
    {6, {15, 140}, {141, 260}, {261, 305}, {80, 106, 132, 158, 184, 210},  {80, 106, 132, 158, 184, 210},  34, 38},
}};
// clang-format on

constexpr bool StandByRows(const RowLayouts& layouts) {
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        if (layouts[i].rows != static_cast<int>(i) + 1) return false;
    }
    return true;
}
static_assert(StandByRows(kParameterLayouts) && StandByRows(kCustomLayouts));

/// The layout of a page of `rows` quantities, or null when no page has that many.
constexpr const RowLayout* LayoutOf(const RowLayouts& layouts, std::uint32_t rows) {
    return rows >= 1 && rows <= layouts.size() ? &layouts[rows - 1] : nullptr;
}
