#include "rda/tcp_connector.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>

#include <cerrno>
#include <cstdio>

#include "platform/device.h"
#include "platform/socket.h"

namespace {

constexpr int kConnectAttempts = 4;  // a signal may interrupt all but the last
constexpr timeval kReceiveTimeout{3, 0};

std::int32_t FailWithoutSocket(const char* step) {
    std::perror(step);
    std::printf("vxTCPConnector::connect: Error: could not create socket...\n\n");
    return -1;
}

int ConnectDespiteSignals(int socket, const sockaddr_in& server, std::uint32_t timeoutSeconds) {
    const timeval timeout{static_cast<time_t>(timeoutSeconds), 0};
    int result = -1;
    for (int attempt = 0; attempt < kConnectAttempts; ++attempt) {
        result = os::connectWithTimeout(socket, &server, &timeout);
        if (result == 0 || errno != EINTR) break;
    }
    return result;
}

}  // namespace

std::int32_t vxTCPConnector::connect(const char* address, std::uint16_t port, std::uint32_t timeoutSeconds) {
    m_stream.close();
    const int socket = os::socket(AF_INET, SOCK_STREAM, 0);
    if (socket < 0) return FailWithoutSocket("socket()");
    sockaddr_in server{};
    server.sin_family = AF_INET;
    server.sin_port = htons(port);
    errno = 0;
    if (inet_pton(AF_INET, address, &server.sin_addr) != 1) {
        const std::int32_t result = FailWithoutSocket("inet_pton()");
        os::close(socket);
        return result;
    }
    const int result = ConnectDespiteSignals(socket, server, timeoutSeconds);
    if (result != 0) {
        os::close(socket);
        return result;
    }
    m_stream.attach(socket, &server);
    m_stream.setOption(SOL_SOCKET, SO_RCVTIMEO, &kReceiveTimeout, sizeof kReceiveTimeout);
    // After a call that has no reply, the next one would wait until the meter acknowledges: up to 40 ms.
    const int on = 1;
    m_stream.setOption(IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return 0;
}
