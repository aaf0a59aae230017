#include "simulator/meter/link/console.h"

#include <sstream>

#include "tests/simulator/link_bench.h"

namespace {

using namespace meter;
using bench::Bytes;

class ConsoleLines : public bench::Link {
protected:
    std::string WriteFromPanel() { return std::string(TextIn(Set(reg::kCtPrimary, "500").text)); }
};

TEST_F(ConsoleLines, AreAnsweredByOneLineEach) {
    EXPECT_EQ(m_console.Execute("scenario sag"), "ok");
    EXPECT_EQ(m_console.Execute("advance 30"), "ok");
    EXPECT_EQ(m_console.Execute("set 111 600"), "ok");
    EXPECT_EQ(m_console.Execute("get 111"), "ok CT primary: 600.00 A");
    EXPECT_EQ(m_console.Execute("language 1\r"), "ok, the display does not answer");
    EXPECT_EQ(m_console.Execute("set 1914 Klingon"), "error Not one of the choices");
    EXPECT_EQ(State()["scenario"], "sag");
    EXPECT_EQ(State()["language"], 1);
    EXPECT_GE(State()["activeAlarms"], 1);
    EXPECT_EQ(m_console.State().find('\n'), std::string::npos);
    Tell("event Gr\u00FC\u00DFe, 42 \u20AC");
    EXPECT_EQ(m_meter.GetEventLog().At(0).description,
              "Gr\xFC\xDF"
              "e, 42 ?")
        << "in the letters of the link";
}

TEST_F(ConsoleLines, AreRefusedWhenTheyMakeNoSense) {
    std::istringstream lines(
        "\n \nbogus\nnavigate\nnavigate x\nnavigate 68\nkey\nkey 9\nkey soft1 sideways\nfault\nscenario\nset\nset x\n"
        "get 99999\nlanguage 6\nadvance 9999999\nalarm\nalarm on\nalarm on Rain\nalarm Phase loss on\nevent\nevent  \n"
        "lock\nlock 1\nrights maybe\nrefuse\nrefuse Later");
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(m_console.Execute(line).starts_with("error")) << line;
}

TEST_F(ConsoleLines, HoldAnAlarmUntilItIsLeftToItsLimit) {
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
}

TEST_F(ConsoleLines, KeepTheFrontPanelFromWriting) {
    EXPECT_EQ(LogIn("GUEST", "0"), 2U);
    EXPECT_EQ(LogIn("USER", "1"), 1U);
    EXPECT_EQ(WriteFromPanel(), "Nobody is logged in");
    ASSERT_EQ(LogIn("USER", "0"), 0U);
    for (const auto& [line, answer] : {std::pair{"lock on", "The hardware lock is closed"},
                                       {"lock off", "Accepted"},
                                       {"refuse on", "The meter refuses the change"},
                                       {"refuse on Sp\u00E4ter", "Sp\xE4ter"},
                                       {"refuse off", "Accepted"},
                                       {"scenario refused-writes", "The meter refuses the change"},
                                       {"scenario hardware-lock", "The hardware lock is closed"},
                                       {"scenario normal", "Accepted"},
                                       {"rights off", "Nobody is logged in"}}) {
        Tell(line);
        EXPECT_EQ(WriteFromPanel(), answer) << line;
    }
    EXPECT_EQ(State()["frontPanelRights"], false);
    EXPECT_EQ(LogIn("USER", "0"), 2U);
    Tell("rights on");
    EXPECT_EQ(LogIn("USER", "0"), 0U);
    EXPECT_EQ(WriteFromPanel(), "Accepted");
    EXPECT_TRUE(m_meter.Answer("SECURITYINTERFACE_clearFrontPanelPassword", {}, {}));
    EXPECT_EQ(WriteFromPanel(), "Nobody is logged in");
    Tell("refuse on Sp\u00E4ter");
    EXPECT_EQ(State()["refusal"], "Sp\u00E4ter");
    EXPECT_EQ(m_console.Execute("set 111 500"), "error Sp\u00E4ter") << "also from elsewhere";
    Tell("lock on");
    EXPECT_EQ(AskWord("SECURITYINTERFACE_getHwLockStatus"), kLockClosed);
    EXPECT_EQ(AskWord("DISPLAYMODE_setTestMode", bench::Words({1})), 1U);
}

TEST_F(ConsoleLines, SetEveryFaultThatTheStateNames) {
    const auto faults = State()["faults"];
    EXPECT_EQ(faults.size(), 14U);
    for (const std::string name : faults) EXPECT_EQ(m_console.Execute("fault " + name), "ok") << name;
}

TEST_F(ConsoleLines, SendEachOfTheFifteenCommands) {
    std::string sent;
    Bytes payload;
    const DisplayLink display([&](auto operation, auto bytes, std::uint32_t responseSize) {
        sent = std::string(operation) + " for " + std::to_string(responseSize);
        payload.assign(bytes.begin(), bytes.end());
        Bytes reply(responseSize);
        if (!reply.empty()) reply[0] = std::byte{'7'};
        return reply;
    });
    Console console(m_meter, m_server, display, bench::kSeed);
    for (const auto& [line, command, words, answer] : {
             std::tuple{"hardware-id", "VEKHWIF_getHwId for 4", Bytes{}, "ok 55"},
             {"alt-mode 1", "NAVCMDINT_changeAltModeState for 0", bench::Words({1}), "ok"},
             {"navigate 68", "NAVCMDINT_navigateTo for 0", bench::Words({68}), "ok"},
             {"display-test", "NAVCMDINT_navigateToDispTest for 0", {}, "ok"},
             {"language 5", "DISPCFG_setLanguage for 0", bench::Words({5}), "ok"},
             {"phase-labels 2", "DISPCFG_setPhaseLabels for 0", bench::Words({2}), "ok"},
             {"symbols 1", "DISPCFG_setMeasSymbols for 0", bench::Words({1}), "ok"},
             {"test-mode 1", "NAVCMDINT_changeTestModeState for 0", bench::Words({1}), "ok"},
             {"kernel-version", "MISCINT_getVekKrnlVersion for 32", bench::Words({32}), "ok 7"},
             {"app-version", "MISCINT_getVekDisplayAppVersion for 32", bench::Words({32}), "ok 7"},
             {"os-version", "MISCINT_getVekOsPkgVersion for 32", bench::Words({32}), "ok 7"},
             {"serial-number", "MISCINT_getVekSerialNumber for 32", bench::Words({32}), "ok 7"},
             {"app-variant", "MISCINT_getVekDisplayAppVariant for 4", {}, "ok 55"},
             {"backlight 30", "BACKLIGHT_setTimeout for 0", bench::Words({30}), "ok"},
             {"key 2 down", "BUTTON_simulate_input for 0", bench::Words({0, 1, 2, 0}), "ok"},
             {"key home up", "BUTTON_simulate_input for 0", bench::Words({0, 0, 0, 0}), "ok"},
         }) {
        EXPECT_EQ(console.Execute(line), answer) << line;
        EXPECT_EQ(sent, command);
        EXPECT_EQ(payload, words) << line;
    }
}

}  // namespace
