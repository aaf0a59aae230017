#pragma once

#include <cstdint>
#include <span>

#include "navigation/widgets/soft_keys.h"
#include "peg/core/holder.h"
#include "peg/widgets/bitmap_prompt.h"
#include "peg/widgets/vert_list.h"
#include "screens/base/options_menu_table.h"

/// The pop-up menu of a data screen: a list of the screens below it, with soft keys of its own. Open, it lies over the
/// dimmed screen; it closes by itself when no key is released for ten refreshes.
class OptionsMenu {
public:
    explicit OptionsMenu(std::int32_t screen);

    bool HasItems() const { return !m_items.empty(); }
    bool IsOpen() const { return m_open; }
    void Open(PegThing& screen);

    /// Takes the menu off the screen; `ForgetSelection` lets it open at its first item again.
    void Close();
    void ForgetSelection();
    void MoveUp();
    void MoveDown();

    /// The screen that the selected item leads to; kNoTarget without one.
    std::int32_t TakeSelectedTarget();

    /// A refresh has passed. @return false when the time without a key is over
    bool CountDown();
    void RestartCountdown();

    /// Shows the items' texts in the selected language.
    void Retranslate();

    /// Draws the dimmed backdrop and the menu over what is already drawn.
    void Draw(const PegRect& invalid);
    SoftKeys& Keys() { return m_keys; }

private:
    void EnableMoves();

    std::span<const OptionsMenuItem> m_items;
    PegHolder<PegVertList> m_list;
    SoftKeys m_keys;  // close, up, down, select
    bool m_open = false;
    int m_selection = -1;
    int m_timeout;
};
