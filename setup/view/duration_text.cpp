#include "setup/view/duration_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kSecondsOfMinute = 60;
constexpr int kSecondsOfHour = 3600;

/// What the meter sends beyond 32 bits is no number of seconds.
std::int64_t NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::int32_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : 0;
}

}  // namespace

DurationText::DurationText(std::string_view seconds) {
    const std::int64_t number = NumberIn(seconds);
    const std::int64_t size = std::abs(number);
    const auto hours = static_cast<int>(number / kSecondsOfHour);
    const auto minutes = static_cast<int>(size % kSecondsOfHour / kSecondsOfMinute);
    const auto rest = static_cast<int>(size % kSecondsOfMinute);
    std::snprintf(m_text.data(), m_text.size(), "%.2d:%.2d:%.2d", hours, minutes, rest);
}
