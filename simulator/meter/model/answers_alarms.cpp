#include "rda/records.h"
#include "simulator/meter/model/answers.h"

namespace meter {
namespace {

using Occurrences = std::vector<const Occurrence*>;

AlarmEntry EntryOf(const Meter& meter, const Occurrence& occurrence) {
    const AlarmDefinition& definition = AlarmDefinitions()[occurrence.definition];
    const Clock& clock = meter.GetClock();
    const ValueText value = Format(occurrence.value, definition.unit, meter.GetSettings().NumberSettings());
    AlarmEntry entry{};
    PutText(entry.name, definition.name);
    PutText(entry.qualifier, PriorityName(definition.priority));
    PutText(entry.startDate, clock.DateText(occurrence.start));
    PutText(entry.startTime, clock.PreciseTimeText(occurrence.start));
    PutText(entry.value, value.unit.empty() ? value.value : value.value + " " + std::string(value.unit));
    entry.priority.Set(definition.priority);
    entry.startSeconds.Set(static_cast<std::uint64_t>(occurrence.start / kSecond));
    if (!occurrence.ended) {
        entry.endSeconds.Set(static_cast<std::uint64_t>(meter.Now() / kSecond));
        return entry;
    }
    PutText(entry.endDate, clock.DateText(occurrence.end));
    PutText(entry.endTime, clock.TimeText(occurrence.end));
    entry.hasEnded.Set(1);
    entry.endSeconds.Set(static_cast<std::uint64_t>(occurrence.end / kSecond));
    return entry;
}

void PutStats(std::span<std::byte> reply, const Occurrences& list, bool Occurrence::*acknowledged) {
    const auto waiting = std::ranges::count_if(list, [&](const Occurrence* one) { return !(one->*acknowledged); });
    AlarmStats stats{};
    stats.count.Set(static_cast<std::uint32_t>(list.size()));
    stats.unacknowledged.Set(static_cast<std::uint32_t>(waiting));
    Put(reply, stats);
}

/// Entries `first` on; what lies beyond the list stays zero.
void PutAlarms(const Meter& meter, const Occurrences& list, const Request& request, std::span<std::byte> reply) {
    const std::size_t first = request.words[0];
    for (std::size_t i = 0; i < request.words[1] && first + i < list.size(); ++i)
        Put(reply, EntryOf(meter, *list[first + i]), i);
}

}  // namespace

void GetActiveAlarmStats(Meter& meter, const Request&, std::span<std::byte> reply) {
    PutStats(reply, meter.GetAlarms().Active(), &Occurrence::acknowledged);
}

void GetActiveAlarms(Meter& meter, const Request& request, std::span<std::byte> reply) {
    PutAlarms(meter, meter.GetAlarms().Active(), request, reply);
}

void GetHistoricalAlarmStats(Meter& meter, const Request&, std::span<std::byte> reply) {
    PutStats(reply, meter.GetAlarms().History(), &Occurrence::historyAcknowledged);
}

void GetHistoricalAlarms(Meter& meter, const Request& request, std::span<std::byte> reply) {
    PutAlarms(meter, meter.GetAlarms().History(), request, reply);
}

void GetSettableAlarms(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const auto definitions = AlarmDefinitions();
    const std::size_t first = request.words[0];
    for (std::size_t i = 0; i < request.words[1] && first + i < definitions.size(); ++i) {
        const AlarmDefinition& definition = definitions[first + i];
        SettableAlarmEntry entry{};
        entry.registerId.Set(definition.registerId);
        entry.kind.Set(definition.priority);
        entry.enabled.Set(meter.GetAlarms().IsEnabled(first + i) ? 1 : 0);
        entry.icon.Set(request.words[2]);
        PutText(entry.name, definition.name);
        Put(reply, entry, i);
    }
}

void GetEventLogData(Meter& meter, const Request& request, std::span<std::byte> reply) {
    const EventLog& log = meter.GetEventLog();
    const Clock& clock = meter.GetClock();
    const std::size_t first = request.words[0];
    for (std::size_t i = 0; i < request.words[1] && first + i < log.Count(); ++i) {
        const Event& event = log.At(first + i);
        EventLogEntry entry{};
        entry.unused.Set(event.number);
        PutText(entry.date, clock.DateText(event.when));
        PutText(entry.time, clock.TimeText(event.when));
        PutText(entry.source, event.source);
        PutText(entry.description, event.description);
        Put(reply, entry, i);
    }
}

}  // namespace meter
