#include "peg/resources/file.h"

#include <algorithm>
#include <cstring>

#include "platform/device.h"

namespace {
constexpr std::size_t kLargestFile = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kPiece = std::size_t{64} * 1024;
}  // namespace

bool PegFile::Open(const char* path) {
    Close();
    const int descriptor = os::open(path, os::kReadOnly);
    if (descriptor < 0) return false;
    m_open = true;
    bool isWhole = false;
    while (!isWhole && m_content.size() <= kLargestFile) {
        const std::size_t size = m_content.size();
        m_content.resize(size + kPiece);
        const ssize_t got = os::read(descriptor, m_content.data() + size, kPiece);
        m_content.resize(size + (got > 0 ? static_cast<std::size_t>(got) : 0));
        if (got < 0) break;
        isWhole = got == 0;
    }
    os::close(descriptor);
    if (!isWhole) m_content = {};
    return true;
}

void PegFile::Close() {
    m_content = {};
    m_position = 0;
    m_open = false;
}

std::size_t PegFile::Read(void* to, std::size_t bytes) {
    const auto taken = Take(std::min(bytes, Remaining()));
    if (!taken.empty()) std::memcpy(to, taken.data(), taken.size());
    return taken.size();
}

std::span<const std::uint8_t> PegFile::Take(std::size_t bytes) {
    if (bytes > Remaining()) return {};
    const std::span<const std::uint8_t> taken{m_content.data() + m_position, bytes};
    m_position += bytes;
    return taken;
}

bool PegFile::Seek(std::ptrdiff_t offset) {
    const auto position = static_cast<std::ptrdiff_t>(m_position) + offset;
    if (position < 0 || position > static_cast<std::ptrdiff_t>(m_content.size())) return false;
    m_position = static_cast<std::size_t>(position);
    return true;
}
