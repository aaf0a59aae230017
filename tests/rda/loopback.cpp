#include "tests/rda/loopback.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <sstream>
#include <utility>

namespace {

constexpr timeval kPatience{10, 0};

sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

std::uint32_t WordIn(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

}  // namespace

Peer::Peer(int socket) : m_socket(socket) {
    ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
}

Peer::Peer(Peer&& other) noexcept : m_socket(std::exchange(other.m_socket, -1)) {}

Peer::~Peer() { Close(); }

Peer Peer::ConnectTo(std::uint16_t port) {
    const sockaddr_in address = Loopback(port);
    for (int attempt = 0; attempt < 500; ++attempt) {
        const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
        if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return Peer(socket);
        ::close(socket);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << "nobody listens on port " << port;
    return Peer(-1);
}

void Peer::Send(std::string_view bytes) {
    EXPECT_EQ(::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
}

std::string Peer::Receive(std::size_t size) {
    std::string bytes(size, '\0');
    const ssize_t count = size != 0 ? ::recv(m_socket, bytes.data(), size, MSG_WAITALL) : 0;
    bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return bytes;
}

std::string Peer::ReceiveRequest() {
    std::string request = Receive(8);
    if (request.size() < 8) return request;
    request += Receive(WordIn(std::string_view(request).substr(4)));
    const std::string payloadSize = Receive(4);
    request += payloadSize;
    request += Receive(WordIn(payloadSize));
    return request + Receive(4);
}

bool Peer::IsClosedByOther() {
    char byte = 0;
    const ssize_t count = ::recv(m_socket, &byte, 1, 0);
    return count == 0 || (count < 0 && errno == ECONNRESET);
}

void Peer::Reset() {
    const linger now{1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    Close();
}

void Peer::Close() {
    if (m_socket != -1) ::close(m_socket);
    m_socket = -1;
}

Listener::Listener() : m_socket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = Loopback(0);
    socklen_t length = sizeof address;
    EXPECT_EQ(::bind(m_socket, reinterpret_cast<sockaddr*>(&address), length), 0);
    EXPECT_EQ(::listen(m_socket, 5), 0);
    EXPECT_EQ(::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length), 0);
    ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    m_port = ntohs(address.sin_port);
}

Listener::~Listener() { ::close(m_socket); }

Peer Listener::Accept() { return Peer(::accept(m_socket, nullptr, nullptr)); }

const std::vector<std::string>& CountingMeter::Requests() {
    m_thread.join();
    return m_requests;
}

void CountingMeter::Play() {
    Peer display = m_listener.Accept();
    while (true) {
        const std::string request = display.ReceiveRequest();
        if (request.size() < 16) return;
        m_requests.push_back(request);
        const std::size_t responseSize = WordIn(std::string_view(request).substr(request.size() - 4));
        if (responseSize != 0) display.Send(CountingBytes(responseSize));
    }
}

std::uint16_t UnusedPort() { return Listener().port(); }

std::string CountingBytes(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(i);
    return bytes;
}

std::string Word(std::uint32_t value) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

std::string Request(std::string_view name, std::string_view payload, std::uint32_t responseSize) {
    const auto nameSize = static_cast<std::uint32_t>(name.size() + 1);
    return "%%RR" + Word(nameSize) + std::string(name) + '\0' + Word(static_cast<std::uint32_t>(payload.size())) +
           std::string(payload) + Word(responseSize);
}

std::string Hex(std::string_view digits) {
    std::istringstream words{std::string(digits)};
    std::string bytes;
    for (unsigned value = 0; words >> std::hex >> value;) bytes += static_cast<char>(value);
    return bytes;
}
