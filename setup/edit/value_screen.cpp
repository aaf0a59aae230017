#include "setup/edit/value_screen.h"

#include <cstdio>

#include "localization/localization.h"
#include "navigation/font_for_size.h"
#include "navigation/meter_access.h"
#include "setup/edit/signed_time.h"

namespace {

constexpr int kMargin = Divided(kPanelWidth, 32.0);
constexpr int kUnitHeight = Divided(kPanelHeight, 8.0);
constexpr PegRect kEditorPlace = RectOf(kMargin, kHeaderBottom + 1, kPanelWidth - 1 - kMargin, kSoftKeyLine - 1);
constexpr PegRect kUnitPlace =
    RectOf(kMargin, kSoftKeyLine - kUnitHeight - kMargin, kPanelWidth - 1 - kMargin, kSoftKeyLine - 1 - kMargin);
static_assert(kEditorPlace == PegRect{10, 56, 309, 213} && kUnitPlace == PegRect{10, 174, 309, 203});

constexpr std::uint32_t kUnitFont = FontForSize(18, kPanelHeight);
constexpr std::uint32_t kPaper = 15;

MaskedValue::Text MakeText(std::int32_t seconds) {
    MaskedValue::Text text{};
    std::snprintf(text.data(), text.size(), "%d", static_cast<int>(seconds));
    return text;
}

}  // namespace

setupEdit2ScrnClass::setupEdit2ScrnClass(const SetupEditRow& titled, const ValueRow& row)
    : SEBC_setupEditBaseClass(titled),
      m_row(row),
      m_editor(AddNew<numericEdit>(*this, kEditorPlace, row.zero)),
      m_unit(AddNew<PegPrompt>(*this, kUnitPlace, nullptr, std::uint16_t{0}, kStyleBorderNone)) {
    static_cast<void>(m_editor.setMask(row.mask));
    m_unit.SetFontNumber(kUnitFont);
    m_unit.SetColor(kBackground, kPaper);
    SetSoftKeyImage(kFirstMove, KeyImage::Left);
    SetSoftKeyImage(kSecondMove, KeyImage::Up);
    EnableSoftKey(kFirstMove, true);
    EnableSoftKey(kSecondMove, true);
}

void setupEdit2ScrnClass::LoadValue() {
    RegisterValue value{};
    const int result = meterAccessClass::getInstance().readRegisterRaw(m_row.registerId, value);
    m_editor.clear();
    m_isKnown = ShowValue(TextIn(value.value)) == EntryResult::Accepted && result == 0;
    m_held = m_editor.Value();
    displayClass::getInstance().translateInto(TextIn(value.unit), m_unitText);
    m_unit.SetText(m_unitText.data());
}

EntryResult setupEdit2ScrnClass::ShowValue(std::string_view held) {
    if (!HoldsSeconds(m_row)) return m_editor.setValue(held);
    const auto seconds = SecondsIn(held);
    return m_editor.setValue(seconds ? TextIn(TimeOf(*seconds)) : std::string_view());
}

void setupEdit2ScrnClass::SoftKey2Action() {
    if (!IsDialogOpen()) m_editor.cursorLeft();
}

void setupEdit2ScrnClass::SoftKey3Action() {
    if (!IsDialogOpen()) m_editor.step();
}

bool setupEdit2ScrnClass::HasChanged() const { return !m_isKnown || !m_editor.Value().IsSameNumber(m_held); }

void setupEdit2ScrnClass::AskAboutChange() {
    std::array<char16_t, sizeof(MaskedValue::Text)> wide{};
    if (m_isKnown) displayClass::getInstance().translateInto(TextIn(m_held.getValue()), wide);
    setOldValue(wide.data());
    displayClass::getInstance().translateInto(TextIn(m_editor.getValue()), wide);
    setNewValue(wide.data());
    openConfirm();
}

SEBC_setupEditBaseClass::WriteOutcome setupEdit2ScrnClass::WriteChange() {
    MaskedValue::Text text = m_editor.getValue();
    if (HoldsSeconds(m_row)) text = MakeText(SecondsOf(TextIn(text)));
    return Write(m_row.registerId, text.data());
}

void CreateSetupEdit2Screens() { CreateEditScreens<setupEdit2ScrnClass>(kValueRows); }
