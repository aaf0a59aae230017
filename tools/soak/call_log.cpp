#include "tools/soak/call_log.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <nlohmann/json.hpp>

namespace {

Descriptor ConnectTo(const std::filesystem::path& control) {
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    control.string().copy(address.sun_path, sizeof address.sun_path - 1);
    if (::connect(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return {};
    return socket;
}

bool Say(const Descriptor& socket, const std::string& line) {
    const std::string sent = line + "\n";
    return ::send(socket.Get(), sent.data(), sent.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(sent.size());
}

}  // namespace

CallLog::CallLog(const std::filesystem::path& control) : m_socket(ConnectTo(control)) { Say(m_socket, "trace on"); }

void CallLog::Clear() {
    Take();
    m_times.clear();
}

void CallLog::Take() {
    std::array<char, 65536> piece;
    for (ssize_t size; (size = ::recv(m_socket.Get(), piece.data(), piece.size(), MSG_DONTWAIT)) > 0;)
        m_pending.append(piece.data(), static_cast<std::size_t>(size));
    std::size_t start = 0;
    for (std::size_t end; (end = m_pending.find('\n', start)) != m_pending.npos; start = end + 1)
        TakeLine(m_pending.substr(start, end - start));
    m_pending.erase(0, start);
}

void CallLog::TakeLine(const std::string& line) {
    const auto call = nlohmann::json::parse(line, nullptr, false);
    if (call.is_object() && call.value("to", "") == "meter")
        m_times[call.value("operation", "")].push_back(std::chrono::steady_clock::now());
}

std::string TellMeter(const std::filesystem::path& control, const std::string& line) {
    const Descriptor socket = ConnectTo(control);
    std::string answer;
    char letter = 0;
    if (!Say(socket, line)) return answer;
    while (::recv(socket.Get(), &letter, 1, 0) == 1 && letter != '\n') answer += letter;
    return answer;
}
