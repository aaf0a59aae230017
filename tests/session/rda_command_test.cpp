#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <nlohmann/json.hpp>
#include <thread>

#include "simulator/meter/link/meter_server.h"
#include "tests/bench/shell.h"

namespace {

using meter::Fault;

/// The command beside a meter that serves on a port of its own.
class RdaCommand : public testing::Test {
protected:
    ~RdaCommand() override {
        m_over = true;
        m_thread.join();
    }
    Outcome Rda(const std::string& arguments) const {
        return Shell(RDA_PROGRAM " --port " + std::to_string(m_server.Port()) + " --timeout 0.3 " + arguments);
    }

    meter::Meter m_meter{7, 1'789'552'800'000};
    meter::MeterServer m_server{m_meter, 0};
    std::atomic<Fault> m_fault = Fault::None;
    std::atomic<bool> m_over = false;
    std::thread m_thread{[this] {
        while (!m_over) {
            if (m_server.GetFault() != m_fault) m_server.SetFault(m_fault);
            m_server.Serve(std::chrono::steady_clock::now());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }};
};

TEST_F(RdaCommand, PrintsRepliesAsTextAndAsJson) {
    const Outcome text = Rda("call PDMINTERFACE_getRegisterValue 111");
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.output,
              "description  CT primary\nlabel        CT primary\nvalue        400.00\nunit         A\ndate\ntime\n");
    EXPECT_EQ(text.talk, "");
    const Outcome json = Rda("call getActiveAlarmStats --json");
    EXPECT_EQ(nlohmann::json::parse(json.output), (nlohmann::json{{"count", 0}, {"unacknowledged", 0}}));
    const Outcome list = Rda("call EVLIF_getEventLogData 0 2");
    EXPECT_NE(list.output.find("[1].source"), std::string::npos);
    const Outcome nothing = Rda("call DISPTSK_setVekTemperature -12.5");
    EXPECT_EQ(nothing.status, 0);
    EXPECT_EQ(nothing.output, "");
    EXPECT_NE(nothing.talk.find("it has no reply"), std::string::npos);
}

TEST_F(RdaCommand, WatchesAsOftenAsAsked) {
    const Outcome watched = Rda("watch BACKLIGHTINTERFACE_getTimeout --interval 0.01 --count 3 --json");
    EXPECT_EQ(watched.status, 0);
    EXPECT_EQ(std::ranges::count(watched.output, '\n'), 3);
    EXPECT_TRUE(watched.output.starts_with("{\"seconds\":")) << watched.output;
}

TEST_F(RdaCommand, SaysWhyACallFailed) {
    const std::string call = "call PDMINTERFACE_getRegisterValue 111";
    for (const auto& [fault, why] : {std::pair(Fault::Silent, "silence of 300 ms after 0 of 264 bytes"),
                                     std::pair(Fault::Half, "silence of 300 ms after 132 of 264 bytes"),
                                     std::pair(Fault::Reset, "the connection ended after 0 of 264 bytes"),
                                     std::pair(Fault::Absent, "nobody listens on 127.0.0.1:")}) {
        m_fault = fault;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        const Outcome outcome = Rda(call);
        EXPECT_EQ(outcome.status, 1) << why;
        EXPECT_EQ(outcome.output, "") << why;
        EXPECT_NE(outcome.talk.find(why), std::string::npos) << outcome.talk;
    }
}

TEST_F(RdaCommand, RefusesWhatItDoesNotUnderstand) {
    for (const char* line :
         {"", "bogus", "call", "call NO_SUCH", "call PDMINTERFACE_getRegisterValue",
          "call PDMINTERFACE_getRegisterValue x", "call DISPTASK_nop 1", "display getRegisterValue 1",
          "watch DISPTASK_nop --count 0", "--host 10.1.2.3 call DISPTASK_nop", "completion fish", "describe Nothing",
          "call ALARMSINTERFACE_getActiveAlarms 0 4000000000"}) {
        const Outcome outcome = Rda(line);
        EXPECT_EQ(outcome.status, 2) << line;
        EXPECT_EQ(outcome.output, "") << line;
        EXPECT_NE(outcome.talk, "") << line;
    }
    EXPECT_EQ(Shell(RDA_PROGRAM " --help").status, 0);
}

TEST(RdaTables, ListAndDescribeEverything) {
    const auto list = nlohmann::json::parse(Shell(RDA_PROGRAM " list --json").output);
    ASSERT_EQ(list["meter"].size(), 52U);
    ASSERT_EQ(list["display"].size(), 15U);
    EXPECT_EQ(std::ranges::count(Shell(RDA_PROGRAM " list").output, '\n'), 52 + 15 + 1);
    const std::string bar = Shell(RDA_PROGRAM " describe PQINTERFACE_getMinMaxBarData").output;
    EXPECT_NE(bar.find("reply     MinMaxBarData, 232 bytes"), std::string::npos) << bar;
    EXPECT_NE(bar.find("  189     43    label           text(43)"), std::string::npos) << bar;
    EXPECT_NE(bar.find("MinMaxValue, 16 bytes"), std::string::npos) << bar;
}

TEST(RdaTables, BashCompletesTheNames) {
    const Outcome outcome =
        Shell("bash -c 'source <(" RDA_PROGRAM
              " completion bash); COMP_WORDS=(rda call IOI_getDigitalI); COMP_CWORD=2; _rda; echo ${COMPREPLY[@]}'");
    EXPECT_EQ(outcome.output, "IOI_getDigitalInputCount IOI_getDigitalInputData\n") << outcome.talk;
}

TEST(RdaTables, TheManualKnowsEveryOption) {
    const std::string manual = ContentOf(MANUAL);
    for (const char* word : {"list", "describe", "call", "watch", "display", "completion", "\\-\\-host", "\\-\\-port",
                             "\\-\\-json", "\\-\\-timeout", "\\-\\-interval", "\\-\\-count"})
        EXPECT_NE(manual.find(word), std::string::npos) << word;
}

}  // namespace
