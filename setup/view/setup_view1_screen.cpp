#include "setup/view/setup_view1_screen.h"

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "peg/resources/resources.h"
#include "setup/view/duration_text.h"

namespace {

constexpr std::size_t kNextLineKey = 0;
constexpr std::size_t kEditKey = 3;

constexpr std::uint32_t kLineBitmap = 146;
constexpr int kListMiddle = kHeaderBottom + (kSoftKeyLine - kHeaderBottom) / 2;
static_assert(kListMiddle == 134);

PegRect ListPlace(std::size_t lines) {
    const int width = PegResources::BitmapWidth(kLineBitmap);
    const int height = static_cast<int>(lines) * PegResources::BitmapHeight(kLineBitmap);
    const int left = (kPanelWidth - width) / 2;
    const int top = kListMiddle - height / 2;
    return RectOf(left, top, left + width - 1, top + height - 1);
}

constexpr bool HoldsSeconds(std::uint32_t registerId) {
    return std::ranges::find(kSecondsRegisters, registerId) != kSecondsRegisters.end();
}

}  // namespace

setupView1ScrnClass::setupView1ScrnClass(const SetupViewRow& row, const SettingLinesRow& content)
    : SVBC_setupViewBaseClass(row),
      m_content(content),
      m_list(AddNew<PegVertList>(*this, ListPlace(content.Count()), std::uint16_t{0}, kStyleBorderNone)) {
    for (std::size_t i = 0; i < content.Count(); ++i) {
        m_lines[i] = new SettingLine(i == 0 ? SettingLine::Place::First : SettingLine::Place::Further);
        m_list.AddChildAtEnd(*m_lines[i]);
    }
    SelectLine(0);
    const bool hasNextLine = content.Count() > 1;
    if (hasNextLine) SetSoftKeyImage(kNextLineKey, KeyImage::NextLine);
    m_keys.Enable(kNextLineKey, hasNextLine);
}

std::int32_t setupView1ScrnClass::EditTarget() const { return m_content.lines[SelectedLine()].editScreen; }

void setupView1ScrnClass::SoftKey1Action() {
    if (IsDialogOpen()) return;
    m_lines[SelectedLine()]->StandOut(false);
    SelectLine((SelectedLine() + 1) % m_content.Count());
}

void setupView1ScrnClass::SelectLine(std::size_t line) {
    m_list.SelectIndex(static_cast<int>(line));
    m_lines[line]->StandOut(true);
    m_keys.Enable(kEditKey, EditTarget() != kNoScreen);
}

void setupView1ScrnClass::refreshValues() {
    displayClass& texts = displayClass::getInstance();
    for (std::size_t i = 0; i < m_content.Count(); ++i) {
        const std::uint32_t registerId = m_content.lines[i].registerId;
        RegisterValue reading{};
        static_cast<void>(meterAccessClass::getInstance().readRegisterRaw(registerId, reading));
        SettingLine::Name name{};
        SettingLine::Value value{};
        texts.translateInto(TextIn(reading.label), name);
        if (HoldsSeconds(registerId)) {
            texts.translateInto(DurationText(TextIn(reading.value)).View(), value);
        } else {
            texts.translateInto(TextIn(reading.value), value);
        }
        m_lines[i]->Show(name, value);
    }
}

void CreateSetupView1Screens() {
    for (const SettingLinesRow& row : kSettingLinesRows) CreateSetupView<setupView1ScrnClass>(row);
}
