#include "setup/edit/choice_list.h"

#include "setup/base/setup_lists.h"

namespace {
constexpr int kVisibleItems = 6;
constexpr std::uint32_t kTitle = 307;
}  // namespace

ChoiceList& ChoiceList::getInstance() {
    static ChoiceList& instance = *new ChoiceList;  // never deleted: screens hold it at the end of the process
    return instance;
}

ChoiceList::ChoiceList()
    : setupVerticalList({.visibleItems = kVisibleItems, .firstColumnWidth = 0, .columnTitles = {0, kTitle, 0}},
                        SetupItemLook::ShowSelected) {
    for (std::size_t i = 0; i < kMaxEnumerationItems; ++i) {
        m_choices.emplace_back(makeItem(0, 0, 0))->SetTextIndent(kItemIndent);
    }
}

void ChoiceList::setCount(std::size_t count) {
    for (auto& choice : m_choices) choice.TakeOff();
    Items().SetScroll(0);
    for (std::size_t i = 0; i < count; ++i) Items().AddChildAtEnd(*m_choices[i]);
}

void ChoiceList::showTexts() {
    for (std::size_t i = 0; i < m_choices.size(); ++i) m_choices[i]->SetText(m_texts[i].data());
}

void ChoiceList::markCurrent(int index) {
    for (std::size_t i = 0; i < m_choices.size(); ++i) {
        const bool isCurrent = static_cast<int>(i) == index;
        m_choices[i]->SetBitmapNumber(PegBitmapPrompt::RightIcon, isCurrent ? kCheckMark : 0);
    }
}
