#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

/// True when no two rows of a table have the same value in a field.
template <typename Table, typename Field>
constexpr bool AllDiffer(const Table& table, Field field) {
    for (auto row = std::begin(table); row != std::end(table); ++row) {
        const auto& value = std::invoke(field, *row);
        if (std::any_of(std::next(row), std::end(table),
                        [&](const auto& other) { return std::invoke(field, other) == value; })) {
            return false;
        }
    }
    return true;
}

/// True when a field of each row, a number or an enumerator, counts the rows from 0.
template <typename Table, typename Field>
constexpr bool StandInOrder(const Table& table, Field field) {
    std::size_t place = 0;
    for (const auto& row : table) {
        if (static_cast<std::size_t>(std::invoke(field, row)) != place++) return false;
    }
    return true;
}

/// The row of a table whose field has that value, or null.
template <typename Table, typename Field, typename Value>
constexpr const typename Table::value_type* FindRow(const Table& table, Field field, const Value& value) {
    const auto row = std::ranges::find(table, value, field);
    return row != table.end() ? &*row : nullptr;
}
