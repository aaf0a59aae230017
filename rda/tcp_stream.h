#pragma once

#include <netinet/in.h>

#include <array>
#include <cstdint>

/// One connected socket. Used by one task at a time; knows nothing of what it carries.
class vxTCPStream {
public:
    vxTCPStream() = default;
    ~vxTCPStream();
    vxTCPStream(const vxTCPStream&) = delete;
    vxTCPStream& operator=(const vxTCPStream&) = delete;

    virtual bool isConnected() const;

    /// Takes over a connected socket; -1 changes nothing.
    virtual void attach(std::int32_t socket, const sockaddr_in* peer);

    /// Sends with one system call. @return the bytes sent, or -1
    virtual std::int32_t send(const std::uint8_t* data, std::uint32_t length);

    /// Waits without limit.
    virtual std::int32_t receive(std::uint8_t* data, std::uint32_t length);

    /// Receives with one system call what is there, at most `length` bytes; 0 seconds wait without limit.
    /// @return the bytes received, 0 when the time is over, -1 on an error or when the peer has closed
    virtual std::int32_t receive(std::uint8_t* data, std::uint32_t length, std::uint32_t timeoutSeconds);

    virtual void close();

    /// Whether something has arrived that nobody has asked for; takes a byte of it.
    bool takeUnread();

    std::uint16_t peerPort() const { return m_peerPort; }
    const char* peerAddress() const { return m_peerAddress.data(); }

    /// Sets an option of the connected socket; a failure is of no consequence.
    void setOption(int level, int option, const void* value, std::size_t length);

private:
    std::int32_t m_socket = -1;
    std::uint16_t m_peerPort = 0;
    std::array<char, 50> m_peerAddress{};  // dotted text
};

/// Waits until a socket is readable; 0 seconds wait without limit.
/// @return 1, 0 when the time is over, -1 on an error
[[nodiscard]] int waitUntilReadable(std::int32_t socket, std::uint32_t timeoutSeconds);
