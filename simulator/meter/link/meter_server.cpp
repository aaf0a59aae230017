#include "simulator/meter/link/meter_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "simulator/meter/link/spoiled_reply.h"

namespace meter {
namespace {

constexpr auto kSlowness = std::chrono::milliseconds(1000);
constexpr auto kLateness = std::chrono::milliseconds(4000);  // the display waits three seconds
constexpr auto kDripPace = std::chrono::milliseconds(1000);
constexpr int kFloodCopies = 3;
constexpr std::size_t kReadSize = 4096;

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

/// Lets the close of a socket reset the connection at once.
void ResetOnClose(int socket) {
    const linger abrupt{.l_onoff = 1, .l_linger = 0};
    ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &abrupt, sizeof(abrupt));
}

}  // namespace

MeterServer::MeterServer(Meter& meter, std::uint16_t port)
    : m_meter(meter), m_listens(true), m_port(port), m_garbage(meter.ConnectionId()) {
    Listen();
}

void MeterServer::Listen() {
    m_listener = Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!m_listener) Fail("socket");
    const int on = 1;
    ::setsockopt(m_listener.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(m_port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener.Get(), generic, sizeof(address)) != 0) Fail("bind to the meter's port");
    if (::listen(m_listener.Get(), SOMAXCONN) != 0) Fail("listen");
    socklen_t length = sizeof(address);
    ::getsockname(m_listener.Get(), generic, &length);
    m_port = ntohs(address.sin_port);
}

void MeterServer::SetFault(Fault fault) {
    if (fault == Fault::Absent) {
        for (Connection& connection : m_connections) ResetOnClose(connection.socket.Get());
        m_connections.clear();
        m_listener.Close();
    }
    if (m_listens && m_fault == Fault::Absent && fault != Fault::Absent) Listen();
    m_fault = fault;
}

void MeterServer::Watch(std::vector<pollfd>& polled) const {
    if (m_listener) polled.push_back({m_listener.Get(), POLLIN, 0});
    for (const Connection& connection : m_connections) {
        const bool full = connection.replies.size() >= kMaxReplies;
        const bool writing = !connection.replies.empty() && connection.replies.front().sent > 0;
        polled.push_back(
            {connection.socket.Get(), static_cast<short>((full ? 0 : POLLIN) | (writing ? POLLOUT : 0)), 0});
    }
}

int MeterServer::Serve(Time now) {
    Accept();
    std::erase_if(m_connections,
                  [&](Connection& connection) { return !Read(connection, now) || !Write(connection, now); });
    int wait = -1;
    for (const Connection& connection : m_connections) {
        if (connection.replies.empty()) continue;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(connection.replies.front().due - now).count();
        const int milliseconds = static_cast<int>(std::max<std::int64_t>(left, 0));
        if (left > 0) wait = wait < 0 ? milliseconds : std::min(wait, milliseconds);
    }
    return wait;
}

void MeterServer::Accept() {
    while (m_listener && m_connections.size() < kMaxConnections) {
        Descriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!socket) return;
        const int on = 1;
        ::setsockopt(socket.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
        m_connections.emplace_back().socket = std::move(socket);
    }
}

bool MeterServer::Read(Connection& connection, Time now) {
    std::array<std::byte, kReadSize> buffer;
    while (connection.replies.size() < kMaxReplies) {
        const ssize_t count = ::recv(connection.socket.Get(), buffer.data(), buffer.size(), 0);
        if (count == 0) return false;
        if (count < 0) return errno == EAGAIN || errno == EINTR;
        connection.reader.Feed(std::span(buffer).first(static_cast<std::size_t>(count)));
        Frame frame;
        FrameReader::Result result = connection.reader.Next(frame);
        for (; result == FrameReader::Result::Ready; result = connection.reader.Next(frame))
            if (!Answer(connection, frame, now)) return false;
        if (result == FrameReader::Result::Broken) {
            ResetOnClose(connection.socket.Get());
            return false;
        }
    }
    return true;
}

bool MeterServer::Answer(Connection& connection, const Frame& frame, Time now) {
    CallOutcome outcome = Take(frame);
    if (outcome.reset && outcome.reply.empty()) {
        ResetOnClose(connection.socket.Get());
        return false;
    }
    connection.isEnding = outcome.reset;
    const std::size_t piece = outcome.pace.count() != 0 ? 1 : outcome.reply.size();
    Time due = now + outcome.held;
    for (std::span<const std::byte> left = outcome.reply; !left.empty();
         left = left.subspan(piece), due += outcome.pace)
        connection.replies.push_back({due, {left.begin(), left.begin() + static_cast<std::ptrdiff_t>(piece)}});
    return true;
}

CallOutcome MeterServer::Take(const Frame& frame) {
    ++m_calls;
    const Time arrived = std::chrono::steady_clock::now();
    CallOutcome outcome;
    if (m_fault == Fault::Reset) {
        outcome.reset = true;
        Report(frame, outcome, arrived, FaultName(m_fault));
        return outcome;
    }
    outcome.reply.resize(frame.responseSize);
    if (m_fault == Fault::Silent || !m_meter.Answer(frame.name, frame.payload, outcome.reply)) {
        ++m_unanswered;
        outcome.reply.clear();
        Report(frame, outcome, arrived, m_fault == Fault::Silent ? FaultName(m_fault) : "failed");
        return outcome;
    }
    const bool spoiled = !outcome.reply.empty() && m_fault != Fault::None;
    if (spoiled) Spoil(frame, outcome);
    Report(frame, outcome, arrived, spoiled ? FaultName(m_fault) : "ok");
    return outcome;
}

void MeterServer::Spoil(const Frame& frame, CallOutcome& outcome) {
    std::vector<std::byte>& reply = outcome.reply;
    switch (m_fault) {
        case Fault::Slow: outcome.held = kSlowness; break;
        case Fault::Late: outcome.held = kLateness; break;
        case Fault::Drip: outcome.pace = kDripPace; break;
        case Fault::Cut: outcome.reset = true; [[fallthrough]];
        case Fault::Half: reply.resize(reply.size() / 2); break;
        case Fault::Garbage: std::ranges::generate(reply, [this] { return m_garbage.Byte(); }); break;
        case Fault::Flood: {
            const std::vector<std::byte> once = reply;
            for (int copy = 1; copy < kFloodCopies; ++copy) reply.insert(reply.end(), once.begin(), once.end());
            break;
        }
        default: SpoilFields(m_fault, frame.name, reply);
    }
}

void MeterServer::Report(const Frame& frame, const CallOutcome& outcome, Time arrived, std::string_view result) const {
    if (!m_observer) return;
    const auto taken = std::chrono::steady_clock::now() - arrived + outcome.held;
    m_observer({.operation = frame.name,
                .payload = frame.payload,
                .reply = outcome.reply,
                .taken = std::chrono::duration_cast<std::chrono::microseconds>(taken),
                .result = result});
}

bool MeterServer::Write(Connection& connection, Time now) {
    while (!connection.replies.empty() && connection.replies.front().due <= now) {
        Reply& reply = connection.replies.front();
        while (reply.sent < reply.bytes.size()) {
            const ssize_t count = ::send(connection.socket.Get(), reply.bytes.data() + reply.sent,
                                         reply.bytes.size() - reply.sent, MSG_NOSIGNAL);
            if (count < 0) return errno == EAGAIN || errno == EINTR;
            reply.sent += static_cast<std::size_t>(count);
        }
        connection.replies.pop_front();
    }
    return !connection.isEnding || !connection.replies.empty();
}

}  // namespace meter
