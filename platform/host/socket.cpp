#include "platform/socket.h"

namespace os {

int socket(int domain, int type, int protocol) { return ::socket(domain, type | SOCK_CLOEXEC, protocol); }

int bind(int socket, const sockaddr_in* address) {
    return ::bind(socket, reinterpret_cast<const sockaddr*>(address), sizeof *address);
}

int listen(int socket, int backlog) { return ::listen(socket, backlog); }

int accept(int socket, sockaddr_in* peer) {
    socklen_t length = sizeof *peer;
    return ::accept4(socket, reinterpret_cast<sockaddr*>(peer), &length, SOCK_CLOEXEC);
}

int setsockopt(int socket, int level, int option, const void* value, std::size_t length) {
    return ::setsockopt(socket, level, option, value, static_cast<socklen_t>(length));
}

int shutdown(int socket, int how) { return ::shutdown(socket, how); }

ssize_t send(int socket, const void* data, std::size_t length) { return ::send(socket, data, length, MSG_NOSIGNAL); }

ssize_t recv(int socket, void* buffer, std::size_t length) { return ::recv(socket, buffer, length, 0); }

ssize_t recvAtOnce(int socket, void* buffer, std::size_t length) {
    return ::recv(socket, buffer, length, MSG_DONTWAIT);
}

int connectWithTimeout(int socket, const sockaddr_in* address, const timeval* timeout) {
    // The host waits for a connection as long as it may wait to send; asking again joins an attempt that goes on.
    constexpr timeval kWithoutLimit{};
    os::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, timeout, sizeof *timeout);
    const int result = ::connect(socket, reinterpret_cast<const sockaddr*>(address), sizeof *address);
    os::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &kWithoutLimit, sizeof kWithoutLimit);
    return result;
}

}  // namespace os
