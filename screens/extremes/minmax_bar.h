#pragma once

#include <array>

#include "navigation/power_quality_display.h"
#include "navigation/widgets/data_prompt.h"
#include "screens/base/column_span.h"
#include "screens/extremes/bar_scale.h"

/// A quantity's minimum, present value and maximum as a line of texts, and under it a bar from the minimum to the
/// maximum, with marks.
class MinMaxBar : public PegThing {
public:
    /// @param line  the line that the texts stand on
    explicit MinMaxBar(int line);

    void Draw(const PegRect& invalid) override;

    /// The same values and positions again change nothing on the panel. Values that are not valid have no texts.
    void Show(const MinMaxBarDisplay& values, const BarPositions& positions);

private:
    dataPegPromptClass& AddText(const ColumnSpan& columns, std::uint32_t font, std::uint32_t style);
    void AddMark(const ColumnSpan& columns, std::uint32_t stringNumber);
    void ShowPositions(const BarPositions& positions);

    int m_line;
    PegRect m_bar;
    BarPositions m_positions = kInTheMiddle;
    dataPegPromptClass& m_minimum;
    dataPegPromptClass& m_maximum;
    dataPegPromptClass& m_label;
    dataPegPromptClass& m_present;
    MinMaxBarDisplay m_shown;  // what the prompts point at
};
