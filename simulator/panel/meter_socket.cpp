#include "simulator/panel/meter_socket.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace panel {
namespace {

constexpr timeval kPatience{5, 0};  // the simulator waits for the display in between

}  // namespace

Descriptor ConnectToMeter(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return {};
    path.copy(address.sun_path, path.size());
    Descriptor meter(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ::setsockopt(meter.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    ::setsockopt(meter.Get(), SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof kPatience);
    if (::connect(meter.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
    return meter;
}

bool SendLine(const Descriptor& meter, const std::string& line) {
    const std::string bytes = line + "\n";
    return ::send(meter.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
}

}  // namespace panel
