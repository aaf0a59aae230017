#pragma once

#include <array>
#include <cstdint>

#include "rda/tcp_stream.h"

/// Listens on a port and accepts one connection at a time into a stream of its own. Used by one task.
class vxTCPAcceptor {
public:
    vxTCPAcceptor() = default;
    ~vxTCPAcceptor();
    vxTCPAcceptor(const vxTCPAcceptor&) = delete;
    vxTCPAcceptor& operator=(const vxTCPAcceptor&) = delete;

    /// Chooses the port, on every local address or on the one given as dotted IPv4 text.
    virtual void init(std::uint16_t port);
    virtual void init(std::uint16_t port, const char* address);

    /// Begins to listen; nothing happens when it already does. @return 0, or the failed step's result; console lines
    /// say which step failed and why
    [[nodiscard]] virtual std::int32_t start();

    virtual void stop();

    /// Waits for a client; 0 seconds wait without limit. Closing the accepted connection resets it at once.
    /// @return the stream: connected, or closed when no client came
    virtual vxTCPStream* accept(std::uint32_t timeoutSeconds);

private:
    std::int32_t Abandon(const char* step, std::int32_t result);
    void CloseListeningSocket();

    vxTCPStream m_stream;
    std::int32_t m_lsd = -1;  // the listening socket
    std::uint16_t m_port = 0;
    std::array<char, 50> m_address{};  // empty: every local address
    bool m_listening = false;
};
