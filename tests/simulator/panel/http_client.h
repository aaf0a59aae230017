#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/descriptor.h"

/// A connection to a server on 127.0.0.1 that says exactly what the test wants it to.
class HttpClient {
public:
    struct Reply {
        int status = 0;  // 0 when the connection ended without an answer
        std::string headers;
        std::string body;
    };

    struct Message {
        int opcode = -1;  // 1 text, 2 binary, 8 close, -1 when the connection ended
        std::string payload;
    };

    explicit HttpClient(int port);

    void Send(std::string_view bytes);

    /// Sends to a server that may have hung up. @return whether it took the bytes
    bool Offer(std::string_view bytes);

    /// Leaves the server as little room as there can be for what is not read.
    void Stall();

    /// Reads one answer, whose body is as long as it says.
    Reply Read();

    /// Sends one request with this server as its host. @param extra  more header lines, each with its line end
    Reply Ask(std::string_view method, std::string_view target, std::string_view body = {},
              std::string_view extra = {});

    /// Whether the server ends the connection, instead of saying more or nothing.
    bool IsEnded();

    /// Asks for the WebSocket.
    Reply Upgrade(std::string_view target, std::string_view extra = {});
    Message ReadMessage();
    void SendMessage(std::string_view text);

private:
    std::string ReadBytes(std::size_t count);

    int m_port;
    Descriptor m_socket;
    std::string m_pending;
};
