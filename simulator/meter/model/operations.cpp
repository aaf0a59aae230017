#include "simulator/meter/model/operations.h"

#include <algorithm>

#include "rda/records.h"
#include "simulator/meter/model/answers.h"
#include "simulator/meter/model/texts.h"

namespace meter {
namespace {

using Reply = std::span<std::byte>;

void Nothing(Meter&, const Request&, Reply) {}

/// Answers with the number of points of a kind, or with their entries.
template <IoKind Kind>
void CountPoints(Meter& meter, const Request&, Reply reply) {
    PutWord(reply, static_cast<std::uint32_t>(meter.GetIoPoints().Count(Kind)));
}
template <IoKind Kind>
void GetPoints(Meter& meter, const Request& request, Reply reply) {
    const IoPoints& points = meter.GetIoPoints();
    const std::size_t first = request.words[0];
    for (std::size_t i = 0; i < request.words[1] && first + i < points.Count(Kind); ++i) {
        const IoText text = points.At(Kind, first + i);
        IoPointEntry entry{};
        PutText(entry.label, text.label);
        PutText(entry.state, text.state);
        PutText(entry.secondState, text.second);
        Put(reply, entry, i);
    }
}

void PutModuleName(Reply reply, std::string_view name) {
    if (reply.empty()) return;
    const std::size_t length = std::min(name.size(), reply.size() - 1);
    std::ranges::copy(std::as_bytes(std::span(name.substr(0, length))), reply.begin());
}

constexpr std::size_t kWord = 4;

// clang-format off
constexpr auto kOperations = std::to_array<Operation>({
    {"DISPTASK_nop",                                 0, 0, 0,     kFixedSize, Nothing},
    {"DISPTSK_setVekTemperature",                    1, 0, 0,     kFixedSize, Nothing},
    {"DISPTSK_setVekFwVersion",                      0, 1, 0,     kFixedSize, Nothing},
    {"DISPTSK_setVekSerialNumber",                   0, 1, 0,     kFixedSize, Nothing},
    {"DISPTSK_getConnectionId",                      0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, m.ConnectionId()); }},
    {"DISPLAYMODE_setAltMode",                       1, 0, kWord, kFixedSize, SetAltMode},
    {"DISPLAYMODE_getAltMode",                       0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, m.altMode); }},
    {"DISPLAYMODE_setTestMode",                      1, 0, kWord, kFixedSize, SetTestMode},
    {"DISPLAYMODE_getTestMode",                      0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, m.testMode); }},
    {"DISPLAYMODE_setFactoryTestScreenResult",       1, 0, 0,     kFixedSize, SetFactoryTestResult},
    {"BACKLIGHTINTERFACE_getTimeout",                0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, static_cast<std::uint32_t>(m.GetSettings().Number(reg::kBacklightTimeout))); }},
    {"DATETIMEINTERFACE_getLocalDateTimeStrings",    0, 0, sizeof(DateTimeStrings),     kFixedSize, GetDateTime},
    {"PDMINTERFACE_getEnumerationValue",             1, 0, sizeof(EnumerationValue),    kFixedSize, GetEnumerationValue},
    {"PDMINTERFACE_getEnumerationData",              1, 0, sizeof(EnumerationData),     kFixedSize, GetEnumerationData},
    {"PDMINTERFACE_getRegisterValue",                1, 0, sizeof(RegisterValue),       kFixedSize, GetRegisterValue},
    {"PDMINTERFACE_setRegisterValue",                1, 1, sizeof(RegisterWriteResult), kFixedSize, SetRegisterValue},
    {"ALARMSINTERFACE_getGlobalAlarmStatus",         0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, m.GetAlarms().GlobalStatus()); }},
    {"ALARMSINTERFACE_ackActiveAlarms",              0, 0, 0,     kFixedSize, [](Meter& m, const Request&, Reply) { m.GetAlarms().AcknowledgeActive(); m.GetEventLog().Add(m.Now(), kFrontPanelModule, texts::kActiveAcknowledged); }},
    {"ALARMSINTERFACE_ackHistoricalAlarms",          0, 0, 0,     kFixedSize, [](Meter& m, const Request&, Reply) { m.GetAlarms().AcknowledgeHistory(); m.GetEventLog().Add(m.Now(), kFrontPanelModule, texts::kHistoryAcknowledged); }},
    {"ALARMSINTERFACE_getActiveAlarmStats",          0, 0, sizeof(AlarmStats),         kFixedSize, GetActiveAlarmStats},
    {"ALARMSINTERFACE_getActiveAlarms",              2, 0, sizeof(AlarmEntry),         1,          GetActiveAlarms},
    {"ALARMSINTERFACE_getHistoricalAlarmStats",      0, 0, sizeof(AlarmStats),         kFixedSize, GetHistoricalAlarmStats},
    {"ALARMSINTERFACE_getHistoricalAlarms",          2, 0, sizeof(AlarmEntry),         1,          GetHistoricalAlarms},
    {"ALARMSINTERFACE_getSettableAlarmsCount",       0, 0, kWord, kFixedSize, [](Meter&, const Request&, Reply r) { PutWord(r, static_cast<std::uint32_t>(AlarmDefinitions().size())); }},
    {"ALARMSINTERFACE_getSettableAlarms",            3, 0, sizeof(SettableAlarmEntry), 1,          GetSettableAlarms},
    {"SECURITYINTERFACE_getHwLockStatus",            0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, m.HasHardwareLock() ? kLockClosed : kLockOpen); }},
    {"SECURITYINTERFACE_resetFactoryAccessTimeout",  0, 0, 0,     kFixedSize, Nothing},
    {"SECURITYINTERFACE_getFrontPanelAccessRights",  0, 0, sizeof(AccessRights), kFixedSize, [](Meter& m, const Request&, Reply r) { AccessRights rights{}; rights.frontPanel.Set(m.GetSecurity().IsFrontPanelAllowed() && !m.HasHardwareLock() ? 1 : 0); Put(r, rights); }},
    {"SECURITYINTERFACE_verifyFrontPanelPassword",   0, 2, kWord, kFixedSize, VerifyPassword},
    {"SECURITYINTERFACE_clearFrontPanelPassword",    0, 0, 0,     kFixedSize, [](Meter& m, const Request&, Reply) { m.GetSecurity().LogOut(); }},
    {"PQINTERFACE_getPhasorData",                    1, 0, sizeof(PhasorEntry),      0,          GetPhasorData},
    {"PQINTERFACE_getHarmonicData",                  2, 0, sizeof(HarmonicData),     kFixedSize, GetHarmonicData},
    {"PQINTERFACE_getMinMaxBarData",                 3, 0, sizeof(MinMaxBarData),    kFixedSize, GetMinMaxBarData},
    {"CUSTOMSCREENINTERFACE_getNormalModeScreenData", 1, 0, sizeof(CustomScreenData), kFixedSize, GetPage<PageSet::Normal>},
    {"CUSTOMSCREENINTERFACE_getCustomModeScreenData", 1, 0, sizeof(CustomScreenData), kFixedSize, GetPage<PageSet::Custom>},
    {"CUSTOMSCREENINTERFACE_getTestModeScreenData",  1, 0, sizeof(CustomScreenData), kFixedSize, GetPage<PageSet::Test>},
    {"IOI_getDigitalInputCount",                     0, 0, kWord,                kFixedSize, CountPoints<IoKind::DigitalInput>},
    {"IOI_getDigitalInputData",                      2, 0, sizeof(IoPointEntry), 1,          GetPoints<IoKind::DigitalInput>},
    {"IOI_getDigitalOutputCount",                    0, 0, kWord,                kFixedSize, CountPoints<IoKind::DigitalOutput>},
    {"IOI_getDigitalOutputData",                     2, 0, sizeof(IoPointEntry), 1,          GetPoints<IoKind::DigitalOutput>},
    {"IOI_getAnalogInputCount",                      0, 0, kWord,                kFixedSize, CountPoints<IoKind::AnalogInput>},
    {"IOI_getAnalogInputData",                       2, 0, sizeof(IoPointEntry), 1,          GetPoints<IoKind::AnalogInput>},
    {"IOI_getAnalogOutputCount",                     0, 0, kWord,                kFixedSize, CountPoints<IoKind::AnalogOutput>},
    {"IOI_getAnalogOutputData",                      2, 0, sizeof(IoPointEntry), 1,          GetPoints<IoKind::AnalogOutput>},
    {"NAMEPLATEIF_getNameplateData",                 0, 0, sizeof(NameplateData), kFixedSize, GetNameplate},
    {"EVLIF_getEventLogEntryCount",                  0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, static_cast<std::uint32_t>(m.GetEventLog().Count())); }},
    {"EVLIF_getEventLogData",                        2, 0, sizeof(EventLogEntry), 1,          GetEventLogData},
    {"EVLIF_getFrontPanelModuleName",                1, 0, 1,     0,          [](Meter&, const Request&, Reply r) { PutModuleName(r, kFrontPanelModule); }},
    {"EVLIF_getFactoryModuleName",                   1, 0, 1,     0,          [](Meter&, const Request&, Reply r) { PutModuleName(r, kFactoryModule); }},
    {"DATDISP_puts",                                 0, 1, 0,     kFixedSize, Nothing},
    {"DISPLAYFEATURES_getNumHarmonicsDisplayed",     0, 0, kWord, kFixedSize, [](Meter& m, const Request&, Reply r) { PutWord(r, static_cast<std::uint32_t>(m.GetSettings().Number(reg::kHarmonicsShown))); }},
    {"DISPLAYFEATURES_getEn50160DisplayEnabled",     0, 0, kWord, kFixedSize, [](Meter&, const Request&, Reply r) { PutWord(r, 1); }},
});
// clang-format on
static_assert(kOperations.size() == 52);
static_assert(std::ranges::all_of(kOperations, [](const Operation& row) {
    return row.words <= 3 && row.texts <= 2 && row.countWord < static_cast<int>(row.words);
}));

/// Takes a payload apart. @return false when it is shorter or longer than the operation says
bool Parse(const Operation& operation, std::span<const std::byte> payload, Request& request) {
    for (std::size_t i = 0; i < operation.words; ++i) {
        WireU32 word{};
        if (payload.size() < sizeof(word)) return false;
        std::memcpy(&word, payload.data(), sizeof(word));
        request.words[i] = word.Get();
        payload = payload.subspan(sizeof(word));
    }
    for (std::size_t i = 0; i < operation.texts; ++i) {
        const auto end = std::ranges::find(payload, std::byte{0});
        if (end == payload.end()) return false;
        const auto length = static_cast<std::size_t>(end - payload.begin());
        request.texts[i] = {reinterpret_cast<const char*>(payload.data()), length};
        payload = payload.subspan(length + 1);
    }
    return payload.empty();
}

}  // namespace

std::span<const Operation> Operations() { return kOperations; }

bool AnswerOperation(Meter& meter, std::string_view name, std::span<const std::byte> payload,
                     std::span<std::byte> response) {
    const auto operation = std::ranges::find(kOperations, name, &Operation::name);
    if (operation == kOperations.end()) return false;
    Request request;
    if (!Parse(*operation, payload, request)) return false;
    const std::uint64_t entries =
        operation->countWord == kFixedSize ? 1 : request.words[static_cast<std::size_t>(operation->countWord)];
    if (operation->replySize * entries != response.size()) return false;
    std::ranges::fill(response, std::byte{0});
    operation->handler(meter, request, response);
    return true;
}

}  // namespace meter
