#include "navigation/entry/numeric_edit.h"

#include <algorithm>
#include <numeric>

#include "navigation/geometry.h"
#include "peg/core/screen.h"
#include "peg/core/toolkit.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::uint32_t kInvisibleStyle = kStyleTransparent | kStyleBorderNone;
constexpr std::uint32_t kCellStyle = kStyleActive | kStyleCopyText | kStyleBorderNone;
static_assert(kInvisibleStyle == 0x40000001 && kCellStyle == 0x80000081);
constexpr std::uint32_t kPaper = 15;
constexpr std::uint32_t kAccent = 86;
constexpr std::int32_t kFrameWidth = 2;

/// A size of the cells: how much larger they are than their characters.
struct CellSize {
    std::uint32_t font;
    int margin;
};
constexpr CellSize kLarge = {43, Divided(kPanelWidth, 80.0)};
constexpr CellSize kSmall = {40, Divided(kPanelWidth, 320.0)};
static_assert(kLarge.margin == 4 && kSmall.margin == 1);

constexpr bool IsSeparator(char inMask) { return inMask != '#' && inMask != '?' && inMask != 'S'; }

int CellWidth(char inMask, const CellSize& size) {
    const PegFont* font = PegResources::GetFont(size.font);
    if (!IsSeparator(inMask)) return WidthOf(u"M", font) + size.margin;
    const char16_t separator = static_cast<unsigned char>(inMask);
    return WidthOf({&separator, 1}, font) / 4;
}

/// The place of a cell in its row, which lays it out from left to right.
PegRect CellPlace(char inMask, const CellSize& size) {
    const int height = PegScreen::FontHeight(PegResources::GetFont(size.font)) + size.margin;
    return RectOf(0, 0, CellWidth(inMask, size), height);
}

int RowWidth(std::string_view mask, const CellSize& size) {
    return std::accumulate(mask.begin(), mask.end(), 0,
                           [&size](int sum, char inMask) { return sum + CellPlace(inMask, size).Width(); });
}

}  // namespace

NumericCell::NumericCell() : PegPrompt({}, nullptr, std::uint16_t{0}, kCellStyle) {
    SetColor(kBackground, kPaper);
    SetColor(kHighlightBackground, kAccent);
    SetColor(kHighlightText, kPaper);
    Show(' ');
}

void NumericCell::Show(char character) {
    if (character == m_shown) return;
    m_shown = character;
    const char16_t text[] = {static_cast<unsigned char>(character), u'\0'};
    SetText(text);
}

numericEdit::numericEdit(const PegRect& rect, ZeroReads zero)
    : PegWindow(rect, std::uint16_t{0}, kInvisibleStyle),
      m_value(zero),
      m_row(AddNew<PegHorzList>(*this, rect, std::uint16_t{0}, kInvisibleStyle)) {
    ClearStatusBits(STAT_VIEWPORT | STAT_ACCEPTS_FOCUS);
    m_row.ClearStatusBits(STAT_ACCEPTS_FOCUS);
}

EntryResult numericEdit::setMask(std::string_view mask) {
    const EntryResult result = m_value.setMask(mask);
    if (result == EntryResult::Accepted) {
        LayOut();
        ShowValue();
    }
    return result;
}

EntryResult numericEdit::setValue(std::string_view text) {
    const EntryResult result = m_value.setValue(text);
    ShowValue();
    return result;
}

void numericEdit::clear() {
    m_value.clear();
    ShowValue();
}

void numericEdit::cursorLeft() {
    m_value.cursorLeft();
    ShowValue();
}

void numericEdit::step() {
    m_value.step();
    ShowValue();
}

void numericEdit::LayOut() {
    const std::string_view mask = m_value.Mask();
    const CellSize& size = RowWidth(mask, kLarge) <= Real().Width() ? kLarge : kSmall;
    const PegRect cell = CellPlace(mask.front(), size);
    const int width = RowWidth(mask, size);
    const int left = Real().left + (Real().Width() - width) / 2;
    const int top = Real().top + (Real().Height() - cell.Height()) / 2;
    m_row.Resize(RectOf(left, top, left + width - 1, top + cell.Height() - 1));
    for (auto& spare : m_cells) spare.TakeOff();
    for (std::size_t i = 0; i < mask.size(); ++i) {
        m_cells[i]->SetFontNumber(size.font);
        m_cells[i]->Resize(CellPlace(mask[i], size));
        m_row.AddChildAtEnd(*m_cells[i]);
    }
    Invalidate();
}

void numericEdit::ShowValue() {
    const std::string_view cells = m_value.Cells();
    for (std::size_t i = 0; i < cells.size(); ++i) m_cells[i]->Show(cells[i]);
    if (!cells.empty()) m_row.SetSelected(&*m_cells[m_value.Cursor()]);
}

void numericEdit::Draw(const PegRect& invalid) {
    DrawingPass pass(*this, invalid);
    PegWindow::Draw(invalid);
    if (m_value.Size() == 0) return;
    // Outside the cells, so that a cell can be drawn again alone.
    toolkit.screen->DrawRectangle(Inset(m_row.Real(), -kFrameWidth),
                                  PegBrush(PegResources::GetColor(kAccent), 0, 0, kFrameWidth));
}
