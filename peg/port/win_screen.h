#pragma once

#include "peg/port/l16_screen.h"

/// The panel's screen: each outermost pass ends with one write of the whole frame to the frame buffer device. What the
/// device does not take is sent with the next pass or when the toolkit is idle; nobody is told.
class PegWinScreen : public L16Screen {
public:
    PegWinScreen(int width, int height) : L16Screen(width, height) {}

    void FlushToDevice() override;
    bool IsBehind() const override { return m_behind; }

private:
    bool m_behind = false;
};
