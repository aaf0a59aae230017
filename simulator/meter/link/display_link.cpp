#include "simulator/meter/link/display_link.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>

#include "rda/frame.h"
#include "rda/wire.h"
#include "simulator/descriptor.h"

namespace meter {
namespace {

constexpr int kPatience = 1000;  // milliseconds for a reply

void AppendWord(std::vector<std::byte>& frame, std::size_t value) {
    WireU32 word{};
    word.Set(static_cast<std::uint32_t>(value));
    const auto bytes = std::as_bytes(std::span(&word, 1));
    frame.insert(frame.end(), bytes.begin(), bytes.end());
}

std::vector<std::byte> FrameOf(std::string_view name, std::span<const std::byte> payload, std::uint32_t responseSize) {
    std::vector<std::byte> frame;
    AppendWord(frame, rda::kMagic);
    AppendWord(frame, name.size() + 1);
    const auto text = std::as_bytes(std::span(name));
    frame.insert(frame.end(), text.begin(), text.end());
    frame.push_back(std::byte{0});
    AppendWord(frame, payload.size());
    frame.insert(frame.end(), payload.begin(), payload.end());
    AppendWord(frame, responseSize);
    return frame;
}

/// Connects without waiting for a display whose queue of callers is full.
bool ConnectTo(int socket, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0) return true;
    if (errno != EINPROGRESS) return false;
    pollfd waiting{socket, POLLOUT, 0};
    int failure = 0;
    socklen_t length = sizeof(failure);
    return ::poll(&waiting, 1, kPatience) == 1 && ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &failure, &length) == 0 &&
           failure == 0;
}

bool ReadAll(int socket, std::span<std::byte> reply) {
    while (!reply.empty()) {
        pollfd waiting{socket, POLLIN, 0};
        if (::poll(&waiting, 1, kPatience) != 1) return false;
        const ssize_t count = ::recv(socket, reply.data(), reply.size(), 0);
        if (count <= 0) return false;
        reply = reply.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

std::optional<std::vector<std::byte>> DisplayLink::Call(std::string_view operation, std::span<const std::byte> payload,
                                                        std::uint32_t responseSize) const {
    const auto start = std::chrono::steady_clock::now();
    auto reply = Exchange(operation, payload, responseSize);
    if (m_observer) {
        const auto taken = std::chrono::steady_clock::now() - start;
        m_observer({.to = Callee::Display,
                    .operation = operation,
                    .payload = payload,
                    .reply = reply ? std::span<const std::byte>(*reply) : std::span<const std::byte>(),
                    .taken = std::chrono::duration_cast<std::chrono::microseconds>(taken),
                    .result = reply ? "ok" : "failed"});
    }
    return reply;
}

std::optional<std::vector<std::byte>> DisplayLink::Exchange(std::string_view operation,
                                                            std::span<const std::byte> payload,
                                                            std::uint32_t responseSize) const {
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!socket || !ConnectTo(socket.Get(), m_port)) return std::nullopt;
    const auto frame = FrameOf(operation, payload, responseSize);
    if (::send(socket.Get(), frame.data(), frame.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(frame.size()))
        return std::nullopt;
    std::vector<std::byte> reply(responseSize);
    if (!ReadAll(socket.Get(), reply)) return std::nullopt;
    return reply;
}

bool DisplayLink::Send(std::string_view operation, std::uint32_t value) const {
    WireU32 word{};
    word.Set(value);
    return Call(operation, std::as_bytes(std::span(&word, 1)), 0).has_value();
}

}  // namespace meter
