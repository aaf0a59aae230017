#include "screens/parameters/parameter_screen.h"

#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "screens/base/wiring.h"

namespace {

constexpr std::uint32_t kLineVoltage = 3687;
constexpr std::uint32_t kNeutralVoltage = 3708;

}  // namespace

paramScrnClass::paramScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId),
      m_row(FindRow(kParamScreenRows, &ParamScreenRow::screen, screenId)),
      m_rows(UnplacedRows(OverflowFrame::On)) {
    if (m_row == nullptr) return;
    const RowLayout* layout = LayoutOf(kParameterLayouts, static_cast<std::uint32_t>(m_row->count));
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_row->count); ++i) {
        m_rows[i].Place(*layout, i);
        m_rows[i].AddTo(*this);
    }
}

void paramScrnClass::UpdateScreenData() {
    if (m_row == nullptr) return;
    const bool byWiring = m_row->update == ParameterUpdate::ByWiring;
    const std::uint32_t voltage = byWiring && IsWiredInDelta() ? kLineVoltage : kNeutralVoltage;
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_row->count); ++i) {
        std::uint32_t id = m_row->registers[i];
        if (byWiring && (id == kLineVoltage || id == kNeutralVoltage)) id = voltage;
        RegisterDisplay display;
        static_cast<void>(meterAccessClass::getInstance().readRegister(id, display));
        m_rows[i].Show({display.label, display.value, display.unit});
    }
}

void CreateParameterScreens() {
    for (const ParamScreenRow& row : kParamScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new paramScrnClass(row.screen), SCREEN_KIND_DATA);
    }
}
