#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <string_view>

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

/// Texts one after the other, cut to the room that there is.
template <std::size_t size>
std::array<char16_t, size> Joined(std::initializer_list<std::u16string_view> parts) {
    std::array<char16_t, size> whole{};
    std::size_t length = 0;
    for (const std::u16string_view part : parts) {
        const std::size_t fits = std::min(part.size(), size - 1 - length);
        std::copy_n(part.begin(), fits, whole.begin() + static_cast<std::ptrdiff_t>(length));
        length += fits;
    }
    return whole;
}
