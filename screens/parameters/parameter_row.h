#pragma once

#include <array>

#include "navigation/widgets/data_prompt.h"
#include "peg/core/holder.h"
#include "screens/parameters/row_layout.h"

enum class OverflowFrame : bool { Off, On };

/// One quantity on the panel: its label, its value and its unit. Texts that stay the same are not drawn again.
template <std::size_t labelSize, std::size_t valueSize, std::size_t unitSize>
struct ParameterTexts {
    std::array<char16_t, labelSize> label{};
    std::array<char16_t, valueSize> value{};
    std::array<char16_t, unitSize> unit{};
};
using RowTexts = ParameterTexts<40, 45, 10>;

/// Gives a prompt its font and puts its text on the line `y`.
void PlacePrompt(dataPegPromptClass& prompt, int y, const ColumnSpan& columns, std::uint32_t font);

class ParameterRow {
public:
    /// @param valueFrame  whether a value that is too wide gets a frame
    explicit ParameterRow(OverflowFrame valueFrame);

    /// Puts the row into its place; it is shown once it is added.
    void Place(const RowLayout& layout, std::size_t index);
    void AddTo(PegThing& screen);
    void TakeOff();
    void Show(const RowTexts& texts);

private:
    PegHolder<dataPegPromptClass> m_label;
    PegHolder<dataPegPromptClass> m_value;
    PegHolder<dataPegPromptClass> m_unit;
    RowTexts m_shown;
};

/// The rows of a page, none of them placed yet.
std::array<ParameterRow, kMostParameters> UnplacedRows(OverflowFrame valueFrame);
