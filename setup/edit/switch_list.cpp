#include "setup/edit/switch_list.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/meter_access.h"
#include "setup/base/settable_alarms.h"

namespace {

constexpr std::uint32_t kResetMark = 241;

Switch Named(std::string_view name, bool isOn) {
    Switch item;
    std::ranges::copy(name.substr(0, item.name.size() - 1), item.name.begin());
    item.wasOn = item.isOn = isOn;
    return item;
}

}  // namespace

SwitchList::SwitchList(SetupList list) : m_list(list), m_items(MostItems(list)) {}

void SwitchList::Read() {
    m_count = 0;
    switch (m_list) {
        case SetupList::Alarms: ReadAlarms(); break;
        case SetupList::Resets: ReadResets(); break;
        case SetupList::YesNo: ReadYesNo(); break;
    }
    Label();
}

void SwitchList::ReadAlarms() {
    for (const SettableAlarmEntry& entry : ReadSettableAlarms(AlarmListUse::Edit)) {
        Switch& item = m_items[m_count++] = Named(TextIn(entry.name), entry.enabled.Get() == 1);
        item.registerId = static_cast<std::uint32_t>(entry.registerId.Get());
        item.mark = entry.icon.Get() != 0 ? kCheckMark : kOtherCheckMark;
    }
}

void SwitchList::ReadResets() {
    for (const ResetRow& row : kResetRows) {
        Switch& item = m_items[m_count++] = Switch{};
        item.registerId = row.registerId;
        item.labelNumber = row.label;
        item.mark = kResetMark;
    }
}

void SwitchList::ReadYesNo() {
    for (const std::uint32_t registerId : kYesNoRegisters) {
        RegisterValue value{};
        if (meterAccessClass::getInstance().readRegisterRaw(registerId, value) != 0) continue;
        Switch& item = m_items[m_count++] = Named(TextIn(value.label), TextIn(value.value) == kYes);
        item.registerId = registerId;
    }
}

void SwitchList::Label() {
    for (Switch& item : Items()) {
        if (item.labelNumber == 0) {
            displayClass::getInstance().translateInto(TextIn(item.name), item.label);
            continue;
        }
        const char16_t* label = LocalizedString(item.labelNumber);
        item.label.fill(u'\0');
        if (label != nullptr)
            std::ranges::copy(std::u16string_view(label).substr(0, item.label.size() - 1), item.label.begin());
    }
}

bool SwitchList::HasChanged() const { return std::ranges::any_of(Items(), &Switch::HasChanged); }

const char* SwitchList::TextFor(const Switch& item) const {
    switch (m_list) {
        case SetupList::Alarms: return item.isOn ? "Enabled" : "Disabled";
        case SetupList::Resets: return "1";
        case SetupList::YesNo: return item.isOn ? "Yes" : "No";
    }
    return "";
}
