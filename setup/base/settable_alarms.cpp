#include "setup/base/settable_alarms.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "rda/meter_operations.h"
#include "setup/base/setup_lists.h"

std::span<SettableAlarmEntry> ReadSettableAlarms(AlarmListUse use) {
    static std::array<SettableAlarmEntry, kMaxSettableAlarms> buffer;
    std::uint32_t count = 0;
    if (ALARMSINTERFACE_getSettableAlarmsCount(count) != 0) return {};
    if (count > buffer.size()) {
        std::printf("ERROR: Alarms buffer is too small!\n");
        count = buffer.size();
    }
    const std::span entries(buffer.data(), count);
    if (ALARMSINTERFACE_getSettableAlarms(0, static_cast<std::uint32_t>(use), entries) != 0) return {};
    const auto listed =
        std::remove_if(entries.begin(), entries.end(), [](const auto& entry) { return entry.kind.Get() == 0; });
    return {entries.begin(), listed};
}
