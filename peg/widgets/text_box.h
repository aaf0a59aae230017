#pragma once

#include <cstddef>

#include "peg/core/text_thing.h"

/// A paragraph: a text broken into lines between its words, centred vertically. Text that finds no room is left out.
class PegTextBox : public PegTextThing {
public:
    /// @param longest  characters of a text that are kept; the rest is cut off
    PegTextBox(const PegRect& rect, std::uint16_t id, std::uint32_t style, std::size_t longest);

    void SetText(const char16_t* text) override;
    void Draw(const PegRect& invalid) override;

private:
    std::size_t m_longest;
    std::unique_ptr<char16_t[]> m_kept;
};
