#pragma once

#include <array>

#include "navigation/widgets/custom_prompt.h"

/// A prompt that draws its text in the first font of a series in which it fits: its own, then those of its table.
class dataPegPromptClass : public custPpromptClass {
public:
    static constexpr std::int32_t kNoFont = -1;
    static constexpr std::size_t kFitFonts = 6;

    dataPegPromptClass(const PegRect& rect, const char16_t* text = nullptr, std::uint16_t id = 0,
                       std::uint32_t style = kStyleTextLeft, VerticalAlignment alignment = VerticalAlignment::Centre);

    void Draw(const PegRect& invalid) override;
    void SetText(const char16_t* text) override;

    /// Sets the font to begin with.
    void SetFontNumber(std::uint32_t number) override;
    void Resize(const PegRect& rect) override;

    /// Sets a font to try when the text is too wide; ignored for an index above 5. The series ends at kNoFont.
    void setFitFont(std::size_t index, std::int32_t font);

    /// Whether a text that fits in no font gets a frame around it.
    void setOverflowFrame(bool on);

private:
    bool Fits() const;
    void Fit();

    std::uint32_t m_baseFont;
    std::array<std::int32_t, kFitFonts> m_fitFonts;
    bool m_overflowFrame = true;
};
