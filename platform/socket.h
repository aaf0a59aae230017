#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/types.h>

#include <cstddef>

/// BSD sockets over IPv4 and TCP, as far as the meter link needs them. `os::select` and `os::close` of device.h serve
/// them too. Failures leave the reason in errno.
namespace os {

[[nodiscard]] int socket(int domain, int type, int protocol);
[[nodiscard]] int bind(int socket, const sockaddr_in* address);
[[nodiscard]] int listen(int socket, int backlog);
[[nodiscard]] int accept(int socket, sockaddr_in* peer);
int setsockopt(int socket, int level, int option, const void* value, std::size_t length);
int shutdown(int socket, int how);
[[nodiscard]] ssize_t send(int socket, const void* data, std::size_t length);
[[nodiscard]] ssize_t recv(int socket, void* buffer, std::size_t length);
/// Does not wait: -1 with EAGAIN when nothing has arrived.
[[nodiscard]] ssize_t recvAtOnce(int socket, void* buffer, std::size_t length);

/// Connects, or gives up after `timeout`. An attempt that a signal interrupted, with EINTR, goes on, and the next call
/// joins it. @return 0, or -1
[[nodiscard]] int connectWithTimeout(int socket, const sockaddr_in* address, const timeval* timeout);

}  // namespace os
