#include "setup/edit/list_screen.h"

#include <cstdio>

#include "localization/localization.h"
#include "navigation/font_for_size.h"

namespace {

constexpr int kVisibleItems = 5;
constexpr std::uint32_t kPaper = 15;
constexpr std::uint32_t kHintFont = FontForSize(11, kPanelHeight);
constexpr std::uint32_t kChangeHint = 122;
constexpr std::uint32_t kSelectHint = 300;
constexpr PegRect kHintPlace =
    RectOf(Divided(kPanelWidth, 32.0), kHeaderBottom + 1, kPanelWidth - 1 - Divided(kPanelWidth, 32.0),
           kHeaderBottom + Divided(kPanelHeight, 20.0));
static_assert(kHintPlace == PegRect{10, 56, 309, 67});

SetupListLayout LayoutOf(SetupList list) {
    SetupListLayout layout = {.visibleItems = kVisibleItems, .firstColumnWidth = 0, .columnTitles = {}};
    switch (list) {
        case SetupList::Alarms: layout.columnTitles = {0, 102, 121}; break;
        case SetupList::Resets: break;
        case SetupList::YesNo: layout.columnTitles = {0, 129, 121}; break;
    }
    return layout;
}

/// Names what has changed, one after the other, as far as there is room.
ComposedText<ConfirmDialog::kLongestMessage + 1> ChangesOf(std::span<const Switch> items) {
    ComposedText<ConfirmDialog::kLongestMessage + 1> text;
    const char16_t* separator = u"";
    for (const Switch& item : items) {
        if (!item.HasChanged()) continue;
        text.Add(separator).Add(item.label.data());
        separator = u", ";
    }
    return text;
}

}  // namespace

setupEdit4ScrnClass::setupEdit4ScrnClass(const SetupEditRow& titled, const ListRow& row)
    : ListEditScreen(titled),
      m_kind(row.list),
      m_switches(row.list),
      m_hint(AddNew<PegPrompt>(*this, kHintPlace, nullptr, std::uint16_t{0}, kStyleBorderNone)),
      m_list(AddNew<setupVerticalList>(*this, LayoutOf(row.list), SetupItemLook::ShowSelected)) {
    m_hint.SetFontNumber(kHintFont);
    m_hint.SetColor(kBackground, kPaper);
    for (std::size_t i = 0; i < m_switches.Capacity(); ++i) {
        m_items.emplace_back(m_list.makeItem(0, 0, 0))->SetTextIndent(kItemIndent);
    }
}

std::int32_t setupEdit4ScrnClass::Message(const PegMessage& message) {
    if (message.type == MSG_LANGUAGE) LoadValue();
    return ListEditScreen::Message(message);
}

void setupEdit4ScrnClass::LoadValue() {
    m_switches.Read();
    for (auto& item : m_items) item.TakeOff();
    m_list.Items().SetScroll(0);
    for (std::size_t i = 0; i < m_switches.Items().size(); ++i) m_list.Items().AddChildAtEnd(*m_items[i]);
    m_list.select(0);
    ShowStates();
    EnableMoves();
}

void setupEdit4ScrnClass::ShowStates() {
    const auto switches = m_switches.Items();
    for (std::size_t i = 0; i < switches.size(); ++i) {
        m_items[i]->SetBitmapNumber(PegBitmapPrompt::RightIcon, switches[i].isOn ? switches[i].mark : 0);
    }
}

void setupEdit4ScrnClass::Relabel() {
    ListEditScreen::Relabel();
    m_hint.SetText(LocalizedString(m_kind == SetupList::Resets ? kSelectHint : kChangeHint));
    m_list.relabel();
    const auto switches = m_switches.Items();
    for (std::size_t i = 0; i < switches.size(); ++i) m_items[i]->SetText(switches[i].label.data());
}

void setupEdit4ScrnClass::SoftKey23Action() {
    const int index = m_list.selectedIndex();
    if (IsDialogOpen() || index < 0) return;
    Switch& item = m_switches.Items()[static_cast<std::size_t>(index)];
    item.isOn = !item.isOn;
    ShowStates();
}

void setupEdit4ScrnClass::AskAboutChange() { openConfirm(ChangesOf(m_switches.Items()).Text()); }

ListEditScreen::WriteOutcome setupEdit4ScrnClass::WriteChange() {
    WriteOutcome outcome = WriteOutcome::Accepted;
    const auto switches = m_switches.Items();
    for (std::size_t i = 0; i < switches.size() && outcome != WriteOutcome::NoAnswer; ++i) {
        Switch& item = switches[i];
        if (!item.HasChanged()) continue;
        const WriteOutcome result = Write(item.registerId, m_switches.TextFor(item), item.label.data());
        if (result != WriteOutcome::Accepted) {
            if (m_kind == SetupList::Resets) std::printf("Error! reseting %d\n", static_cast<int>(i));
            outcome = result;
        } else if (m_kind == SetupList::Resets) {
            item.isOn = false;
        } else {
            item.wasOn = item.isOn;
        }
    }
    ShowStates();
    return outcome;
}

void CreateSetupEdit4Screens() { CreateEditScreens<setupEdit4ScrnClass>(kListRows); }
