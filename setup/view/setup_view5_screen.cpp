#include "setup/view/setup_view5_screen.h"

#include "localization/localization.h"
#include "navigation/meter_access.h"
#include "setup/view/one_param_layout.h"
#include "setup/view/two_param_layout.h"

namespace {

constexpr std::size_t kUnusedKey = 0;
constexpr std::size_t kEditKey = 3;

constexpr std::string_view kStored = "Stored";

std::unique_ptr<ISV5_screenLayout> LayoutFor(std::size_t settings, PegThing& screen) {
    if (settings == 1) return std::make_unique<SV5_oneParamLayout>(screen);
    return std::make_unique<SV5_twoParamLayout>(screen);
}

bool IsStored(std::uint32_t registerId) {
    RegisterValue reading{};
    return meterAccessClass::getInstance().readRegisterRaw(registerId, reading) == 0 &&
           TextIn(reading.value) == kStored;
}

}  // namespace

setupView5ScrnClass::setupView5ScrnClass(const SetupViewRow& row, const LargeSettingsRow& content)
    : SVBC_setupViewBaseClass(row), m_content(content), m_layout(LayoutFor(content.Count(), *this)) {
    m_keys.Enable(kUnusedKey, false);
    m_keys.Enable(kEditKey, content.editScreen != kNoScreen);
}

void setupView5ScrnClass::refreshValues() {
    displayClass& texts = displayClass::getInstance();
    std::array<LargeSettingText, kMostLargeSettings> record{};
    for (std::size_t i = 0; i < m_content.Count(); ++i) {
        RegisterValue reading{};
        static_cast<void>(meterAccessClass::getInstance().readRegisterRaw(m_content.registers[i], reading));
        texts.translateInto(TextIn(reading.label), record[i].name);
        texts.translateInto(TextIn(reading.value), record[i].value);
    }
    m_layout->update(record.data());
}

void setupView5ScrnClass::SoftKey2Action() {
    if (!TookSwitchPoint(ChainStep::Previous)) SVBC_setupViewBaseClass::SoftKey2Action();
}

void setupView5ScrnClass::SoftKey3Action() {
    if (!TookSwitchPoint(ChainStep::Next)) SVBC_setupViewBaseClass::SoftKey3Action();
}

bool setupView5ScrnClass::TookSwitchPoint(ChainStep step) {
    const SwitchPointRow* row = FindRow(kSwitchPointRows, &SwitchPointRow::screen, ScreenId());
    if (row == nullptr || row->step != step || IsEntryOpen()) return false;
    GoTo(IsStored(row->registerId) ? row->whenStored : row->otherwise);
    return true;
}

void CreateSetupView5Screens() {
    for (const LargeSettingsRow& row : kLargeSettingsRows) CreateSetupView<setupView5ScrnClass>(row);
}
