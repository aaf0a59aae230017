#include "simulator/meter/model/clock.h"

#include <chrono>
#include <cstdio>

namespace meter {
namespace {

/// Summer time lasts from the last Sunday of March to the last Sunday of October, changing at 01:00 universal time.
bool IsSummer(std::chrono::sys_time<std::chrono::milliseconds> universal) {
    using namespace std::chrono;
    const year_month_day date{floor<days>(universal)};
    const sys_days start{date.year() / March / Sunday[last]};
    const sys_days end{date.year() / October / Sunday[last]};
    return universal >= start + hours(1) && universal < end + hours(1);
}

template <typename... Values>
std::string Print(const char* format, Values... values) {
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), format, values...);
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

CivilTime Clock::LocalTime(Instant now) const {
    using namespace std::chrono;
    const sys_time<milliseconds> universal{milliseconds(now)};
    const auto local = universal + seconds(zoneSeconds) + seconds(IsSummer(universal) ? daylightSeconds : 0);
    const auto midnight = floor<days>(local);
    const year_month_day date{midnight};
    const hh_mm_ss<milliseconds> time{duration_cast<milliseconds>(local - midnight)};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count()),
            static_cast<int>(time.subseconds().count()),
            static_cast<int>(weekday{midnight}.c_encoding())};
}

DayTime Clock::TimeOfDay(Instant now) const {
    const CivilTime time = LocalTime(now);
    return {time.hour + time.minute / 60.0 + time.second / 3600.0, IsWeekend(time)};
}

std::string Clock::DateText(Instant now) const {
    const CivilTime time = LocalTime(now);
    switch (dateFormat) {
        case DateFormat::YearFirst: return Print("%04d-%02d-%02d", time.year, time.month, time.day);
        case DateFormat::Dotted: return Print("%02d.%02d.%04d", time.day, time.month, time.year);
        case DateFormat::DayFirst: return Print("%02d/%02d/%04d", time.day, time.month, time.year);
        case DateFormat::MonthFirst: return Print("%02d/%02d/%04d", time.month, time.day, time.year);
    }
    return {};
}

std::string Clock::TimeText(Instant now) const {
    const CivilTime time = LocalTime(now);
    if (timeFormat == TimeFormat::Hours24) return Print("%02d:%02d:%02d", time.hour, time.minute, time.second);
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return Print("%02d:%02d:%02d %s", hour, time.minute, time.second, time.hour < 12 ? "AM" : "PM");
}

std::string Clock::PreciseTimeText(Instant now) const {
    const CivilTime time = LocalTime(now);
    return Print("%02d:%02d:%02d.%03d", time.hour, time.minute, time.second, time.millisecond);
}

}  // namespace meter
