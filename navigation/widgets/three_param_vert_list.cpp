#include "navigation/widgets/three_param_vert_list.h"

#include "navigation/geometry.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kRowBitmap = 146;
constexpr std::uint32_t kFirstRowBitmap = 150;
constexpr std::uint32_t kTitlesBitmap = 159;
constexpr std::uint32_t kSelectedBitmap = 143;

constexpr std::uint32_t kTextColor = 21;
constexpr std::uint32_t kTint = 93;   // of the selected cell's bitmap
constexpr std::uint32_t kStrip = 94;  // of the titles' bitmap

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
        m_headers[column] = &AddNew<PegPrompt>(titles, CellIn(Real(), column), nullptr, std::uint16_t{0},
                                               column == 0 ? kNameStyle : kValueStyle);
        m_headers[column]->SetColor(kBackground, kStrip);
    }
}

bool threeParamVertList::addRow() {
    if (m_rowCount == kMostRows) return false;
    const int height = PegResources::BitmapHeight(kRowBitmap);
    const PegRect place = RectOf(Real().left, Real().bottom + 1, Real().right, Real().bottom + height);
    Resize(RectOf(Real().left, Real().top, Real().right, place.bottom));
    PegBitmapPrompt& background = AddBand(*this, place, m_rowCount == 0 ? kFirstRowBitmap : kRowBitmap);
    Row& row = m_rows[m_rowCount];
    row.name = &AddNew<PegPrompt>(background, CellIn(place, 0), nullptr, std::uint16_t{0}, kNameStyle);
    for (std::size_t i = 0; i < kValueColumns; ++i) {
        row.values[i] =
            &AddNew<PegBitmapPrompt>(background, CellIn(place, 1 + i), nullptr, std::uint16_t{0}, kValueStyle);
        row.values[i]->SetBitmapNumber(PegBitmapPrompt::HighlightBackground, kSelectedBitmap);
        row.values[i]->SetColor(kHighlightText, kTextColor);
        row.values[i]->SetColor(kHighlightBackground, kTint);
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

PegPrompt& threeParamVertList::cell(std::size_t row, std::size_t column) {
    Row& cells = m_rows[row];
    return column == 0 ? *cells.name : *cells.values[column - 1];
}
