#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "simulator/meter/model/network.h"
#include "simulator/meter/model/statistics.h"

/// Local time, and how the meter writes it.
namespace meter {

enum class DateFormat : std::uint8_t { YearFirst, Dotted, DayFirst, MonthFirst };  // items of the date format register
enum class TimeFormat : std::uint8_t { Hours24, Hours12 };

struct CivilTime {
    int year, month, day;  // month and day from 1
    int hour, minute, second, millisecond;
    int weekday;  // 0 is Sunday
};

inline constexpr Instant kSecond = 1000;
inline constexpr Instant kMinute = 60 * kSecond;
inline constexpr Instant kDay = Instant{24} * 60 * kMinute;

inline bool IsWeekend(const CivilTime& time) { return time.weekday == 0 || time.weekday == 6; }

struct Clock {
    std::int32_t zoneSeconds = 3600;
    std::int32_t daylightSeconds = 3600;
    DateFormat dateFormat = DateFormat::YearFirst;
    TimeFormat timeFormat = TimeFormat::Hours24;

    CivilTime LocalTime(Instant now) const;
    DayTime TimeOfDay(Instant now) const;
    std::string DateText(Instant now) const;         // 10 characters
    std::string TimeText(Instant now) const;         // at most 11 characters
    std::string PreciseTimeText(Instant now) const;  // with milliseconds
};

}  // namespace meter
