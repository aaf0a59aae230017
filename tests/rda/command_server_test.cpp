#include "rda/command_server.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "rda/server.h"
#include "tests/rda/loopback.h"

namespace {

std::vector<std::string> done;  // what the display was told to do
int hardwareAnswers = 0;        // what its queries return: 0 known, -1 unknown

void Note(const std::string& what, std::uint32_t value) { done.push_back(what + " " + std::to_string(value)); }

int Version(std::uint32_t* word, std::uint32_t value) {
    if (hardwareAnswers == 0) *word = value;
    return hardwareAnswers;
}

constexpr DisplayCommands kDisplay{
    .hardwareId = [] { return std::uint32_t{3}; },
    .changeAltModeState = [](std::uint32_t state) { Note("alt", state); },
    .navigateTo = [](std::uint32_t screenId) { Note("screen", screenId); },
    .navigateToDispTest = [] { Note("test screen", 0); },
    .setLanguage = [](std::uint32_t index) { Note("language", index); },
    .setPhaseLabels = [](std::uint32_t index) { Note("phases", index); },
    .setMeasSymbols = [](std::uint32_t index) { Note("symbols", index); },
    .changeTestModeState = [](std::uint32_t state) { Note("test", state); },
    .kernelVersion = [](std::uint32_t* word) { return Version(word, 0x012C0B07); },
    .osPackageVersion = [](std::uint32_t* word) { return Version(word, 0x00010203); },
    .serialNumber =
        [](std::span<char> text) {
            if (hardwareAnswers == 0) std::string("SN-42").copy(text.data(), text.size());
            return hardwareAnswers;
        },
    .setBacklightTimeout = [](std::uint32_t seconds) { Note("backlight", seconds); },
    .handleButtonEvent =
        [](const ButtonEvent& event) {
            Note("button " + std::to_string(event.kind) + std::to_string(event.pressed) + std::to_string(event.value),
                 event.extra);
        },
};

/// A command as the meter may send it: its sizes, and what it does when they are right.
struct Case {
    std::string name;
    std::string payload;
    std::uint32_t responseSize;
    std::string done;   // empty: a query
    std::string reply;  // of a query
};

std::string Padded(std::string text, std::size_t size) {
    text.resize(size);
    return text;
}

const std::vector<Case> kCases = {
    {"VEKHWIF_getHwId", "", 4, "", Word(3)},
    {"NAVCMDINT_changeAltModeState", Word(1), 0, "alt 1", ""},
    {"NAVCMDINT_navigateTo", Word(201), 0, "screen 201", ""},
    {"NAVCMDINT_navigateToDispTest", "", 0, "test screen 0", ""},
    {"DISPCFG_setLanguage", Word(2), 0, "language 2", ""},
    {"DISPCFG_setPhaseLabels", Word(3), 0, "phases 3", ""},
    {"DISPCFG_setMeasSymbols", Word(0x01020304), 0, "symbols 16909060", ""},
    {"NAVCMDINT_changeTestModeState", Word(4), 0, "test 4", ""},
    {"MISCINT_getVekKrnlVersion", Word(20), 20, "", Padded("007.011.300", 20)},
    {"MISCINT_getVekDisplayAppVersion", Word(16), 16, "", Padded("N/A", 16)},
    {"MISCINT_getVekOsPkgVersion", Word(8), 8, "", Padded("003.002", 8)},
    {"MISCINT_getVekSerialNumber", Word(10), 10, "", Padded("SN-42", 10)},
    {"MISCINT_getVekDisplayAppVariant", "", 4, "", Word(2)},
    {"BACKLIGHT_setTimeout", Word(300), 0, "backlight 300", ""},
    {"BUTTON_simulate_input", Word(1) + Word(1) + Word(5) + Word(0x80000001), 0, "button 115 2147483649", ""},
};

/// The command server, served to one connection of the meter.
class CommandServer : public testing::Test {
protected:
    void SetUp() override {
        registerDisplayCommands(m_server, kDisplay);
        const std::uint16_t port = UnusedPort();
        m_thread = std::jthread([this, port] { m_server.serve(port, "127.0.0.1", 0, 0); });
        m_meter.emplace_back(Peer::ConnectTo(port));
    }

    /// Sends a command, and a query behind it whose answer tells that the command is done. @return its reply
    std::string Command(const std::string& name, const std::string& payload, std::uint32_t responseSize) {
        done.clear();
        m_meter[0].Send(Request(name, payload, responseSize));
        const std::string reply = m_meter[0].Receive(responseSize);
        m_meter[0].Send(Request("MISCINT_getVekDisplayAppVariant", "", 4));
        EXPECT_EQ(m_meter[0].Receive(4), Word(2)) << "out of step after " << name;
        return reply;
    }

    /// A command of a wrong size is not done, is answered by zeros, and the display says what is wrong with it.
    void ExpectRefused(const Case& command, const std::string& payload, std::uint32_t responseSize,
                       const std::string& complaint) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(Command(command.name, payload, responseSize), std::string(responseSize, '\0')) << command.name;
        EXPECT_EQ(testing::internal::GetCapturedStdout(), command.name + complaint);
        EXPECT_TRUE(done.empty()) << command.name;
    }

    RdaServer m_server;
    std::jthread m_thread;  // ends when the meter hangs up
    std::vector<Peer> m_meter;
};

TEST_F(CommandServer, DoesWhatTheMeterCommandsAndAnswersWhatItAsks) {
    testing::internal::CaptureStdout();
    for (const Case& command : kCases) {
        EXPECT_EQ(Command(command.name, command.payload, command.responseSize), command.reply);
        if (command.done.empty()) continue;
        EXPECT_EQ(done, std::vector{command.done});
        EXPECT_EQ(Command(command.name, command.payload, 5), std::string(5, '\0')) << "any size, as it is no query";
        EXPECT_EQ(done, std::vector{command.done});
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(CommandServer, DoesNothingWhereASizeIsWrongAndSaysSo) {
    for (const Case& command : kCases) {
        const std::string wrongPayload = "Payload size does not match expected!\n";
        ExpectRefused(command, command.payload + 'x', command.responseSize, wrongPayload);
        if (!command.payload.empty())
            ExpectRefused(command, command.payload.substr(1), command.responseSize, wrongPayload);
        if (!command.done.empty()) continue;
        for (const std::uint32_t wrong : {command.responseSize - 1, command.responseSize + 1, 0U})
            ExpectRefused(command, command.payload, wrong, "Response size does not match expected!\n");
    }
}

TEST_F(CommandServer, AnswersForHardwareThatDoesNotKnow) {
    hardwareAnswers = -1;
    EXPECT_EQ(Command("MISCINT_getVekKrnlVersion", Word(12), 12), Padded("000.000.000", 12));
    EXPECT_EQ(Command("MISCINT_getVekOsPkgVersion", Word(4), 4), Padded("000", 4));
    EXPECT_EQ(Command("MISCINT_getVekSerialNumber", Word(10), 10), std::string(10, '\0'));
    EXPECT_EQ(Command("MISCINT_getVekSerialNumber", Word(0), 0), "");
    EXPECT_EQ(Command("MISCINT_getVekDisplayAppVersion", Word(2), 2), Padded("N", 2));
}

}  // namespace
