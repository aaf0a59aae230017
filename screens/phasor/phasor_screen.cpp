#include "screens/phasor/phasor_screen.h"

#include "localization/localization.h"
#include "navigation/navigation_handler.h"
#include "navigation/widgets/rule.h"
#include "navigation/widgets/show_text.h"
#include "peg/core/screen.h"
#include "peg/resources/resources.h"

namespace {

constexpr std::int32_t kPhasorScreen = 68;
static_assert(IsDataScreenId(kPhasorScreen));

constexpr PegRect kDiagramPlace = RectOf(158, 56, 314, 212);
constexpr int kTableTop = 54;
constexpr std::uint32_t kTableFont = 33;
constexpr std::uint32_t kNarrowFont = 32;
constexpr int kUnitGap = 2;  // pixels between a magnitude and what follows it

/// The meter's phasors in the table, from the top row down.
constexpr std::array<std::size_t, 7> kTablePhasors = {0, 1, 2, 4, 5, 6, 7};

constexpr std::uint32_t kMagnitudeTitle = 284;
constexpr std::uint32_t kAngleTitle = 280;
constexpr std::uint32_t kRuleColor = 8;

constexpr std::uint32_t kLeft = kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kRight = kStyleTextRight | kStyleBorderNone;
constexpr std::uint32_t kOnTheScreen = kStyleTransparent | kStyleBorderNone;  // the rule lies over its last line

int LineHeight() { return PegScreen::FontHeight(PegResources::GetFont(kTableFont)); }

/// Columns of a line of the table; line 0 has the headings.
PegRect Line(std::size_t line, int left, int right) {
    const int top = kTableTop + static_cast<int>(line) * LineHeight();
    return RectOf(left, top, right, top + LineHeight());
}

dataPegPromptClass& AddText(PegThing& screen, const PegRect& place, std::uint32_t style) {
    auto& prompt = AddNew<dataPegPromptClass>(screen, place, nullptr, std::uint16_t{0}, style);
    prompt.SetFontNumber(kTableFont);
    return prompt;
}

dataPegPromptClass& AddHeading(PegThing& screen, int left, int right, std::uint32_t style) {
    auto& heading = AddText(screen, Line(0, left, right), style | kOnTheScreen);
    heading.setFitFont(0, kNarrowFont);
    heading.setOverflowFrame(false);
    return heading;
}

}  // namespace

phasorScrnClass::phasorScrnClass(std::int32_t screenId)
    : DSBC_dataScrnBaseClass(screenId),
      m_diagram(AddNew<PhasorDiagram>(*this, kDiagramPlace)),
      m_magnitudeHeading(AddHeading(*this, 26, 100, 0)),
      m_angleHeading(AddHeading(*this, 109, 146, kStyleTextRight)),
      m_rows(AddRows(std::make_index_sequence<kTableRows>())) {
    static_assert(kTablePhasors.size() == kTableRows);
    const int line = m_magnitudeHeading.Real().bottom - 1;
    AddNew<Rule>(*this, RectOf(26, line, 146, line), kRuleColor);
}

phasorScrnClass::TableRow phasorScrnClass::AddRow(std::size_t index) {
    const std::size_t line = index + 1;
    const TableRow row{.magnitudeLabel = AddText(*this, Line(line, 5, 26), kLeft),
                       .magnitude = AddText(*this, Line(line, 29, 83), kRight),
                       .angleLabel = AddText(*this, Line(line, 83, 100), kLeft),
                       .angle = AddText(*this, Line(line, 109, 146), kRight)};
    row.magnitudeLabel.setOverflowFrame(false);
    row.angleLabel.setOverflowFrame(false);
    row.angleLabel.setMargin(kUnitGap);
    return row;
}

void phasorScrnClass::InitScreenData() {
    m_magnitudeHeading.SetText(LocalizedString(kMagnitudeTitle));
    m_angleHeading.SetText(LocalizedString(kAngleTitle));
}

void phasorScrnClass::UpdateScreenData() {
    std::array<PhasorDisplay, meterAccessClass::kPhasors> phasors;
    static_cast<void>(meterAccessClass::getInstance().readPhasors(phasors));
    m_diagram.Show(phasors);
    for (std::size_t i = 0; i < kTableRows; ++i) {
        const PhasorDisplay& phasor = phasors[kTablePhasors[i]];
        PhasorDisplay& shown = m_shown[kTablePhasors[i]];
        ShowText(m_rows[i].magnitudeLabel, shown.magnitudeLabel, phasor.magnitudeLabel);
        ShowText(m_rows[i].magnitude, shown.magnitudeText, phasor.magnitudeText);
        ShowText(m_rows[i].angleLabel, shown.angleLabel, phasor.angleLabel);
        ShowText(m_rows[i].angle, shown.angleText, phasor.angleText);
    }
}

void CreatePhasorScreen() {
    navigationHandlerClass::getInstance().addScreen(kPhasorScreen, *new phasorScrnClass(kPhasorScreen),
                                                    SCREEN_KIND_DATA);
}
