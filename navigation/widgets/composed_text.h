#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "peg/core/text_thing.h"

/// The text in a wide field: up to its terminator, or the whole field when it has none.
template <std::size_t size>
constexpr std::u16string_view TextIn(const std::array<char16_t, size>& field) {
    const std::u16string_view whole(field.data(), field.size());
    return whole.substr(0, whole.find(u'\0'));
}

/// A text that is put together from parts. What finds no room is left out.
template <std::size_t size>
class ComposedText {
public:
    ComposedText& Add(std::u16string_view part) {
        const std::size_t taken = std::min(part.size(), size - 1 - m_length);
        std::copy_n(part.begin(), taken, m_text.begin() + m_length);
        m_length += taken;
        return *this;
    }
    ComposedText& Add(const char16_t* part) { return part != nullptr ? Add(std::u16string_view(part)) : *this; }
    ComposedText& Add(std::string_view ascii) {
        for (const char letter : ascii) {
            const char16_t wide = static_cast<unsigned char>(letter);
            Add(std::u16string_view(&wide, 1));
        }
        return *this;
    }
    ComposedText& AddNumber(std::uint32_t number) {
        std::array<char, 10> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        return Add(std::string_view(digits.data(), end));
    }

    /// Leaves out the end of a text that is wider than `width` pixels.
    void FitInto(int width, const PegFont* font) {
        while (m_length > 0 && WidthOf({m_text.data(), m_length}, font) > width) m_text[--m_length] = u'\0';
    }

    /// Terminated.
    const char16_t* Text() const { return m_text.data(); }
    const std::array<char16_t, size>& Units() const { return m_text; }

    friend bool operator==(const ComposedText&, const ComposedText&) = default;

private:
    std::array<char16_t, size> m_text{};
    std::size_t m_length = 0;
};

/// Keeps the text of a thing that points at it. The same text again is not drawn again.
template <std::size_t size>
class ShownText {
public:
    /// @return whether it is another text
    bool Show(PegTextThing& thing, const ComposedText<size>& text) {
        if (m_text == text) return false;
        m_text = text;
        thing.SetText(m_text.Text());
        return true;
    }

private:
    ComposedText<size> m_text;
};
