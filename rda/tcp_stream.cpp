#include "rda/tcp_stream.h"

#include <arpa/inet.h>

#include <cerrno>

#include "platform/device.h"
#include "platform/socket.h"

namespace {

constexpr int kReceiveAttempts = 4;  // a signal may interrupt all but the last

}  // namespace

vxTCPStream::~vxTCPStream() { vxTCPStream::close(); }

bool vxTCPStream::isConnected() const { return m_socket != -1; }

void vxTCPStream::attach(std::int32_t socket, const sockaddr_in* peer) {
    if (socket == -1) return;
    m_socket = socket;
    m_peerPort = ntohs(peer->sin_port);
    m_peerAddress = {};
    inet_ntop(AF_INET, &peer->sin_addr, m_peerAddress.data(), static_cast<socklen_t>(m_peerAddress.size()));
}

std::int32_t vxTCPStream::send(const std::uint8_t* data, std::uint32_t length) {
    if (!isConnected()) return -1;
    return static_cast<std::int32_t>(os::send(m_socket, data, length));
}

std::int32_t vxTCPStream::receive(std::uint8_t* data, std::uint32_t length) { return receive(data, length, 0); }

std::int32_t vxTCPStream::receive(std::uint8_t* data, std::uint32_t length, std::uint32_t timeoutSeconds) {
    if (!isConnected()) return -1;
    if (timeoutSeconds != 0) {
        const int ready = waitUntilReadable(m_socket, timeoutSeconds);
        if (ready < 1) return ready;
    }
    for (int attempt = 0; attempt < kReceiveAttempts; ++attempt) {
        const ssize_t count = os::recv(m_socket, data, length);
        if (count > 0) return static_cast<std::int32_t>(count);
        if (count == 0) return length == 0 && timeoutSeconds != 0 ? 0 : -1;
        if (errno != EINTR) return -1;
    }
    return -1;
}

bool vxTCPStream::takeUnread() {
    std::uint8_t unread = 0;
    return isConnected() && os::recvAtOnce(m_socket, &unread, sizeof unread) > 0;
}

void vxTCPStream::close() {
    if (isConnected()) {
        os::shutdown(m_socket, SHUT_RDWR);
        os::close(m_socket);
    }
    m_socket = -1;
    m_peerPort = 0;
    m_peerAddress = {};
}

void vxTCPStream::setOption(int level, int option, const void* value, std::size_t length) {
    os::setsockopt(m_socket, level, option, value, length);
}

int waitUntilReadable(std::int32_t socket, std::uint32_t timeoutSeconds) {
    if (socket < 0 || socket >= FD_SETSIZE) return -1;
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(socket, &readable);
    timeval timeout{static_cast<time_t>(timeoutSeconds), 0};
    return os::select(socket + 1, &readable, timeoutSeconds != 0 ? &timeout : nullptr);
}
