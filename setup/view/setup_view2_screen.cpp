#include "setup/view/setup_view2_screen.h"

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "navigation/widgets/show_text.h"

namespace {

constexpr std::size_t kNextValueKey = 0;
constexpr std::size_t kEditKey = 3;

constexpr int kTop = Divided(kPanelHeight, 2.66);
static_assert(kTop == 90);
constexpr std::uint32_t kTitleFont = FontForSize(13, kPanelHeight);
constexpr std::uint32_t kCellFont = FontForSize(14, kPanelHeight);

constexpr std::size_t kLongestValue = 44;

/// Shows a text of the string table in the selected language.
void ShowString(PegPrompt& prompt, std::uint32_t number) {
    const char16_t* text = LocalizedString(number);
    if (prompt.Text() != text) prompt.SetText(text);
}

}  // namespace

setupView2ScrnClass::setupView2ScrnClass(const SetupViewRow& row, const SettingGrid& content)
    : SVBC_setupViewBaseClass(row), m_content(content), m_grid(AddNew<threeParamVertList>(*this, kTop)) {
    for (std::size_t column = 0; column <= kGridColumns; ++column) {
        m_grid.header(column).SetFontNumber(kTitleFont);
    }
    for (std::size_t i = 0; i < kGridRows; ++i) {
        static_cast<void>(m_grid.addRow());
        for (std::size_t column = 0; column <= kGridColumns; ++column) {
            m_grid.cell(i, column).SetFontNumber(kCellFont);
        }
    }
    SetSoftKeyImage(kNextValueKey, KeyImage::NextCell);
    m_keys.Enable(kNextValueKey, true);
    m_keys.Enable(kEditKey, true);
}

std::int32_t setupView2ScrnClass::EditTarget() const {
    const auto row = static_cast<std::size_t>(m_grid.selectedRow());
    const auto column = static_cast<std::size_t>(m_grid.selectedColumn());
    return m_content.rows[row].values[column].editScreen;
}

void setupView2ScrnClass::SoftKey1Action() {
    if (!IsDialogOpen()) m_grid.selectNext();
}

void setupView2ScrnClass::Relabel() {
    SVBC_setupViewBaseClass::Relabel();
    ShowNames();
}

void setupView2ScrnClass::ShowNames() {
    for (std::size_t column = 0; column < kGridColumns; ++column) {
        ShowString(m_grid.header(1 + column), m_content.titles[column]);
    }
    for (std::size_t i = 0; i < kGridRows; ++i) ShowString(m_grid.cell(i, 0), m_content.rows[i].name);
}

void setupView2ScrnClass::refreshValues() {
    ShowNames();  // what looks texts up notices another language
    for (std::size_t i = 0; i < kGridRows; ++i) {
        for (std::size_t column = 0; column < kGridColumns; ++column) {
            RegisterValue reading{};
            static_cast<void>(
                meterAccessClass::getInstance().readRegisterRaw(m_content.rows[i].values[column].registerId, reading));
            ValueText value{};
            WidenInto(TextIn(reading.value).substr(0, kLongestValue), value);
            ShowText(m_grid.cell(i, 1 + column), m_values[i][column], value);
        }
    }
}

void CreateSetupView2Screen() { CreateSetupView<setupView2ScrnClass>(kSettingGrid); }
