#pragma once

#include <sys/time.h>

#include <cstdlib>
#include <optional>

#include "tests/simulator/link_bench.h"

/// A connection to a server on 127.0.0.1 that says exactly what the test wants it to.
class HttpClient : public bench::Connection {
public:
    struct Reply {
        int status = 0;  // 0 when the connection ended without an answer
        std::string headers;
        std::string body;
    };

    explicit HttpClient(int port) : Connection(static_cast<std::uint16_t>(port)), m_port(port) {
        constexpr timeval kPatience{10, 0};
        ::setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
        EXPECT_TRUE(IsOpen());
    }

    /// Leaves the server as little room as there can be for what is not read.
    void Stall() {
        constexpr int kSmall = 131072;
        ::setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVBUF, &kSmall, sizeof kSmall);
    }

    /// Reads one answer, whose body is as long as it says.
    Reply Read() {
        constexpr std::string_view kLengthHeader = "content-length: ";
        Reply reply;
        while (!reply.headers.ends_with("\r\n\r\n")) {
            const std::string byte = ReadBytes(1);
            if (byte.empty()) return {};
            reply.headers += byte;
        }
        reply.status = std::atoi(reply.headers.c_str() + std::string_view("HTTP/1.1 ").size());
        const std::size_t length = reply.headers.find(kLengthHeader);
        if (length == std::string::npos) return reply;
        reply.body = ReadBytes(std::strtoul(reply.headers.c_str() + length + kLengthHeader.size(), nullptr, 10));
        return reply;
    }

    /// Sends one request with this server as its host. @param extra  more header lines, each with its line end
    Reply Ask(const std::string& method, const std::string& target, const std::string& body = {},
              const std::string& extra = {}) {
        std::string request = method + " " + target + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(m_port) + "\r\n";
        if (method == "POST") request += "Content-Length: " + std::to_string(body.size()) + "\r\n";
        Send(request + extra + "\r\n" + body);
        return Read();
    }

    /// Whether the server ends the connection, instead of saying more or nothing.
    bool HangsUp() {
        char byte = 0;
        return ::recv(m_socket.Get(), &byte, 1, 0) == 0;
    }

    /// Asks for the WebSocket.
    Reply Upgrade(const std::string& target, const std::string& extra = {}) {
        return Ask("GET", target, {},
                   "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                   "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n" +
                       extra);
    }

    /// The next message of a kind: 1 text, 2 binary, 8 the last. Nothing when the connection ended.
    std::optional<std::string> ReadMessage(char kind) {
        for (;;) {
            const std::string start = ReadBytes(2);
            if (start.size() < 2) return std::nullopt;
            std::size_t length = start[1] & 0x7F;
            if (length >= 126) {
                const std::string bytes = ReadBytes(length == 126 ? 2 : 8);
                length = 0;
                for (const char byte : bytes) length = length << 8 | static_cast<unsigned char>(byte);
            }
            std::string message = ReadBytes(length);
            if ((start[0] & 0x0F) == kind) return message;
        }
    }

    void SendMessage(std::string_view text) {
        // A mask of zeros leaves the text as it is.
        Send(std::string{static_cast<char>(0x81), static_cast<char>(0x80 | text.size()), 0, 0, 0, 0} +
             std::string(text));
    }

private:
    /// Fewer when the connection ended.
    std::string ReadBytes(std::size_t count) {
        std::string bytes(count, '\0');
        const ssize_t size = ::recv(m_socket.Get(), bytes.data(), count, MSG_WAITALL);
        bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        return bytes;
    }

    int m_port;
};
