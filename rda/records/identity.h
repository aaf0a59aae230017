#pragma once

#include <array>
#include <cstddef>

#include "rda/wire.h"

inline constexpr std::size_t kNameplateFields = 23;

/// The texts of the meter's nameplate, by field number.
struct NameplateData {
    std::array<std::array<char, 40>, kNameplateFields> fields;
};
static_assert(sizeof(NameplateData) == 920 && kIsWireRecord<NameplateData>);

/// What the front panel may do.
struct AccessRights {
    WireU32 unused;
    WireU32 frontPanel;  // 0: no setup changes from the front panel
};
static_assert(sizeof(AccessRights) == 8 && kIsWireRecord<AccessRights>);

/// One input or output point.
struct IoPointEntry {
    std::array<char, 40> label;
    std::array<char, 45> state;
    std::array<char, 45> secondState;  // digital inputs only
};
static_assert(sizeof(IoPointEntry) == 130 && kIsWireRecord<IoPointEntry>);
static_assert(offsetof(IoPointEntry, state) == 40 && offsetof(IoPointEntry, secondState) == 85);

/// One event of the log; entry 0 of the log is the newest.
struct EventLogEntry {
    WireU32 unused;
    std::array<char, 11> date;
    std::array<char, 12> time;
    std::array<char, 50> source;  // the module that logged it
    std::array<char, 51> description;
};
static_assert(sizeof(EventLogEntry) == 128 && kIsWireRecord<EventLogEntry>);
static_assert(offsetof(EventLogEntry, date) == 4 && offsetof(EventLogEntry, time) == 15);
static_assert(offsetof(EventLogEntry, source) == 27 && offsetof(EventLogEntry, description) == 77);
