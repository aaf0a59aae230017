#include "screens/parameters/parameter_row.h"

#include "navigation/widgets/show_text.h"
#include "screens/base/line_place.h"

namespace {

constexpr PegRect kUnplaced{};
constexpr int kUnitGap = 3;  // pixels between a value and its unit
constexpr std::uint32_t kLeft = kStyleTextLeft | kStyleBorderNone;
constexpr std::uint32_t kRight = kStyleTextRight | kStyleBorderNone;

}  // namespace

void PlacePrompt(dataPegPromptClass& prompt, int y, const ColumnSpan& columns, std::uint32_t font) {
    prompt.SetFontNumber(font);
    prompt.Resize(PlaceOnLine(y, columns.left, columns.right, font));
}

ParameterRow::ParameterRow(OverflowFrame valueFrame)
    : m_label(kUnplaced, nullptr, std::uint16_t{0}, kLeft),
      m_value(kUnplaced, nullptr, std::uint16_t{0}, kRight),
      m_unit(kUnplaced, nullptr, std::uint16_t{0}, kLeft) {
    m_label->setOverflowFrame(false);
    m_value->setOverflowFrame(valueFrame == OverflowFrame::On);
    m_unit->setOverflowFrame(false);
    m_unit->setMargin(kUnitGap);
}

void ParameterRow::Place(const RowLayout& layout, std::size_t index) {
    const auto labelFont = static_cast<std::int32_t>(layout.labelFont);
    PlacePrompt(*m_label, layout.labelLines[index], layout.label, layout.labelFont);
    m_label->setFitFont(0, labelFont - 1);
    PlacePrompt(*m_value, layout.valueLines[index], layout.value, layout.valueFont);
    PlacePrompt(*m_unit, layout.valueLines[index], layout.unit, layout.labelFont);
    m_unit->setFitFont(0, labelFont - 1);
    m_unit->setFitFont(1, labelFont - 2);
}

void ParameterRow::AddTo(PegThing& screen) {
    m_label.AddTo(screen);
    m_value.AddTo(screen);
    m_unit.AddTo(screen);
}

void ParameterRow::TakeOff() {
    m_label.TakeOff();
    m_value.TakeOff();
    m_unit.TakeOff();
}

void ParameterRow::Show(const RowTexts& texts) {
    ShowText(*m_label, m_shown.label, texts.label);
    ShowText(*m_value, m_shown.value, texts.value);
    ShowText(*m_unit, m_shown.unit, texts.unit);
}

std::array<ParameterRow, kMostParameters> UnplacedRows(OverflowFrame valueFrame) {
    static_assert(kMostParameters == 6);
    return {ParameterRow(valueFrame), ParameterRow(valueFrame), ParameterRow(valueFrame),
            ParameterRow(valueFrame), ParameterRow(valueFrame), ParameterRow(valueFrame)};
}
