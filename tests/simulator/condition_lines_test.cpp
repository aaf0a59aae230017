#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/meter/link/console.h"
#include "tests/simulator/bench.h"

namespace {

using namespace meter;

class Conditions : public testing::Test {
protected:
    /// Has a line carried out, and lets the meter notice.
    void Tell(std::string_view line) {
        EXPECT_EQ(m_console.Execute(line), "ok") << line;
        m_meter.Advance(1000);
    }
    bool IsActive(std::string_view name) {
        return std::ranges::any_of(m_meter.GetAlarms().Active(), [&](const Occurrence* one) {
            return AlarmDefinitions()[one->definition].name == name;
        });
    }
    nlohmann::json State() { return nlohmann::json::parse(m_console.State()); }
    std::string WriteFromPanel() { return std::string(TextIn(bench::Set(m_meter, reg::kCtPrimary, "500").text)); }

    Meter m_meter{bench::kSeed, bench::kStart};
    MeterServer m_server{m_meter};
    DisplayLink m_display{1};  // nobody listens there
    Console m_console{m_meter, m_server, m_display, bench::kSeed};
};

TEST_F(Conditions, AnAlarmIsHeldUntilItIsLeftToItsLimit) {
    for (const char* name : {"Overvoltage L1", "Low power factor"}) {
        Tell("alarm on " + std::string(name));
        EXPECT_TRUE(IsActive(name)) << "at once, whether enabled or not";
        EXPECT_EQ(State()["heldAlarms"], nlohmann::json::array({name}));
        Tell("alarm off " + std::string(name));
        EXPECT_FALSE(IsActive(name));
    }
    EXPECT_EQ(m_meter.GetEventLog().At(0).description, "Alarm ended");
    Tell("scenario phase-loss");
    m_meter.Advance(2000);
    Tell("alarm on Phase loss");
    Tell("alarm off Phase loss");
    EXPECT_TRUE(IsActive("Phase loss")) << "its limit is crossed still";
    Tell("alarm on Demand too high");
    Tell("scenario empty-log");
    EXPECT_FALSE(IsActive("Demand too high"));
    EXPECT_EQ(State()["alarms"].size(), AlarmDefinitions().size());
}

TEST_F(Conditions, AnEventIsLoggedInTheLettersOfTheLink) {
    Tell(
        "event Gr\xC3\xBC\xC3\x9F"
        "e, 42 \xE2\x82\xAC");
    const auto entry = bench::Ask<EventLogEntry>(m_meter, "EVLIF_getEventLogData", bench::Words({0, 1}));
    EXPECT_EQ(TextIn(entry.source), "Meter");
    EXPECT_EQ(TextIn(entry.description),
              "Gr\xFC\xDF"
              "e, 42 ?");
}

TEST_F(Conditions, LockRightsAndRefusalsKeepTheFrontPanelFromWriting) {
    ASSERT_EQ(bench::LogIn(m_meter, "USER", "0"), 0U);
    Tell("lock on");
    EXPECT_EQ(WriteFromPanel(), "The hardware lock is closed");
    EXPECT_EQ(bench::AskWord(m_meter, "SECURITYINTERFACE_getHwLockStatus"), kLockClosed);
    Tell("lock off");
    Tell("refuse on");
    EXPECT_EQ(WriteFromPanel(), "The meter refuses the change");
    Tell("refuse on Sp\xC3\xA4ter");
    EXPECT_EQ(WriteFromPanel(), "Sp\xE4ter");
    EXPECT_EQ(m_console.Execute("set 111 500"), "error Sp\xC3\xA4ter");
    EXPECT_EQ(State()["refusal"], "Sp\xC3\xA4ter");
    Tell("refuse off");
    EXPECT_EQ(WriteFromPanel(), "Accepted");
    Tell("rights off");
    EXPECT_EQ(WriteFromPanel(), "Nobody is logged in");
    EXPECT_EQ(bench::LogIn(m_meter, "USER", "0"), 2U);
    EXPECT_EQ(State()["frontPanelRights"], false);
    Tell("rights on");
    EXPECT_EQ(bench::LogIn(m_meter, "USER", "0"), 0U);
}

TEST_F(Conditions, AScenarioSaysAnewHowLockAndRefusalsAre) {
    Tell("scenario refused-writes");
    EXPECT_EQ(State()["refusal"], "The meter refuses the change");
    Tell("lock on");
    Tell("scenario normal");
    EXPECT_EQ(State()["refusal"], nullptr);
    EXPECT_EQ(State()["hardwareLock"], false);
}

TEST_F(Conditions, WhatMakesNoSenseIsRefused) {
    for (std::string_view line : {"alarm", "alarm on", "alarm on Rain", "alarm Phase loss on", "event", "event  ",
                                  "lock", "lock 1", "rights maybe", "refuse", "refuse Later"})
        EXPECT_TRUE(m_console.Execute(line).starts_with("error")) << line;
}

TEST_F(Conditions, TheStateNamesTheFaultsThatCanBePlayed) {
    const auto faults = State()["faults"];
    EXPECT_EQ(faults.size(), 14U);
    for (const std::string name : faults) EXPECT_EQ(m_console.Execute("fault " + name), "ok") << name;
}

}  // namespace
