#include "simulator/meter/wire/signatures.h"

#include <algorithm>

namespace meter {
namespace {

using enum ArgumentType;

constexpr ReplyForm Answers(std::string_view name) { return {.shape = ReplyShape::Number, .name = name}; }
constexpr ReplyForm One(const RecordLayout& record) { return {.shape = ReplyShape::Record, .record = &record}; }
constexpr ReplyForm Many(const RecordLayout& record, std::size_t countArgument) {
    return {.shape = ReplyShape::Records, .record = &record, .countArgument = countArgument};
}
constexpr ReplyForm Says(std::string_view name) { return {.shape = ReplyShape::Text, .name = name}; }

// clang-format off
constexpr auto kOperations = std::to_array<Signature>({
    {"DISPTASK_nop",                                 "does nothing; shows that the meter is there"},
    {"DISPTSK_setVekTemperature",                    "reports the temperature of the display", {{{"degrees", Decimal}}}},
    {"DISPTSK_setVekFwVersion",                      "reports the firmware version of the display", {{{"version", Text}}}},
    {"DISPTSK_setVekSerialNumber",                   "reports the serial number of the display", {{{"serialNumber", Text}}}},
    {"DISPTSK_getConnectionId",                      "tells one life of the meter from the next", {}, Answers("id")},
    {"DISPLAYMODE_setAltMode",                       "enters or leaves the alternate mode", {{{"value"}}}, Answers("result")},
    {"DISPLAYMODE_getAltMode",                       "whether the alternate mode is on", {}, Answers("value")},
    {"DISPLAYMODE_setTestMode",                      "enters or leaves the test mode", {{{"value"}}}, Answers("result")},
    {"DISPLAYMODE_getTestMode",                      "whether the test mode is on", {}, Answers("value")},
    {"DISPLAYMODE_setFactoryTestScreenResult",       "reports the factory test: 0 passed, 0xFFFFFFFF failed", {{{"result"}}}},
    {"BACKLIGHTINTERFACE_getTimeout",                "seconds until the backlight is dimmed", {}, Answers("seconds")},
    {"DATETIMEINTERFACE_getLocalDateTimeStrings",    "local date and time as text", {}, One(layout::kDateTimeStrings)},
    {"PDMINTERFACE_getEnumerationValue",             "the chosen item of a register", {{{"registerId"}}}, One(layout::kEnumerationValue)},
    {"PDMINTERFACE_getEnumerationData",              "the chosen item of a register and all items", {{{"registerId"}}}, One(layout::kEnumerationData)},
    {"PDMINTERFACE_getRegisterValue",                "a register as it is shown", {{{"registerId"}}}, One(layout::kRegisterValue)},
    {"PDMINTERFACE_setRegisterValue",                "writes a register", {{{"registerId"}, {"value", Text}}}, One(layout::kRegisterWriteResult)},
    {"ALARMSINTERFACE_getGlobalAlarmStatus",         "what the alarm lamp shows, 1 to 12", {}, Answers("status")},
    {"ALARMSINTERFACE_ackActiveAlarms",              "acknowledges the active alarms"},
    {"ALARMSINTERFACE_ackHistoricalAlarms",          "acknowledges the historical alarms"},
    {"ALARMSINTERFACE_getActiveAlarmStats",          "how many alarms are active", {}, One(layout::kAlarmStats)},
    {"ALARMSINTERFACE_getActiveAlarms",              "active alarms", {{{"first"}, {"count"}}}, Many(layout::kAlarmEntry, 1)},
    {"ALARMSINTERFACE_getHistoricalAlarmStats",      "how many alarms were active", {}, One(layout::kAlarmStats)},
    {"ALARMSINTERFACE_getHistoricalAlarms",          "past alarms", {{{"first"}, {"count"}}}, Many(layout::kAlarmEntry, 1)},
    {"ALARMSINTERFACE_getSettableAlarmsCount",       "how many alarms can be switched", {}, Answers("count")},
    {"ALARMSINTERFACE_getSettableAlarms",            "alarms that can be switched", {{{"first"}, {"count"}, {"selector"}}}, Many(layout::kSettableAlarmEntry, 1)},
    {"SECURITYINTERFACE_getHwLockStatus",            "whether the lock on the housing is closed", {}, Answers("status")},
    {"SECURITYINTERFACE_resetFactoryAccessTimeout",  "prolongs the factory's access"},
    {"SECURITYINTERFACE_getFrontPanelAccessRights",  "what the front panel may do", {}, One(layout::kAccessRights)},
    {"SECURITYINTERFACE_verifyFrontPanelPassword",   "logs a user in; 0 is accepted", {{{"userName", Text}, {"password", Text, true}}}, Answers("result")},
    {"SECURITYINTERFACE_clearFrontPanelPassword",    "logs the user out"},
    {"PQINTERFACE_getPhasorData",                    "voltage and current phasors", {{{"count"}}}, Many(layout::kPhasorEntry, 0)},
    {"PQINTERFACE_getHarmonicData",                  "the spectrum of a channel, and one harmonic", {{{"channel"}, {"harmonic"}}}, One(layout::kHarmonicData)},
    {"PQINTERFACE_getMinMaxBarData",                 "extremes and present value, by their registers", {{{"minimumId"}, {"maximumId"}, {"presentId"}}}, One(layout::kMinMaxBarData)},
    {"CUSTOMSCREENINTERFACE_getNormalModeScreenData", "a page: 0 previous, 1 current, 2 next, 3 first", {{{"pageCommand"}}}, One(layout::kCustomScreenData)},
    {"CUSTOMSCREENINTERFACE_getCustomModeScreenData", "a custom page: 0 previous, 1 current, 2 next, 3 first", {{{"pageCommand"}}}, One(layout::kCustomScreenData)},
    {"CUSTOMSCREENINTERFACE_getTestModeScreenData",  "a test page: 0 previous, 1 current, 2 next, 3 first", {{{"pageCommand"}}}, One(layout::kCustomScreenData)},
    {"IOI_getDigitalInputCount",                     "how many digital inputs there are", {}, Answers("count")},
    {"IOI_getDigitalInputData",                      "digital inputs", {{{"first"}, {"count"}}}, Many(layout::kIoPointEntry, 1)},
    {"IOI_getDigitalOutputCount",                    "how many digital outputs there are", {}, Answers("count")},
    {"IOI_getDigitalOutputData",                     "digital outputs", {{{"first"}, {"count"}}}, Many(layout::kIoPointEntry, 1)},
    {"IOI_getAnalogInputCount",                      "how many analogue inputs there are", {}, Answers("count")},
    {"IOI_getAnalogInputData",                       "analogue inputs", {{{"first"}, {"count"}}}, Many(layout::kIoPointEntry, 1)},
    {"IOI_getAnalogOutputCount",                     "how many analogue outputs there are", {}, Answers("count")},
    {"IOI_getAnalogOutputData",                      "analogue outputs", {{{"first"}, {"count"}}}, Many(layout::kIoPointEntry, 1)},
    {"NAMEPLATEIF_getNameplateData",                 "the texts of the nameplate", {}, One(layout::kNameplateData)},
    {"EVLIF_getEventLogEntryCount",                  "how many events are logged", {}, Answers("count")},
    {"EVLIF_getEventLogData",                        "events, 0 the newest", {{{"first"}, {"count"}}}, Many(layout::kEventLogEntry, 1)},
    {"EVLIF_getFrontPanelModuleName",                "how the log names the front panel", {{{"size"}}}, Says("name")},
    {"EVLIF_getFactoryModuleName",                   "how the log names the factory", {{{"size"}}}, Says("name")},
    {"DATDISP_puts",                                 "prints a line at the meter", {{{"line", Text}}}},
    {"DISPLAYFEATURES_getNumHarmonicsDisplayed",     "how many harmonics are shown, 31 or 63", {}, Answers("count")},
    {"DISPLAYFEATURES_getEn50160DisplayEnabled",     "whether the EN 50160 screens are there", {}, Answers("enabled")},
});
static_assert(kOperations.size() == 52);

constexpr auto kCommands = std::to_array<Signature>({
    {"VEKHWIF_getHwId",                 "the hardware's number", {}, Answers("id")},
    {"NAVCMDINT_changeAltModeState",    "enters or leaves the alternate mode", {{{"state"}}}},
    {"NAVCMDINT_navigateTo",            "shows a screen", {{{"screen"}}}},
    {"NAVCMDINT_navigateToDispTest",    "shows the factory's display test"},
    {"DISPCFG_setLanguage",             "0 English, 1 German, 2 French, 3 Spanish, 4 Italian, 5 Russian", {{{"language"}}}},
    {"DISPCFG_setPhaseLabels",          "0 123, 1 ABC, 2 RST", {{{"labels"}}}},
    {"DISPCFG_setMeasSymbols",          "0 IEC, 1 ANSI", {{{"symbols"}}}},
    {"NAVCMDINT_changeTestModeState",   "enters or leaves the test mode", {{{"state"}}}},
    {"MISCINT_getVekKrnlVersion",       "version of the kernel", {{{"size"}}}, Says("version")},
    {"MISCINT_getVekDisplayAppVersion", "version of the application", {{{"size"}}}, Says("version")},
    {"MISCINT_getVekOsPkgVersion",      "version of the operating system package", {{{"size"}}}, Says("version")},
    {"MISCINT_getVekSerialNumber",      "serial number of the display", {{{"size"}}}, Says("serialNumber")},
    {"MISCINT_getVekDisplayAppVariant", "variant of the application", {}, Answers("variant")},
    {"BACKLIGHT_setTimeout",            "seconds until the backlight is dimmed", {{{"seconds"}}}},
    {"BUTTON_simulate_input",           "a key: kind 0, pressed 1 or 0, key 0 home, 1 to 4, 5 keys 2 and 3, extra 0", {{{"kind"}, {"pressed"}, {"key"}, {"extra"}}}},
});
static_assert(kCommands.size() == 15);
// clang-format on

constexpr bool IsSound(const Signature& row) {
    const bool counted = row.reply.shape == ReplyShape::Records || row.reply.shape == ReplyShape::Text;
    const bool hasSecret = std::ranges::any_of(row.Arguments(), &Argument::secret);
    const bool hasTextsOnly = std::ranges::all_of(
        row.Arguments(), [](const Argument& argument) { return argument.type == ArgumentType::Text; });
    return (!counted || row.reply.countArgument < row.Arguments().size()) && (!hasSecret || hasTextsOnly);
}
static_assert(std::ranges::all_of(kOperations, IsSound) && std::ranges::all_of(kCommands, IsSound));

const Signature* Find(std::span<const Signature> rows, std::string_view name) {
    const auto found = std::ranges::find(rows, name, &Signature::name);
    return found != rows.end() ? &*found : nullptr;
}

}  // namespace

std::span<const Signature> MeterOperations() { return kOperations; }
std::span<const Signature> DisplayCommands() { return kCommands; }
const Signature* FindMeterOperation(std::string_view name) { return Find(kOperations, name); }
const Signature* FindDisplayCommand(std::string_view name) { return Find(kCommands, name); }

}  // namespace meter
