#include "simulator/panel/activity.h"

#include <sys/inotify.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace panel {
namespace {

constexpr std::uint32_t kOpenAndClose = IN_OPEN | IN_CLOSE_WRITE | IN_CLOSE_NOWRITE;

int Watch(const Descriptor& inotify, const std::filesystem::path& path) {
    const int watch = ::inotify_add_watch(inotify.Get(), path.c_str(), kOpenAndClose);
    if (watch < 0) ThrowSystemError("watch " + path.string());
    return watch;
}

}  // namespace

Activity::Activity(const std::filesystem::path& frameBuffer, const std::filesystem::path& keys)
    : m_inotify(Opened(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "watch the board")),
      m_frameBufferWatch(Watch(m_inotify, frameBuffer)),
      m_keysWatch(Watch(m_inotify, keys)) {}

void Activity::Read() {
    std::array<char, 4096> events;
    for (;;) {
        const ssize_t size = ::read(m_inotify.Get(), events.data(), events.size());
        if (size <= 0) return;
        inotify_event event{};
        for (std::size_t at = 0; at < static_cast<std::size_t>(size); at += sizeof event + event.len) {
            std::memcpy(&event, events.data() + at, sizeof event);
            const bool opened = (event.mask & IN_OPEN) != 0;
            if (event.wd == m_frameBufferWatch) {
                m_frameBufferOpen = opened;
                if ((event.mask & IN_CLOSE_WRITE) != 0) ++m_frames;
            }
            if (event.wd == m_keysWatch) m_keyReaders = std::max(0, m_keyReaders + (opened ? 1 : -1));
        }
    }
}

}  // namespace panel
