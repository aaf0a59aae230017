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
    for (const Client& client : m_clients)
        polled.push_back(
            {client.socket.Get(), static_cast<short>(client.outgoing.empty() ? POLLIN : POLLIN | POLLOUT), 0});
}

void ControlSocket::Serve() {
    while (m_clients.size() < kMaxClients) {
        Descriptor socket(::accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!socket) break;
        m_clients.emplace_back().socket = std::move(socket);
    }
    std::erase_if(m_clients, [this](Client& client) { return !Read(client) || !Write(client); });
}

bool ControlSocket::IsTraced() const { return std::ranges::any_of(m_clients, &Client::traced); }

void ControlSocket::Trace(std::string_view line) {
    for (Client& client : m_clients) {
        if (!client.traced) continue;
        if (client.outgoing.size() + line.size() > kMaxOutgoing) {
            ++client.lost;
            continue;
        }
        if (client.lost > 0) client.outgoing += "{\"lost\":" + std::to_string(client.lost) + "}\n";
        client.lost = 0;
        client.outgoing += line;
        client.outgoing += '\n';
    }
}

bool ControlSocket::Read(Client& client) {
    std::array<char, kMaxLine> buffer;
    const ssize_t count = ::recv(client.socket.Get(), buffer.data(), buffer.size(), 0);
    if (count == 0) return false;
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    client.pending.append(buffer.data(), static_cast<std::size_t>(count));
    for (std::size_t end = client.pending.find('\n'); end != std::string::npos; end = client.pending.find('\n')) {
        client.outgoing += Answer(client, std::string_view(client.pending).substr(0, end)) + "\n";
        client.pending.erase(0, end + 1);
    }
    return client.pending.size() < kMaxLine && client.outgoing.size() < 2 * kMaxOutgoing;
}

std::string ControlSocket::Answer(Client& client, std::string_view line) {
    if (line != "trace on" && line != "trace off") return m_execute(line);
    client.traced = line == "trace on";
    client.lost = 0;
    return "ok";
}

bool ControlSocket::Write(Client& client) {
    while (!client.outgoing.empty()) {
        const ssize_t count = ::send(client.socket.Get(), client.outgoing.data(), client.outgoing.size(), MSG_NOSIGNAL);
        if (count < 0) return errno == EAGAIN || errno == EINTR;
        client.outgoing.erase(0, static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace meter
