#pragma once

#include <cstdint>

/// The columns that a text may take, both inclusive.
struct ColumnSpan {
    std::int16_t left;
    std::int16_t right;
};
