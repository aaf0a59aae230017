#include "screens/lists/scroll_indicator.h"

#include <algorithm>

#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {
constexpr std::uint32_t kTrackColor = 91;
constexpr std::uint32_t kThumbColor = 87;
constexpr int kShortestThumb = 9;
}  // namespace

ScrollIndicator::ScrollIndicator(const PegRect& rect, std::int32_t pageSize) : PegThing(rect), m_pageSize(pageSize) {
    ClearStatusBits(STAT_SELECTABLE | STAT_ACCEPTS_FOCUS);
}

void ScrollIndicator::SetPosition(std::int32_t minimum, std::int32_t maximum, std::int32_t first) {
    first = std::max(first, minimum);
    if (m_minimum == minimum && m_maximum == maximum && m_first == first) return;
    m_minimum = minimum;
    m_maximum = maximum;
    m_first = first;
    Invalidate();
}

void ScrollIndicator::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    toolkit.screen->Fill(Real(), PegResources::GetColor(kTrackColor));
    const PegRect thumb = Thumb();
    if (!thumb.IsEmpty()) toolkit.screen->Fill(thumb, PegResources::GetColor(kThumbColor));
}

PegRect ScrollIndicator::Thumb() const {
    const std::int64_t entries = std::int64_t{m_maximum} - m_minimum + 1;
    const std::int64_t hidden = entries - m_pageSize;
    if (hidden <= 0) return RectOf(0, 0, -1, -1);
    const std::int64_t track = Real().Height();
    const std::int64_t length = std::max<std::int64_t>(track * m_pageSize / entries, kShortestThumb);
    const std::int64_t before = std::min(std::int64_t{m_first} - m_minimum, hidden);
    const int top = Real().top + static_cast<int>((track - length) * before / hidden);
    return RectOf(Real().left, top, Real().right, top + static_cast<int>(length) - 1);
}
