#include <map>
#include <set>

#include "app/application.h"
#include "navigation/menu_trees.h"
#include "screens/base/options_menu_table.h"
#include "screens/base/screen_info_table.h"
#include "tests/bench/test_on.h"

namespace {

/// A person who presses every key of every screen, beginning where the display modes begin and where their menus lead.
class Tour : public PanelTest {
protected:
    Tour() {
        PanelBench::meter().Model().Play(*meter::FindScenario("500-alarms"));  // an alarm to see the details of
        PanelBench::meter().Model().Advance(1000);
        BuildApplication(Manager());
    }

    /// Notes a screen that is on the panel now, to be walked from later.
    void Arrive() {
        const std::int32_t id = Shown();
        if (IsDataScreenId(id) && seen.insert(id).second) waiting.push_back(id);
    }
    void Visit(std::int32_t id) {
        Show(id);
        Arrive();
    }
    void PressEveryKey(std::int32_t id) {
        for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_4, KEY_SOFT_2_3}) {
            Show(id);
            Press(key);
            Ticks(2);
            Arrive();
            if (key == KEY_SOFT_1 && Shown() == id && !OptionsOf(id).empty()) Press(key);  // closes the options again
        }
    }
    void ChooseEveryOption(std::int32_t id) {
        const auto options = OptionsOf(id);
        for (std::size_t i = 0; i < options.size(); ++i) {
            Show(id);
            Press(KEY_SOFT_1);
            Press(KEY_SOFT_2, static_cast<int>(options.size()));
            Press(KEY_SOFT_3, static_cast<int>(i));
            Press(KEY_SOFT_4);
            EXPECT_EQ(Shown(), options[i].target) << "option " << i << " of screen " << id;
            Arrive();
        }
    }

    std::set<std::int32_t> seen;
    std::vector<std::int32_t> waiting;
};

TEST_F(Tour, FindsEveryDataScreen) {
    for (const MenuTree& tree : kMenuTrees) {
        Visit(tree.StartScreen());
        for (const MenuItem& item : tree.items) {
            if (IsDataScreenId(item.target)) Visit(item.target);
        }
    }
    while (!waiting.empty()) {
        const std::int32_t id = waiting.back();
        waiting.pop_back();
        PressEveryKey(id);
        ChooseEveryOption(id);
    }
    std::set<std::int32_t> all;
    for (const ScreenInfoRow& row : kScreenInfoRows) all.insert(row.screen);
    EXPECT_EQ(seen, all);
}

TEST_F(Tour, MayLeadToScreensOfEveryKind) {
    std::map<ScreenKind, int> screens;
    for (std::int32_t id = kLastCommandedScreen; id >= SCREEN_ID_FACTORY_TEST; --id) {
        Show(id);
        if (Shown() == id) ++screens[Navigation().getScreenKind(id)];
    }
    EXPECT_EQ(screens, (std::map<ScreenKind, int>{{SCREEN_KIND_DATA, 98},
                                                  {SCREEN_KIND_SETUP_VIEW, 30},
                                                  {SCREEN_KIND_SETUP_EDIT, 55},
                                                  {SCREEN_KIND_MENU, 3},
                                                  {SCREEN_KIND_FACTORY_TEST, 1}}));
}

}  // namespace
