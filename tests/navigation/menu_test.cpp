#include "localization/display_config.h"
#include "navigation/password_handler.h"
#include "tests/navigation/menu_bench.h"

namespace {

constexpr std::int32_t kNormal = 1;
constexpr std::int32_t kAlternate = 2;
constexpr std::int32_t kTest = 3;

class Menu : public MenuBench {};

TEST_F(Menu, OfEveryModeLooksAsItShould) {
    for (const std::int32_t menu : {kNormal, kAlternate, kTest}) {
        ShowMenu(menu);
        EXPECT_TRUE(PanelShows("menus/collapsed_" + std::to_string(menu)));
    }
}

TEST_F(Menu, OpensAGroupAndClosesItAgain) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("menus/open_group"));
    Press(KEY_SOFT_2);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("menus/closed_group"));
}

TEST_F(Menu, ScrollsToItsEndsAndStops) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3, 5);
    EXPECT_TRUE(PanelShows("menus/scrolled"));
    Press(KEY_SOFT_3, 20);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("menus/setup_group"));
    Press(KEY_SOFT_3, 20);
    EXPECT_TRUE(PanelShows("menus/last_item"));
    Press(KEY_SOFT_2, 40);
    EXPECT_TRUE(PanelShows("menus/first_item_above_open_group"));
}

TEST_F(Menu, IsShownInTheSelectedLanguage) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3, 20);
    Press(KEY_SOFT_4);
    for (const auto& [language, name] : {std::pair{1U, "german"}, {2U, "french"}, {5U, "russian"}}) {
        DISPCFG_setLanguage(language);
        Manager().FirstChild()->Message(MessageOf(MSG_LANGUAGE));
        Pump();
        EXPECT_TRUE(PanelShows(std::string("menus/") + name));
    }
}

/// Goes to an item by the keys alone, through its group when it stands in one. Returns what is shown then.
class MenuItems : public MenuBench {
protected:
    std::int32_t Choose(std::span<const MenuItem> items, std::size_t wanted) {
        const bool inGroup = items[wanted].level == 2;
        int topItemsAbove = -1;
        int insideGroup = 0;
        for (std::size_t i = 0; i <= wanted; ++i) {
            if (items[i].level == 1) {
                ++topItemsAbove;
                insideGroup = 0;
            } else {
                ++insideGroup;
            }
        }
        Press(KEY_SOFT_3, topItemsAbove);
        if (inGroup) Press(KEY_SOFT_4);
        Press(KEY_SOFT_3, inGroup ? insideGroup - 1 : 0);
        Press(KEY_SOFT_4);
        return Shown();
    }
};

TEST_F(MenuItems, LeadToTheirScreens) {
    for (const MenuTree& tree : kMenuTrees) {
        for (std::size_t i = 0; i < tree.items.size(); ++i) {
            const bool isGroup = i + 1 < tree.items.size() && tree.items[i].level < tree.items[i + 1].level;
            if (isGroup || !targets.contains(tree.items[i].target)) continue;
            ShowMenu(tree.menuId);
            static_cast<menuScrnClass*>(Navigation().getCurrentScreen())->reset();
            EXPECT_EQ(Choose(tree.items, i), tree.items[i].target) << "menu " << tree.menuId << ", item " << i;
        }
    }
}

TEST_F(MenuItems, WithoutThePowerQualityScreenWhenTheMeterDoesNotOfferIt) {
    constexpr std::size_t kBehindIt = 16;
    ASSERT_EQ(kAlternateMenu[kBehindIt - 1].label, 203);
    meter().Answer("DISPLAYFEATURES_getEn50160DisplayEnabled", std::uint32_t{0});
    ShowMenu(kAlternate);
    EXPECT_EQ(Choose(kAlternateMenu, kBehindIt - 1), kAlternateMenu[kBehindIt].target) << "the next one took its place";
}

TEST_F(Menu, ChangesTheModeOnItsWayToAnotherMenu) {
    ShowMenu(kNormal);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kAlternate);
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_ALT);
    EXPECT_EQ(meter().LastArgument("DISPLAYMODE_setAltMode"), 1U);
    EXPECT_EQ(meter().Calls("SECURITYINTERFACE_getHwLockStatus"), 0) << "no password on this way";
    Press(KEY_SOFT_3, 10);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kNormal);
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_NORMAL);
    EXPECT_TRUE(PanelShows("menus/collapsed_1")) << "as on the first day";
}

TEST_F(Menu, IsShownEvenWhenTheMeterRefusesItsMode) {
    ShowMenu(kNormal);
    meter().Answer("DISPLAYMODE_setAltMode", std::uint32_t{7});
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kAlternate);
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_NORMAL);
}

TEST_F(Menu, RemembersItsItemAndItsOpenGroupOnTheWayBack) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 7);
    Navigation().goBack(7);
    Pump();
    EXPECT_TRUE(PanelShows("menus/open_group"));
    Press(KEY_SOFT_3, 2);
    Press(KEY_SOFT_1);
    ShowMenu(kAlternate);
    EXPECT_TRUE(PanelShows("menus/open_group")) << "leaving by soft key 1 forgets the moves";
}

TEST_F(Menu, GoesHomeAfterTenSecondsWithoutAKey) {
    ShowMenu(kAlternate);
    meter().Answer("SECURITYINTERFACE_verifyFrontPanelPassword", std::uint32_t{0});
    EXPECT_EQ(PHC_passwordHandlerClass::getInstance().verify("USER", "1"), kPasswordAccepted);
    meter().ForgetCalls();
    Ticks(200);
    EXPECT_EQ(Shown(), kAlternate);
    EXPECT_EQ(meter().Calls("DISPTASK_nop"), 10) << "the meter is kept company";
    PanelBench::KeyUp(KEY_SOFT_2);
    Ticks(200);
    EXPECT_EQ(Shown(), kAlternate) << "a key starts the time again";
    Ticks(1);
    EXPECT_EQ(Shown(), 4);
    EXPECT_EQ(meter().Calls("SECURITYINTERFACE_clearFrontPanelPassword"), 1);
    const int calls = meter().Calls("DISPTASK_nop");
    Ticks(40);
    EXPECT_EQ(meter().Calls("DISPTASK_nop"), calls) << "its time stands still while it is away";
}

TEST_F(Menu, LeadsHomeByTheHomeKey) {
    ShowMenu(kAlternate);
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), 4);
    Navigation().navigateFromCurrent(kCurrentMenu);
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), 4) << "also when it is shown as the current menu";
}

TEST_F(Menu, IgnoresSoftKeysTwoAndThreeTogether) {
    ShowMenu(kNormal);
    Press(KEY_SOFT_2_3);
    EXPECT_TRUE(PanelShows("menus/collapsed_1"));
}

TEST_F(Menu, ItemTakesTwentySubItemsAndNoNothing) {
    menuBitmapButtonClass group(kNormalItems[0]);
    menuBitmapButtonClass item(kSetupGroup[0]);
    EXPECT_EQ(group.getTarget(), menuBitmapButtonClass::kNoTarget);
    group.addSubItem(nullptr);
    EXPECT_FALSE(group.hasSubItems());
    for (int i = 0; i < 25; ++i) group.addSubItem(&item);
    EXPECT_EQ(group.subItems().size(), 20U);
}

}  // namespace
