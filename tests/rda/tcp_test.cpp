#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <vector>

#include "rda/tcp_acceptor.h"
#include "rda/tcp_connector.h"
#include "tests/rda/loopback.h"

namespace {

int callsToFail = 0;
int failure = 0;

bool Fails() {
    if (callsToFail == 0) return false;
    --callsToFail;
    errno = failure;
    return true;
}

void FailNextCalls(int count, int error) {
    callsToFail = count;
    failure = error;
}

}  // namespace

// The linker leads the program's calls here, and those of __real_ to the host.
extern "C" {
int __real_connect(int socket, const sockaddr* address, socklen_t length);
int __wrap_connect(int socket, const sockaddr* address, socklen_t length) {
    return Fails() ? -1 : __real_connect(socket, address, length);
}
ssize_t __real_recv(int socket, void* buffer, std::size_t length, int flags);
ssize_t __wrap_recv(int socket, void* buffer, std::size_t length, int flags) {
    return Fails() ? -1 : __real_recv(socket, buffer, length, flags);
}
}

namespace {

constexpr const char* kHere = "127.0.0.1";
constexpr std::uint32_t kRoom = 100;

std::ptrdiff_t OpenDescriptors() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

/// A connector and a listener that it may reach.
class TcpConnector : public testing::Test {
protected:
    int Connect(std::uint32_t seconds = 2) { return connector.connect(kHere, listener.port(), seconds); }

    Listener listener;
    vxTCPConnector connector;
    vxTCPStream& stream = connector.stream();
    std::array<std::uint8_t, kRoom> buffer{};
};

using TcpStream = TcpConnector;

TEST_F(TcpStream, GivesWhatIsThereAndKnowsSilenceFromAnEnd) {
    EXPECT_FALSE(stream.isConnected());
    ASSERT_EQ(Connect(), 0);
    EXPECT_TRUE(stream.isConnected());
    EXPECT_EQ(stream.peerPort(), listener.port());
    EXPECT_STREQ(stream.peerAddress(), kHere);

    Peer peer = listener.Accept();
    peer.Send(CountingBytes(30));
    EXPECT_EQ(stream.receive(buffer.data(), kRoom), 30);
    EXPECT_EQ(buffer[29], 29);
    EXPECT_EQ(stream.receive(buffer.data(), kRoom, 1), 0) << "silence for a second";
    EXPECT_EQ(stream.send(buffer.data(), 30), 30);
    EXPECT_EQ(peer.Receive(30), CountingBytes(30));
    peer.Close();
    EXPECT_EQ(stream.receive(buffer.data(), kRoom), -1);
    EXPECT_EQ(stream.receive(buffer.data(), kRoom, 1), -1);

    const std::ptrdiff_t before = OpenDescriptors();
    stream.close();
    stream.close();
    EXPECT_EQ(OpenDescriptors(), before - 1);
    EXPECT_FALSE(stream.isConnected());
    EXPECT_EQ(stream.peerPort(), 0);
    EXPECT_STREQ(stream.peerAddress(), "");
    EXPECT_EQ(stream.send(buffer.data(), 1), -1);
    EXPECT_EQ(stream.receive(buffer.data(), 1, 1), -1);
}

TEST_F(TcpStream, ReceivesDespiteThreeInterruptionsAndNoMore) {
    ASSERT_EQ(Connect(), 0);
    Peer peer = listener.Accept();
    peer.Send("ab");
    FailNextCalls(3, EINTR);
    EXPECT_EQ(stream.receive(buffer.data(), 1), 1);
    FailNextCalls(4, EINTR);
    EXPECT_EQ(stream.receive(buffer.data(), 1), -1);
    FailNextCalls(1, ECONNRESET);
    EXPECT_EQ(stream.receive(buffer.data(), 1), -1);
    EXPECT_EQ(stream.receive(buffer.data(), 0, 1), 0) << "nothing was asked for";
    EXPECT_EQ(stream.receive(buffer.data(), 0), -1) << "which without a time looks like an end";
    EXPECT_EQ(stream.receive(buffer.data(), 1, 1), 1);
    EXPECT_EQ(buffer[0], 'b');
}

TEST_F(TcpStream, TakesNoSocketForOneAndRefusesToWaitForOneBeyondTheHostsSets) {
    const sockaddr_in nobody{};
    stream.attach(-1, &nobody);
    EXPECT_FALSE(stream.isConnected());
    EXPECT_FALSE(stream.takeUnread());
    vxTCPStream beyond;
    beyond.attach(FD_SETSIZE, &nobody);
    EXPECT_EQ(beyond.receive(buffer.data(), 1, 1), -1);
    EXPECT_EQ(waitUntilReadable(-1, 1), -1);
}

TEST_F(TcpConnector, FailsWithAClosedStreamWhereNobodyListensOrTheAddressMeansNothing) {
    EXPECT_NE(connector.connect(kHere, UnusedPort(), 2), 0);
    EXPECT_FALSE(stream.isConnected());

    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(connector.connect("localhost", 1, 2), -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 12), "inet_pton():");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "vxTCPConnector::connect: Error: could not create socket...\n\n");
    EXPECT_FALSE(stream.isConnected());
}

TEST_F(TcpConnector, ConnectsDespiteThreeInterruptionsAndNoMoreAndHangsUpBefore) {
    FailNextCalls(4, EINTR);
    EXPECT_EQ(Connect(), -1);
    FailNextCalls(3, EINTR);
    EXPECT_EQ(Connect(), 0);
    Peer first = listener.Accept();
    EXPECT_EQ(Connect(), 0);
    EXPECT_TRUE(first.IsClosedByOther());
}

TEST_F(TcpConnector, GivesUpWhereNobodyAnswersInTime) {
    std::vector<Peer> crowd;  // all that the listener keeps waiting
    while (crowd.size() < 6) crowd.push_back(Peer::ConnectTo(listener.port()));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(Connect(1), 0);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(950));
    EXPECT_LT(waited, std::chrono::seconds(3));
}

TEST_F(TcpConnector, SendsACallAtOnceAlthoughTheOneBeforeHadNoReply) {
    using Clock = std::chrono::steady_clock;
    ASSERT_EQ(Connect(), 0);
    Peer peer = listener.Accept();
    std::array<Clock::duration, 15> waits{};
    for (Clock::duration& wait : waits) {
        for (int i = 0; i < 5; ++i) {
            ASSERT_EQ(stream.send(buffer.data(), 1), 1);
            peer.Send(peer.Receive(1));
            ASSERT_EQ(stream.receive(buffer.data(), 1), 1);
        }
        const auto start = Clock::now();
        ASSERT_EQ(stream.send(buffer.data(), 1), 1);
        ASSERT_EQ(stream.send(buffer.data(), 2), 2);
        peer.Receive(3);
        wait = Clock::now() - start;
    }
    std::ranges::nth_element(waits, waits.begin() + waits.size() / 2);
    EXPECT_LT(waits[waits.size() / 2], std::chrono::milliseconds(20)) << "the acknowledgement takes 40 ms";
}

TEST(TcpAcceptor, AcceptsAndResetsAndStopsOnce) {
    const std::uint16_t port = UnusedPort();
    vxTCPAcceptor acceptor;
    acceptor.init(port, kHere);
    EXPECT_FALSE(acceptor.accept(1)->isConnected()) << "not listening yet";
    ASSERT_EQ(acceptor.start(), 0);
    EXPECT_EQ(acceptor.start(), 0);
    EXPECT_FALSE(acceptor.accept(1)->isConnected()) << "nobody came";

    Peer client = Peer::ConnectTo(port);
    vxTCPStream* stream = acceptor.accept(0);
    ASSERT_TRUE(stream->isConnected());
    EXPECT_STREQ(stream->peerAddress(), kHere);
    stream->close();
    EXPECT_TRUE(client.IsClosedByOther());

    testing::internal::CaptureStdout();
    acceptor.stop();
    acceptor.stop();
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed.find("vxTCPAcceptor::stop: Shutting down socket: m_lsd="), 0U);
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 1);
    EXPECT_EQ(acceptor.start(), 0) << "it can start again";
}

TEST(TcpAcceptor, ReportsAPortInUseAndStartsOnceItIsFree) {
    testing::internal::CaptureStderr();
    vxTCPAcceptor acceptor;
    {
        Listener listener;
        acceptor.init(listener.port(), kHere);
        const std::ptrdiff_t before = OpenDescriptors();
        EXPECT_NE(acceptor.start(), 0);
        EXPECT_EQ(OpenDescriptors(), before);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 14), "bind() failed:");
    EXPECT_EQ(acceptor.start(), 0);
    acceptor.stop();
    acceptor.init(0);
    EXPECT_EQ(acceptor.start(), 0) << "on every address, and a port of the host's choice";
    acceptor.stop();
    acceptor.init(1, "not an address");
    EXPECT_NE(acceptor.start(), 0) << "it must not listen on every address instead";
}

}  // namespace
