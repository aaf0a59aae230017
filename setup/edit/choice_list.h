#pragma once

#include <array>
#include <deque>

#include "navigation/widgets/setup_vertical_list.h"
#include "peg/core/holder.h"
#include "rda/records/register.h"

/// The choices that a register offers, one under the other; the one that is in force has a check mark.
///
/// One in the process; it belongs to the screen that shows it, and to itself while none does. Toolkit task only.
class ChoiceList : public setupVerticalList {
public:
    static constexpr std::size_t kLongestText = 80;
    static constexpr int kNone = -1;
    using ItemText = std::array<char16_t, kLongestText + 1>;

    static ChoiceList& getInstance();

    /// Shows the first `count` items, from the first on.
    void setCount(std::size_t count);

    /// The text of an item, to be written over; `showTexts` shows what was written.
    ItemText& text(std::size_t index) { return m_texts[index]; }
    void showTexts();

    /// Gives the check mark to an item, or to none.
    void markCurrent(int index);

private:
    ChoiceList();

    std::array<ItemText, kMaxEnumerationItems> m_texts{};
    std::deque<PegHolder<SetupListItem>> m_choices;  // in the list as far as they are shown
};
