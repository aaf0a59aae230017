#include "rda/meter_operations.h"

#include "rda/meter_call.h"

namespace {

std::uint32_t CountOf(std::size_t size) { return static_cast<std::uint32_t>(size); }

}  // namespace

int DISPTASK_nop() { return MeterCall("DISPTASK_nop").Send(); }

int DISPTSK_setVekTemperature(float degrees) { return MeterCall("DISPTSK_setVekTemperature").With(degrees).Send(); }

int DISPTSK_setVekFwVersion(const char* text) { return MeterCall("DISPTSK_setVekFwVersion").With(text).Send(); }

int DISPTSK_setVekSerialNumber(const char* text) { return MeterCall("DISPTSK_setVekSerialNumber").With(text).Send(); }

int DISPTSK_getConnectionId(std::uint32_t& id) { return MeterCall("DISPTSK_getConnectionId").Into(id); }

int DISPLAYMODE_setAltMode(std::uint32_t value, std::uint32_t& result) {
    return MeterCall("DISPLAYMODE_setAltMode").With(value).Into(result);
}

int DISPLAYMODE_getAltMode(std::uint32_t& value) { return MeterCall("DISPLAYMODE_getAltMode").Into(value); }

int DISPLAYMODE_setTestMode(std::uint32_t value, std::uint32_t& result) {
    return MeterCall("DISPLAYMODE_setTestMode").With(value).Into(result);
}

int DISPLAYMODE_getTestMode(std::uint32_t& value) { return MeterCall("DISPLAYMODE_getTestMode").Into(value); }

int DISPLAYMODE_setFactoryTestScreenResult(std::uint32_t result) {
    return MeterCall("DISPLAYMODE_setFactoryTestScreenResult").With(result).Send();
}

int BACKLIGHTINTERFACE_getTimeout(std::uint32_t& seconds) {
    return MeterCall("BACKLIGHTINTERFACE_getTimeout").Into(seconds);
}

int DATETIMEINTERFACE_getLocalDateTimeStrings(DateTimeStrings& out) {
    return MeterCall("DATETIMEINTERFACE_getLocalDateTimeStrings").Into(out);
}

int PDMINTERFACE_getEnumerationValue(std::uint32_t registerId, EnumerationValue& out) {
    return MeterCall("PDMINTERFACE_getEnumerationValue").With(registerId).Into(out);
}

int PDMINTERFACE_getEnumerationData(std::uint32_t registerId, EnumerationData& out) {
    return MeterCall("PDMINTERFACE_getEnumerationData").With(registerId).Into(out);
}

int PDMINTERFACE_getRegisterValue(std::uint32_t registerId, RegisterValue& out) {
    return MeterCall("PDMINTERFACE_getRegisterValue").With(registerId).Into(out);
}

int PDMINTERFACE_setRegisterValue(std::uint32_t registerId, const char* valueText, RegisterWriteResult& out) {
    return MeterCall("PDMINTERFACE_setRegisterValue").With(registerId).With(valueText).Into(out);
}

int ALARMSINTERFACE_getGlobalAlarmStatus(std::uint32_t& status) {
    return MeterCall("ALARMSINTERFACE_getGlobalAlarmStatus").Into(status);
}

int ALARMSINTERFACE_ackActiveAlarms() { return MeterCall("ALARMSINTERFACE_ackActiveAlarms").Send(); }

int ALARMSINTERFACE_ackHistoricalAlarms() { return MeterCall("ALARMSINTERFACE_ackHistoricalAlarms").Send(); }

int ALARMSINTERFACE_getActiveAlarmStats(AlarmStats& out) {
    return MeterCall("ALARMSINTERFACE_getActiveAlarmStats").Into(out);
}

int ALARMSINTERFACE_getActiveAlarms(std::uint32_t first, std::span<AlarmEntry> entries) {
    return MeterCall("ALARMSINTERFACE_getActiveAlarms").With(first).With(CountOf(entries.size())).Into(entries);
}

int ALARMSINTERFACE_getHistoricalAlarmStats(AlarmStats& out) {
    return MeterCall("ALARMSINTERFACE_getHistoricalAlarmStats").Into(out);
}

int ALARMSINTERFACE_getHistoricalAlarms(std::uint32_t first, std::span<AlarmEntry> entries) {
    return MeterCall("ALARMSINTERFACE_getHistoricalAlarms").With(first).With(CountOf(entries.size())).Into(entries);
}

int ALARMSINTERFACE_getSettableAlarmsCount(std::uint32_t& count) {
    return MeterCall("ALARMSINTERFACE_getSettableAlarmsCount").Into(count);
}

int ALARMSINTERFACE_getSettableAlarms(std::uint32_t first, std::uint32_t selector,
                                      std::span<SettableAlarmEntry> entries) {
    return MeterCall("ALARMSINTERFACE_getSettableAlarms")
        .With(first)
        .With(CountOf(entries.size()))
        .With(selector)
        .Into(entries);
}

int SECURITYINTERFACE_getHwLockStatus(std::uint32_t& status) {
    return MeterCall("SECURITYINTERFACE_getHwLockStatus").Into(status);
}

int SECURITYINTERFACE_resetFactoryAccessTimeout() {
    return MeterCall("SECURITYINTERFACE_resetFactoryAccessTimeout").Send();
}

int SECURITYINTERFACE_getFrontPanelAccessRights(AccessRights& out) {
    return MeterCall("SECURITYINTERFACE_getFrontPanelAccessRights").Into(out);
}

int SECURITYINTERFACE_verifyFrontPanelPassword(const char* userName, const char* password, std::uint32_t& result) {
    return MeterCall("SECURITYINTERFACE_verifyFrontPanelPassword").With(userName).With(password).Into(result);
}

int SECURITYINTERFACE_clearFrontPanelPassword() {
    return MeterCall("SECURITYINTERFACE_clearFrontPanelPassword").Send();
}

int PQINTERFACE_getPhasorData(std::span<PhasorEntry> entries) {
    return MeterCall("PQINTERFACE_getPhasorData").With(CountOf(entries.size())).Into(entries);
}

int PQINTERFACE_getHarmonicData(std::uint32_t channel, std::uint32_t harmonic, HarmonicData& out) {
    return MeterCall("PQINTERFACE_getHarmonicData").With(channel).With(harmonic).Into(out);
}

int PQINTERFACE_getMinMaxBarData(std::uint32_t minimumId, std::uint32_t maximumId, std::uint32_t presentId,
                                 MinMaxBarData& out) {
    return MeterCall("PQINTERFACE_getMinMaxBarData").With(minimumId).With(maximumId).With(presentId).Into(out);
}

int CUSTOMSCREENINTERFACE_getNormalModeScreenData(std::uint32_t pageCommand, CustomScreenData& out) {
    return MeterCall("CUSTOMSCREENINTERFACE_getNormalModeScreenData").With(pageCommand).Into(out);
}

int CUSTOMSCREENINTERFACE_getCustomModeScreenData(std::uint32_t pageCommand, CustomScreenData& out) {
    return MeterCall("CUSTOMSCREENINTERFACE_getCustomModeScreenData").With(pageCommand).Into(out);
}

int CUSTOMSCREENINTERFACE_getTestModeScreenData(std::uint32_t pageCommand, CustomScreenData& out) {
    return MeterCall("CUSTOMSCREENINTERFACE_getTestModeScreenData").With(pageCommand).Into(out);
}

int IOI_getDigitalInputCount(std::uint32_t& count) { return MeterCall("IOI_getDigitalInputCount").Into(count); }

int IOI_getDigitalInputData(std::uint32_t first, std::span<IoPointEntry> entries) {
    return MeterCall("IOI_getDigitalInputData").With(first).With(CountOf(entries.size())).Into(entries);
}

int IOI_getDigitalOutputCount(std::uint32_t& count) { return MeterCall("IOI_getDigitalOutputCount").Into(count); }

int IOI_getDigitalOutputData(std::uint32_t first, std::span<IoPointEntry> entries) {
    return MeterCall("IOI_getDigitalOutputData").With(first).With(CountOf(entries.size())).Into(entries);
}

int IOI_getAnalogInputCount(std::uint32_t& count) { return MeterCall("IOI_getAnalogInputCount").Into(count); }

int IOI_getAnalogInputData(std::uint32_t first, std::span<IoPointEntry> entries) {
    return MeterCall("IOI_getAnalogInputData").With(first).With(CountOf(entries.size())).Into(entries);
}

int IOI_getAnalogOutputCount(std::uint32_t& count) { return MeterCall("IOI_getAnalogOutputCount").Into(count); }

int IOI_getAnalogOutputData(std::uint32_t first, std::span<IoPointEntry> entries) {
    return MeterCall("IOI_getAnalogOutputData").With(first).With(CountOf(entries.size())).Into(entries);
}

int NAMEPLATEIF_getNameplateData(NameplateData& out) { return MeterCall("NAMEPLATEIF_getNameplateData").Into(out); }

int EVLIF_getEventLogEntryCount(std::uint32_t& count) { return MeterCall("EVLIF_getEventLogEntryCount").Into(count); }

int EVLIF_getEventLogData(std::uint32_t first, std::span<EventLogEntry> entries) {
    return MeterCall("EVLIF_getEventLogData").With(first).With(CountOf(entries.size())).Into(entries);
}

int EVLIF_getFrontPanelModuleName(std::span<char> text) {
    return MeterCall("EVLIF_getFrontPanelModuleName").With(CountOf(text.size())).Into(text);
}

int EVLIF_getFactoryModuleName(std::span<char> text) {
    return MeterCall("EVLIF_getFactoryModuleName").With(CountOf(text.size())).Into(text);
}

int DATDISP_puts(const char* text) { return MeterCall("DATDISP_puts").With(text).Send(); }

int DISPLAYFEATURES_getNumHarmonicsDisplayed(std::uint32_t& count) {
    return MeterCall("DISPLAYFEATURES_getNumHarmonicsDisplayed").Into(count);
}

int DISPLAYFEATURES_getEn50160DisplayEnabled(std::uint32_t& enabled) {
    return MeterCall("DISPLAYFEATURES_getEn50160DisplayEnabled").Into(enabled);
}
