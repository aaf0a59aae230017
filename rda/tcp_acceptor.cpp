#include "rda/tcp_acceptor.h"

#include <arpa/inet.h>

#include <cstdio>

#include "platform/device.h"
#include "platform/socket.h"

namespace {

constexpr int kBacklog = 5;
constexpr linger kResetOnClose{1, 0};

}  // namespace

vxTCPAcceptor::~vxTCPAcceptor() { CloseListeningSocket(); }

void vxTCPAcceptor::init(std::uint16_t port) { init(port, ""); }

void vxTCPAcceptor::init(std::uint16_t port, const char* address) {
    m_listening = false;
    m_lsd = -1;
    m_port = port;
    std::snprintf(m_address.data(), m_address.size(), "%s", address);
}

std::int32_t vxTCPAcceptor::start() {
    if (m_listening) return 0;
    m_lsd = os::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = htons(m_port);
    local.sin_addr.s_addr = htonl(INADDR_ANY);
    if (m_address[0] != '\0' && inet_pton(AF_INET, m_address.data(), &local.sin_addr) != 1) {
        return Abandon("inet_pton()", -1);  // better no server than one that strangers reach
    }
    const int on = 1;
    std::int32_t result = os::setsockopt(m_lsd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (result != 0) return Abandon("setsockopt: SO_REUSEADDR failed\n", result);
    result = os::bind(m_lsd, &local);
    if (result != 0) return Abandon("bind() failed", result);
    result = os::listen(m_lsd, kBacklog);
    if (result != 0) return Abandon("listen() failed", result);
    m_listening = true;
    return 0;
}

void vxTCPAcceptor::stop() {
    if (!m_listening) return;
    std::printf("vxTCPAcceptor::stop: Shutting down socket: m_lsd=%d\n", m_lsd);
    m_stream.close();
    CloseListeningSocket();
    m_listening = false;
}

vxTCPStream* vxTCPAcceptor::accept(std::uint32_t timeoutSeconds) {
    m_stream.close();
    if (!m_listening || waitUntilReadable(m_lsd, timeoutSeconds) < 1) return &m_stream;
    sockaddr_in peer{};
    const int client = os::accept(m_lsd, &peer);
    if (client < 0) return &m_stream;
    m_stream.attach(client, &peer);
    m_stream.setOption(SOL_SOCKET, SO_LINGER, &kResetOnClose, sizeof kResetOnClose);
    return &m_stream;
}

/// Reports the step of `start` that failed and gives the socket back, so that the next `start` begins afresh.
std::int32_t vxTCPAcceptor::Abandon(const char* step, std::int32_t result) {
    std::perror(step);
    CloseListeningSocket();
    return result;
}

void vxTCPAcceptor::CloseListeningSocket() {
    if (m_lsd == -1) return;
    os::shutdown(m_lsd, SHUT_RDWR);
    os::close(m_lsd);
    m_lsd = -1;
}
