#include "setup/edit/signed_time.h"

#include <charconv>
#include <cinttypes>
#include <cstdio>

namespace {
constexpr std::int32_t kSecondsPerMinute = 60;
constexpr std::int32_t kMinutesPerHour = 60;
}  // namespace

std::optional<std::int32_t> SecondsIn(std::string_view number) {
    if (number.starts_with('+')) number.remove_prefix(1);
    std::int32_t seconds = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), seconds);
    if (error != std::errc{} || end != number.data() + number.size()) return std::nullopt;
    return seconds;
}

TimeText TimeOf(std::int32_t seconds) {
    const std::int64_t span = seconds < 0 ? -std::int64_t{seconds} : seconds;
    const std::int64_t minutes = span / kSecondsPerMinute;
    TimeText text{};
    std::snprintf(text.data(), text.size(), "%s%02d:%02d:%02d", seconds < 0 ? "-" : "",
                  static_cast<int>(minutes / kMinutesPerHour), static_cast<int>(minutes % kMinutesPerHour),
                  static_cast<int>(span % kSecondsPerMinute));
    return text;
}

std::int32_t SecondsOf(std::string_view time) {
    std::int32_t total = 0;
    std::int32_t part = 0;
    for (const char character : time) {
        if (character >= '0' && character <= '9') part = part * 10 + (character - '0');
        if (character != ':') continue;
        total = (total + part) * kMinutesPerHour;
        part = 0;
    }
    total += part;
    return time.starts_with('-') ? -total : total;
}
