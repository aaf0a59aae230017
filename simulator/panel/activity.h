#pragma once

#include <cstdint>
#include <filesystem>

#include "simulator/descriptor.h"

namespace panel {

/// Sees who opens and closes the frame buffer and the keys of a board.
///
/// The display opens the frame buffer, writes one frame and closes it: each such closing is one frame. The display
/// waits for keys with the keys device open, so that an open keys device shows that it runs; one that was opened before
/// this watch began counts from its next opening.
class Activity {
public:
    Activity(const std::filesystem::path& frameBuffer, const std::filesystem::path& keys);

    /// Becomes readable when there is something to Read.
    int Get() const { return m_inotify.Get(); }

    /// Takes note of all that happened; returns at once.
    void Read();

    /// Frames that were written since the watch began.
    std::uint64_t Frames() const { return m_frames; }

    /// Whether the frame buffer was opened since it was last closed, so that it may hold half a frame.
    bool FrameBufferOpen() const { return m_frameBufferOpen; }

    /// Whether a process waits for keys.
    bool KeysOpen() const { return m_keyReaders > 0; }

private:
    Descriptor m_inotify;
    int m_frameBufferWatch;
    int m_keysWatch;
    std::uint64_t m_frames = 0;
    bool m_frameBufferOpen = false;
    int m_keyReaders = 0;
};

}  // namespace panel
