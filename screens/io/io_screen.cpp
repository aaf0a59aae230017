#include "screens/io/io_screen.h"

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/navigation_handler.h"
#include "navigation/widgets/show_text.h"

namespace {

constexpr std::size_t kBackKey = 1;
constexpr std::size_t kForwardKey = 2;

constexpr std::uint32_t kNoDataText = 155;
constexpr PegRect kNoDataPlace = RectOf(0, 120, kPanelWidth - 1, 149);
constexpr std::int32_t kNoDataFont = FontForSize(14, kPanelHeight);

constexpr int kTableTop = 62;
constexpr int kHeadingHeight = 24;
constexpr int kPointHeight = 30;
constexpr tableRowClass::Sizes kRowHeights = {kHeadingHeight, kPointHeight, kPointHeight, kPointHeight, kPointHeight};
static_assert(kTableTop > kHeaderBottom && kTableTop + kHeadingHeight + 4 * kPointHeight < kSoftKeyLine);

constexpr int kHeadingRow = 1;
constexpr int kFirstPointRow = 2;
constexpr int kLastPointRow = 5;
constexpr int kLabelColumn = 1;
constexpr int kTextMargin = 5;  // pixels between a line and a text at its side

constexpr std::uint32_t kLineColor = 91;
constexpr std::uint32_t kStripColor = 94;

/// The fonts that a text is tried in after the first.
constexpr auto kHeadingFonts = std::to_array({FontForSize(12, kPanelHeight), FontForSize(10, kPanelHeight)});
constexpr auto kPointFonts = std::to_array({FontForSize(14, kPanelHeight), FontForSize(12, kPanelHeight),
                                            FontForSize(11, kPanelHeight), FontForSize(10, kPanelHeight)});

void SetLook(dataPegPromptClass& cell, int column, std::span<const std::int32_t> fonts) {
    cell.SetFontNumber(static_cast<std::uint32_t>(fonts.front()));
    for (std::size_t i = 1; i < fonts.size(); ++i) cell.setFitFont(i - 1, fonts[i]);
    if (column == kLabelColumn) {
        cell.setMargin(kTextMargin);
    } else {
        cell.ClearStyleBits(kStyleTextLeft);  // states stand in the middle
    }
}

constexpr tableRowClass::Sizes WidthsOf(const IoScreenRow& row) {
    return {row.widths[0], row.widths[1], row.widths[2]};
}

constexpr bool HasColumn(const IoScreenRow& row, std::size_t column) { return row.widths[column] != 0; }

constexpr int Number(std::size_t index) { return static_cast<int>(index) + 1; }

}  // namespace

ioScrnClass::ioScrnClass(const IoScreenRow& row)
    : DSBC_dataScrnBaseClass(row.screen),
      m_row(row),
      m_table(AddNew<tableRowClass>(*this, PointOf(0, kTableTop), kRowHeights, WidthsOf(row))),
      m_noData(kNoDataPlace, nullptr, std::uint16_t{0}, kStyleTransparent | kStyleBorderNone) {
    m_table.centreHorizontally();
    m_table.setGridColour(kLineColor);
    m_table.setRowColour(kHeadingRow, kStripColor);
    for (std::size_t column = 0; column < kIoColumns && HasColumn(row, column); ++column) {
        SetLook(m_table.cell(kHeadingRow, Number(column)), Number(column), kHeadingFonts);
        for (int point = 0; point < int{kPageSize}; ++point) {
            SetLook(m_table.cell(kFirstPointRow + point, Number(column)), Number(column), kPointFonts);
        }
    }
    m_noData->SetFontNumber(static_cast<std::uint32_t>(kNoDataFont));
    SetSoftKeyImages(kBackKey, KeyImage::Up);
    SetSoftKeyImages(kForwardKey, KeyImage::Down);
}

void ioScrnClass::UpdateScreenData() { FetchAndShow(PageCommand::Same); }

void ioScrnClass::SoftKey2Action() { FetchAndShow(PageCommand::Previous); }

void ioScrnClass::SoftKey3Action() { FetchAndShow(PageCommand::Next); }

void ioScrnClass::FetchAndShow(PageCommand command) {
    const std::size_t points = Fetch(command);
    if (points == 0) {
        ShowNoData();
        return;
    }
    ShowPoints(std::span(m_points).first(points));
}

std::size_t ioScrnClass::Fetch(PageCommand command) {
    std::uint32_t count = 0;
    if (m_row.getCount(count) != 0 || count == 0) return 0;
    const std::uint32_t lastPage = (count - 1) / kPageSize;
    if (command == PageCommand::Previous && m_page > 0) --m_page;
    if (command == PageCommand::Next && m_page < lastPage) ++m_page;
    m_page = std::min(m_page, lastPage);
    m_atFirst = m_page == 0;
    m_atLast = m_page == lastPage;

    const std::uint32_t first = m_page * std::uint32_t{kPageSize};
    const std::size_t points = std::min<std::size_t>(count - first, kPageSize);
    m_points = {};
    return m_row.getData(first, std::span(m_points).first(points)) == 0 ? points : 0;
}

void ioScrnClass::ShowPoints(std::span<const IoPointEntry> points) {
    m_noData.TakeOff();
    ShowHeadings();
    for (std::size_t i = 0; i < kPageSize; ++i) {
        if (i >= points.size()) {
            m_table.hideRow(kFirstPointRow + static_cast<int>(i));
            continue;
        }
        m_table.showRow(kFirstPointRow + static_cast<int>(i));
        ShowCell(i, 0, TextIn(points[i].label));
        ShowCell(i, 1, TextIn(points[i].state));
        if (HasColumn(m_row, 2)) ShowCell(i, 2, TextIn(points[i].secondState));
    }
    EnableSoftKey(kBackKey, !m_atFirst);
    EnableSoftKey(kForwardKey, !m_atLast);
}

void ioScrnClass::ShowHeadings() {
    m_table.showRow(kHeadingRow);
    for (std::size_t column = 0; column < kIoColumns && HasColumn(m_row, column); ++column) {
        dataPegPromptClass& cell = m_table.cell(kHeadingRow, Number(column));
        const char16_t* heading = LocalizedString(m_row.headings[column]);
        if (cell.Text() != heading) cell.SetText(heading);
    }
}

void ioScrnClass::ShowCell(std::size_t row, std::size_t column, std::string_view text) {
    constexpr std::size_t kLongestLabel = 40;  // with its end
    CellText translated{};
    const std::span room(translated);
    displayClass::getInstance().translateInto(text, column == 0 ? room.first(kLongestLabel) : room);
    ShowText(m_table.cell(kFirstPointRow + static_cast<int>(row), Number(column)), m_texts[row][column], translated);
}

void ioScrnClass::ShowNoData() {
    for (int row = kLastPointRow; row >= kHeadingRow; --row) m_table.hideRow(row);  // upwards: none has to move
    const char16_t* text = LocalizedString(kNoDataText);
    if (m_noData->Text() != text) m_noData->SetText(text);
    m_noData.AddTo(*this);
    EnableSoftKey(kBackKey, false);
    EnableSoftKey(kForwardKey, false);
}

void CreateIoScreens() {
    for (const IoScreenRow& row : kIoScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new ioScrnClass(row), SCREEN_KIND_DATA);
    }
}
