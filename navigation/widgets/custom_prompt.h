#pragma once

#include "peg/widgets/prompt.h"

enum class VerticalAlignment { Top = 0, Centre = 1, Bottom = 2 };

/// A prompt whose text stands at the top, in the middle or at the bottom, with a margin at its side.
class custPpromptClass : public PegPrompt {
public:
    custPpromptClass(const PegRect& rect, const char16_t* text = nullptr, std::uint16_t id = 0, std::uint32_t style = 0,
                     VerticalAlignment alignment = VerticalAlignment::Centre);

    void Draw(const PegRect& invalid) override;

    /// Pixels between the text and the side that it is aligned to.
    void setMargin(int pixels) { m_margin = pixels; }

protected:
    static constexpr int kEdgeGap = 1;  // pixels between the side and the margin

    int Margin() const { return m_margin; }

private:
    PegPoint TextCorner() const;

    VerticalAlignment m_alignment;
    int m_margin = 0;
};
