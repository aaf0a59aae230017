#include "platform/device.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace os {
namespace {

/// A control request to a board that is played by another process, answered by one packet with the 32-bit result.
struct ControlPacket {
    std::uint32_t request;
    std::int32_t argument;
};
static_assert(sizeof(ControlPacket) == 8);

constexpr timeval kBoardPatience{1, 0};  // a dead board must not hold up the display

using Path = std::array<char, PATH_MAX>;

/// Where the host keeps a file of the board: under the directory that BOARD_ROOT names. @return whether it fits
bool HostPath(const char* path, Path& hostPath) {
    // Nobody changes the environment. NOLINTNEXTLINE(concurrency-mt-unsafe)
    const char* root = std::getenv("BOARD_ROOT");
    if (root == nullptr || path[0] != '/') root = "";
    const std::size_t rootLength = std::strlen(root);
    const std::size_t pathLength = std::strlen(path);
    if (rootLength + pathLength >= hostPath.size()) return false;
    std::memcpy(hostPath.data(), root, rootLength);
    std::memcpy(hostPath.data() + rootLength, path, pathLength + 1);
    return true;
}

bool IsSocket(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode);
}

/// Connects to the socket at a path, by way of a descriptor: a socket address has room for short paths only.
int ConnectTo(const Path& path) {
    const int place = ::open(path.data(), O_PATH | O_CLOEXEC);
    const int device = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d", place);
    ::setsockopt(device, SOL_SOCKET, SO_RCVTIMEO, &kBoardPatience, sizeof kBoardPatience);
    ::setsockopt(device, SOL_SOCKET, SO_SNDTIMEO, &kBoardPatience, sizeof kBoardPatience);
    const bool connected = ::connect(device, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(place);
    if (connected) return device;
    ::close(device);
    return -1;
}

}  // namespace

int open(const char* path, int mode) {
    static_assert(kReadOnly == O_RDONLY && kReadWrite == O_RDWR);
    Path hostPath;
    if (!HostPath(path, hostPath)) return -1;
    // Without this flag, opening a FIFO for reading would wait for a writer; reads shall wait as long as there is one.
    const int atOnce = mode == kReadOnly ? O_NONBLOCK : 0;
    const int device = ::open(hostPath.data(), mode | atOnce | O_CLOEXEC);
    if (device < 0) return errno == ENXIO ? ConnectTo(hostPath) : -1;  // a socket cannot be opened
    if (atOnce != 0) fcntl(device, F_SETFL, mode);
    return device;
}

ssize_t read(int descriptor, void* buffer, std::size_t bytes) { return ::read(descriptor, buffer, bytes); }

ssize_t write(int descriptor, const void* buffer, std::size_t bytes) { return ::write(descriptor, buffer, bytes); }

int ioctl(int descriptor, int request, int argument) {
    if (!IsSocket(descriptor)) return ::ioctl(descriptor, static_cast<unsigned long>(request), argument);
    const ControlPacket packet{static_cast<std::uint32_t>(request), argument};
    if (::send(descriptor, &packet, sizeof packet, MSG_NOSIGNAL) != sizeof packet) return -1;
    std::int32_t result = -1;
    return ::recv(descriptor, &result, sizeof result, 0) == sizeof result ? result : -1;
}

off_t seek(int descriptor, off_t offset) { return ::lseek(descriptor, offset, SEEK_CUR); }

int select(int width, fd_set* readable, timeval* timeout) {
    return ::select(width, readable, nullptr, nullptr, timeout);
}

int close(int descriptor) { return ::close(descriptor); }

}  // namespace os
