#pragma once

#include "navigation/menu/menu_screen.h"
#include "simulator/bench/keyboard_bench.h"
#include "tests/bench/test_on.h"

/// The three menus, and plain windows in the place of every screen that they lead to.
class MenuBench : public TestOn<KeyboardBench> {
protected:
    MenuBench() {
        CreateMenuScreens();
        for (const MenuTree& tree : kMenuTrees) {
            for (const MenuItem& item : tree.items) {
                if (!IsScreen(item)) continue;
                const bool isSetup = item.target >= 100 && item.target < 200;
                Navigation().addScreen(item.target, *new PegWindow(kWholePanel),
                                       isSetup ? SCREEN_KIND_SETUP_VIEW : SCREEN_KIND_DATA);
            }
        }
    }
    static bool IsScreen(const MenuItem& item) { return item.target > MenuOfMode(DISPLAY_MODE_TEST); }

    void ShowMenu(std::int32_t menuId) {
        Navigation().setDisplayMode(menuId - 1);
        Show(menuId);
    }
};
