#pragma once

#include <array>
#include <cstddef>

#include "rda/wire.h"

/// How long an alarm list is.
struct AlarmStats {
    WireU32 count;
    WireU32 unacknowledged;
};
static_assert(sizeof(AlarmStats) == 8 && kIsWireRecord<AlarmStats>);

/// One alarm, active or historical.
struct AlarmEntry {
    std::array<char, 30> name;
    std::array<char, 20> qualifier;
    std::array<char, 11> startDate;
    std::array<char, 35> startTime;
    std::array<char, 11> endDate;
    std::array<char, 12> endTime;
    std::array<char, 45> value;
    WireU8 hasEnded;  // non-zero: the end fields count
    WireU8 unused;
    WireU16 priority;      // 0 none, 1 to 3
    WireU64 startSeconds;  // the low 32 bits count
    WireU64 endSeconds;
};
static_assert(sizeof(AlarmEntry) == 184 && kIsWireRecord<AlarmEntry>);
static_assert(offsetof(AlarmEntry, qualifier) == 30 && offsetof(AlarmEntry, startDate) == 50);
static_assert(offsetof(AlarmEntry, startTime) == 61 && offsetof(AlarmEntry, endDate) == 96);
static_assert(offsetof(AlarmEntry, endTime) == 107 && offsetof(AlarmEntry, value) == 119);
static_assert(offsetof(AlarmEntry, hasEnded) == 164 && offsetof(AlarmEntry, priority) == 166);
static_assert(offsetof(AlarmEntry, startSeconds) == 168 && offsetof(AlarmEntry, endSeconds) == 176);

/// An alarm that can be switched on and off.
struct SettableAlarmEntry {
    WireI32 registerId;  // the register that switches it
    WireU16 kind;        // 0: not listed; 1 to 3 choose the icon
    WireU16 unused;
    WireU32 enabled;  // 1: on
    WireU32 icon;     // non-zero: the other check mark
    std::array<char, 32> name;
};
static_assert(sizeof(SettableAlarmEntry) == 48 && kIsWireRecord<SettableAlarmEntry>);
static_assert(offsetof(SettableAlarmEntry, kind) == 4 && offsetof(SettableAlarmEntry, enabled) == 8);
static_assert(offsetof(SettableAlarmEntry, icon) == 12 && offsetof(SettableAlarmEntry, name) == 16);
