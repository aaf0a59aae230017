#pragma once

#include "navigation/widgets/composed_text.h"
#include "peg/widgets/prompt.h"

/// Where labels and values of a detail screen stand, all inclusive.
struct DetailColumns {
    std::int16_t labelLeft;
    std::int16_t labelRight;
    std::int16_t valueLeft;
    std::int16_t valueRight;
};

/// The label of a field of a detail screen. The prompt belongs to the screen.
class DetailLabel {
public:
    /// @param line  on which the letters stand
    /// @param text  string number
    DetailLabel(PegThing& screen, int line, const DetailColumns& columns, std::uint32_t font, std::uint32_t text);

    /// Shows the label in the selected language.
    void Relabel();

private:
    std::uint32_t m_text;
    PegPrompt& m_prompt;
};

/// One field of a detail screen: its label and its value, on one line. Both belong to the screen.
class DetailField {
public:
    using ValueText = ComposedText<64>;

    DetailField(PegThing& screen, int line, const DetailColumns& columns, std::uint32_t font, std::uint32_t label);

    void Relabel() { m_label.Relabel(); }
    void Show(const ValueText& value) { m_shown.Show(m_value, value); }
    void SetValueColor(std::uint32_t color) {
        if (m_value.GetColor(kText) != color) m_value.SetColor(kText, color);
    }

private:
    DetailLabel m_label;
    PegPrompt& m_value;
    ShownText<64> m_shown;
};
