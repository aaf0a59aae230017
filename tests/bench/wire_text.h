#pragma once

#include <algorithm>
#include <array>
#include <string_view>

/// Writes a text into a field of a record, unterminated when it fills it.
template <std::size_t size>
void Write(std::array<char, size>& field, std::string_view text) {
    field.fill('\0');
    std::copy_n(text.begin(), std::min(text.size(), size), field.begin());
}
