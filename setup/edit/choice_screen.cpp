#include "setup/edit/choice_screen.h"

#include <algorithm>

#include "localization/localization.h"
#include "navigation/meter_access.h"

setupEdit1ScrnClass::setupEdit1ScrnClass(const SetupEditRow& titled, const ChoiceRow& row)
    : ListEditScreen(titled), m_registerId(row.registerId), m_list(ChoiceList::getInstance()) {}

std::int32_t setupEdit1ScrnClass::Message(const PegMessage& message) {
    const std::int32_t result = ListEditScreen::Message(message);
    if (message.type == MSG_HIDE && m_list.Parent() == this) RemoveChild(m_list);
    return result;
}

void setupEdit1ScrnClass::LoadValue() {
    const std::uint32_t current = ReadCurrent();
    m_current = current < m_count ? static_cast<int>(current) : ChoiceList::kNone;
    AddChild(m_list);
    m_list.setCount(m_count);
    m_list.markCurrent(m_current);
    ShowTexts();
    m_list.select(std::max(m_current, 0));
    EnableMoves();
}

/// The index of the choice in force; one beyond all choices when the meter does not tell.
std::uint32_t setupEdit1ScrnClass::ReadCurrent() {
    constexpr std::uint32_t kUnknown = kMaxEnumerationItems;
    meterAccessClass& meter = meterAccessClass::getInstance();
    if (m_count > 0) {
        std::uint32_t current = kUnknown;
        return meter.readSelection(m_registerId, current) == 0 ? current : kUnknown;
    }
    EnumerationData data{};
    if (meter.readEnumeration(m_registerId, data) != 0) return kUnknown;
    m_count = std::min<std::size_t>(data.count.Get(), kMaxEnumerationItems);
    m_texts = data.items;
    return data.current.Get();
}

void setupEdit1ScrnClass::ShowTexts() {
    displayClass& texts = displayClass::getInstance();
    for (std::uint32_t i = 0; i < m_count; ++i) {
        if (ScreenId() == kLanguageScreen) {
            texts.translateInto(TextIn(m_texts[i]), m_list.text(i), i);
        } else {
            texts.translateInto(TextIn(m_texts[i]), m_list.text(i));
        }
    }
    m_list.showTexts();
}

void setupEdit1ScrnClass::Relabel() {
    ListEditScreen::Relabel();
    if (m_list.Parent() != this) return;
    m_list.relabel();
    ShowTexts();
}

bool setupEdit1ScrnClass::HasChanged() const {
    const int selected = m_list.selectedIndex();
    return selected >= 0 && selected != m_current;
}

void setupEdit1ScrnClass::AskAboutChange() {
    setOldValue(m_current >= 0 ? m_list.text(static_cast<std::size_t>(m_current)).data() : nullptr);
    setNewValue(m_list.text(static_cast<std::size_t>(m_list.selectedIndex())).data());
    openConfirm();
}

ListEditScreen::WriteOutcome setupEdit1ScrnClass::WriteChange() {
    const auto& chosen = m_texts[static_cast<std::size_t>(m_list.selectedIndex())];
    std::array<char, sizeof chosen + 1> text{};  // terminated even when the meter's was not
    std::ranges::copy(TextIn(chosen), text.begin());
    return Write(m_registerId, text.data());
}

void CreateSetupEdit1Screens() { CreateEditScreens<setupEdit1ScrnClass>(kChoiceRows); }
