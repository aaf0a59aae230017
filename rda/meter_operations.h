#pragma once

#include <cstdint>
#include <span>

#include "rda/records.h"

// What the meter does for the display. Each operation bears the name under which the meter knows it, blocks its task
// until the reply is whole or given up, and may be called from any task.
//
// All return 0, or -1 when the meter did not answer in full. Then outputs hold zeros or the part that arrived; they are
// untouched when nothing could be sent. An array operation asks for as many entries as its span has room for. Texts go
// out with their terminators and must fit the task's buffer of 1024 bytes together with the other fields.

// The display's own state.
[[nodiscard]] int DISPTASK_nop();  // is the meter there?
[[nodiscard]] int DISPTSK_setVekTemperature(float degrees);
[[nodiscard]] int DISPTSK_setVekFwVersion(const char* text);
[[nodiscard]] int DISPTSK_setVekSerialNumber(const char* text);
[[nodiscard]] int DISPTSK_getConnectionId(std::uint32_t& id);

// Display modes. A factory test passes with 0 and fails with 0xFFFFFFFF.
[[nodiscard]] int DISPLAYMODE_setAltMode(std::uint32_t value, std::uint32_t& result);
[[nodiscard]] int DISPLAYMODE_getAltMode(std::uint32_t& value);
[[nodiscard]] int DISPLAYMODE_setTestMode(std::uint32_t value, std::uint32_t& result);
[[nodiscard]] int DISPLAYMODE_getTestMode(std::uint32_t& value);
[[nodiscard]] int DISPLAYMODE_setFactoryTestScreenResult(std::uint32_t result);

// Backlight, date and time.
[[nodiscard]] int BACKLIGHTINTERFACE_getTimeout(std::uint32_t& seconds);
[[nodiscard]] int DATETIMEINTERFACE_getLocalDateTimeStrings(DateTimeStrings& out);

// Registers. A write sends the value as text and is answered whether it was accepted.
[[nodiscard]] int PDMINTERFACE_getEnumerationValue(std::uint32_t registerId, EnumerationValue& out);
[[nodiscard]] int PDMINTERFACE_getEnumerationData(std::uint32_t registerId, EnumerationData& out);
[[nodiscard]] int PDMINTERFACE_getRegisterValue(std::uint32_t registerId, RegisterValue& out);
[[nodiscard]] int PDMINTERFACE_setRegisterValue(std::uint32_t registerId, const char* valueText,
                                                RegisterWriteResult& out);

// Alarms.
[[nodiscard]] int ALARMSINTERFACE_getGlobalAlarmStatus(std::uint32_t& status);
[[nodiscard]] int ALARMSINTERFACE_ackActiveAlarms();
[[nodiscard]] int ALARMSINTERFACE_ackHistoricalAlarms();
[[nodiscard]] int ALARMSINTERFACE_getActiveAlarmStats(AlarmStats& out);
[[nodiscard]] int ALARMSINTERFACE_getActiveAlarms(std::uint32_t first, std::span<AlarmEntry> entries);
[[nodiscard]] int ALARMSINTERFACE_getHistoricalAlarmStats(AlarmStats& out);
[[nodiscard]] int ALARMSINTERFACE_getHistoricalAlarms(std::uint32_t first, std::span<AlarmEntry> entries);
[[nodiscard]] int ALARMSINTERFACE_getSettableAlarmsCount(std::uint32_t& count);
[[nodiscard]] int ALARMSINTERFACE_getSettableAlarms(std::uint32_t first, std::uint32_t selector,
                                                    std::span<SettableAlarmEntry> entries);

// Security. A password is accepted with result 0.
[[nodiscard]] int SECURITYINTERFACE_getHwLockStatus(std::uint32_t& status);
[[nodiscard]] int SECURITYINTERFACE_resetFactoryAccessTimeout();
[[nodiscard]] int SECURITYINTERFACE_getFrontPanelAccessRights(AccessRights& out);
[[nodiscard]] int SECURITYINTERFACE_verifyFrontPanelPassword(const char* userName, const char* password,
                                                             std::uint32_t& result);
[[nodiscard]] int SECURITYINTERFACE_clearFrontPanelPassword();

// Power quality. Min/max data are asked for by the registers of the minimum, the maximum and the present value.
[[nodiscard]] int PQINTERFACE_getPhasorData(std::span<PhasorEntry> entries);
[[nodiscard]] int PQINTERFACE_getHarmonicData(std::uint32_t channel, std::uint32_t harmonic, HarmonicData& out);
[[nodiscard]] int PQINTERFACE_getMinMaxBarData(std::uint32_t minimumId, std::uint32_t maximumId,
                                               std::uint32_t presentId, MinMaxBarData& out);

// Pages that the meter composes, by page command (kPageNext and its like).
[[nodiscard]] int CUSTOMSCREENINTERFACE_getNormalModeScreenData(std::uint32_t pageCommand, CustomScreenData& out);
[[nodiscard]] int CUSTOMSCREENINTERFACE_getCustomModeScreenData(std::uint32_t pageCommand, CustomScreenData& out);
[[nodiscard]] int CUSTOMSCREENINTERFACE_getTestModeScreenData(std::uint32_t pageCommand, CustomScreenData& out);

// Inputs and outputs.
[[nodiscard]] int IOI_getDigitalInputCount(std::uint32_t& count);
[[nodiscard]] int IOI_getDigitalInputData(std::uint32_t first, std::span<IoPointEntry> entries);
[[nodiscard]] int IOI_getDigitalOutputCount(std::uint32_t& count);
[[nodiscard]] int IOI_getDigitalOutputData(std::uint32_t first, std::span<IoPointEntry> entries);
[[nodiscard]] int IOI_getAnalogInputCount(std::uint32_t& count);
[[nodiscard]] int IOI_getAnalogInputData(std::uint32_t first, std::span<IoPointEntry> entries);
[[nodiscard]] int IOI_getAnalogOutputCount(std::uint32_t& count);
[[nodiscard]] int IOI_getAnalogOutputData(std::uint32_t first, std::span<IoPointEntry> entries);

// Nameplate and event log. Entry 0 of the log is the newest.
[[nodiscard]] int NAMEPLATEIF_getNameplateData(NameplateData& out);
[[nodiscard]] int EVLIF_getEventLogEntryCount(std::uint32_t& count);
[[nodiscard]] int EVLIF_getEventLogData(std::uint32_t first, std::span<EventLogEntry> entries);
[[nodiscard]] int EVLIF_getFrontPanelModuleName(std::span<char> text);
[[nodiscard]] int EVLIF_getFactoryModuleName(std::span<char> text);

// Diagnostics and features.
[[nodiscard]] int DATDISP_puts(const char* text);
[[nodiscard]] int DISPLAYFEATURES_getNumHarmonicsDisplayed(std::uint32_t& count);
[[nodiscard]] int DISPLAYFEATURES_getEn50160DisplayEnabled(std::uint32_t& enabled);
