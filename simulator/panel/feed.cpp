#include "simulator/panel/feed.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

}  // namespace

void Feed::Append(std::string entry) {
    const std::lock_guard lock(m_mutex);
    m_entries.push_back(std::move(entry));
    if (m_entries.size() <= m_capacity) return;
    m_entries.pop_front();
    ++m_dropped;
}

Feed::Piece Feed::Since(std::uint64_t position) const {
    const std::lock_guard lock(m_mutex);
    const std::uint64_t start = std::max(position, m_dropped);
    Piece piece;
    piece.lost = start - position;
    piece.next = start;
    for (std::size_t at = start - m_dropped; at < m_entries.size() && piece.entries.size() < kPieceBytes; ++at) {
        piece.entries += (piece.entries.empty() ? "[" : ",") + m_entries[at];
        ++piece.next;
    }
    if (!piece.entries.empty()) piece.entries += "]";
    return piece;
}

}  // namespace panel
