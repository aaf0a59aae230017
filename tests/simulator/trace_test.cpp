#include "simulator/meter/link/trace.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "simulator/meter/link/control_socket.h"
#include "simulator/meter/link/meter_server.h"
#include "simulator/meter/wire/codec.h"
#include "tests/simulator/frames.h"

namespace {

using namespace meter;

/// A control socket, and readers of it that never wait.
class Traced : public testing::Test {
protected:
    Descriptor Connect() const {
        Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::ranges::copy(m_path.string(), address.sun_path);
        EXPECT_EQ(::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        return socket;
    }
    void Say(const Descriptor& socket, std::string_view line) {
        EXPECT_GT(::send(socket.Get(), line.data(), line.size(), MSG_NOSIGNAL), 0);
        m_control.Serve();
        m_control.Serve();
    }
    static std::string Hear(const Descriptor& socket) {
        std::string heard;
        std::array<char, 65536> buffer;
        for (ssize_t count; (count = ::recv(socket.Get(), buffer.data(), buffer.size(), 0)) > 0;)
            heard.append(buffer.data(), static_cast<std::size_t>(count));
        return heard;
    }

    const std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("meter-trace-" + std::to_string(::getpid()));
    ControlSocket m_control{m_path, [](std::string_view) { return std::string("answer"); }};
};

TEST_F(Traced, OnlyWhoAskedGetsTheLinesUntilHeHasEnough) {
    const Descriptor watcher = Connect();
    const Descriptor other = Connect();
    m_control.Serve();
    EXPECT_FALSE(m_control.IsTraced());
    Say(watcher, "trace on\n");
    Say(other, "state\n");
    m_control.Trace("one");
    Say(watcher, "state\ntrace off\n");
    m_control.Trace("two");
    m_control.Serve();
    EXPECT_EQ(Hear(watcher), "ok\none\nanswer\nok\n");
    EXPECT_EQ(Hear(other), "answer\n");
    EXPECT_FALSE(m_control.IsTraced());
}

TEST_F(Traced, AReaderThatDoesNotReadLosesLinesAndIsToldHowMany) {
    const Descriptor watcher = Connect();
    m_control.Serve();
    Say(watcher, "trace on\n");
    constexpr int kLines = 2000;
    const std::string line(1000, 'x');
    for (int i = 0; i < kLines; ++i) {
        m_control.Trace(line);
        m_control.Serve();
    }
    std::string heard = Hear(watcher);
    for (int i = 0; i < 8; ++i) {
        m_control.Serve();
        heard += Hear(watcher);
    }
    m_control.Trace("end");
    m_control.Serve();
    heard += Hear(watcher);
    const auto whole = static_cast<std::uint64_t>(std::ranges::count(heard, '\n')) - 3;  // ok, lost, end
    const std::string tail = heard.substr(heard.size() - std::min<std::size_t>(heard.size(), 30));
    EXPECT_NE(tail.find("{\"lost\":" + std::to_string(kLines - whole) + "}\nend\n"), std::string::npos) << tail;
    EXPECT_GT(whole, 100U);
}

class TraceLines : public testing::Test {
protected:
    TraceLines() {
        m_server.OnCall([this](const LinkCall& call) {
            m_lines.push_back(nlohmann::json::parse(TraceLine(call, m_lines.size() + 1, m_meter.Now())));
        });
    }
    nlohmann::json Last(std::string_view operation, const bench::Bytes& payload, std::uint32_t size) {
        const Descriptor socket(::socket(AF_INET, SOCK_STREAM, 0));
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(m_server.Port());
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        const bench::Bytes frame = bench::Call(operation, payload, size);
        EXPECT_GT(::send(socket.Get(), frame.data(), frame.size(), 0), 0);
        const std::size_t before = m_lines.size();
        for (int i = 0; i < 100 && m_lines.size() == before; ++i) m_server.Serve(std::chrono::steady_clock::now());
        return m_lines.size() > before ? m_lines.back() : nlohmann::json();
    }

    Meter m_meter{bench::kSeed, bench::kStart};
    MeterServer m_server{m_meter, 0};
    std::vector<nlohmann::json> m_lines;
};

TEST_F(TraceLines, TellTheFieldsOfRequestAndReply) {
    auto line = Last("PDMINTERFACE_getRegisterValue", bench::Words({111}), 264);
    EXPECT_EQ(line["time"], bench::kStart);
    EXPECT_EQ(line["call"], 1);
    EXPECT_EQ(line["operation"], "PDMINTERFACE_getRegisterValue");
    EXPECT_EQ(line["request"], (nlohmann::json{{"registerId", 111}}));
    EXPECT_EQ(line["reply"]["label"], "CT primary");
    EXPECT_EQ(line["bytes"], 264);
    EXPECT_EQ(line["result"], "ok");
    EXPECT_GE(line["us"], 0);
    line = Last("EVLIF_getEventLogData", bench::Words({0, 2}), 256);
    EXPECT_EQ(line["reply"].size(), 2U);
    EXPECT_FALSE(line["reply"][1]["source"].get<std::string>().empty());
    EXPECT_FALSE(line["reply"][0].contains("unused"));
}

TEST_F(TraceLines, NameTheFaultThatSpoiledACall) {
    EXPECT_EQ(Last("NO_SUCH_CALL", bench::Words({0xAB}), 4)["result"], "failed");
    EXPECT_EQ(m_lines.back()["request"]["hex"], "ab000000");
    m_server.SetFault(Fault::Half);
    const auto half = Last("PDMINTERFACE_getRegisterValue", bench::Words({111}), 264);
    EXPECT_EQ(half["result"], "half");
    EXPECT_EQ(half["bytes"], 132);
    EXPECT_TRUE(half["reply"].contains("description"));
    EXPECT_FALSE(half["reply"].contains("label")) << "it did not come whole";
    m_server.SetFault(Fault::Garbage);
    for (const Signature& signature : MeterOperations()) {
        const std::vector<std::string> ones(signature.Arguments().size(), "1");
        const auto payload = EncodeArguments(signature, ones);
        const auto size = ReplySize(signature, payload);
        if (size == 0) continue;
        EXPECT_EQ(Last(signature.name, payload, size)["bytes"], size) << signature.name;
    }
    m_server.SetFault(Fault::Slow);
    EXPECT_GE(Last("DISPTSK_getConnectionId", {}, 4)["us"], 1'000'000);
    EXPECT_EQ(m_lines.back()["result"], "slow");
    m_server.SetFault(Fault::Silent);
    EXPECT_EQ(Last("DISPTSK_getConnectionId", {}, 4)["result"], "silent");
    EXPECT_TRUE(m_lines.back()["reply"].empty());
    m_server.SetFault(Fault::Reset);
    EXPECT_EQ(Last("DISPTASK_nop", {}, 0)["result"], "reset");
}

}  // namespace
