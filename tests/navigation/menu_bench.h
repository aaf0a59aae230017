#pragma once

#include <map>

#include "navigation/menu/menu_screen.h"
#include "tests/navigation/keyboard_bench.h"
#include "tests/peg/recorder.h"

/// The three menus, and plain windows in the place of every screen that they lead to.
class MenuBench : public KeyboardBench {
protected:
    MenuBench() {
        for (const MenuTree& tree : kMenuTrees) {
            for (const MenuItem& item : tree.items) AddTarget(item.target);
        }
    }

    void ShowMenu(std::int32_t menuId) {
        if (!m_created) CreateMenuScreens();
        m_created = true;
        Navigation().setDisplayMode(menuId - 1);
        Show(menuId);
    }

    std::map<std::int32_t, Recorder*> targets;

private:
    void AddTarget(std::int32_t id) {
        constexpr std::int32_t kFirstScreen = 4;
        if (id < kFirstScreen || targets.contains(id)) return;
        targets[id] = new Recorder(RectOf(0, 0, 319, 239), static_cast<std::uint16_t>(id));
        Navigation().addScreen(id, *targets[id], id >= 100 && id < 200 ? SCREEN_KIND_SETUP_VIEW : SCREEN_KIND_DATA);
    }

    bool m_created = false;
};
