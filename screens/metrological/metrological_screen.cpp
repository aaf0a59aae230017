#include "screens/metrological/metrological_screen.h"

#include <span>

#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "navigation/navigation_handler.h"
#include "navigation/widgets/show_text.h"
#include "screens/base/line_place.h"

namespace {

constexpr std::array<int, kMetrologicalRows> kLines = {94, 150, 205};

struct Columns {
    int left;
    int right;
};
constexpr Columns kValueColumns = {.left = 10, .right = 239};
constexpr Columns kUnitColumns = {.left = 244, .right = 315};

constexpr std::int32_t Font(int size) { return FontForSize(size, kPanelHeight); }

/// The fonts that a text is tried in, the first that it fits in being taken.
constexpr auto kValueFonts = std::to_array({Font(35), Font(34), Font(26), Font(24), Font(12)});
constexpr auto kUnitFonts = std::to_array({Font(24), Font(12)});
static_assert(kValueFonts == std::to_array<std::int32_t>({45, 44, 43, 42, 34}));
static_assert(kUnitFonts == std::to_array<std::int32_t>({42, 34}));

dataPegPromptClass& AddPrompt(PegThing& screen, int line, const Columns& columns, std::uint32_t side,
                              std::span<const std::int32_t> fonts) {
    const auto font = static_cast<std::uint32_t>(fonts.front());
    dataPegPromptClass& prompt =
        AddNew<dataPegPromptClass>(screen, PlaceOnLine(line, columns.left, columns.right, font), nullptr,
                                   std::uint16_t{0}, side | kStyleBorderNone);
    prompt.SetFontNumber(font);
    for (std::size_t i = 1; i < fonts.size(); ++i) prompt.setFitFont(i - 1, fonts[i]);
    return prompt;
}

}  // namespace

metrologicalScrn::Row::Row(PegThing& screen, int line)
    : m_value(AddPrompt(screen, line, kValueColumns, kStyleTextRight, kValueFonts)),
      m_unit(AddPrompt(screen, line, kUnitColumns, kStyleTextLeft, kUnitFonts)) {
    m_unit.setOverflowFrame(false);
}

void metrologicalScrn::Row::Show(const RegisterDisplay& display) {
    ShowText(m_value, m_shownValue, display.value);
    ShowText(m_unit, m_shownUnit, display.unit);
}

metrologicalScrn::metrologicalScrn(const MetrologicalScreenRow& row)
    : DSBC_dataScrnBaseClass(row.screen),
      m_row(row),
      m_rows{Row(*this, kLines[0]), Row(*this, kLines[1]), Row(*this, kLines[2])} {}

void metrologicalScrn::UpdateScreenData() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        RegisterDisplay display;
        static_cast<void>(meterAccessClass::getInstance().readRegister(m_row.registers[i], display));
        m_rows[i].Show(display);
    }
}

void CreateMetrologicalScreens() {
    for (const MetrologicalScreenRow& row : kMetrologicalScreenRows) {
        navigationHandlerClass::getInstance().addScreen(row.screen, *new metrologicalScrn(row), SCREEN_KIND_DATA);
    }
}
