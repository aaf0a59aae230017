#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <nlohmann/json.hpp>
#include <string>

#include "simulator/descriptor.h"
#include "simulator/meter/link/console.h"
#include "tests/simulator/bench.h"

namespace bench {

/// The bytes of one call.
inline Bytes Call(std::string_view name, const Bytes& payload, std::uint32_t responseSize) {
    Bytes frame = Words({0x52522525, static_cast<std::uint32_t>(name.size() + 1)});
    Append(frame, name);
    for (const Bytes& part : {Words({static_cast<std::uint32_t>(payload.size())}), payload, Words({responseSize})})
        frame.insert(frame.end(), part.begin(), part.end());
    return frame;
}

/// A client of a server in this process. Loopback delivers before send returns, so it never waits for long.
class Connection {
public:
    explicit Connection(std::uint16_t port) : m_socket(::socket(AF_INET, SOCK_STREAM, 0)) {
        const sockaddr_in address{AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}};
        const int on = 1;
        ::setsockopt(m_socket.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        m_isOpen = ::connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    explicit Connection(const std::string& path) : m_socket(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{AF_UNIX, {}};
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        m_isOpen = ::connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }

    bool IsOpen() const { return m_isOpen; }
    /// The other end may have hung up.
    void Send(std::span<const std::byte> bytes) const {
        ::send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    void Send(std::string_view text) const { Send(std::as_bytes(std::span(text))); }

    /// All that has arrived.
    std::string Take() {
        constexpr int kPatience = 20;  // milliseconds
        std::string taken;
        std::array<char, 65536> buffer;
        pollfd waiting{m_socket.Get(), POLLIN, 0};
        while (!m_isEnded && ::poll(&waiting, 1, taken.empty() ? kPatience : 0) == 1) {
            const ssize_t count = ::recv(m_socket.Get(), buffer.data(), buffer.size(), 0);
            m_isEnded = count <= 0;
            if (count > 0) taken.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return taken;
    }

    /// Whether the other end was found to have hung up.
    bool IsEnded() const { return m_isEnded; }

protected:
    Descriptor m_socket;

private:
    bool m_isOpen = false;
    bool m_isEnded = false;
};

/// A meter with its server and its console, without a display.
class Link : public MeterAlone {
protected:
    /// Has a line carried out, and lets the meter notice.
    void Tell(std::string_view line) {
        EXPECT_EQ(m_console.Execute(line), "ok") << line;
        m_meter.Advance(1000);
    }
    nlohmann::json State() const { return nlohmann::json::parse(m_console.State()); }

    meter::MeterServer m_server{m_meter, 0};
    meter::DisplayLink m_display{1};  // nobody listens there
    meter::Console m_console{m_meter, m_server, m_display, kSeed};
};

}  // namespace bench
