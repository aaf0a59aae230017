#pragma once

#include "peg/widgets/list.h"

/// A list whose items stand side by side, each as high as the list.
class PegHorzList : public PegList {
public:
    explicit PegHorzList(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0)
        : PegList(rect, id, style) {
        SetType(TYPE_HORZ_LIST);
    }

    void PositionChildren() override;
    void ScrollToSelected() override;

protected:
    int PreviousKey() const override { return kKeyLeft; }
    int NextKey() const override { return kKeyRight; }
};
