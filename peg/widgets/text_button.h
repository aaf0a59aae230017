#pragma once

#include "peg/widgets/button.h"

/// A button with a label: raised, recessed while it is held, and grey while it is inactive.
class PegTextButton : public PegButton {
public:
    PegTextButton(const PegRect& rect, const char16_t* text, std::uint16_t id = 0, std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;
};
