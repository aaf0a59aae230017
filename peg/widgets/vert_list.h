#pragma once

#include "peg/widgets/list.h"

/// A list whose items stand below each other, each as wide as the list.
class PegVertList : public PegList {
public:
    explicit PegVertList(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0)
        : PegList(rect, id, style) {
        SetType(TYPE_VERT_LIST);
    }

    void PositionChildren() override;
    void ScrollToSelected() override;

protected:
    int PreviousKey() const override { return kKeyUp; }
    int NextKey() const override { return kKeyDown; }
};
