#pragma once

#include <array>

#include "navigation/widgets/data_prompt.h"
#include "peg/core/window.h"

/// A table of texts: up to five rows and five columns of prompts, with lines between them and frames around all of them
/// and around the first row.
///
/// A size of zero leaves a row or column out; the others are counted from 1. A number beyond them counts as 1. Hidden
/// rows take no space: those below move up. At least one row and one column must have a size.
class tableRowClass : public PegWindow {
public:
    static constexpr std::size_t kMost = 5;
    using Sizes = std::array<int, kMost>;

    tableRowClass(PegPoint origin, const Sizes& rowHeights, const Sizes& columnWidths);

    void Draw(const PegRect& invalid) override;

    dataPegPromptClass& cell(int row, int column);
    void hideRow(int row) { Show(row, false); }
    void showRow(int row) { Show(row, true); }

    /// Colour numbers.
    void setRowColour(int row, std::uint32_t colour);
    void setGridColour(std::uint32_t colour) { Change(m_gridColour, colour); }
    void setHeaderFrameColour(std::uint32_t colour) { Change(m_headerFrameColour, colour); }

    /// Which lines are drawn: at first all but the frame around the first row.
    void setOuterFrame(bool on) { Change(m_outerFrame, on); }
    void setRowLines(bool on) { Change(m_rowLines, on); }
    void setColumnLines(bool on) { Change(m_columnLines, on); }
    void setHeaderFrame(bool on) { Change(m_headerFrame, on); }

    void setOrigin(PegPoint origin);

    /// Keep the table in the middle of the panel, or of the given lines, while rows come and go.
    void centreHorizontally();
    void centreVertically();
    void setVerticalBounds(int top, int bottom);

private:
    static std::size_t IndexOf(int number, std::size_t count);
    void Show(int row, bool visible);
    PegRect Place() const;
    PegRect RowAt(int top, std::size_t row) const;
    void LayOut();
    void DrawRows() const;
    void DrawLines() const;
    void DrawCells(const PegRect& invalid) const;

    template <typename Value>
    void Change(Value& value, Value to) {
        if (value == to) return;
        value = to;
        Invalidate();
    }

    std::size_t m_rowCount = 0;
    std::size_t m_columnCount = 0;
    Sizes m_heights{};
    Sizes m_widths{};
    std::array<std::array<dataPegPromptClass*, kMost>, kMost> m_cells{};  // children
    std::array<std::uint32_t, kMost> m_rowColours{};
    std::array<bool, kMost> m_visible{};
    PegPoint m_origin;
    bool m_centredAcross = false;
    bool m_centredDown = false;
    int m_boundTop;
    int m_boundBottom;
    std::uint32_t m_gridColour;
    std::uint32_t m_headerFrameColour;
    bool m_outerFrame = true;
    bool m_rowLines = true;
    bool m_columnLines = true;
    bool m_headerFrame = false;
};
