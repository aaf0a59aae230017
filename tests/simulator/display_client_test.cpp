#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "rda/client.h"
#include "rda/meter_operations.h"
#include "simulator/meter/link/meter_server.h"
#include "tests/simulator/bench.h"

namespace {

using namespace meter;

/// The display's own client against the meter, over loopback.
TEST(DisplayClient, ReadsAndWritesTheMeter) {
    Meter theMeter{bench::kSeed, bench::kStart};
    MeterServer server(theMeter, 0);
    std::atomic<bool> finished = false;
    std::thread display([&] {
        EXPECT_EQ(connectToServer("127.0.0.1", server.Port()), 0);
        EXPECT_EQ(DISPTASK_nop(), 0);
        RegisterValue value{};
        EXPECT_EQ(PDMINTERFACE_getRegisterValue(3705, value), 0);
        EXPECT_EQ(TextIn(value.label), "Voltage L1-N");
        EXPECT_EQ(TextIn(value.unit), "V");
        std::array<PhasorEntry, 10> phasors{};
        EXPECT_EQ(PQINTERFACE_getPhasorData(phasors), 0);
        EXPECT_EQ(phasors[1].angle.Get(), -120);
        std::array<EventLogEntry, 4> events{};
        EXPECT_EQ(EVLIF_getEventLogData(0, events), 0);
        EXPECT_EQ(TextIn(events[0].source), "Front panel");
        std::uint32_t result = 9;
        EXPECT_EQ(SECURITYINTERFACE_verifyFrontPanelPassword("USER", "0", result), 0);
        EXPECT_EQ(result, 0U);
        RegisterWriteResult written{};
        EXPECT_EQ(PDMINTERFACE_setRegisterValue(reg::kLanguage, "Italian", written), 0);
        EXPECT_EQ(written.result.Get(), 0U);
        EnumerationData languages{};
        EXPECT_EQ(PDMINTERFACE_getEnumerationData(reg::kLanguage, languages), 0);
        EXPECT_EQ(TextIn(languages.items[languages.current.Get()]), "Italian");
        std::array<SettableAlarmEntry, 150> alarms{};
        EXPECT_EQ(ALARMSINTERFACE_getSettableAlarms(0, 1, alarms), 0);
        EXPECT_GT(alarms[0].kind.Get(), 0);
        EXPECT_EQ(alarms[149].kind.Get(), 0);
        finished = true;
    });
    while (!finished) server.Serve(std::chrono::steady_clock::now());
    display.join();
}

}  // namespace
