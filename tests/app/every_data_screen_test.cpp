#include <cstring>

#include "app/application.h"
#include "rda/records.h"
#include "screens/base/screen_info_table.h"
#include "tests/bench/panel_bench.h"

namespace {

constexpr std::string_view kDataOperations[] = {
    "PDMINTERFACE_getRegisterValue",
    "ALARMSINTERFACE_getActiveAlarmStats",
    "ALARMSINTERFACE_getActiveAlarms",
    "ALARMSINTERFACE_getHistoricalAlarmStats",
    "ALARMSINTERFACE_getHistoricalAlarms",
    "PQINTERFACE_getPhasorData",
    "PQINTERFACE_getHarmonicData",
    "PQINTERFACE_getMinMaxBarData",
    "CUSTOMSCREENINTERFACE_getNormalModeScreenData",
    "CUSTOMSCREENINTERFACE_getCustomModeScreenData",
    "CUSTOMSCREENINTERFACE_getTestModeScreenData",
    "IOI_getDigitalInputCount",
    "IOI_getDigitalOutputCount",
    "IOI_getAnalogInputCount",
    "IOI_getAnalogOutputCount",
    "NAMEPLATEIF_getNameplateData",
    "EVLIF_getEventLogEntryCount",
    "EVLIF_getEventLogData",
};

/// Each of the 98 data screens, entered while the meter is in one state for all of them.
class EveryDataScreen : public PanelBench {
protected:
    EveryDataScreen() { BuildApplication(Manager()); }

    void LooksAsItShould(const std::string& state) {
        for (const ScreenInfoRow& row : kScreenInfoRows) {
            Show(row.screen);
            EXPECT_TRUE(PanelShows("every/" + state + "_" + std::to_string(row.screen)));
        }
    }
};

TEST_F(EveryDataScreen, ShowsTheRunningMeter) { LooksAsItShould("normal"); }

TEST_F(EveryDataScreen, ShowsAMeterThatDoesNotAnswer) {
    meter().FallSilent();
    LooksAsItShould("failed");
}

TEST_F(EveryDataScreen, ShowsAMeterThatHasNothing) {
    for (const std::string_view operation : kDataOperations) meter().AnswerBytes(operation, {});
    LooksAsItShould("empty");
}

/// From now on the texts in the records of an operation's replies fill their fields, without a terminator.
template <typename Record>
void Widen(std::string_view operation, void (*widen)(Record&)) {
    ScriptedMeter& meter = ScriptedMeter::Instance();
    meter.AnswerBy(operation, [operation, widen, &meter](auto payload, auto response) {
        if (!meter.Model().Answer(operation, payload, response)) return false;
        for (std::size_t at = 0; at + sizeof(Record) <= response.size(); at += sizeof(Record)) {
            Record record;
            std::memcpy(&record, &response[at], sizeof record);
            widen(record);
            std::memcpy(&response[at], &record, sizeof record);
        }
        return true;
    });
}

template <typename... Fields>
void Fill(char letter, Fields&... fields) {
    (fields.fill(letter), ...);
}

void WidenRegister(RegisterValue& record) {
    Fill('W', record.label, record.unit);
    Fill('8', record.value, record.date, record.time);
}

TEST_F(EveryDataScreen, ShowsTextsThatFillTheirFields) {
    constexpr auto widenAlarm = [](AlarmEntry& alarm) {
        Fill('W', alarm.name, alarm.qualifier);
        Fill('8', alarm.startDate, alarm.startTime, alarm.endDate, alarm.endTime, alarm.value);
    };
    constexpr auto widenPoint = [](IoPointEntry& point) {
        Fill('W', point.label);
        Fill('8', point.state, point.secondState);
    };
    constexpr auto widenPage = [](CustomScreenData& page) {
        Fill('W', page.title);
        for (RegisterValue& parameter : page.parameters) WidenRegister(parameter);
    };
    meter().Model().Play(*meter::FindScenario("500-alarms"));
    meter().Model().Advance(1000);
    Widen<RegisterValue>("PDMINTERFACE_getRegisterValue", WidenRegister);
    Widen<AlarmEntry>("ALARMSINTERFACE_getActiveAlarms", widenAlarm);
    Widen<AlarmEntry>("ALARMSINTERFACE_getHistoricalAlarms", widenAlarm);
    Widen<PhasorEntry>("PQINTERFACE_getPhasorData", [](PhasorEntry& phasor) {
        Fill('W', phasor.magnitudeLabel, phasor.angleLabel);
        Fill('8', phasor.magnitudeText, phasor.angleText);
    });
    Widen<HarmonicData>("PQINTERFACE_getHarmonicData", [](HarmonicData& spectrum) {
        for (auto& text : spectrum.texts) Fill('8', text);
    });
    Widen<MinMaxBarData>("PQINTERFACE_getMinMaxBarData", [](MinMaxBarData& bar) {
        Fill('8', bar.minimumText, bar.maximumText, bar.presentText);
        Fill('W', bar.label);
    });
    for (const std::string_view pages :
         {"CUSTOMSCREENINTERFACE_getNormalModeScreenData", "CUSTOMSCREENINTERFACE_getCustomModeScreenData",
          "CUSTOMSCREENINTERFACE_getTestModeScreenData"}) {
        Widen<CustomScreenData>(pages, widenPage);
    }
    for (const std::string_view kind :
         {"IOI_getDigitalInputData", "IOI_getDigitalOutputData", "IOI_getAnalogInputData", "IOI_getAnalogOutputData"}) {
        Widen<IoPointEntry>(kind, widenPoint);
    }
    Widen<NameplateData>("NAMEPLATEIF_getNameplateData", [](NameplateData& plate) {
        for (auto& field : plate.fields) Fill('W', field);
    });
    Widen<EventLogEntry>("EVLIF_getEventLogData", [](EventLogEntry& event) {
        Fill('8', event.date, event.time);
        Fill('W', event.source, event.description);
    });
    LooksAsItShould("widest");
}

}  // namespace
