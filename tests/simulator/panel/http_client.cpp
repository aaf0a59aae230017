#include "tests/simulator/panel/http_client.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <array>
#include <cstdlib>

namespace {

constexpr timeval kPatience{10, 0};
constexpr std::string_view kHeadersEnd = "\r\n\r\n";
constexpr std::string_view kLengthHeader = "content-length: ";

}  // namespace

HttpClient::HttpClient(int port) : m_port(port), m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    EXPECT_EQ(::connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
}

void HttpClient::Send(std::string_view bytes) { EXPECT_TRUE(Offer(bytes)); }

bool HttpClient::Offer(std::string_view bytes) {
    return ::send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

void HttpClient::Stall() {
    constexpr int kSmall = 131072;
    ::setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVBUF, &kSmall, sizeof kSmall);
}

HttpClient::Reply HttpClient::Read() {
    Reply reply;
    while (!reply.headers.ends_with(kHeadersEnd)) {
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

HttpClient::Reply HttpClient::Ask(std::string_view method, std::string_view target, std::string_view body,
                                  std::string_view extra) {
    std::string request = std::string(method) + " " + std::string(target) + " HTTP/1.1\r\n";
    request += "Host: 127.0.0.1:" + std::to_string(m_port) + "\r\n" + std::string(extra);
    if (method == "POST") request += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    Send(request + "\r\n" + std::string(body));
    return Read();
}

bool HttpClient::IsEnded() {
    char byte = 0;
    return m_pending.empty() && ::recv(m_socket.Get(), &byte, 1, 0) == 0;
}

HttpClient::Reply HttpClient::Upgrade(std::string_view target, std::string_view extra) {
    return Ask("GET", target, {},
               "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
               "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n" +
                   std::string(extra));
}

HttpClient::Message HttpClient::ReadMessage() {
    Message message;
    for (bool complete = false; !complete;) {
        const std::string start = ReadBytes(2);
        if (start.size() < 2) return {};
        complete = (start[0] & 0x80) != 0;
        if ((start[0] & 0x0F) != 0) message.opcode = start[0] & 0x0F;
        std::size_t length = start[1] & 0x7F;
        if (length >= 126) {
            const std::string bytes = ReadBytes(length == 126 ? 2 : 8);
            length = 0;
            for (const char byte : bytes) length = length << 8 | static_cast<unsigned char>(byte);
        }
        message.payload += ReadBytes(length);
    }
    return message;
}

void HttpClient::SendMessage(std::string_view text) {
    // A mask of zeros leaves the text as it is.
    Send(std::string{static_cast<char>(0x81), static_cast<char>(0x80 | text.size()), 0, 0, 0, 0} + std::string(text));
}

/// Fewer when the connection ended.
std::string HttpClient::ReadBytes(std::size_t count) {
    while (m_pending.size() < count) {
        std::array<char, 16384> piece;
        const ssize_t size = ::recv(m_socket.Get(), piece.data(), piece.size(), 0);
        if (size <= 0) return std::exchange(m_pending, {});
        m_pending.append(piece.data(), static_cast<std::size_t>(size));
    }
    std::string bytes = m_pending.substr(0, count);
    m_pending.erase(0, count);
    return bytes;
}
