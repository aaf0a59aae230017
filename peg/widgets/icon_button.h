#pragma once

#include "peg/resources/bitmap.h"
#include "peg/widgets/button.h"

/// A button with one picture of the caller's on its face.
class PegIconButton : public PegButton {
public:
    PegIconButton(const PegRect& rect, const PegBitmap* icon, std::uint16_t id = 0, std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;

private:
    const PegBitmap* m_icon;
};
