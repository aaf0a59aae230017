#include "rda/meter_operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "rda/client.h"
#include "tests/rda/loopback.h"

namespace {

/// An operation called with arguments that can be told apart, and what the meter must see of it.
struct Case {
    const char* name;
    std::function<int()> call;
    std::string payload;
    std::uint32_t responseSize;
};

/// Where an operation puts what the meter answers.
template <typename Reply>
Reply& Out() {
    static Reply reply;
    return reply;
}

std::uint32_t word;

const std::string kFirstOf4 = Hex("05 00 00 00 04 00 00 00");
const std::string kFirstOf3 = Hex("05 00 00 00 03 00 00 00");

/// A row begins with an operation and its arguments.
// clang-format off
#define OPERATION(name, ...) #name, [] { return name(__VA_ARGS__); }
const std::vector<Case> kCases = {
    {OPERATION(DISPTASK_nop), "", 0},
    {OPERATION(DISPTSK_setVekTemperature, -500.0F), Hex("00 00 FA C3"), 0},
    {OPERATION(DISPTSK_setVekFwVersion, "1.2"), Hex("31 2E 32 00"), 0},
    {OPERATION(DISPTSK_setVekSerialNumber, ""), Hex("00"), 0},
    {OPERATION(DISPTSK_getConnectionId, word), "", 4},
    {OPERATION(DISPLAYMODE_setAltMode, 1, word), Word(1), 4},
    {OPERATION(DISPLAYMODE_getAltMode, word), "", 4},
    {OPERATION(DISPLAYMODE_setTestMode, 2, word), Word(2), 4},
    {OPERATION(DISPLAYMODE_getTestMode, word), "", 4},
    {OPERATION(DISPLAYMODE_setFactoryTestScreenResult, 0xFFFFFFFF), Hex("FF FF FF FF"), 0},
    {OPERATION(BACKLIGHTINTERFACE_getTimeout, word), "", 4},
    {OPERATION(DATETIMEINTERFACE_getLocalDateTimeStrings, Out<DateTimeStrings>()), "", 23},
    {OPERATION(PDMINTERFACE_getEnumerationValue, 3717, Out<EnumerationValue>()), Hex("85 0E 00 00"), 136},
    {OPERATION(PDMINTERFACE_getEnumerationData, 3717, Out<EnumerationData>()), Hex("85 0E 00 00"), 1740},
    {OPERATION(PDMINTERFACE_getRegisterValue, 298, Out<RegisterValue>()), Hex("2A 01 00 00"), 264},
    {OPERATION(PDMINTERFACE_setRegisterValue, 99, "1234567890", Out<RegisterWriteResult>()),
     Hex("63 00 00 00 31 32 33 34 35 36 37 38 39 30 00"), 132},
    {OPERATION(ALARMSINTERFACE_getGlobalAlarmStatus, word), "", 4},
    {OPERATION(ALARMSINTERFACE_ackActiveAlarms), "", 0},
    {OPERATION(ALARMSINTERFACE_ackHistoricalAlarms), "", 0},
    {OPERATION(ALARMSINTERFACE_getActiveAlarmStats, Out<AlarmStats>()), "", 8},
    {OPERATION(ALARMSINTERFACE_getActiveAlarms, 5, Out<std::array<AlarmEntry, 4>>()), kFirstOf4, 736},
    {OPERATION(ALARMSINTERFACE_getActiveAlarms, 0, {}), Hex("00 00 00 00 00 00 00 00"), 0},
    {OPERATION(ALARMSINTERFACE_getHistoricalAlarmStats, Out<AlarmStats>()), "", 8},
    {OPERATION(ALARMSINTERFACE_getHistoricalAlarms, 5, Out<std::array<AlarmEntry, 4>>()), kFirstOf4, 736},
    {OPERATION(ALARMSINTERFACE_getSettableAlarmsCount, word), "", 4},
    {OPERATION(ALARMSINTERFACE_getSettableAlarms, 7, 1, Out<std::array<SettableAlarmEntry, 2>>()),
     Hex("07 00 00 00 02 00 00 00 01 00 00 00"), 96},
    {OPERATION(SECURITYINTERFACE_getHwLockStatus, word), "", 4},
    {OPERATION(SECURITYINTERFACE_resetFactoryAccessTimeout), "", 0},
    {OPERATION(SECURITYINTERFACE_getFrontPanelAccessRights, Out<AccessRights>()), "", 8},
    {OPERATION(SECURITYINTERFACE_verifyFrontPanelPassword, "user", "secret", word),
     Hex("75 73 65 72 00 73 65 63 72 65 74 00"), 4},
    {OPERATION(SECURITYINTERFACE_clearFrontPanelPassword), "", 0},
    {OPERATION(PQINTERFACE_getPhasorData, Out<std::array<PhasorEntry, 10>>()), Word(10), 1720},
    {OPERATION(PQINTERFACE_getHarmonicData, 4, 62, Out<HarmonicData>()), Hex("04 00 00 00 3E 00 00 00"), 640},
    {OPERATION(PQINTERFACE_getMinMaxBarData, 1, 2, 3, Out<MinMaxBarData>()),
     Hex("01 00 00 00 02 00 00 00 03 00 00 00"), 232},
    {OPERATION(CUSTOMSCREENINTERFACE_getNormalModeScreenData, kPageFirst, Out<CustomScreenData>()), Word(3), 1632},
    {OPERATION(CUSTOMSCREENINTERFACE_getCustomModeScreenData, kPageNext, Out<CustomScreenData>()), Word(2), 1632},
    {OPERATION(CUSTOMSCREENINTERFACE_getTestModeScreenData, kPageCurrent, Out<CustomScreenData>()), Word(1), 1632},
    {OPERATION(IOI_getDigitalInputCount, word), "", 4},
    {OPERATION(IOI_getDigitalInputData, 5, Out<std::array<IoPointEntry, 3>>()), kFirstOf3, 390},
    {OPERATION(IOI_getDigitalOutputCount, word), "", 4},
    {OPERATION(IOI_getDigitalOutputData, 5, Out<std::array<IoPointEntry, 3>>()), kFirstOf3, 390},
    {OPERATION(IOI_getAnalogInputCount, word), "", 4},
    {OPERATION(IOI_getAnalogInputData, 5, Out<std::array<IoPointEntry, 3>>()), kFirstOf3, 390},
    {OPERATION(IOI_getAnalogOutputCount, word), "", 4},
    {OPERATION(IOI_getAnalogOutputData, 5, Out<std::array<IoPointEntry, 3>>()), kFirstOf3, 390},
    {OPERATION(NAMEPLATEIF_getNameplateData, Out<NameplateData>()), "", 920},
    {OPERATION(EVLIF_getEventLogEntryCount, word), "", 4},
    {OPERATION(EVLIF_getEventLogData, 5, Out<std::array<EventLogEntry, 4>>()), kFirstOf4, 512},
    {OPERATION(EVLIF_getFrontPanelModuleName, Out<std::array<char, 40>>()), Hex("28 00 00 00"), 40},
    {OPERATION(EVLIF_getFactoryModuleName, Out<std::array<char, 40>>()), Hex("28 00 00 00"), 40},
    {OPERATION(DATDISP_puts, "hello"), Hex("68 65 6C 6C 6F 00"), 0},
    {OPERATION(DISPLAYFEATURES_getNumHarmonicsDisplayed, word), "", 4},
    {OPERATION(DISPLAYFEATURES_getEn50160DisplayEnabled, word), "", 4},
};
#undef OPERATION
// clang-format on

template <typename Value>
std::string BytesOf(const Value& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

TEST(MeterOperations, SendTheFrameOfTheirNameAndFillTheirOutputs) {
    CountingMeter meter;
    ASSERT_EQ(connectToServer("127.0.0.1", meter.port()), 0);
    for (const Case& operation : kCases) {
        word = 0;
        EXPECT_EQ(operation.call(), 0) << operation.name;
        EXPECT_EQ(word, operation.responseSize == 4 ? 0x03020100U : 0U) << operation.name;
    }
    EXPECT_EQ(BytesOf(Out<std::array<PhasorEntry, 10>>()), CountingBytes(1720));
    EXPECT_EQ(BytesOf(Out<EnumerationData>()), CountingBytes(1740));
    EXPECT_EQ(BytesOf(Out<std::array<char, 40>>()), CountingBytes(40));
    EXPECT_EQ(BytesOf(Out<DateTimeStrings>()), CountingBytes(23));

    (void)connectToServer("127.0.0.1", UnusedPort());  // hangs up
    const auto& requests = meter.Requests();
    ASSERT_EQ(requests.size(), kCases.size());
    for (std::size_t i = 0; i < kCases.size(); ++i)
        EXPECT_EQ(requests[i], Request(kCases[i].name, kCases[i].payload, kCases[i].responseSize));
    EXPECT_EQ(Request("PQINTERFACE_getPhasorData", Word(10), 1720),
              Hex("25 25 52 52 1A 00 00 00 50 51 49 4E 54 45 52 46 41 43 45 5F 67 65 74 50 68 61 73 6F 72 44 61 74 61 "
                  "00 04 00 00 00 0A 00 00 00 B8 06 00 00"));
}

TEST(MeterOperations, RefuseATextThatDoesNotFitAndLeaveTheLinkAlone) {
    CountingMeter meter;
    ASSERT_EQ(connectToServer("127.0.0.1", meter.port()), 0);
    EXPECT_EQ(DATDISP_puts(std::string(1024, 'x').c_str()), -1);
    EXPECT_EQ(DATDISP_puts(std::string(1023, 'x').c_str()), 0);
    EXPECT_EQ(PDMINTERFACE_setRegisterValue(1, std::string(1020, 'x').c_str(), Out<RegisterWriteResult>()), -1);
    EXPECT_EQ(PDMINTERFACE_setRegisterValue(1, std::string(1019, 'x').c_str(), Out<RegisterWriteResult>()), 0);
    word = 77;
    const std::string half(511, 'x');
    EXPECT_EQ(SECURITYINTERFACE_verifyFrontPanelPassword(half.c_str(), (half + 'x').c_str(), word), -1);
    EXPECT_EQ(word, 77U) << "nothing was sent, so nothing is touched";
    EXPECT_EQ(SECURITYINTERFACE_verifyFrontPanelPassword(half.c_str(), half.c_str(), word), 0);
    const std::span buffer(rdaTaskBuffer(), kRdaTaskBufferBytes);
    EXPECT_TRUE(std::ranges::all_of(buffer, [](std::uint8_t byte) { return byte == 0; })) << "a password stays behind";
    (void)connectToServer("127.0.0.1", UnusedPort());
    EXPECT_EQ(meter.Requests().size(), 3U);
}

}  // namespace
