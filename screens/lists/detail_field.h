#pragma once

#include "peg/widgets/prompt.h"
#include "screens/lists/shown_text.h"

/// One field of a detail screen: its label and its value, on one line. Both belong to the screen.
class DetailField {
public:
    /// @param line  on which the letters stand
    /// @param label  string number
    DetailField(PegThing& screen, int line, std::uint32_t font, std::uint32_t label, int valueLeft);

    /// Shows the label in the selected language.
    void Relabel();
    void Show(const ComposedText<64>& value) { m_shown.Show(m_value, value); }
    void SetValueColor(std::uint32_t color) {
        if (m_value.GetColor(kText) != color) m_value.SetColor(kText, color);
    }

private:
    std::uint32_t m_labelText;
    PegPrompt& m_label;
    PegPrompt& m_value;
    ShownText<64> m_shown;
};
