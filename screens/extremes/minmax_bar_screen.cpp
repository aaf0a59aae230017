#include "screens/extremes/minmax_bar_screen.h"

#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "screens/base/wiring.h"

namespace {

/// The lines that the bars' texts stand on, by number of bars.
constexpr std::array<std::array<std::int16_t, kMostBars>, kMostBars> kBarLines = {{
    {130},
    {99, 160},
    {83, 133, 185},
    {74, 114, 154, 194},
}};

BarPositions PositionsOf(const MinMaxBarDisplay& values, const BarScale& scale) {
    if (!values.IsValid()) return kInTheMiddle;
    return {.minimum = scale.PositionOf(values.minimum.value),
            .maximum = scale.PositionOf(values.maximum.value),
            .present = scale.PositionOf(values.present.value)};
}

}  // namespace

minMaxBarScrnClass::minMaxBarScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId), m_row(FindRow(kBarScreenRows, &BarScreenRow::screen, screenId)) {
    if (m_row == nullptr) return;
    for (std::size_t i = 0; i < m_row->count; ++i) {
        m_bars[i] = &AddNew<MinMaxBar>(*this, kBarLines[m_row->count - 1][i]);
    }
}

void minMaxBarScrnClass::UpdateScreenData() {
    if (m_row == nullptr) return;
    const bool byWiring = m_row->update == BarUpdate::ByWiring;
    const BarRegisters& voltage = byWiring && IsWiredInDelta() ? kLineVoltageBar : kNeutralVoltageBar;
    std::array<MinMaxBarDisplay, kMostBars> values;
    BarScale scale;
    for (std::size_t i = 0; i < m_row->count; ++i) {
        const BarRegisters& bar = byWiring ? voltage : m_row->bars[i];
        static_cast<void>(
            meterAccessClass::getInstance().readMinMaxBar(bar.minimum, bar.maximum, bar.present, values[i]));
        if (values[i].IsValid()) scale.Include(values[i].minimum.value, values[i].maximum.value);
    }
    for (std::size_t i = 0; i < m_row->count; ++i) m_bars[i]->Show(values[i], PositionsOf(values[i], scale));
}

void CreateMinMaxBarScreens() {
    for (const BarScreenRow& row : kBarScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new minMaxBarScrnClass(row.screen),
                                                        SCREEN_KIND_DATA);
    }
}
