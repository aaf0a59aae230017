#include "simulator/panel/device_socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cstdio>

namespace panel {
namespace {

struct ControlPacket {
    std::uint32_t request;
    std::int32_t argument;
};
static_assert(sizeof(ControlPacket) == 8);

constexpr int kBacklog = 16;
constexpr std::size_t kMaxClients = 32;

void RemoveStaleSocket(int folder, const std::string& name) {
    struct stat status {};
    if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISSOCK(status.st_mode))
        ::unlinkat(folder, name.c_str(), 0);
}

}  // namespace

DeviceSocket::DeviceSocket(int folder, std::string name, Control control)
    : m_folder(folder),
      m_name(std::move(name)),
      m_control(std::move(control)),
      m_listener(Opened(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0), "make a socket")) {
    RemoveStaleSocket(m_folder, m_name);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", m_folder, m_name.c_str());
    if (::bind(m_listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(m_listener.Get(), kBacklog) != 0)
        ThrowSystemError("serve the device " + m_name);
}

DeviceSocket::~DeviceSocket() { RemoveStaleSocket(m_folder, m_name); }

void DeviceSocket::Watch(std::vector<pollfd>& polled) const {
    if (m_clients.size() < kMaxClients) polled.push_back({m_listener.Get(), POLLIN, 0});
    for (const Descriptor& client : m_clients) polled.push_back({client.Get(), POLLIN, 0});
}

void DeviceSocket::Serve() {
    while (m_clients.size() < kMaxClients) {
        Descriptor client(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!client) break;
        m_clients.push_back(std::move(client));
    }
    std::erase_if(m_clients, [this](const Descriptor& client) { return !Answer(client); });
}

/// @return whether the connection goes on
bool DeviceSocket::Answer(const Descriptor& client) const {
    for (;;) {
        ControlPacket packet{};
        // With MSG_TRUNC a packet that is too long shows its true size.
        const ssize_t size = ::recv(client.Get(), &packet, sizeof packet, MSG_TRUNC);
        if (size < 0) return errno == EAGAIN || errno == EINTR;
        if (size != sizeof packet) return false;
        const std::int32_t result = m_control(packet.request, packet.argument);
        if (::send(client.Get(), &result, sizeof result, MSG_NOSIGNAL) != sizeof result) return false;
    }
}

}  // namespace panel
