#include "setup/view/setup_view3_screen.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/geometry.h"
#include "navigation/meter_access.h"
#include "peg/resources/resources.h"
#include "setup/base/settable_alarms.h"

namespace {

constexpr std::size_t kUnusedKey = 0;
constexpr std::size_t kUpKey = 1;
constexpr std::size_t kDownKey = 2;
constexpr std::size_t kEditKey = 3;

constexpr std::size_t kVisibleItems = 5;
constexpr int kToOtherEdge = int{kVisibleItems} - 1;  // from one edge of what is visible

constexpr int kGap = Divided(kPanelWidth, 26.66);
static_assert(kGap == 12);

// Names begin under the title of their column, a little behind the icons.
constexpr std::uint32_t kAnIcon = 91;
constexpr int kAfterIcon = 3;
int IconColumn() { return kGap + PegResources::BitmapWidth(kAnIcon); }

constexpr std::array<std::uint32_t, 4> kAlarmIcons = {0, 91, 85, 90};  // by kind

// Characters of a name, with its end, and of a value.
constexpr std::size_t kLongestAlarm = 30;
constexpr std::size_t kLongestLabel = 64;
constexpr std::size_t kLongestValue = 44;

SetupListLayout LayoutOf(SetupList list) {
    constexpr std::uint32_t kAlarm = 102;
    constexpr std::uint32_t kService = 129;
    constexpr std::uint32_t kEnabled = 121;
    const int firstColumn = PegResources::BitmapWidth(kAnIcon) + kAfterIcon + 1;
    switch (list) {
        case SetupList::Alarms: return {kVisibleItems, firstColumn, {0, kAlarm, kEnabled}};
        case SetupList::Resets: return {kVisibleItems, 0, {}};
        case SetupList::YesNo: break;
    }
    return {kVisibleItems, firstColumn, {0, kService, kEnabled}};
}

std::uint32_t MarkOf(const SettableAlarmEntry& alarm) {
    constexpr std::uint32_t kOn = 1;
    if (alarm.enabled.Get() != kOn) return 0;
    return alarm.icon.Get() == 0 ? kOtherCheckMark : kCheckMark;
}

}  // namespace

setupView3ScrnClass::setupView3ScrnClass(const SetupViewRow& row, const SetupListRow& content)
    : SVBC_setupViewBaseClass(row),
      m_content(content),
      m_list(AddNew<setupVerticalList>(*this, LayoutOf(content.list), SetupItemLook::Plain)),
      m_items(MostItems(content.list)),
      m_textLeft(content.list == SetupList::Resets ? kGap : IconColumn() + kAfterIcon) {
    for (const Item& item : m_items) item.thing->SetGap(kGap);
    SetLength(kVisibleItems);
    m_keys.Enable(kUnusedKey, false);
    m_keys.Enable(kEditKey, true);
}

void setupView3ScrnClass::Relabel() {
    SVBC_setupViewBaseClass::Relabel();
    m_list.relabel();
}

void setupView3ScrnClass::refreshValues() {
    switch (m_content.list) {
        case SetupList::Alarms: m_settings = ReadAlarms(); break;
        case SetupList::Resets: m_settings = ReadResets(); break;
        case SetupList::YesNo: m_settings = ReadYesNoSettings(); break;
    }
    const std::size_t length = std::max(m_settings, kVisibleItems);
    for (std::size_t i = m_settings; i < length; ++i) Note(i, {}, 0, 0);
    if (m_looksChanged || length != m_length) ShowItems(length);
    EnableScrolling();
}

std::size_t setupView3ScrnClass::ReadAlarms() {
    const std::span<const SettableAlarmEntry> alarms = ReadSettableAlarms(AlarmListUse::View);
    for (std::size_t i = 0; i < alarms.size(); ++i) {
        const std::uint16_t kind = alarms[i].kind.Get();
        std::array<char16_t, kLongestAlarm> name{};
        displayClass::getInstance().translateInto(TextIn(alarms[i].name), name);
        Note(i, TextIn(name), kind < kAlarmIcons.size() ? kAlarmIcons[kind] : 0, MarkOf(alarms[i]));
    }
    return alarms.size();
}

std::size_t setupView3ScrnClass::ReadResets() {
    for (std::size_t i = 0; i < kResetRows.size(); ++i) {
        const char16_t* label = LocalizedString(kResetRows[i].label);
        Note(i, label != nullptr ? label : u"", 0, 0);
    }
    return kResetRows.size();
}

std::size_t setupView3ScrnClass::ReadYesNoSettings() {
    for (std::size_t i = 0; i < kYesNoRegisters.size(); ++i) {
        RegisterValue reading{};
        static_cast<void>(meterAccessClass::getInstance().readRegisterRaw(kYesNoRegisters[i], reading));
        const bool on = TextIn(reading.value).substr(0, kLongestValue) == kYes;
        std::array<char16_t, kLongestLabel> label{};
        displayClass::getInstance().translateInto(TextIn(reading.label), label);
        Note(i, TextIn(label), 0, on ? kCheckMark : 0);
    }
    return kYesNoRegisters.size();
}

void setupView3ScrnClass::Note(std::size_t index, std::u16string_view text, std::uint32_t leftIcon,
                               std::uint32_t rightIcon) {
    Item& item = m_items[index];
    ItemLook look{.text = {}, .leftIcon = leftIcon, .rightIcon = rightIcon};
    look.text.Add(text).FitInto(TextRoom(), item.thing->Font());
    if (look == item.look) return;
    item.look = look;
    m_looksChanged = true;
}

/// Shows what was noted. The list is off the screen meanwhile: however many items change, one area is drawn.
void setupView3ScrnClass::ShowItems(std::size_t length) {
    RemoveChild(m_list);
    for (Item& item : m_items) ShowItem(item);
    SetLength(length);
    AddChild(m_list);
    m_looksChanged = false;
}

void setupView3ScrnClass::ShowItem(Item& item) {
    item.thing->SetText(item.look.text.Text());
    item.thing->SetTextIndent(item.look.leftIcon != 0 ? kAfterIcon : m_textLeft);
    item.thing->SetBitmapNumber(SetupListItem::LeftIcon, item.look.leftIcon);
    item.thing->SetBitmapNumber(SetupListItem::RightIcon, item.look.rightIcon);
}

/// Puts that many items into the list; with another number than before it begins at its start again.
void setupView3ScrnClass::SetLength(std::size_t length) {
    if (length == m_length) return;
    while (m_length > length) m_items[--m_length].thing.TakeOff();
    while (m_length < length) m_list.Items().AddChildAtEnd(*m_items[m_length++].thing);
    m_list.select(0);
    m_direction = Direction::Up;
}

int setupView3ScrnClass::TextRoom() const { return m_list.Items().ClientRect().Width() - m_textLeft - IconColumn(); }

bool setupView3ScrnClass::CanScroll() const { return m_settings > kVisibleItems; }

void setupView3ScrnClass::EnableScrolling() {
    const int selected = m_list.selectedIndex();
    m_keys.Enable(kUpKey, CanScroll() && selected > 0);
    m_keys.Enable(kDownKey, CanScroll() && selected + 1 < static_cast<int>(m_settings));
}

void setupView3ScrnClass::SoftKey2Action() {
    if (IsDialogOpen() || !CanScroll()) return;
    if (m_direction == Direction::Down) m_list.select(m_list.selectedIndex() - kToOtherEdge);
    m_list.selectPrevious();
    m_direction = Direction::Up;
    EnableScrolling();
}

void setupView3ScrnClass::SoftKey3Action() {
    if (IsDialogOpen() || !CanScroll()) return;
    if (m_direction == Direction::Up) m_list.select(m_list.selectedIndex() + kToOtherEdge);
    m_list.selectNext();
    m_direction = Direction::Down;
    EnableScrolling();
}

void CreateSetupView3Screens() {
    for (const SetupListRow& row : kSetupListRows) CreateSetupView<setupView3ScrnClass>(row);
}
