#pragma once

#include <array>

#include "peg/widgets/button.h"

/// A button that is a picture: one for each of its looks.
class PegBitmapButton : public PegButton {
public:
    enum Slot : unsigned { Normal, Pressed, Current, Disabled };

    /// @param current  bitmap number of the focused or highlighted look; 0: the normal one, as is the disabled look
    PegBitmapButton(const PegRect& rect, std::uint32_t normal, std::uint32_t pressed, std::uint32_t current,
                    std::uint16_t id = 0, std::uint32_t style = 0);

    void Draw(const PegRect& invalid) override;

    /// Sets all four looks; 0 for `current` or `disabled` takes the normal one.
    void SetBitmaps(std::uint32_t normal, std::uint32_t pressed, std::uint32_t current, std::uint32_t disabled);

    /// Sets one look; ignored for a slot above 3.
    void SetBitmap(unsigned slot, std::uint32_t number);
    std::uint32_t BitmapNumber(unsigned slot) const { return m_bitmaps[slot]; }

private:
    unsigned Look() const;

    std::array<std::uint32_t, 4> m_bitmaps{};
};
