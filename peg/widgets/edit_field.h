#pragma once

#include <cstddef>

#include "peg/core/text_thing.h"

/// A line of text that is typed: a key press with a character adds it, backspace takes the last one away again.
///
/// The field owns its text and overwrites with zeros what leaves it.
class PegEditField : public PegTextThing {
public:
    /// @param longest  characters that it takes
    PegEditField(const PegRect& rect, std::uint16_t id, std::uint32_t style, std::size_t longest);
    ~PegEditField() override;

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

    /// Shows a text, cut to what the field takes; null: none.
    void SetText(const char16_t* text) override;

    /// Shows a dot for each character from now on, or the characters again.
    void HideText(bool hidden);
    std::size_t Length() const { return m_length; }
    bool IsFull() const { return m_length == m_longest; }

private:
    void Type(int key);
    void Empty();

    std::size_t m_longest;
    std::size_t m_length = 0;
    std::unique_ptr<char16_t[]> m_typed;  // zeros behind the text
    std::unique_ptr<char16_t[]> m_dots;   // as many as it takes
    bool m_hidden = false;
};
