#pragma once

#include <cstdint>
#include <memory>

#include "peg/core/thing.h"
#include "peg/resources/font.h"

/// Style bits of things with text and of the classes built on them.
inline constexpr std::uint32_t kStyleBorderNone = 0x01;
inline constexpr std::uint32_t kStyleBorderThin = 0x02;
inline constexpr std::uint32_t kStyleBorderRaised = 0x04;
inline constexpr std::uint32_t kStyleBorderRecessed = 0x08;
inline constexpr std::uint32_t kStyleBorderThick = 0x10;
inline constexpr std::uint32_t kStyleBorders = 0x1F;
inline constexpr std::uint32_t kStyleTextRight = 0x20;
inline constexpr std::uint32_t kStyleTextLeft = 0x40;
inline constexpr std::uint32_t kStyleCopyText = 0x80;  // keeps a copy of its text instead of pointing at the caller's
inline constexpr std::uint32_t kStyleHighlighted = 0x20000000;
inline constexpr std::uint32_t kStyleTransparent = kStyleDrawnByParent;
inline constexpr std::uint32_t kStyleActive = 0x80000000;

/// What the four colours of a thing with text are for.
inline constexpr unsigned kBackground = 0;
inline constexpr unsigned kHighlightBackground = 1;
inline constexpr unsigned kText = 2;
inline constexpr unsigned kHighlightText = 3;

/// A thing with a text in one font, and the frames that things with text have.
class PegTextThing : public PegThing {
public:
    explicit PegTextThing(const PegRect& rect, std::uint16_t id = 0, std::uint32_t style = 0);

    std::int32_t Message(const PegMessage& message) override;
    void Resize(const PegRect& rect) override;
    void SetStyle(std::uint32_t style) override;

    /// Takes the toolkit string of that number and remembers the number, so that the text follows the language.
    virtual void SetTextById(std::uint32_t number);

    /// Shows a text: the caller's own, which must live on, or with kStyleCopyText a copy. Empty and null: no text.
    virtual void SetText(const char16_t* text);

    /// The text read as a decimal number and held within the range; `lowest` without a number.
    virtual std::int32_t NumberInRange(std::int32_t lowest, std::int32_t highest) const;
    virtual void SetFontNumber(std::uint32_t number);

    const char16_t* Text() const { return m_text; }
    const PegFont* Font() const { return m_font; }
    std::uint32_t FontNumber() const { return m_fontNumber; }
    std::uint32_t StringNumber() const { return m_stringNumber; }

protected:
    /// Fills the thing with a colour number and draws the frame that its style asks for.
    void DrawFrame(std::uint32_t fillColor);

    /// Where a text of the thing's font stands in `area`: centred vertically, and horizontally as the style says.
    PegPoint TextPosition(const PegRect& area) const;

    /// @param ground  number of the colour that the text stands on
    void DrawTextIn(const PegRect& area, std::uint32_t color, std::uint32_t ground);
    bool IsTransparent() const {
        return HasStyle(kStyleTransparent) && (GetStyle() & kStyleBorders) == kStyleBorderNone;
    }

private:
    static int BorderWidth(std::uint32_t style);
    void FitClient();

    const PegFont* m_font = nullptr;
    const char16_t* m_text = nullptr;
    std::unique_ptr<char16_t[]> m_copy;
    std::uint32_t m_capacity = 0;  // code units of the copy
    std::uint32_t m_fontNumber = 0;
    std::uint32_t m_stringNumber = 0;  // 0: the text came from elsewhere
};
