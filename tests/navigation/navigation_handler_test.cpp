#include "navigation/navigation_handler.h"

#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

/// Plain windows under the ids of screens; the meter starts the display in normal mode.
class Navigation : public PanelTest {
protected:
    Navigation() {
        for (const std::int32_t id : {-3, 1, 2, 3, 4, 11, 12, 13, 14, 15, 200, 201}) {
            screens[id] = new Recorder(RectOf(0, 0, 319, 239), static_cast<std::uint16_t>(id));
            const ScreenKind kind = id <= 3 ? SCREEN_KIND_MENU : SCREEN_KIND_DATA;
            Handler().addScreen(id, *screens[id], id == 15 ? SCREEN_KIND_SETUP_VIEW : kind);
        }
        Manager().AddChild(*Handler().getStartScreen());
    }
    static navigationHandlerClass& Handler() { return navigationHandlerClass::getInstance(); }
    void AltMode(std::uint32_t on) {
        navigationHandlerClass::postAltModeState(on);
        Pump();
    }
    void TestMode(std::uint32_t on) {
        navigationHandlerClass::postTestModeState(on);
        Pump();
    }
    bool IsShown(std::int32_t id) const {
        return Manager().FirstChild() == screens.at(id) && screens.at(id)->Next() == nullptr;
    }

    std::map<std::int32_t, Recorder*> screens;
};

TEST_F(Navigation, PutsAScreenInThePlaceOfAnotherAndIgnoresImpossibleOnes) {
    EXPECT_TRUE(IsShown(200));
    Handler().navigate(200, 4);
    EXPECT_TRUE(IsShown(4));
    EXPECT_EQ(Handler().getCurrentScreen(), screens[4]);
    for (const auto& [from, to] : {std::pair{4, 4}, {4, 99}, {98, 11}, {200, 11}}) Handler().navigate(from, to);
    EXPECT_TRUE(IsShown(4)) << "the same, an unknown target, an unknown source, one that is not shown";
    EXPECT_EQ(Handler().getPreviousScreenId(), 200);
    Handler().navigateFromCurrent(0);
    EXPECT_TRUE(IsShown(1)) << "0 is the menu of the mode";
    EXPECT_EQ(Handler().getScreenKind(99), SCREEN_KIND_MENU);
}

TEST_F(Navigation, GoesBackThroughARingOfFive) {
    for (const std::int32_t id : {4, 11, 12, 13, 14, 15}) Handler().navigateFromCurrent(id);
    std::vector<std::int32_t> visited;
    for (int i = 0; i < 6; ++i) {
        Handler().goBack(Handler().getCurrentScreenId());
        visited.push_back(Handler().getCurrentScreenId());
    }
    EXPECT_EQ(visited, (std::vector<std::int32_t>{14, 13, 12, 11, 4, 14}));
    EXPECT_TRUE(IsShown(14));
}

TEST_F(Navigation, GoesHomeToTheLastDataScreen) {
    Handler().navigateFromCurrent(4);
    Handler().navigateFromCurrent(15);
    Handler().goHome(15);
    EXPECT_TRUE(IsShown(4));
    EXPECT_EQ(Handler().getPreviousScreenId(), 200) << "as going back does";
    Handler().navigateFromCurrent(15);
    Handler().navigateFromCurrent(1);
    Handler().goHome(1);
    EXPECT_TRUE(IsShown(4));
    EXPECT_EQ(Handler().getPreviousScreenId(), 15) << "history is left alone";
}

TEST_F(Navigation, FollowsTheMetersModesWithAHistoryForEach) {
    AltMode(1);
    EXPECT_TRUE(IsShown(4));
    EXPECT_EQ(Handler().getDisplayMode(), DISPLAY_MODE_ALT);
    EXPECT_EQ(meter().LastArgument("DISPLAYMODE_setAltMode"), 1U);
    TestMode(0);
    EXPECT_EQ(Handler().getDisplayMode(), DISPLAY_MODE_ALT) << "only test mode is left by that";
    TestMode(1);
    EXPECT_TRUE(IsShown(201));
    TestMode(0);
    EXPECT_TRUE(IsShown(200));
    TestMode(1);
    AltMode(0);
    EXPECT_TRUE(IsShown(200));
    EXPECT_EQ(Handler().getDisplayMode(), DISPLAY_MODE_NORMAL);
    EXPECT_EQ(meter().LastArgument("DISPLAYMODE_setTestMode"), 0U);
    meter().Answer("DISPLAYMODE_setTestMode", std::uint32_t{5});
    TestMode(1);
    EXPECT_TRUE(IsShown(201)) << "the screen changes even when the meter refuses the mode";
    EXPECT_EQ(Handler().getDisplayMode(), DISPLAY_MODE_NORMAL);
    meter().FallSilent();
    AltMode(1);
    EXPECT_TRUE(IsShown(4));
    EXPECT_EQ(Handler().getDisplayMode(), DISPLAY_MODE_NORMAL);
}

TEST_F(Navigation, CarriesOutTheMetersCommandsOnTheToolkitTask) {
    navigationHandlerClass::postNavigateTo(202);
    navigationHandlerClass::postNavigateTo(0xFFFFFFFF);
    Pump();
    EXPECT_TRUE(IsShown(200));
    navigationHandlerClass::postNavigateTo(0);
    EXPECT_TRUE(IsShown(200)) << "not before the toolkit gets to it";
    Pump();
    EXPECT_TRUE(IsShown(1));
    navigationHandlerClass::postDispTest();
    Pump();
    EXPECT_TRUE(IsShown(-3));
}

TEST_F(Navigation, TakesTheLaterOfTwoScreensAndNoMoreThanItHasRoomFor) {
    auto* later = new Recorder(RectOf(0, 0, 319, 239));
    Handler().addScreen(4, *later, SCREEN_KIND_SETUP_EDIT);
    EXPECT_EQ(Handler().getScreenKind(4), SCREEN_KIND_SETUP_EDIT);
    for (int i = 0; i < 300; ++i) Handler().addScreen(500 + i, *later, SCREEN_KIND_DATA);
    EXPECT_EQ(Handler().getScreenKind(500), SCREEN_KIND_DATA);
    EXPECT_EQ(Handler().getScreenKind(799), SCREEN_KIND_MENU) << "unknown";
}

}  // namespace
