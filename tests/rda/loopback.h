#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/// The other end of a connection, played by the test with plain sockets of the host. Nothing waits longer than ten
/// seconds.
class Peer {
public:
    explicit Peer(int socket);
    Peer(Peer&& other) noexcept;
    ~Peer();
    Peer& operator=(Peer&&) = delete;

    /// Connects to a server that may still be starting.
    static Peer ConnectTo(std::uint16_t port);

    void Send(std::string_view bytes);

    /// Receives until `size` bytes are there or the other end stops; @return what came
    std::string Receive(std::size_t size);

    /// One whole request, as it was on the wire.
    std::string ReceiveRequest();

    bool IsClosedByOther();
    void Reset();
    void Close();

private:
    int m_socket;
};

/// A listening socket on a port of the host's choice.
class Listener {
public:
    Listener();
    ~Listener();
    std::uint16_t port() const { return m_port; }
    Peer Accept();

private:
    int m_socket;
    std::uint16_t m_port = 0;
};

/// A meter that answers every request of its one client with as many bytes as were asked for, counting 0, 1, 2...
class CountingMeter {
public:
    std::uint16_t port() const { return m_listener.port(); }
    const std::vector<std::string>& Requests();  // all of them, once the client has hung up

private:
    void Play();

    Listener m_listener;
    std::vector<std::string> m_requests;
    std::jthread m_thread{[this] { Play(); }};
};

/// A port that nobody listens on.
std::uint16_t UnusedPort();

/// The bytes 0, 1, 2...
std::string CountingBytes(std::size_t count);

/// A number as it travels.
std::string Word(std::uint32_t value);

/// A well-formed request.
std::string Request(std::string_view name, std::string_view payload, std::uint32_t responseSize);

/// Bytes written as hexadecimal digits, blanks between.
std::string Hex(std::string_view digits);
