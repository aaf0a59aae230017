#include "platform/device.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

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
    const char* root = std::getenv("BOARD_ROOT");
    if (root == nullptr || path[0] != '/') root = "";
    const int length = std::snprintf(hostPath.data(), hostPath.size(), "%s%s", root, path);
    return length >= 0 && static_cast<std::size_t>(length) < hostPath.size();
}

bool IsSocket(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode);
}

bool IsFifo(const Path& path) {
    struct stat status {};
    return stat(path.data(), &status) == 0 && S_ISFIFO(status.st_mode);
}

/// Connects to the socket that `place` refers to, by its descriptor: a socket address has room for short paths only.
int ConnectTo(int place) {
    const int device = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    if (device < 0) return -1;
    ::setsockopt(device, SOL_SOCKET, SO_RCVTIMEO, &kBoardPatience, sizeof kBoardPatience);
    ::setsockopt(device, SOL_SOCKET, SO_SNDTIMEO, &kBoardPatience, sizeof kBoardPatience);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d", place);
    if (::connect(device, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return device;
    ::close(device);
    return -1;
}

/// Opens without waiting for a writer; afterwards a read waits as long as there is one.
int OpenFifo(const Path& path) {
    const int fifo = ::open(path.data(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fifo < 0) return -1;
    fcntl(fifo, F_SETFL, fcntl(fifo, F_GETFL) & ~O_NONBLOCK);
    return fifo;
}

}  // namespace

int open(const char* path, int mode) {
    static_assert(kReadOnly == O_RDONLY && kReadWrite == O_RDWR);
    Path hostPath;
    if (!HostPath(path, hostPath)) return -1;
    const int place = ::open(hostPath.data(), O_PATH | O_CLOEXEC);
    if (place < 0) return -1;
    const bool isSocket = IsSocket(place);
    const int device = isSocket ? ConnectTo(place) : -1;
    ::close(place);
    if (isSocket) return device;
    if (mode == kReadOnly && IsFifo(hostPath)) return OpenFifo(hostPath);
    return ::open(hostPath.data(), mode | O_CLOEXEC);
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
