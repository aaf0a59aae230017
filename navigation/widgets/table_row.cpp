#include "navigation/widgets/table_row.h"

#include <algorithm>

#include "navigation/geometry.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kStyle = kStyleBorderNone;
constexpr std::uint32_t kCellStyle = kStyleTransparent | kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kWhite = 15;
constexpr std::uint32_t kGrey = 8;
constexpr int kLine = 1;  // pixels

/// The sizes that are not zero, in their order. @return how many
std::size_t TakeSizes(const tableRowClass::Sizes& sizes, tableRowClass::Sizes& out) {
    const auto end = std::ranges::copy_if(sizes, out.begin(), [](int size) { return size > 0; }).out;
    return static_cast<std::size_t>(end - out.begin());
}

int Middle(int first, int last, int size) { return first + (last - first + 1 - size) / 2; }

}  // namespace

tableRowClass::tableRowClass(PegPoint origin, const Sizes& rowHeights, const Sizes& columnWidths)
    : PegWindow(RectOf(origin.x, origin.y, origin.x, origin.y), 0, kStyle),
      m_origin(origin),
      m_boundTop(kWholePanel.top),
      m_boundBottom(kWholePanel.bottom),
      m_gridColour(kGrey),
      m_headerFrameColour(kGrey) {
    m_rowCount = TakeSizes(rowHeights, m_heights);
    m_columnCount = TakeSizes(columnWidths, m_widths);
    m_rowColours.fill(kWhite);
    m_visible.fill(true);
    for (std::size_t row = 0; row < m_rowCount; ++row) {
        for (std::size_t column = 0; column < m_columnCount; ++column) {
            m_cells[row][column] = &AddNew<dataPegPromptClass>(*this, Real(), nullptr, std::uint16_t{0}, kCellStyle);
        }
    }
    LayOut();
}

dataPegPromptClass& tableRowClass::cell(int row, int column) {
    return *m_cells[IndexOf(row, m_rowCount)][IndexOf(column, m_columnCount)];
}

std::size_t tableRowClass::IndexOf(int number, std::size_t count) {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < count ? index : 0;
}

void tableRowClass::Show(int row, bool visible) {
    const std::size_t index = IndexOf(row, m_rowCount);
    if (m_visible[index] == visible) return;
    m_visible[index] = visible;
    LayOut();
}

void tableRowClass::setRowColour(int row, std::uint32_t colour) {
    Change(m_rowColours[IndexOf(row, m_rowCount)], colour);
}

void tableRowClass::setOrigin(PegPoint origin) {
    m_origin = origin;
    m_centredAcross = m_centredDown = false;
    LayOut();
}

void tableRowClass::centreHorizontally() {
    m_centredAcross = true;
    LayOut();
}

void tableRowClass::centreVertically() {
    m_centredDown = true;
    LayOut();
}

void tableRowClass::setVerticalBounds(int top, int bottom) {
    m_boundTop = top;
    m_boundBottom = bottom;
    centreVertically();
}

PegRect tableRowClass::Place() const {
    int width = 0;
    int height = 0;
    for (std::size_t column = 0; column < m_columnCount; ++column) width += m_widths[column];
    for (std::size_t row = 0; row < m_rowCount; ++row) height += m_visible[row] ? m_heights[row] : 0;
    const int left = m_centredAcross ? Middle(kWholePanel.left, kWholePanel.right, width) : m_origin.x;
    const int top = m_centredDown ? Middle(m_boundTop, m_boundBottom, height) : m_origin.y;
    return RectOf(left, top, left + width - 1, top + height - 1);
}

void tableRowClass::LayOut() {
    const PegRect place = Place();
    if (place != Real()) Resize(place);
    int top = place.top;
    for (std::size_t row = 0; row < m_rowCount; ++row) {
        if (!m_visible[row]) continue;
        int left = place.left;
        for (std::size_t column = 0; column < m_columnCount; ++column) {
            const PegRect rect = RectOf(left, top, left + m_widths[column] - 1, top + m_heights[row] - 1);
            if (rect != m_cells[row][column]->Real()) m_cells[row][column]->Resize(rect);
            left += m_widths[column];
        }
        top += m_heights[row];
    }
}

void tableRowClass::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    DrawRows();
    DrawLines();
    DrawCells(invalid);
}

PegRect tableRowClass::RowAt(int top, std::size_t row) const {
    return RectOf(Real().left, top, Real().right, top + m_heights[row] - 1);
}

void tableRowClass::DrawRows() const {
    int top = Real().top;
    for (std::size_t row = 0; row < m_rowCount; ++row) {
        if (!m_visible[row]) continue;
        toolkit.screen->Fill(RowAt(top, row), PegResources::GetColor(m_rowColours[row]));
        top += m_heights[row];
    }
}

void tableRowClass::DrawLines() const {
    const std::uint16_t grid = PegResources::GetColor(m_gridColour);
    const PegBrush frame(grid, 0, 0, kLine);
    if (m_outerFrame) toolkit.screen->DrawRectangle(Real(), frame);
    if (m_rowLines) {
        int top = Real().top;
        for (std::size_t row = 0; row < m_rowCount; ++row) {
            if (!m_visible[row]) continue;
            if (top != Real().top) toolkit.screen->Fill(RectOf(Real().left, top, Real().right, top), grid);
            top += m_heights[row];
        }
    }
    if (m_columnLines) {
        int left = Real().left;
        for (std::size_t column = 0; column + 1 < m_columnCount; ++column) {
            left += m_widths[column];
            toolkit.screen->Fill(RectOf(left, Real().top, left, Real().bottom), grid);
        }
    }
    if (m_headerFrame && m_rowCount > 0 && m_visible[0]) {
        const PegBrush header(PegResources::GetColor(m_headerFrameColour), 0, 0, kLine);
        toolkit.screen->DrawRectangle(RowAt(Real().top, 0), header);
    }
}

/// The cells of hidden rows stay where they last stood: they are left out.
void tableRowClass::DrawCells(const PegRect& invalid) const {
    for (std::size_t row = 0; row < m_rowCount; ++row) {
        if (!m_visible[row]) continue;
        for (std::size_t column = 0; column < m_columnCount; ++column) {
            if (m_cells[row][column]->Clip().Overlaps(invalid)) m_cells[row][column]->Draw(invalid);
        }
    }
}
