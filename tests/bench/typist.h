#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The keys of the panel, 1 to 4, that type a word on the on-screen keyboard and enter it, from the space bar on.
///
/// @param word  of the signs of the keyboard's first row
inline std::vector<int> KeysThatType(std::string_view word) {
    constexpr std::string_view kRow = "1234567890-=";
    constexpr std::size_t kAboveSpace = 5;  // the place over the space bar, four rows up
    constexpr std::size_t kAboveBackspace = 9;
    constexpr int kUp = 1, kLeft = 2, kRight = 3, kSelect = 4;

    std::vector<int> keys(4, kUp);
    std::size_t place = kAboveSpace;
    const auto goTo = [&](std::size_t target) {
        const std::size_t steps = std::max(place, target) - std::min(place, target);
        keys.insert(keys.end(), steps, target > place ? kRight : kLeft);
        place = target;
    };
    for (const char sign : word) {
        goTo(kRow.find(sign));
        keys.push_back(kSelect);
    }
    goTo(kAboveBackspace);
    keys.insert(keys.end(), {kUp, kRight, kSelect});  // through Backspace to Enter
    return keys;
}

/// A word that nobody has written down before this call, for it comes from the clock.
inline std::string FreshWord(std::size_t length) {
    constexpr std::string_view kSigns = "1234567890-=";
    auto number = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    std::string word;
    while (word.size() < length) {
        number = number * 6'364'136'223'846'793'005U + 1'442'695'040'888'963'407U;
        word += kSigns[(number >> 33) % kSigns.size()];
    }
    return word;
}
