#include "simulator/meter/link/meter_server.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "rda/records.h"
#include "simulator/meter/link/console.h"
#include "simulator/meter/link/control_socket.h"
#include "tests/simulator/frames.h"

namespace {

using namespace meter;
using bench::Bytes;

constexpr int kPatience = 200;  // milliseconds that a step may take before it counts as nothing

/// A client of the meter on loopback.
class Client {
public:
    explicit Client(std::uint16_t port) : m_socket(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_connected = ::connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    }

    bool IsConnected() const { return m_connected; }
    void Send(const Bytes& bytes) const {
        EXPECT_EQ(::send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    }
    /// What has arrived; -1 when the connection is gone, 0 when nothing came.
    ssize_t Receive(std::span<std::byte> buffer, int patience = kPatience) const {
        pollfd waiting{m_socket.Get(), POLLIN, 0};
        if (::poll(&waiting, 1, patience) != 1) return 0;
        const ssize_t count = ::recv(m_socket.Get(), buffer.data(), buffer.size(), 0);
        return count == 0 ? -1 : count;
    }

private:
    Descriptor m_socket;
    bool m_connected = false;
};

class Server : public testing::Test {
protected:
    /// Lets the server take what was sent. Loopback delivers before send returns.
    void Serve(std::chrono::milliseconds later = {}) {
        for (int i = 0; i < 3; ++i) m_server.Serve(m_now + later);
    }

    ssize_t ReceiveAll(const Client& client) {
        ssize_t all = 0;
        for (ssize_t count; (count = client.Receive(m_buffer, 0)) > 0;) all += count;
        return all;
    }

    MeterServer::Time m_now = std::chrono::steady_clock::now();
    Meter m_meter{bench::kSeed, bench::kStart};
    MeterServer m_server{m_meter, 0};
    DisplayLink m_display{1};  // nobody listens there
    Console m_console{m_meter, m_server, m_display, bench::kSeed};
    const Bytes m_ask = bench::Call("DATETIMEINTERFACE_getLocalDateTimeStrings", {}, 23);
    std::array<std::byte, 4096> m_buffer{};
};

TEST_F(Server, AnswersSeveralClientsAndFramesInPieces) {
    const Client first(m_server.Port());
    const Client second(m_server.Port());
    first.Send(Bytes(m_ask.begin(), m_ask.begin() + 10));
    Serve();
    second.Send(m_ask);
    Serve();
    EXPECT_EQ(first.Receive(m_buffer, 0), 0);
    EXPECT_EQ(second.Receive(m_buffer), 23);
    first.Send(Bytes(m_ask.begin() + 10, m_ask.end()));
    Serve();
    EXPECT_EQ(first.Receive(m_buffer), 23);
    EXPECT_EQ(m_server.ConnectionCount(), 2U);
}

TEST_F(Server, DropsTheClientThatSendsRubbish) {
    const Client rubbish(m_server.Port());
    const Client good(m_server.Port());
    rubbish.Send(bench::Words({1, 2, 3}));
    good.Send(bench::Call("NO_SUCH_CALL", {}, 4));
    good.Send(m_ask);
    Serve();
    EXPECT_EQ(rubbish.Receive(m_buffer), -1);
    EXPECT_EQ(good.Receive(m_buffer), 23);
    EXPECT_EQ(m_server.UnansweredCount(), 1U);
}

TEST_F(Server, MisbehavesAsTold) {
    const Client client(m_server.Port());
    ASSERT_EQ(m_console.Execute("fault silent"), "ok");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(client.Receive(m_buffer, 0), 0);
    m_console.Execute("fault half");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(client.Receive(m_buffer), 11);
    m_console.Execute("fault slow");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(client.Receive(m_buffer, 0), 0);
    Serve(std::chrono::milliseconds(1500));
    EXPECT_EQ(client.Receive(m_buffer), 23);
    m_console.Execute("fault late");
    client.Send(m_ask);
    Serve(std::chrono::milliseconds(3900));
    EXPECT_EQ(client.Receive(m_buffer, 0), 0);
    Serve(std::chrono::milliseconds(8000));
    EXPECT_EQ(client.Receive(m_buffer), 23);
    m_console.Execute("fault drip");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(client.Receive(m_buffer), 1);
    Serve(std::chrono::milliseconds(2000));
    EXPECT_EQ(client.Receive(m_buffer), 2);
    Serve(std::chrono::milliseconds(60'000));
    EXPECT_EQ(ReceiveAll(client), 20);
    m_console.Execute("fault flood");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(ReceiveAll(client), 3 * 23);
    m_console.Execute("fault cut");
    const Client cut(m_server.Port());
    cut.Send(m_ask);
    Serve();
    EXPECT_EQ(cut.Receive(m_buffer), 11);
    EXPECT_EQ(cut.Receive(m_buffer), -1);
    m_console.Execute("fault reset");
    client.Send(m_ask);
    Serve();
    EXPECT_EQ(client.Receive(m_buffer), -1);
    m_console.Execute("fault absent");
    EXPECT_FALSE(Client(m_server.Port()).IsConnected());
    m_console.Execute("fault none");
    const Client again(m_server.Port());
    again.Send(m_ask);
    Serve();
    EXPECT_EQ(again.Receive(m_buffer), 23);
}

TEST_F(Server, GarbageHasTheRightLengthAndIsRepeatable) {
    const Frame ask{"DATETIMEINTERFACE_getLocalDateTimeStrings", {}, 23};
    const auto truth = m_server.Take(ask).reply;
    m_console.Execute("fault garbage");
    const auto first = m_server.Take(ask).reply;
    const auto second = m_server.Take(ask).reply;
    EXPECT_EQ(first.size(), 23U);
    EXPECT_NE(first, truth);
    EXPECT_NE(first, second);
    Meter twin{bench::kSeed, bench::kStart};
    MeterServer other{twin};
    other.SetFault(Fault::Garbage);
    EXPECT_EQ(other.Take(ask).reply, first);
    EXPECT_TRUE(m_server.Take({"NO_SUCH_CALL", {}, 4}).reply.empty());
}

TEST_F(Server, SpoilsTheFieldsOfAReplyAndNothingElse) {
    const Frame bar{"PQINTERFACE_getMinMaxBarData", bench::Words({111, 111, 111}), sizeof(MinMaxBarData)};
    const Frame text{"PDMINTERFACE_getRegisterValue", bench::Words({111}), sizeof(RegisterValue)};
    const Frame count{"EVLIF_getEventLogEntryCount", {}, 4};
    const auto trueCount = m_server.Take(count).reply;
    m_console.Execute("fault infinite");
    MinMaxBarData values{};
    const auto spoiled = m_server.Take(bar).reply;
    ASSERT_EQ(spoiled.size(), sizeof values);
    std::memcpy(&values, spoiled.data(), sizeof values);
    for (const MinMaxValue& value : {values.minimum, values.maximum, values.present})
        EXPECT_FALSE(std::isfinite(value.value.Get()));
    EXPECT_EQ(m_server.Take(count).reply, trueCount);
    m_console.Execute("fault endless");
    EXPECT_EQ(m_server.Take(text).reply, Bytes(sizeof(RegisterValue), std::byte{'W'}));
    m_console.Execute("fault huge");
    EXPECT_EQ(m_server.Take(count).reply, Bytes(4, std::byte{0xFF}));
}

TEST_F(Server, ConsoleAnswersEveryLineWithOneLine) {
    EXPECT_EQ(m_console.Execute("scenario sag"), "ok");
    EXPECT_EQ(m_console.Execute("advance 30"), "ok");
    EXPECT_EQ(m_console.Execute("set 111 600"), "ok");
    EXPECT_EQ(m_console.Execute("get 111"), "ok CT primary: 600.00 A");
    EXPECT_EQ(m_console.Execute("language 1\r"), "ok, the display does not answer");
    EXPECT_EQ(m_console.Execute("set 1914 Klingon"), "error Not one of the choices");
    for (std::string_view line :
         {"", " ", "bogus", "navigate", "navigate x", "navigate 68", "key", "key 9", "key soft1 sideways", "fault",
          "scenario", "set", "set x", "get 99999", "language 6", "advance 9999999"})
        EXPECT_TRUE(m_console.Execute(line).starts_with("error")) << line;
    const auto state = nlohmann::json::parse(m_console.State());
    EXPECT_EQ(state["scenario"], "sag");
    EXPECT_EQ(state["language"], 1);
    EXPECT_GE(state["activeAlarms"], 1);
    EXPECT_EQ(m_console.State().find('\n'), std::string::npos);
}

TEST_F(Server, EveryScenarioCanBePlayed) {
    for (const Scenario& scenario : Scenarios()) {
        ASSERT_TRUE(m_console.Play(scenario.name)) << scenario.name;
        EXPECT_EQ(m_server.GetFault(), scenario.fault);
        m_meter.Advance(2000);
    }
}

TEST_F(Server, ControlSocketAnswersLinesAndSurvivesLongOnes) {
    const auto path = std::filesystem::temp_directory_path() / ("meter-control-" + std::to_string(::getpid()));
    ControlSocket control(path, [this](std::string_view line) { return m_console.Execute(line); });
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::ranges::copy(path.string(), address.sun_path);
    const auto connectTo = [&] {
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
        EXPECT_EQ(::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        return socket;
    };
    const Descriptor endless = connectTo();
    const Descriptor client = connectTo();
    const std::string flood(5000, 'x');
    ASSERT_GT(::send(endless.Get(), flood.data(), flood.size(), MSG_NOSIGNAL), 0);
    const std::string_view lines = "scenario harmonics\nbogus\nget ";
    ASSERT_EQ(::send(client.Get(), lines.data(), lines.size(), 0), static_cast<ssize_t>(lines.size()));
    for (int i = 0; i < 3; ++i) control.Serve();
    std::array<char, 256> answer{};
    const ssize_t count = ::recv(client.Get(), answer.data(), answer.size(), MSG_DONTWAIT);
    ASSERT_GT(count, 0);
    EXPECT_EQ(std::string_view(answer.data(), static_cast<std::size_t>(count)), "ok\nerror unknown command\n");
    EXPECT_LE(::recv(endless.Get(), answer.data(), answer.size(), MSG_DONTWAIT), 0);
}

}  // namespace
