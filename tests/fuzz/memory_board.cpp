#include "tests/fuzz/memory_board.h"

#include <algorithm>
#include <string_view>

#include "platform/device.h"

namespace {

constexpr int kTheFile = 1000;  // its descriptor, which is none of this process

std::string_view name;
std::span<const std::uint8_t> content;
std::size_t position = 0;

}  // namespace

void PutOnBoard(const char* path, std::span<const std::uint8_t> bytes) {
    name = path;
    content = bytes;
}

namespace os {

int open(const char* path, int) {
    if (path != name) return -1;
    position = 0;
    return kTheFile;
}

ssize_t read(int descriptor, void* buffer, std::size_t bytes) {
    if (descriptor != kTheFile) return -1;
    const auto piece = content.subspan(position, std::min(bytes, content.size() - position));
    std::ranges::copy(piece, static_cast<std::uint8_t*>(buffer));
    position += piece.size();
    return static_cast<ssize_t>(piece.size());
}

off_t seek(int descriptor, off_t offset) {
    const off_t to = static_cast<off_t>(position) + offset;
    if (descriptor != kTheFile || to < 0 || to > static_cast<off_t>(content.size())) return -1;
    position = static_cast<std::size_t>(to);
    return to;
}

ssize_t write(int, const void*, std::size_t) { return -1; }
int ioctl(int, int, int) { return -1; }
int select(int, fd_set*, timeval*) { return -1; }
int close(int descriptor) { return descriptor == kTheFile ? 0 : -1; }

}  // namespace os
