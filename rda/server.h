#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "rda/tcp_acceptor.h"

/// Serves one operation: reads its arguments from the payload and writes exactly `responseSize` bytes to *response,
/// which are zeros until then. The sizes are the caller's wish and are checked here against nothing but the buffers.
using RdaHandler = void (*)(std::uint32_t payloadSize, const std::uint8_t* payload, std::uint32_t responseSize,
                            std::uint8_t** response);

/// Serves requests of one client at a time, each by the handler of its name. Everything runs on the serving task.
///
/// A client that breaks the form of a request, asks for more than the buffers hold or is silent for five seconds loses
/// its connection; a request for an unknown operation is dropped without an answer.
class RdaServer {
public:
    using ConnectionCallback = void (*)(std::uint32_t connected);

    RdaServer() = default;

    /// Adds an operation, or replaces the handler of one that is there. Names are cut to 99 characters; a full table of
    /// 100 takes no more.
    void registerHandler(const char* name, RdaHandler handler);

    /// Sets who is told 0 while the server waits for a client and 1 while it has one.
    void setConnectionCallback(ConnectionCallback callback) { m_callback = callback; }

    /// Listens, trying once a second until it can, and serves one client after the other; with `keepServing` 0 it
    /// returns after the first.
    /// @param address  dotted IPv4 text; null or empty: every local address
    /// @param acceptTimeoutSeconds  0 waits for a client without limit
    void serve(std::uint16_t port, const char* address, std::uint32_t keepServing, std::uint32_t acceptTimeoutSeconds);

private:
    struct Entry {
        std::array<char, 100> name;
        RdaHandler handler;
    };

    [[nodiscard]] Entry* Find(const char* name);
    [[nodiscard]] bool ServeRequest(vxTCPStream& client);
    [[nodiscard]] bool ReadName(vxTCPStream& client);
    [[nodiscard]] bool Answer(vxTCPStream& client, std::uint32_t payloadSize, std::uint32_t responseSize);
    void TellConnected(std::uint32_t connected);

    std::array<Entry, 100> m_handlers{};
    std::size_t m_handlerCount = 0;
    vxTCPAcceptor m_acceptor;
    ConnectionCallback m_callback = nullptr;
    std::array<char, 104> m_name{};
    std::array<std::uint8_t, 1024> m_payload{};
};
