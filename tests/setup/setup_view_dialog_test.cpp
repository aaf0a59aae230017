#include "tests/setup/setup_view_bench.h"

namespace {

constexpr std::int32_t kScreen = 100;
constexpr std::int32_t kEditScreen = 101;
constexpr int kDialogTicks = 200;
constexpr int kScreenTicks = 600;

class SetupViewDialogs : public SetupViewBench {
protected:
    SetupViewDialogs() { Open(kScreen); }

    bool IsScreenAsBefore() { return static_cast<bool>(PanelShows("setup/view_100")); }
};

TEST_F(SetupViewDialogs, OpenTheEditScreenOnceThePasswordIsAccepted) {
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/view_user_name"));
    Enter("abcdef");
    EXPECT_TRUE(PanelShows("setup/view_password"));
    EXPECT_EQ(meter().Calls(kVerify), 0);
    Enter("0123456789abcdef");
    EXPECT_EQ(Shown(), kEditScreen);
    EXPECT_FALSE(IsKeyboardShown());
    EXPECT_EQ(Asked().find("USERabcde"), std::string::npos) << "eight characters of the name count";
    EXPECT_NE(Asked().find("USERabcd"), std::string::npos);
    EXPECT_NE(Asked().find("0123456789abcdef"), std::string::npos);
    Show(kScreen);
    EXPECT_TRUE(IsScreenAsBefore());
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kEditScreen) << "while the login is open nobody is asked again";
    EXPECT_EQ(meter().Calls(kVerify), 1);
}

TEST_F(SetupViewDialogs, SayWhyNot) {
    for (const auto& [verdict, message] : {std::pair{1U, "wrong_password"}, {2U, "user_may_not"}}) {
        Verdict(verdict);
        LogIn();
        EXPECT_TRUE(PanelShows(std::string("setup/view_") + message));
        Press(KEY_SOFT_4);
        EXPECT_TRUE(IsScreenAsBefore());
    }
    Access(0);
    for (const std::int32_t screen : {103, 198, kScreen}) {
        Open(screen);
        for (const KeyCode key : {KEY_SOFT_4, KEY_SOFT_1, KEY_SOFT_3, KEY_SOFT_4}) Press(key);
        EXPECT_TRUE(PanelShows("setup/view_" + std::to_string(screen))) << "the selection is left alone";
    }
    meter().FallSilent();
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/view_no_access")) << "a meter that cannot be asked allows nothing";
}

TEST_F(SetupViewDialogs, CloseByThemselvesAndEndTheLogin) {
    LogIn();
    Show(kScreen);
    meter().ForgetCalls();
    Access(0);
    Press(KEY_SOFT_4);
    Ticks(kDialogTicks - 20);
    EXPECT_FALSE(IsScreenAsBefore());
    EXPECT_EQ(meter().Calls(kReadRegister), 0) << "the screen behind it waits";
    Press(KEY_SOFT_1);
    Ticks(kDialogTicks);
    EXPECT_FALSE(IsScreenAsBefore()) << "a key starts the time again";
    Ticks(20);
    EXPECT_TRUE(IsScreenAsBefore());
    EXPECT_EQ(Shown(), kScreen);
    EXPECT_EQ(meter().Calls(kClear), 1);
}

TEST_F(SetupViewDialogs, GiveWayWhenTheScreenIsLeft) {
    for (const bool byHomeKey : {false, true}) {
        Press(KEY_SOFT_4);
        EXPECT_TRUE(IsKeyboardShown());
        byHomeKey ? Press(KEY_HOME) : Show(kCurrentMenu);
        EXPECT_EQ(Navigation().getScreenKind(Shown()), SCREEN_KIND_MENU);
        EXPECT_FALSE(IsKeyboardShown());
        Open(kScreen);
        EXPECT_TRUE(IsScreenAsBefore());
    }
    Open(136);
    Press(KEY_SOFT_4);
    EXPECT_FALSE(IsKeyboardShown()) << "there is nothing to change";
}

TEST_F(SetupViewDialogs, LeadHomeAndEndTheLoginAfterThirtySecondsWithoutAKey) {
    LogIn();
    Open(kScreen);
    Ticks(kScreenTicks - 20);
    Press(KEY_SOFT_1);
    Ticks(kScreenTicks);
    EXPECT_EQ(Shown(), kScreen) << "a key starts the time again";
    EXPECT_EQ(meter().Calls(kClear), 0);
    Ticks(20);
    EXPECT_EQ(Shown(), home);
    EXPECT_EQ(meter().Calls(kClear), 1);
}

}  // namespace
