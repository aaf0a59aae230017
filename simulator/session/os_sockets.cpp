#include <arpa/inet.h>
#include <sys/time.h>

#include <cerrno>
#include <cstring>

#include "platform/device.h"
#include "platform/socket.h"
#include "platform/task.h"
#include "simulator/session/descriptors.h"
#include "simulator/session/world.h"

// Sockets of the display in a session: what it sends to the meter's port are calls, which the session's world answers.

namespace os {
namespace {

using namespace session;

constexpr Instant kMicrosecondsPerTick = 1000;

int Fail(int reason) {
    errno = reason;
    return -1;
}

/// Has the calls in what was sent answered.
void Answer(Endpoint& endpoint) {
    meter::Frame call;
    while (!endpoint.ended) {
        const auto result = endpoint.calls.Next(call);
        if (result == meter::FrameReader::Result::NeedMore) return;
        if (result == meter::FrameReader::Result::Broken) {
            endpoint.ended = true;
            return;
        }
        meter::CallOutcome outcome = TheWorld().TakeCall(call);
        endpoint.ended = outcome.reset;
        const std::size_t piece = outcome.pace.count() != 0 ? 1 : outcome.reply.size();
        Instant due = Scheduler::Instance().Now() + outcome.held.count();
        for (std::span<const std::byte> left = outcome.reply; !left.empty();
             left = left.subspan(piece), due += outcome.pace.count())
            endpoint.inbox.push_back({due, {left.begin(), left.begin() + static_cast<std::ptrdiff_t>(piece)}});
    }
}

}  // namespace

int socket(int /*domain*/, int /*type*/, int /*protocol*/) {
    if (IsRefused(OsCall::Socket)) return -1;
    return Descriptors::Instance().Add(std::make_shared<Endpoint>());
}

int bind(int socket, const sockaddr_in* address) {
    if (IsRefused(OsCall::Bind)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr) return Fail(EBADF);
    endpoint->port = ntohs(address->sin_port);
    return 0;
}

int listen(int socket, int /*backlog*/) {
    if (IsRefused(OsCall::Listen)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr) return Fail(EBADF);
    endpoint->role = Role::Listener;
    return 0;
}

int accept(int socket, sockaddr_in* peer) {
    if (IsRefused(OsCall::Accept)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr || endpoint->arrivals.empty()) return Fail(EAGAIN);
    auto arrival = std::move(endpoint->arrivals.front());
    endpoint->arrivals.pop_front();
    *peer = {};
    peer->sin_family = AF_INET;
    peer->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return Descriptors::Instance().Add(std::move(arrival));
}

int setsockopt(int socket, int /*level*/, int option, const void* value, std::size_t length) {
    if (IsRefused(OsCall::SetOption)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr) return Fail(EBADF);
    timeval time{};
    if (option != SO_RCVTIMEO || length != sizeof time) return 0;
    std::memcpy(&time, value, sizeof time);
    endpoint->patience = time.tv_sec * sysClkRateGet() + time.tv_usec / kMicrosecondsPerTick;
    return 0;
}

int shutdown(int socket, int /*how*/) {
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint != nullptr) endpoint->ended = true;
    return endpoint != nullptr ? 0 : Fail(EBADF);
}

ssize_t send(int socket, const void* data, std::size_t length) {
    if (IsRefused(OsCall::Send)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    const std::span bytes(static_cast<const std::byte*>(data), length);
    if (endpoint == nullptr) return Fail(EBADF);
    if (endpoint->role == Role::FromMeter) {
        endpoint->sent.insert(endpoint->sent.end(), bytes.begin(), bytes.end());
        return static_cast<ssize_t>(length);
    }
    if (endpoint->ended || !TheWorld().MeterListens()) return Fail(EPIPE);
    endpoint->calls.Feed(bytes);
    Answer(*endpoint);
    return static_cast<ssize_t>(length);
}

ssize_t recv(int socket, void* buffer, std::size_t length) {
    if (IsRefused(OsCall::Receive)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    return endpoint != nullptr ? ReadFrom(*endpoint, buffer, length) : Fail(EBADF);
}

ssize_t recvAtOnce(int socket, void* buffer, std::size_t length) {
    if (IsRefused(OsCall::Receive)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr) return Fail(EBADF);
    return endpoint->IsReadable(Scheduler::Instance().Now()) ? ReadFrom(*endpoint, buffer, length) : Fail(EAGAIN);
}

int connectWithTimeout(int socket, const sockaddr_in* /*address*/, const timeval* /*timeout*/) {
    if (IsRefused(OsCall::Connect)) return -1;
    const auto endpoint = Descriptors::Instance().Find(socket);
    if (endpoint == nullptr) return Fail(EBADF);
    if (!TheWorld().MeterListens()) return Fail(ECONNREFUSED);
    endpoint->role = Role::ToMeter;
    return 0;
}

}  // namespace os
