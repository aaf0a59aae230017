#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

namespace panel {

/// The newest entries of something that goes on for ever. Readers come when they can and say how far they have read;
/// what was dropped meanwhile is counted to them. Any thread.
class Feed {
public:
    struct Piece {
        std::string entries;     // a JSON array; empty when there is nothing new
        std::uint64_t lost = 0;  // entries that were dropped before it
        std::uint64_t next = 0;  // where the next piece begins
    };

    explicit Feed(std::size_t capacity) : m_capacity(capacity) {}

    /// @param entry  a JSON value
    void Append(std::string entry);

    /// The entries from `position` on, as many as make a message of bearable size.
    Piece Since(std::uint64_t position) const;

private:
    const std::size_t m_capacity;
    mutable std::mutex m_mutex;  // guards what follows
    std::deque<std::string> m_entries;
    std::uint64_t m_dropped = 0;
};

}  // namespace panel
