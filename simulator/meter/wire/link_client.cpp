#include "simulator/meter/wire/link_client.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>

#include "rda/frame.h"
#include "rda/wire.h"
#include "simulator/descriptor.h"

namespace meter {
namespace {

using std::chrono::milliseconds;

void AppendWord(std::vector<std::byte>& frame, std::size_t value) {
    WireU32 word{};
    word.Set(static_cast<std::uint32_t>(value));
    const auto bytes = std::as_bytes(std::span(&word, 1));
    frame.insert(frame.end(), bytes.begin(), bytes.end());
}

bool Waits(int socket, short events, milliseconds patience) {
    pollfd waiting{socket, events, 0};
    return ::poll(&waiting, 1, static_cast<int>(patience.count())) == 1;
}

/// Connects without waiting for a callee whose queue of callers is full.
void Connect(int socket, const std::string& address, std::uint16_t port, milliseconds patience) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    const std::string name = address + ":" + std::to_string(port);
    if (::inet_pton(AF_INET, address.c_str(), &place.sin_addr) != 1) throw CallFailed(address + " is no address");
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&place), sizeof(place)) == 0) return;
    int failure = errno;
    if (failure == EINPROGRESS) {
        if (!Waits(socket, POLLOUT, patience)) throw CallFailed(name + " does not take the connection");
        socklen_t length = sizeof(failure);
        ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &failure, &length);
    }
    if (failure == ECONNREFUSED) throw CallFailed("nobody listens on " + name);
    if (failure != 0) throw CallFailed("cannot connect to " + name + ": " + std::generic_category().message(failure));
}

}  // namespace

std::vector<std::byte> FrameOf(std::string_view name, std::span<const std::byte> payload, std::uint32_t replySize) {
    std::vector<std::byte> frame;
    AppendWord(frame, rda::kMagic);
    AppendWord(frame, name.size() + 1);
    const auto text = std::as_bytes(std::span(name));
    frame.insert(frame.end(), text.begin(), text.end());
    frame.push_back(std::byte{0});
    AppendWord(frame, payload.size());
    frame.insert(frame.end(), payload.begin(), payload.end());
    AppendWord(frame, replySize);
    return frame;
}

std::vector<std::byte> CallOnce(const std::string& address, std::uint16_t port, std::string_view operation,
                                std::span<const std::byte> payload, std::uint32_t replySize, milliseconds patience) {
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket) throw CallFailed(std::string("no socket: ") + std::generic_category().message(errno));
    Connect(socket.Get(), address, port, patience);
    const auto frame = FrameOf(operation, payload, replySize);
    if (::send(socket.Get(), frame.data(), frame.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(frame.size()))
        throw CallFailed("the request could not be sent");
    std::vector<std::byte> reply(replySize);
    for (std::size_t have = 0; have < reply.size();) {
        const std::string progress =
            "after " + std::to_string(have) + " of " + std::to_string(replySize) + " bytes of the reply";
        if (!Waits(socket.Get(), POLLIN, patience))
            throw CallFailed("silence of " + std::to_string(patience.count()) + " ms " + progress);
        const ssize_t count = ::recv(socket.Get(), reply.data() + have, reply.size() - have, 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) continue;
        if (count <= 0) throw CallFailed("the connection ended " + progress);
        have += static_cast<std::size_t>(count);
    }
    return reply;
}

}  // namespace meter
