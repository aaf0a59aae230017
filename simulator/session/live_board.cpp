#include "simulator/session/live_board.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>

namespace session {
namespace {

/// A request as it goes over a device's socket; the answer is the 32-bit result.
struct ControlPacket {
    std::uint32_t request;
    std::int32_t argument;
};
static_assert(sizeof(ControlPacket) == 8);

constexpr timeval kPatience{1, 0};

}  // namespace

LiveBoard::LiveBoard(std::filesystem::path folder)
    : m_folder(std::move(folder)),
      m_keys(Opened(::open((m_folder / "buttons").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC),
                    "open " + (m_folder / "buttons").string())) {}

void LiveBoard::TakeFrame(const panel::Frame& frame) {
    const Descriptor device(::open((m_folder / "db9000_fb").c_str(), O_RDWR | O_CLOEXEC));
    if (device) [[maybe_unused]]
        const ssize_t written = ::write(device.Get(), frame.data(), frame.size());
}

std::int32_t LiveBoard::Control(std::string_view device, std::uint32_t request, std::int32_t argument) {
    const Descriptor place(::open((m_folder / device.substr(1)).c_str(), O_PATH | O_CLOEXEC));
    const Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    if (!place || !socket) return -1;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::ranges::copy("/proc/self/fd/" + std::to_string(place.Get()), address.sun_path);
    ::setsockopt(socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    if (::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return -1;
    const ControlPacket packet{request, argument};
    std::int32_t result = -1;
    if (::send(socket.Get(), &packet, sizeof packet, MSG_NOSIGNAL) != sizeof packet) return -1;
    return ::recv(socket.Get(), &result, sizeof result, 0) == sizeof result ? result : -1;
}

void LiveBoard::TellShownScreen(std::int32_t id) {
    const Descriptor place(::open((m_folder / "screen").c_str(), O_WRONLY | O_CLOEXEC));
    if (place) [[maybe_unused]]
        const ssize_t written = ::write(place.Get(), &id, sizeof id);
}

std::optional<LiveBoard::Key> LiveBoard::TakeKey() {
    Key key{};
    if (::read(m_keys.Get(), &key, sizeof key) != sizeof key) return std::nullopt;
    return key;
}

}  // namespace session
