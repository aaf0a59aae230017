#pragma once

#include "peg/widgets/vert_list.h"

/// A vertical list that keeps what lies behind the selected item in view: an item below its line is scrolled up to it,
/// so that the person sees what comes next.
class vertListNavClass : public PegVertList {
public:
    explicit vertListNavClass(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0)
        : PegVertList(rect, id, style), m_keepVisibleLine(rect.bottom) {}

    /// The row of the panel to which items below it are scrolled; the list's bottom edge at first.
    void setKeepVisibleLine(int pixels) { m_keepVisibleLine = pixels; }

    void ScrollToSelected() override;

private:
    int m_keepVisibleLine;
};
