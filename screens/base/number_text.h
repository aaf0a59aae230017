#pragma once

#include <array>
#include <charconv>

#include "localization/localization.h"

/// A whole number in decimal, cut to the room that there is.
template <std::size_t size>
std::array<char16_t, size> NumberText(int number) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::array<char16_t, size> text{};
    WidenInto({digits.data(), end}, text);
    return text;
}
