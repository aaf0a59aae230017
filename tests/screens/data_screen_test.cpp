#include "screens/base/data_screen.h"

#include "navigation/password_handler.h"
#include "tests/bench/test_on.h"

namespace {

/// A data screen that counts how often it reads its data.
class CountingScreen : public DSBC_dataScrnBaseClass {
public:
    explicit CountingScreen(std::int32_t id) : DSBC_dataScrnBaseClass(id) {}
    void UpdateScreenData() override { ++updates; }

    using DSBC_dataScrnBaseClass::SetTitleSuffix, DSBC_dataScrnBaseClass::SuffixTranslation;
    int updates = 0;
};

/// Screens 11 (options and both neighbours), 12, 13, 17 (only soft key 4), 19 to 22 and 41 (options, nothing else).
class DataScreens : public PanelTest {
protected:
    DataScreens() {
        for (const std::int32_t id : {11, 12, 13, 17, 19, 20, 22, 37, 41, 42, 200}) {
            screens[id] = new CountingScreen(id);
            Navigation().addScreen(id, *screens[id], SCREEN_KIND_DATA);
        }
        Navigation().addScreen(1, *new PegWindow(RectOf(0, 0, 319, 239)), SCREEN_KIND_MENU);
    }
    std::map<std::int32_t, CountingScreen*> screens;
};

TEST_F(DataScreens, RefreshOnShowEverySecondAndEveryTenSeconds) {
    meter().Answer("SECURITYINTERFACE_verifyFrontPanelPassword", std::uint32_t{0});
    EXPECT_EQ(PHC_passwordHandlerClass::getInstance().verify("USER", "0"), kPasswordAccepted);
    Show(11);
    EXPECT_EQ(meter().Calls("SECURITYINTERFACE_clearFrontPanelPassword"), 1) << "no login outlives it";
    EXPECT_EQ(screens[11]->updates, 1);
    Ticks(1);
    EXPECT_EQ(screens[11]->updates, 3) << "both timers start with the next tick";
    Ticks(19);
    EXPECT_EQ(screens[11]->updates, 3);
    Ticks(1);
    EXPECT_EQ(screens[11]->updates, 4);
    meter().Answer("DISPTSK_getConnectionId", std::uint32_t{2});
    testing::internal::CaptureStdout();
    Ticks(180);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\nDSBC_dataScrnBaseClass::Message(): WARNING meter connection ID changed. Integrated unit so do "
              "nothing.\n");
    EXPECT_EQ(screens[11]->updates, 14);
    Show(12);
    testing::internal::CaptureStdout();
    Ticks(201);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "once is enough";
    EXPECT_EQ(screens[11]->updates, 14) << "a hidden screen is silent";
}

TEST_F(DataScreens, CutTheirTitleAfterTwentyNineCharacters) {
    Show(11);
    screens[11]->SetTitleSuffix(u" and more than there is room for", CountingScreen::SuffixTranslation::WholeTitle);
    Pump();
    EXPECT_TRUE(PanelShows("options/long_title"));
}

TEST_F(DataScreens, FollowTheirKeysOnRelease) {
    Show(11);
    KeyDown(KEY_SOFT_2);
    EXPECT_EQ(Shown(), 11);
    KeyUp(KEY_SOFT_2);
    EXPECT_EQ(Shown(), 12);
    Press(KEY_SOFT_4);
    for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SIMULATED}) Press(key);
    EXPECT_EQ(Shown(), 17);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 12) << "back";
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), kCurrentMenu);
    EXPECT_EQ(Manager().FirstChild()->Next(), nullptr);
}

TEST_F(DataScreens, OpenTheirOptionsAndGoWhereTheSelectedOneLeads) {
    Show(11);
    Press(KEY_SOFT_1);
    EXPECT_TRUE(PanelShows("options/open"));
    const int updates = screens[11]->updates;
    Ticks(20);
    EXPECT_EQ(screens[11]->updates, updates) << "nothing is read while the menu is open";
    EXPECT_GT(meter().Calls("DISPTASK_nop"), 0);
    Press(KEY_SOFT_2);
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("options/second"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 20);
    Show(11);
    Press(KEY_SOFT_2);
    EXPECT_EQ(Shown(), 12) << "the menu is closed again";
    Show(37);
    Press(KEY_SOFT_1);
    Press(KEY_SOFT_2);
    EXPECT_EQ(Shown(), 37) << "its neighbour is not there, and no menu has opened";
    EXPECT_TRUE(PanelShows("options/none"));
}

TEST_F(DataScreens, CloseTheirOptionsByKeyByTimeAndByHome) {
    Show(11);
    const auto before = Frame();
    Press(KEY_SOFT_1);
    Press(KEY_SOFT_1);
    EXPECT_EQ(Frame(), before);
    Press(KEY_SOFT_2);
    EXPECT_EQ(Shown(), 12);

    Show(11);
    Ticks(2);
    Press(KEY_SOFT_1);
    Ticks(9 * 20);
    KeyUp(KEY_SOFT_3);  // restarts the time
    Ticks(9 * 20);
    const int updates = screens[11]->updates;
    Ticks(2 * 20);
    EXPECT_GT(screens[11]->updates, updates) << "closed by time: it reads again";

    Press(KEY_SOFT_1);
    Press(KEY_HOME);
    EXPECT_EQ(Shown(), kCurrentMenu);
}

TEST_F(DataScreens, ShowTheAlarmIconThatTheyAreTold) {
    Show(11);
    for (const auto& [param, status, name] :
         {std::tuple{1, 2, "high"}, {1, 13, "unknown"}, {0, 2, "quiet"}, {1, 5, "other"}}) {
        PegMessage alarm = MessageOf(MSG_ALARM_STATUS, static_cast<std::int16_t>(param));
        alarm.target = screens[11];
        alarm.data[0] = static_cast<std::uint32_t>(status);
        toolkit.queue->Push(alarm);
        Pump();
        EXPECT_TRUE(PanelShows(std::string("header/alarm_") + name));
    }
}

TEST_F(DataScreens, ShowThatTheLockIsUnknownAndTheTestModeOn) {
    meter().Answer("SECURITYINTERFACE_getHwLockStatus", std::uint32_t{3});
    meter().Answer("DISPLAYMODE_getTestMode", std::uint32_t{1});
    Show(11);
    EXPECT_TRUE(PanelShows("header/no_lock_test_mode"));
}

}  // namespace
