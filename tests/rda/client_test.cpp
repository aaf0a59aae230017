#include "rda/client.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <latch>
#include <thread>

#include "platform/timer.h"
#include "rda/meter_operations.h"
#include "tests/rda/loopback.h"

namespace {

std::atomic<std::time_t> secondsNow{1'000'000};

}  // namespace

/// The link's clock, in the hands of the test.
std::time_t os::time() { return secondsNow; }

namespace {

constexpr const char* kHere = "127.0.0.1";

/// The display's end of the link, and a place where its meter may listen.
class Client : public testing::Test {
protected:
    void Connect() { ASSERT_EQ(connectToServer(kHere, listener.port()), 0); }
    int Call() { return ALARMSINTERFACE_getGlobalAlarmStatus(word); }

    Listener listener;
    std::uint32_t word = 77;
};

TEST_F(Client, TouchesNothingBeforeItIsConnectedAndHoldsOffForSixteenSecondsAfterBothAttemptsFailed) {
    EXPECT_EQ(Call(), -1);
    EXPECT_EQ(word, 77U);
    // Each attempt to connect to a senseless address leaves a line and an empty one.
    const auto attemptsOf = [](auto call) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(call(), -1);
        return std::ranges::count(testing::internal::GetCapturedStdout(), '\n') / 2;
    };
    const auto call = [this] { return Call(); };
    EXPECT_EQ(attemptsOf([] { return connectToServer("no address", 1); }), 1);
    EXPECT_EQ(attemptsOf(call), 2) << "the first call tries twice";
    EXPECT_EQ(word, 0U);
    EXPECT_EQ(attemptsOf(call), 0);
    secondsNow += 15;
    EXPECT_EQ(attemptsOf(call), 0);
    secondsNow += 1;
    EXPECT_EQ(attemptsOf(call), 2);
    secondsNow += 15;
    EXPECT_EQ(attemptsOf(call), 0) << "a failed retry holds off anew";
    Connect();  // by hand, which does not ask the hold-off
}

TEST_F(Client, SendsAgainWhenAnIdleConnectionWasReset) {
    Connect();
    listener.Accept().Reset();
    std::jthread meter([this] {
        Peer display = listener.Accept();
        EXPECT_EQ(display.ReceiveRequest(), Request("ALARMSINTERFACE_getGlobalAlarmStatus", "", 4));
        display.Send(Word(12));
        EXPECT_EQ(display.ReceiveRequest(), Request("DISPTASK_nop", "", 0)) << "the new connection is kept";
    });
    EXPECT_EQ(Call(), 0);
    EXPECT_EQ(word, 12U);
    EXPECT_EQ(DISPTASK_nop(), 0);
}

TEST_F(Client, CollectsAReplyThatComesInPiecesAndKeepsThePartOfOneThatBreaksOff) {
    std::jthread meter([this] {
        Peer first = listener.Accept();
        first.ReceiveRequest();
        for (const char* piece : {"\1", "\2\3", "\4"}) {
            first.Send(piece);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        first.ReceiveRequest();
        first.Send("\5\6");
        first.Close();
        Peer second = listener.Accept();
        second.ReceiveRequest();
        second.Send(Word(9));
    });
    Connect();
    EXPECT_EQ(Call(), 0);
    EXPECT_EQ(word, 0x04030201U);
    EXPECT_EQ(Call(), -1);
    EXPECT_EQ(word, 0x0605U) << "what came, and zeros";
    EXPECT_EQ(Call(), 0) << "the next call finds a new connection";
    EXPECT_EQ(word, 9U);
}

TEST_F(Client, TakesNoBytesForAReplyThatCameBeforeItsCall) {
    std::jthread meter([this] {
        Peer first = listener.Accept();
        first.ReceiveRequest();
        first.Send(Word(1) + Word(1));
        Peer second = listener.Accept();
        second.ReceiveRequest();
        second.Send(Word(2));
        EXPECT_TRUE(first.IsClosedByOther());
    });
    Connect();
    for (const std::uint32_t expected : {1U, 2U}) {
        EXPECT_EQ(Call(), 0);
        EXPECT_EQ(word, expected);
    }
}

TEST_F(Client, GivesASilentMeterUpAfterThreeSeconds) {
    Connect();
    Peer silent = listener.Accept();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Call(), -1);
    EXPECT_EQ(word, 0U);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(2900));
    EXPECT_LT(waited, std::chrono::milliseconds(4500));
    silent.ReceiveRequest();
    EXPECT_TRUE(silent.IsClosedByOther());
}

TEST_F(Client, GivesAReplyUpThatTakesMoreThanTenSeconds) {
    std::jthread meter([this] {
        Peer display = listener.Accept();
        display.ReceiveRequest();
        display.Send(std::string_view("\1\2", 2));
        std::this_thread::sleep_for(std::chrono::milliseconds(200));  // in which the client has read them
        secondsNow += 11;
        display.Send(std::string_view("\3", 1));
        EXPECT_TRUE(display.IsClosedByOther());
    });
    Connect();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Call(), -1);
    EXPECT_EQ(word & 0xFFFFU, 0x0201U) << "what came";
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST_F(Client, SendsFramesOf4096BytesAndNoneBeyond) {
    CountingMeter meter;
    ASSERT_EQ(connectToServer(kHere, meter.port()), 0);
    RdaClient& client = RdaClient::instance();
    constexpr std::array<std::uint8_t, 4096 - 17 - 3 + 1> kTooLong{};
    std::uint8_t reply = 77;
    EXPECT_EQ(client.call("abc", kTooLong.size(), kTooLong.data(), 1, &reply), 0);
    EXPECT_EQ(client.call("abc", 0xFFFFFFFF, kTooLong.data(), 1, &reply), 0);
    EXPECT_EQ(client.call(std::string(5000, 'n').c_str(), 0, nullptr, 1, &reply), 0);
    EXPECT_EQ(reply, 77);
    EXPECT_EQ(client.call("abc", kTooLong.size() - 1, kTooLong.data(), 1, &reply), 1);
    EXPECT_EQ(reply, 0);
    (void)connectToServer(kHere, UnusedPort());
    const auto& requests = meter.Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].size(), 4096U);
}

TEST_F(Client, ServesTenTasksAndTurnsTheEleventhAway) {
    std::uint8_t* const mine = rdaTaskBuffer();
    ASSERT_NE(mine, nullptr);
    std::latch claimed{9};
    std::latch end{1};
    std::array<std::jthread, 9> owners;
    for (auto& owner : owners) {
        owner = std::jthread([&] {
            std::uint8_t* const own = rdaTaskBuffer();
            EXPECT_NE(own, nullptr);
            claimed.count_down();
            end.wait();
            EXPECT_EQ(rdaTaskBuffer(), own);
        });
    }
    claimed.wait();
    testing::internal::CaptureStdout();
    std::thread([this] {
        EXPECT_EQ(Call(), -1);
        EXPECT_EQ(DISPLAYMODE_setAltMode(1, word), -1);
        EXPECT_EQ(word, 77U);
    }).join();
    const std::string line = "Failed to create task context for RDA client!\n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), line + line);
    end.count_down();
    EXPECT_EQ(rdaTaskBuffer(), mine);
}

TEST_F(Client, KeepsTheCallsOfManyTasksApart) {
    std::jthread meter([this] {
        Peer display = listener.Accept();
        while (true) {
            const std::string request = display.ReceiveRequest();
            if (request.size() < 16) return;
            display.Send(request.substr(request.size() - 8, 4));  // the payload's word comes back
        }
    });
    Connect();
    std::array<std::jthread, 4> tasks;
    for (std::uint32_t task = 0; task < tasks.size(); ++task) {
        tasks[task] = std::jthread([task] {
            for (std::uint32_t i = 0; i < 100; ++i) {
                std::uint32_t echoed = 0;
                EXPECT_EQ(DISPLAYMODE_setAltMode(task << 16 | i, echoed), 0);
                EXPECT_EQ(echoed, task << 16 | i);
            }
        });
    }
    for (auto& task : tasks) task.join();
    (void)connectToServer(kHere, UnusedPort());
}

}  // namespace
