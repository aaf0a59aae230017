#pragma once

#include <string_view>

#include "peg/core/rect.h"
#include "peg/resources/font.h"

class PegThing;

/// A text as a thing asked the screen to draw it.
struct PegDrawnText {
    const PegThing& thing;  // that opened the drawing pass
    std::u16string_view text;
    const PegFont& font;
    PegPoint topLeft;
    PegRect room;  // in which the thing means the text to stand
    PegRect clip;  // outside which nothing is drawn
};

/// Hears of every text before it is drawn, whether or not any of it will be seen. For tests of the layout.
class PegTextObserver {
public:
    virtual void OnText(const PegDrawnText& text) = 0;

protected:
    ~PegTextObserver() = default;
};
