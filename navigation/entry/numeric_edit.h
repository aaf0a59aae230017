#pragma once

#include <array>
#include <string_view>

#include "navigation/entry/masked_value.h"
#include "peg/core/holder.h"
#include "peg/core/window.h"
#include "peg/widgets/horz_list.h"
#include "peg/widgets/prompt.h"

/// One character of a value that is edited in place.
class NumericCell : public PegPrompt {
public:
    NumericCell();

    void Show(char character);

private:
    char m_shown = '\0';
};

/// Edits a number, address or time in place, one cell a character: one key moves the cursor to the left, another steps
/// what stands under it. What masks mean and which texts fit them is MaskedValue's to say.
///
/// Toolkit task only. Allocates nothing once it is constructed.
class numericEdit : public PegWindow {
public:
    explicit numericEdit(const PegRect& rect, ZeroReads zero = ZeroReads::Digits);

    void Draw(const PegRect& invalid) override;

    /// Lays out the cells that a mask needs, in the largest font in which they fit.
    [[nodiscard]] EntryResult setMask(std::string_view mask);
    [[nodiscard]] EntryResult setValue(std::string_view text);
    [[nodiscard]] EntryResult validate() const { return m_value.validate(); }
    void clear();
    void cursorLeft();
    void step();
    [[nodiscard]] MaskedValue::Text getValue() const { return m_value.getValue(); }

    const MaskedValue& Value() const { return m_value; }

private:
    void LayOut();
    void ShowValue();

    MaskedValue m_value;
    PegHorzList& m_row;
    std::array<PegHolder<NumericCell>, MaskedValue::kLongest> m_cells;  // in the row as far as the mask needs them
};
