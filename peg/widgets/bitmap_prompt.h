#pragma once

#include <array>

#include "peg/widgets/prompt.h"

/// A prompt on a bitmap, with an icon on either side of its text: an item of a menu or list.
class PegBitmapPrompt : public PegPrompt {
public:
    enum Slot : unsigned { Background, HighlightBackground, LeftIcon, RightIcon };

    explicit PegBitmapPrompt(const PegRect& rect, const char16_t* text = nullptr, std::uint16_t id = 0,
                             std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;

    /// Sets the bitmap number of a slot, 0 for none; ignored for a slot above 3.
    void SetBitmapNumber(unsigned slot, std::uint32_t number);
    std::uint32_t BitmapNumber(unsigned slot) const { return m_bitmaps[slot]; }

    /// Pixels between an icon and the client's edge.
    void SetGap(int pixels) { m_gap = pixels; }

    /// Pixels that a text aligned to a side keeps from its icon or edge, beside the usual one.
    void SetTextIndent(int pixels) { m_indent = pixels; }

private:
    int DrawIcon(unsigned slot);

    std::array<std::uint32_t, 4> m_bitmaps{};
    int m_gap = 0;
    int m_indent = 0;
};
