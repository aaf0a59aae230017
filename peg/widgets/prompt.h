#pragma once

#include "peg/core/text_thing.h"

/// A line of text: a label, a value, a title. With kStyleActive it may take the focus and tells when it is chosen.
class PegPrompt : public PegTextThing {
public:
    explicit PegPrompt(const PegRect& rect, const char16_t* text = nullptr, std::uint16_t id = 0,
                       std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;

protected:
    unsigned BackgroundSlot() const { return HasStyle(kStyleHighlighted) ? kHighlightBackground : kBackground; }
    unsigned TextSlot() const { return HasStyle(kStyleHighlighted) ? kHighlightText : kText; }

    /// Frame and background, unless the prompt lets its parent show through.
    void DrawPromptBackground();
};
