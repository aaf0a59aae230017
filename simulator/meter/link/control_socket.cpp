#include "simulator/meter/link/control_socket.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace meter {
namespace {

constexpr int kBacklog = 8;

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

}  // namespace

ControlSocket::ControlSocket(std::filesystem::path path, Execute execute)
    : m_path(std::move(path)), m_execute(std::move(execute)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string text = m_path.string();
    if (text.size() >= sizeof(address.sun_path)) throw std::system_error(ENAMETOOLONG, std::generic_category(), text);
    std::ranges::copy(text, address.sun_path);
    if (std::filesystem::is_socket(m_path)) std::filesystem::remove(m_path);
    m_listener = Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!m_listener) Fail("socket");
    if (::bind(m_listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
        Fail("bind the control socket");
    if (::listen(m_listener.Get(), kBacklog) != 0) Fail("listen");
}

ControlSocket::~ControlSocket() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

void ControlSocket::Watch(std::vector<pollfd>& polled) const {
    polled.push_back({m_listener.Get(), POLLIN, 0});
    for (const Client& client : m_clients) polled.push_back({client.socket.Get(), POLLIN, 0});
}

void ControlSocket::Serve() {
    while (m_clients.size() < kMaxClients) {
        Descriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!socket) break;
        m_clients.emplace_back().socket = std::move(socket);
    }
    std::erase_if(m_clients, [this](Client& client) { return !Read(client); });
}

bool ControlSocket::Read(Client& client) {
    std::array<char, kMaxLine> buffer;
    const ssize_t count = ::recv(client.socket.Get(), buffer.data(), buffer.size(), 0);
    if (count == 0) return false;
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    client.pending.append(buffer.data(), static_cast<std::size_t>(count));
    for (std::size_t end = client.pending.find('\n'); end != std::string::npos; end = client.pending.find('\n')) {
        const std::string answer = m_execute(std::string_view(client.pending).substr(0, end)) + "\n";
        client.pending.erase(0, end + 1);
        if (::send(client.socket.Get(), answer.data(), answer.size(), MSG_NOSIGNAL) < 0) return false;
    }
    return client.pending.size() < kMaxLine;
}

}  // namespace meter
