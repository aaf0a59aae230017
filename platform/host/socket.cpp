#include "platform/socket.h"

#include <fcntl.h>
#include <poll.h>

#include <cerrno>

namespace os {
namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kMicrosecondsPerMillisecond = 1000;

int SetBlocking(int socket, bool blocking) {
    const int flags = fcntl(socket, F_GETFL);
    if (flags < 0) return -1;
    return fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK);
}

/// Waits for the end of a connection attempt. @return 0, or the reason why it failed
int WaitUntilConnected(int socket, const timeval& timeout) {
    pollfd writable{socket, POLLOUT, 0};
    const auto milliseconds = timeout.tv_sec * kMillisecondsPerSecond + timeout.tv_usec / kMicrosecondsPerMillisecond;
    const int ready = poll(&writable, 1, static_cast<int>(milliseconds));
    if (ready < 0) return errno;
    if (ready == 0) return ETIMEDOUT;
    int reason = 0;
    socklen_t length = sizeof reason;
    return getsockopt(socket, SOL_SOCKET, SO_ERROR, &reason, &length) == 0 ? reason : errno;
}

}  // namespace

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
    if (SetBlocking(socket, false) != 0) return -1;
    int reason = 0;
    if (::connect(socket, reinterpret_cast<const sockaddr*>(address), sizeof *address) != 0) {
        // An attempt that a signal interrupted goes on; asking again joins it.
        const bool goesOn = errno == EINPROGRESS || errno == EALREADY;
        reason = goesOn ? WaitUntilConnected(socket, *timeout) : errno;
    }
    if (SetBlocking(socket, true) != 0) return -1;
    errno = reason;
    return reason == 0 ? 0 : -1;
}

}  // namespace os
