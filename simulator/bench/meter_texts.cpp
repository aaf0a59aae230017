#include "simulator/bench/meter_texts.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <string>

#include "rda/records.h"
#include "simulator/bench/scripted_meter.h"

namespace {

/// How the three kinds of texts in a record are changed.
struct Widening {
    void (*label)(std::span<char>);
    void (*value)(std::span<char>);
    void (*moment)(std::span<char>);
};
Widening widening{};

template <typename... Fields>
void Change(void (*change)(std::span<char>), Fields&... fields) {
    (change(fields), ...);
}

void Widen(RegisterValue& record) {
    Change(widening.label, record.label, record.unit);
    Change(widening.value, record.value);
    Change(widening.moment, record.date, record.time);
}
void Widen(AlarmEntry& alarm) {
    Change(widening.label, alarm.name, alarm.qualifier);
    Change(widening.moment, alarm.startDate, alarm.startTime, alarm.endDate, alarm.endTime);
    Change(widening.value, alarm.value);
}
void Widen(IoPointEntry& point) {
    Change(widening.label, point.label);
    Change(widening.value, point.state, point.secondState);
}
void Widen(CustomScreenData& page) {
    Change(widening.label, page.title);
    for (RegisterValue& parameter : page.parameters) Widen(parameter);
}
void Widen(PhasorEntry& phasor) {
    Change(widening.label, phasor.magnitudeLabel, phasor.angleLabel);
    Change(widening.value, phasor.magnitudeText);
    Change(widening.moment, phasor.angleText);
}
void Widen(HarmonicData& spectrum) {
    for (auto& text : spectrum.texts) Change(widening.value, text);
}
void Widen(MinMaxBarData& bar) {
    Change(widening.value, bar.minimumText, bar.maximumText, bar.presentText);
    Change(widening.label, bar.label);
}
void Widen(NameplateData& plate) {
    for (auto& field : plate.fields) Change(widening.label, field);
}
void Widen(EventLogEntry& event) {
    Change(widening.moment, event.date, event.time);
    Change(widening.label, event.source, event.description);
}

/// From now on an operation's replies hold widened records.
template <typename Record>
void WidenReplies(std::string_view operation) {
    ScriptedMeter& meter = ScriptedMeter::Instance();
    meter.AnswerBy(operation, [operation, &meter](auto payload, auto response) {
        if (!meter.Model().Answer(operation, payload, response)) return false;
        for (std::size_t at = 0; at + sizeof(Record) <= response.size(); at += sizeof(Record)) {
            Record record;
            std::memcpy(&record, &response[at], sizeof record);
            Widen(record);
            std::memcpy(&response[at], &record, sizeof record);
        }
        return true;
    });
}

/// What the data screens ask, and how the records of the replies are widened; null: they hold no texts.
struct DataOperation {
    std::string_view name;
    void (*widen)(std::string_view operation);
};

constexpr DataOperation kDataOperations[] = {
    {"PDMINTERFACE_getRegisterValue", WidenReplies<RegisterValue>},
    {"ALARMSINTERFACE_getActiveAlarmStats", nullptr},
    {"ALARMSINTERFACE_getActiveAlarms", WidenReplies<AlarmEntry>},
    {"ALARMSINTERFACE_getHistoricalAlarmStats", nullptr},
    {"ALARMSINTERFACE_getHistoricalAlarms", WidenReplies<AlarmEntry>},
    {"PQINTERFACE_getPhasorData", WidenReplies<PhasorEntry>},
    {"PQINTERFACE_getHarmonicData", WidenReplies<HarmonicData>},
    {"PQINTERFACE_getMinMaxBarData", WidenReplies<MinMaxBarData>},
    {"CUSTOMSCREENINTERFACE_getNormalModeScreenData", WidenReplies<CustomScreenData>},
    {"CUSTOMSCREENINTERFACE_getCustomModeScreenData", WidenReplies<CustomScreenData>},
    {"CUSTOMSCREENINTERFACE_getTestModeScreenData", WidenReplies<CustomScreenData>},
    {"IOI_getDigitalInputCount", nullptr},
    {"IOI_getDigitalInputData", WidenReplies<IoPointEntry>},
    {"IOI_getDigitalOutputCount", nullptr},
    {"IOI_getDigitalOutputData", WidenReplies<IoPointEntry>},
    {"IOI_getAnalogInputCount", nullptr},
    {"IOI_getAnalogInputData", WidenReplies<IoPointEntry>},
    {"IOI_getAnalogOutputCount", nullptr},
    {"IOI_getAnalogOutputData", WidenReplies<IoPointEntry>},
    {"NAMEPLATEIF_getNameplateData", WidenReplies<NameplateData>},
    {"EVLIF_getEventLogEntryCount", nullptr},
    {"EVLIF_getEventLogData", WidenReplies<EventLogEntry>},
};

void WidenEveryReply(const Widening& by) {
    widening = by;
    for (const DataOperation& operation : kDataOperations) {
        if (operation.widen != nullptr) operation.widen(operation.name);
    }
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

void WidenDigits(std::span<char> field) { std::ranges::replace_if(field, IsDigit, '8'); }

/// "230.4 kW" becomes "-88888.8 kW": a number in the widest figures, six of them unless it is a share, an angle or a
/// frequency, and with a sign where the quantity may have one. A text that is no number stays.
void WidenNumber(std::span<char> field) {
    constexpr std::ptrdiff_t kFigures = 6;
    std::string text(field.data(), strnlen(field.data(), field.size()));
    if (text.empty() || !(IsDigit(text.front()) || text.front() == '-')) return;
    const bool hasSign = text.front() == '-' || text.ends_with("W") || text.ends_with("var");
    const bool isBounded = text.ends_with(" %") || text.ends_with("Hz");
    if (text.front() == '-') text.erase(0, 1);
    std::ranges::replace_if(text, IsDigit, '8');
    const auto figures = std::ranges::count(text.begin(), std::ranges::find(text, ' '), '8');
    if (figures < kFigures && !isBounded) text.insert(0, static_cast<std::size_t>(kFigures - figures), '8');
    if (hasSign) text.insert(0, 1, '-');
    std::ranges::fill(field, '\0');
    std::copy_n(text.begin(), std::min(text.size(), field.size()), field.begin());
}

}  // namespace

void EmptyEveryReply() {
    for (const DataOperation& operation : kDataOperations) ScriptedMeter::Instance().AnswerBytes(operation.name, {});
}

void FillEveryText() {
    constexpr auto letters = [](std::span<char> field) { std::ranges::fill(field, 'W'); };
    constexpr auto figures = [](std::span<char> field) { std::ranges::fill(field, '8'); };
    WidenEveryReply({.label = letters, .value = figures, .moment = figures});
}

void WidenEveryValue() {
    WidenEveryReply({.label = [](std::span<char>) {}, .value = WidenNumber, .moment = WidenDigits});
}
