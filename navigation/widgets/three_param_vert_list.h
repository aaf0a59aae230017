#pragma once

#include <array>

#include "peg/core/window.h"
#include "peg/widgets/bitmap_prompt.h"

/// A table of up to six rows, each a name and two values, under a row of column titles. One of the values is selected.
///
/// It is as wide as its rows' picture and stands in the middle of the panel; each new row makes it higher. Texts,
/// fonts and styles of the cells are the caller's.
class threeParamVertList : public PegWindow {
public:
    static constexpr std::size_t kMostRows = 6;
    static constexpr std::size_t kValueColumns = 2;
    static constexpr int kNothingSelected = -1;

    explicit threeParamVertList(int top);

    /// Adds a row and selects its first value. @return false when there is no room for another
    bool addRow();

    /// Selects the next value, row by row; the first one behind the last.
    void selectNext();

    /// Takes the mark off the selected value, which stays selected.
    void clearSelectionLook();

    /// Counted from 0; kNothingSelected without rows.
    int selectedRow() const;
    int selectedColumn() const;

    /// The title of value column 1 or 2; 0 that over the names.
    PegPrompt& header(std::size_t column) { return *m_headers[column]; }

    /// A cell of a row counted from 0: 0 the name, 1 and 2 the values.
    PegPrompt& cell(std::size_t row, std::size_t column) { return *m_rows[row][column]; }

private:
    using Row = std::array<PegBitmapPrompt*, 1 + kValueColumns>;  // children: name, values

    PegBitmapPrompt& Selected() { return *m_rows[m_selection / kValueColumns][1 + m_selection % kValueColumns]; }
    void Select(std::size_t selection);

    Row m_headers{};
    std::array<Row, kMostRows> m_rows{};
    std::size_t m_rowCount = 0;
    std::size_t m_selection = 0;  // row * kValueColumns + value column
};
