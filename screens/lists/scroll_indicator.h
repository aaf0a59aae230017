#pragma once

#include <cstdint>

#include "peg/core/thing.h"

/// Shows which part of a list is on view: a track with a thumb, as long as its share of the list. A list that is on
/// view as a whole has no thumb.
class ScrollIndicator : public PegThing {
public:
    /// @param pageSize  entries on view at a time, of the range's length
    ScrollIndicator(const PegRect& rect, std::int32_t pageSize);

    void Draw(const PegRect& invalid) override;

    /// The indices of the first and last entry of the list and of the first on view, which counts as `minimum` when it
    /// lies before.
    void SetPosition(std::int32_t minimum, std::int32_t maximum, std::int32_t first);

private:
    PegRect Thumb() const;

    std::int32_t m_pageSize;
    std::int32_t m_minimum = 0;
    std::int32_t m_maximum = 0;
    std::int32_t m_first = 0;
};
