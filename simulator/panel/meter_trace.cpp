#include "simulator/panel/meter_trace.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <nlohmann/json.hpp>

#include "simulator/panel/meter_socket.h"

namespace panel {
namespace {

constexpr int kRetryMilliseconds = 1000;
constexpr std::size_t kLongestLine = std::size_t{256} * 1024;

}  // namespace

MeterTrace::MeterTrace(std::string path, std::function<void()> news)
    : m_path(std::move(path)),
      m_news(std::move(news)),
      m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_thread([this] { Run(); }) {}

MeterTrace::~MeterTrace() {
    m_stop = true;
    ::eventfd_write(m_wake.Get(), 1);
    m_thread.join();
}

void MeterTrace::Run() {
    while (!m_stop) {
        const Descriptor meter = ConnectToMeter(m_path);
        if (meter && SendLine(meter, "trace on")) Follow(meter);
        if (!m_stop) Pause(-1, kRetryMilliseconds);
    }
}

/// Reads until the meter is gone.
void MeterTrace::Follow(const Descriptor& meter) {
    std::string pending;
    while (!m_stop) {
        if (!Pause(meter.Get(), -1)) continue;
        std::array<char, 16384> piece;
        const ssize_t size = ::recv(meter.Get(), piece.data(), piece.size(), MSG_DONTWAIT);
        if (size <= 0) return;
        pending.append(piece.data(), static_cast<std::size_t>(size));
        std::size_t start = 0;
        bool news = false;
        for (std::size_t end = pending.find('\n'); end != std::string::npos; end = pending.find('\n', start)) {
            news = TakeLine(std::string_view(pending).substr(start, end - start)) || news;
            start = end + 1;
        }
        pending.erase(0, start);
        if (pending.size() > kLongestLine) return;
        if (news) m_news();
    }
}

/// @return whether it is a call, and not the meter's answer to us
bool MeterTrace::TakeLine(std::string_view line) {
    if (!nlohmann::json::parse(line, nullptr, false).is_object()) return false;
    m_calls.Append(std::string(line));
    return true;
}

/// Waits for a socket, the owner or the end of the time. @return whether the socket has something
bool MeterTrace::Pause(int socket, int milliseconds) const {
    std::array<pollfd, 2> polled{{{m_wake.Get(), POLLIN, 0}, {socket, POLLIN, 0}}};
    ::poll(polled.data(), polled.size(), milliseconds);
    eventfd_t count = 0;
    if (polled[0].revents != 0) ::eventfd_read(m_wake.Get(), &count);
    return polled[1].revents != 0;
}

}  // namespace panel
