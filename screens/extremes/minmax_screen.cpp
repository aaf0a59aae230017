#include "screens/extremes/minmax_screen.h"

#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/widgets/composed_text.h"
#include "navigation/widgets/show_text.h"

namespace {

/// How a list of one to three extremes is laid out: its quantities like parameters, and where their times stand.
struct ExtremesLayout {
    RowLayout quantity;
    ColumnSpan when;
    std::array<std::int16_t, kMostExtremes> whenLines;
    std::uint32_t whenFont;
};
// clang-format off
constexpr std::array<ExtremesLayout, kMostExtremes> kLayouts = {{
    {{1, {10, 310}, {10, 264},  {265, 315}, {85},           {150},          39, 46}, {10, 315},  {192},          38},
    {{2, {10, 310}, {10, 245},  {246, 315}, {74, 153},      {108, 187},     36, 43}, {10, 315},  {129, 208},     35},
    {{3, {10, 139}, {140, 269}, {270, 315}, {76, 128, 180}, {102, 154, 206}, 36, 42}, {140, 315}, {76, 128, 180}, 34},
}};
// clang-format on
static_assert(kLayouts[0].quantity.rows == 1 && kLayouts[1].quantity.rows == 2 && kLayouts[2].quantity.rows == 3);

constexpr std::uint32_t kRight = kStyleTextRight | kStyleBorderNone;

}  // namespace

minmaxScrnClass::minmaxScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId), m_row(FindRow(kExtremesRows, &ExtremesRow::screen, screenId)) {
    if (m_row == nullptr) return;
    const auto count = static_cast<std::size_t>(m_row->count);
    const ExtremesLayout& layout = kLayouts[count - 1];
    for (std::size_t i = 0; i < count; ++i) {
        Row& row = m_rows[i];
        row.quantity.Place(layout.quantity, i);
        row.quantity.AddTo(*this);
        row.when = &AddNew<dataPegPromptClass>(*this, PegRect{}, nullptr, std::uint16_t{0}, kRight);
        row.when->setOverflowFrame(false);
        PlacePrompt(*row.when, layout.whenLines[i], layout.when, layout.whenFont);
    }
}

void minmaxScrnClass::UpdateScreenData() {
    if (m_row == nullptr) return;
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_row->count); ++i) {
        RegisterDisplay display;
        static_cast<void>(meterAccessClass::getInstance().readRegister(m_row->registers[i], display));
        Row& row = m_rows[i];
        row.quantity.Show({display.label, display.value, display.unit});
        ShowText(*row.when, row.whenText,
                 ComposedText<24>().Add(display.date.data()).Add(u" ").Add(display.time.data()).Units());
    }
}

void CreateMinMaxScreens() {
    for (const ExtremesRow& row : kExtremesRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new minmaxScrnClass(row.screen), SCREEN_KIND_DATA);
    }
}
