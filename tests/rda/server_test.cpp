#include "rda/server.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "rda/client.h"
#include "tests/rda/loopback.h"

namespace {

std::vector<std::string> payloads;
std::vector<std::uint32_t> told;

/// Keeps the payload and answers 1, 2, 3...
void Keep(std::uint32_t payloadSize, const std::uint8_t* payload, std::uint32_t responseSize, std::uint8_t** response) {
    payloads.emplace_back(reinterpret_cast<const char*>(payload), payloadSize);
    for (std::uint32_t i = 0; i < responseSize; ++i) (*response)[i] = static_cast<std::uint8_t>(i + 1);
}

void AnswerNine(std::uint32_t /*payloadSize*/, const std::uint8_t* /*payload*/, std::uint32_t responseSize,
                std::uint8_t** response) {
    if (responseSize != 0) (*response)[0] = 9;
}

/// A server that serves one connection on its own thread.
class Server : public testing::Test {
protected:
    void SetUp() override {
        m_server.registerHandler("keep", Keep);
        m_server.registerHandler("nine", AnswerNine);
        m_server.setConnectionCallback([](std::uint32_t connected) { told.push_back(connected); });
    }

    Peer Connect() {
        if (m_thread.joinable()) m_thread.join();
        m_thread = std::jthread([this] { m_server.serve(m_port, "127.0.0.1", 0, 0); });
        return Peer::ConnectTo(m_port);
    }

    RdaServer m_server;
    std::uint16_t m_port = UnusedPort();
    std::jthread m_thread;
};

TEST_F(Server, AnswersOneRequestAfterTheOtherAndDropsThoseForUnknownOperations) {
    Peer client = Connect();
    client.Send(Request("keep", "abc", 3));
    EXPECT_EQ(client.Receive(3), "\1\2\3");
    client.Send(Request("Keep", "abc", 4) + Request("unknown", "", 100'000) + Request(std::string(103, 'n'), "", 4));
    client.Send(Request("keep", "", 0));
    client.Send(Request("nine", "", 4));
    EXPECT_EQ(client.Receive(4), Word(9)) << "what a handler does not write is zero";
    client.Send(Request("keep", std::string(1024, 'p'), 8192));
    EXPECT_EQ(client.Receive(8192).size(), 8192U);
    client.Close();
    m_thread.join();
    EXPECT_EQ(payloads, (std::vector<std::string>{"abc", "", std::string(1024, 'p')}));
    EXPECT_EQ(told, (std::vector<std::uint32_t>{0, 1, 0}));
}

TEST_F(Server, HangsUpOnWhoeverBreaksTheForm) {
    const std::pair<const char*, std::string> breaches[] = {
        {"wrong magic", "%%RS" + Request("keep", "", 1).substr(4)},
        {"no name", "%%RR" + Word(0) + Word(0) + Word(1)},
        {"the name ends before its size", "%%RR" + Word(6) + "keep" + Hex("00 00") + Word(0) + Word(1)},
        {"the name does not end", "%%RR" + Word(4) + "keep" + Word(0) + Word(1)},
        {"a name beyond the buffer", "%%RR" + Word(105) + std::string(104, 'n') + '\0' + Word(0) + Word(1)},
        {"an endless name", "%%RR" + Word(0xFFFFFFFF) + std::string(9000, 'n')},
        {"a payload beyond the buffer", Request("keep", std::string(1025, 'p'), 1)},
        {"a response beyond the buffer", Request("keep", "", 8193)},
        {"an endless response", Request("keep", "", 0xFFFFFFFF)},
    };
    for (const auto& [breach, bytes] : breaches) {
        Peer client = Connect();
        client.Send(bytes);
        EXPECT_TRUE(client.IsClosedByOther()) << breach;
    }
    EXPECT_TRUE(payloads.empty());
}

TEST_F(Server, CarriesNothingOutOfARequestThatIsCutAnywhere) {
    const std::string request = Request("keep", "abc", 3);
    for (std::size_t sent = 0; sent < request.size(); ++sent) {
        Peer client = Connect();
        client.Send(request.substr(0, sent));
        client.Close();
        m_thread.join();
        ASSERT_TRUE(payloads.empty()) << "after " << sent << " bytes";
    }
    EXPECT_EQ(told.size(), 3 * request.size()) << "each time it waited, served, and waited again";
}

TEST_F(Server, ReplacesAHandlerTakesAHundredNamesAndCutsThemToNinetyNineCharacters) {
    const std::string name(120, 'n');
    m_server.registerHandler(name.c_str(), Keep);
    m_server.registerHandler((name + "again").c_str(), AnswerNine);
    for (int i = 3; i < 101; ++i) m_server.registerHandler(("operation" + std::to_string(i)).c_str(), Keep);
    m_server.registerHandler("nine", Keep);
    Peer client = Connect();
    client.Send(Request("operation100", "", 1));  // the hundred and first
    client.Send(Request(name.substr(0, 99), "", 1));
    EXPECT_EQ(client.Receive(1), "\t");
    client.Send(Request("operation99", "", 1) + Request("nine", "", 2));
    EXPECT_EQ(client.Receive(3), "\1\1\2") << "a full table still replaces";
}

TEST_F(Server, IsDoneWithAClientThatIsGoneBeforeItsAnswer) {
    static Peer* leaving = nullptr;
    m_server.registerHandler("leave", [](std::uint32_t, const std::uint8_t*, std::uint32_t, std::uint8_t**) {
        leaving->Reset();
        payloads.emplace_back("too late");
    });
    Peer client = Connect();
    leaving = &client;
    client.Send(Request("leave", "", 8) + Request("keep", "", 1));
    m_thread.join();
    EXPECT_EQ(payloads, std::vector<std::string>{"too late"}) << "and not the request behind it";
}

TEST_F(Server, ReturnsWhenNobodyComesInTime) {
    m_server.serve(m_port, nullptr, 0, 1);
    EXPECT_EQ(told, (std::vector<std::uint32_t>{0, 0}));
}

TEST_F(Server, DropsASilentClientWhoseNextCallConnectsAnew) {
    static std::atomic<std::uint32_t> isConnected = 0;
    static RdaServer& forever = *new RdaServer;  // in use until the process ends
    forever.registerHandler("nine", AnswerNine);
    forever.setConnectionCallback([](std::uint32_t connected) { isConnected = connected; });
    std::thread([port = m_port] { forever.serve(port, "127.0.0.1", 1, 0); }).detach();
    { Peer::ConnectTo(m_port); }  // the server is up, and outlives a client that leaves
    ASSERT_EQ(connectToServer("127.0.0.1", m_port), 0);
    std::uint8_t reply = 0;
    EXPECT_EQ(RdaClient::instance().call("nine", 0, nullptr, 1, &reply), 1);
    const auto start = std::chrono::steady_clock::now();
    while (isConnected == 1) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4900));
    reply = 0;
    EXPECT_EQ(RdaClient::instance().call("nine", 0, nullptr, 1, &reply), 1);
    EXPECT_EQ(reply, 9);
}

}  // namespace
