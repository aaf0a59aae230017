#include "navigation/widgets/three_param_vert_list.h"

#include "navigation/geometry.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kRowBitmap = 146;
constexpr std::uint32_t kFirstRowBitmap = 150;
constexpr std::uint32_t kTitlesBitmap = 159;
constexpr std::uint32_t kSelectedBitmap = 143;

constexpr std::uint32_t kTextColor = 21;

// What the bitmaps are filled with, for the edges of the letters.
constexpr std::uint32_t kRowColor = 25;
constexpr std::uint32_t kTintColor = 93;
constexpr std::uint32_t kStripColor = 94;

constexpr int kIndent = 6;  // pixels between a text and the edge of its cell

constexpr std::uint32_t kRowStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kNameStyle = kRowStyle | kStyleTextLeft;
constexpr std::uint32_t kValueStyle = kRowStyle | kStyleTextRight;

PegRect PlaceUnder(int top) {
    const int width = PegResources::BitmapWidth(kRowBitmap);
    const int left = (kPanelWidth - width) / 2;
    return RectOf(left, top, left + width - 1, top + PegResources::BitmapHeight(kTitlesBitmap) - 1);
}

/// The part of a row that a column has: 0 the name, 1 and 2 the values.
PegRect CellIn(const PegRect& row, std::size_t column) {
    const int width = PegResources::BitmapWidth(kSelectedBitmap);
    const int names = row.right - 2 * width - 1;
    switch (column) {
        case 1: return RectOf(row.right - 2 * width + 1, row.top, row.right - width, row.bottom);
        case 2: return RectOf(row.right - width + 1, row.top, row.right, row.bottom);
    }
    return RectOf(row.left, row.top, names, row.bottom);
}

PegBitmapPrompt& AddCell(PegThing& row, std::size_t column, std::uint32_t ground) {
    const std::uint32_t style = column == 0 ? kNameStyle : kValueStyle;
    PegBitmapPrompt& cell = AddNew<PegBitmapPrompt>(row, CellIn(row.Real(), column), nullptr, std::uint16_t{0}, style);
    cell.SetTextIndent(kIndent);
    cell.SetColor(kBackground, ground);
    return cell;
}

PegBitmapPrompt& AddBand(PegThing& parent, const PegRect& place, std::uint32_t bitmap) {
    PegBitmapPrompt& band = AddNew<PegBitmapPrompt>(parent, place, nullptr, std::uint16_t{0}, kRowStyle);
    band.SetBitmapNumber(PegBitmapPrompt::Background, bitmap);
    return band;
}

}  // namespace

threeParamVertList::threeParamVertList(int top) : PegWindow(PlaceUnder(top), 0, kStyleBorderNone) {
    ClearStatusBits(STAT_VIEWPORT);  // part of a screen, not a region of its own
    PegBitmapPrompt& titles = AddBand(*this, Real(), kTitlesBitmap);
    for (std::size_t column = 0; column < m_headers.size(); ++column) {
        m_headers[column] = &AddCell(titles, column, kStripColor);
    }
}

bool threeParamVertList::addRow() {
    if (m_rowCount == kMostRows) return false;
    const int height = PegResources::BitmapHeight(kRowBitmap);
    const PegRect place = RectOf(Real().left, Real().bottom + 1, Real().right, Real().bottom + height);
    Resize(RectOf(Real().left, Real().top, Real().right, place.bottom));
    PegBitmapPrompt& background = AddBand(*this, place, m_rowCount == 0 ? kFirstRowBitmap : kRowBitmap);
    Row& row = m_rows[m_rowCount];
    for (std::size_t column = 0; column < row.size(); ++column) {
        row[column] = &AddCell(background, column, kRowColor);
        if (column == 0) continue;
        row[column]->SetBitmapNumber(PegBitmapPrompt::HighlightBackground, kSelectedBitmap);
        row[column]->SetColor(kHighlightText, kTextColor);
        row[column]->SetColor(kHighlightBackground, kTintColor);
    }
    if (m_rowCount > 0) clearSelectionLook();
    ++m_rowCount;
    Select((m_rowCount - 1) * kValueColumns);
    return true;
}

void threeParamVertList::selectNext() {
    if (m_rowCount == 0) return;
    clearSelectionLook();
    Select((m_selection + 1) % (m_rowCount * kValueColumns));
}

void threeParamVertList::clearSelectionLook() {
    if (m_rowCount == 0) return;
    Selected().ClearStyleBits(kStyleHighlighted);
    Selected().Invalidate();
}

void threeParamVertList::Select(std::size_t selection) {
    m_selection = selection;
    Selected().SetStyleBits(kStyleHighlighted);
    Selected().Invalidate();
}

int threeParamVertList::selectedRow() const {
    return m_rowCount > 0 ? static_cast<int>(m_selection / kValueColumns) : kNothingSelected;
}

int threeParamVertList::selectedColumn() const {
    return m_rowCount > 0 ? static_cast<int>(m_selection % kValueColumns) : kNothingSelected;
}
