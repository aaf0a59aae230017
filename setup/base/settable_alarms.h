#pragma once

#include <span>

#include "rda/records/alarm.h"

/// For which purpose the meter is asked.
enum class AlarmListUse : std::uint32_t { View = 0, Edit = 1 };

/// The alarms that can be switched on and off, as the meter lists them now: at most 150, without those that are not to
/// be listed; none when the meter does not answer. They stand in one buffer of the process, until the next reading.
/// Toolkit task only.
std::span<SettableAlarmEntry> ReadSettableAlarms(AlarmListUse use);
