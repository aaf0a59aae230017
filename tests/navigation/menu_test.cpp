#include "localization/display_config.h"
#include "navigation/password_handler.h"
#include "tests/navigation/menu_bench.h"

namespace {

constexpr std::int32_t kNormal = 1;
constexpr std::int32_t kAlternate = 2;
constexpr std::int32_t kTest = 3;
constexpr std::int32_t kPowerQualityLabel = 203;

class Menu : public MenuBench {};

TEST_F(Menu, OfEveryModeLooksAsItShould) {
    for (const std::int32_t menu : {kNormal, kAlternate, kTest}) {
        ShowMenu(menu);
        Press(KEY_SOFT_2_3);
        EXPECT_TRUE(PanelShows("menus/collapsed_" + std::to_string(menu))) << "also after a key without a meaning";
    }
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), 201);
    Navigation().navigateFromCurrent(kCurrentMenu);
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), 201) << "also when it is shown as the current menu";
}

TEST_F(Menu, OpensAGroupClosesItAndRemembersItOnTheWayBack) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("menus/open_group"));
    Press(KEY_SOFT_2);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("menus/closed_group"));
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(Shown(), 7);
    Navigation().goBack(7);
    Pump();
    EXPECT_TRUE(PanelShows("menus/open_group"));
    Press(KEY_SOFT_3, 2);
    Press(KEY_SOFT_1);
    ShowMenu(kAlternate);
    EXPECT_TRUE(PanelShows("menus/back_at_the_same_item")) << "leaving by soft key 1 forgets the moves";
}

TEST_F(Menu, ScrollsToItsEndsAndStops) {
    ShowMenu(kAlternate);
    Press(KEY_SOFT_3, 25);
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
    DISPCFG_setLanguage(5);
    Manager().FirstChild()->Message(MessageOf(MSG_LANGUAGE));
    Pump();
    EXPECT_TRUE(PanelShows("menus/russian"));
}

TEST_F(Menu, LeadsToEveryScreenAndToPowerQualityWhereTheMeterOffersIt) {
    for (const std::uint32_t isOffered : {1U, 0U}) {
        meter().Answer("DISPLAYFEATURES_getEn50160DisplayEnabled", isOffered);
        CreateMenuScreens();
        for (const MenuTree& tree : kMenuTrees) {
            int group = -1;
            int inGroup = -1;  // the item's place in its group
            for (const MenuItem& item : tree.items) {
                if (item.label == kPowerQualityLabel && isOffered == 0) continue;
                group += item.level == 1 ? 1 : 0;
                inGroup = item.level == 1 ? -1 : inGroup + 1;
                if (!IsScreen(item)) continue;
                ShowMenu(tree.menuId);
                static_cast<menuScrnClass*>(Navigation().getCurrentScreen())->reset();
                Press(KEY_SOFT_3, group);
                if (inGroup >= 0) Press(KEY_SOFT_4);
                Press(KEY_SOFT_3, std::max(inGroup, 0));
                Press(KEY_SOFT_4);
                EXPECT_EQ(Shown(), item.target) << "menu " << tree.menuId;
            }
        }
    }
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
    meter().Answer("DISPLAYMODE_setAltMode", std::uint32_t{7});
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kAlternate) << "even when the meter refuses its mode";
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_NORMAL);
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

}  // namespace
