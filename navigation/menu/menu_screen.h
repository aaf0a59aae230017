#pragma once

#include <deque>

#include "navigation/entry/password_dialog.h"
#include "navigation/keyed_screen.h"
#include "navigation/menu/menu_item.h"
#include "navigation/mode_menu.h"
#include "navigation/widgets/draw_screen.h"
#include "navigation/widgets/vert_list_nav.h"
#include "peg/core/holder.h"

/// The menu of a display mode: the items of the mode's tree, whose groups open and close, moved through by the soft
/// keys.
///
/// An item leads to its screen; one that names another menu also changes the display mode. The way into and out of test
/// mode is refused while the meter's hardware lock is set, or cannot be asked, and else asks for the password. Ten
/// seconds without a key lead home and end the front-panel login. Toolkit task only; lives as long as the process.
class menuScrnClass : public KeyedScreen, public ModeMenu {
public:
    /// @param menuId  1 normal, 2 alternate, 3 test mode
    explicit menuScrnClass(std::int32_t menuId);

    void Draw(const PegRect& invalid) override;
    std::int32_t Message(const PegMessage& message) override;

    void SoftKey1Action() override;
    void SoftKey2Action() override;
    void SoftKey3Action() override;
    void SoftKey4Action() override;
    void HomeKeyAction() override;

    /// Closes groups and dialog and selects the first item.
    void reset() override;

    /// Shows all texts in the selected language.
    void relabel();

private:
    void BuildItems();
    void OnShow(const PegMessage& message);
    void OnTimer();
    void OnKeyDown(int keyCode);
    void OnKeyUp(const PegMessage& message);
    menuBitmapButtonClass* SelectedItem();
    void Choose(const menuBitmapButtonClass& item);
    void ToggleGroup(menuBitmapButtonClass& group);
    void CloseGroup(const menuBitmapButtonClass& group);
    void EnableMoves();
    void GoTo(std::int32_t target);

    std::int32_t m_menuId;
    const MenuTree& m_tree;
    vertListNavClass& m_list;
    std::deque<PegHolder<menuBitmapButtonClass>> m_items;  // in the order of the tree
    PasswordDialog m_dialog;
    int m_remembered = 0;  // index in the list
    int m_inactivity = 0;  // ticks until the way home
};

/// Creates the menus of all display modes and registers them with the navigation handler.
void CreateMenuScreens();
