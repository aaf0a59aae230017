#include "localization/display_config.h"
#include "tests/navigation/menu_bench.h"

namespace {

constexpr std::int32_t kNormal = 1;
constexpr std::int32_t kTest = 3;

/// The way from the normal menu into test mode, whose item is the third.
class PasswordDialogTest : public MenuBench {
protected:
    PasswordDialogTest() {
        Lock(0);
        Verdict(0);
        ShowMenu(kNormal);
        Press(KEY_SOFT_3, 2);
    }
    static void Lock(std::uint32_t status) { meter().Answer("SECURITYINTERFACE_getHwLockStatus", status); }
    bool IsMenuAsBefore() { return static_cast<bool>(PanelShows("dialogs/menu_without_dialog")); }
};

TEST_F(PasswordDialogTest, AsksForUserAndPasswordAndEntersTestMode) {
    EXPECT_TRUE(IsMenuAsBefore());
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("dialogs/user_name"));
    Enter("abcdefghijklmnop");
    EXPECT_TRUE(PanelShows("dialogs/password"));
    EXPECT_EQ(meter().Calls(kVerify), 0);
    Enter("1234567890123456789");
    EXPECT_NE(Asked().find("USERabcdefghijkl"), std::string::npos);
    EXPECT_NE(Asked().find("1234567890123456"), std::string::npos);
    EXPECT_EQ(Asked().find('m'), std::string::npos) << "sixteen characters of each";
    EXPECT_EQ(Shown(), kTest);
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_TEST);
    EXPECT_TRUE(PanelShows("menus/collapsed_3"));
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    PressKey(kKeyEnter);
    Enter("x");
    EXPECT_EQ(Shown(), kNormal) << "the way back asks, too";
    EXPECT_EQ(meter().Calls(kVerify), 2);
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_NORMAL);
}

TEST_F(PasswordDialogTest, ShowsHowManySignsAPasswordHasAndNotWhich) {
    Press(KEY_SOFT_4);
    PressKey(kKeyEnter);
    for (const std::string_view word : {"12ab", "1111", "wimj", "...."}) {
        for (int i = 0; i < 4; ++i) PressKey(kKeyBackspace);
        for (const char sign : word) PressKey(static_cast<std::uint16_t>(sign));
        FocusKey(kKeyEnter);
        Pump();
        EXPECT_TRUE(PanelShows("dialogs/password_of_four")) << word;
    }
}

TEST_F(PasswordDialogTest, IsWorkedByTheSoftKeysAlone) {
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_3, 2);
    EXPECT_EQ(FocusedKey(), kKeyEnter);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_1);
    const std::uint16_t letter = FocusedKey();
    Press(KEY_SOFT_4);
    FocusKey(' ');
    Press(KEY_SOFT_2, 3);
    EXPECT_EQ(FocusedKey(), kKeyEnter) << "round the edge";
    Press(KEY_SOFT_4);
    EXPECT_NE(Asked().find(static_cast<char>(letter)), std::string::npos);
    EXPECT_EQ(Shown(), kTest);
}

TEST_F(PasswordDialogTest, SaysWhyNotAndClosesByEveryKeyThatMayCloseIt) {
    using namespace std::string_literals;
    constexpr std::uint32_t kNone = 3;  // the meter does not answer
    for (const auto& [verdict, password, golden] : {std::tuple{2U, "x"s, "user_may_not"s},
                                                    {1U, "x"s, "wrong_password"s},
                                                    {0U, ""s, "wrong_password"s},
                                                    {kNone, "x"s, "wrong_password"s}}) {
        Verdict(verdict);
        if (verdict == kNone) meter().Fail(kVerify);
        meter().ForgetCalls();
        Press(KEY_SOFT_4);
        PressKey(kKeyEnter);
        Enter(password);
        EXPECT_EQ(meter().Calls(kVerify), password.empty() ? 0 : 1);
        for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);
        EXPECT_TRUE(PanelShows("dialogs/" + golden)) << "these keys mean nothing here";
        Press(verdict == 1 ? KEY_HOME : KEY_SOFT_4);
        EXPECT_TRUE(IsMenuAsBefore());
    }
    EXPECT_EQ(Navigation().getDisplayMode(), DISPLAY_MODE_NORMAL);
}

TEST_F(PasswordDialogTest, IsNotOpenedWhileTheHardwareLockIsSetOrUnknown) {
    Lock(2);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("dialogs/locked"));
    EXPECT_FALSE(IsKeyboardShown());
    Press(KEY_SOFT_4);
    EXPECT_TRUE(IsMenuAsBefore());
    meter().Fail("SECURITYINTERFACE_getHwLockStatus");
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("dialogs/locked"));
    DISPCFG_setLanguage(1);
    Manager().FirstChild()->Message(MessageOf(MSG_LANGUAGE));
    Pump();
    EXPECT_TRUE(PanelShows("dialogs/locked_german")) << "also when it changes while the dialog is open";
    Ticks(220);
    EXPECT_EQ(Shown(), 200) << "closed by time, and home";
}

TEST_F(PasswordDialogTest, IsLeftByEscapeAndTheHomeKeyFromBothEntries) {
    for (const bool second : {false, true}) {
        for (const bool home : {false, true}) {
            Press(KEY_SOFT_4);
            PressKey('q');
            if (second) PressKey(kKeyEnter);
            EXPECT_TRUE(IsKeyboardShown());
            home ? Press(KEY_HOME) : PressKey(kKeyEscape);
            EXPECT_TRUE(IsMenuAsBefore()) << "second " << second << ", home " << home;
            EXPECT_FALSE(IsKeyboardShown());
        }
    }
    EXPECT_EQ(meter().Calls(kVerify), 0);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("dialogs/user_name")) << "nothing is left of what was typed";
}

TEST_F(PasswordDialogTest, ClosesByTimeByAResetAndWhenTheMeterLeadsAway) {
    Press(KEY_SOFT_4);
    Ticks(190);
    Press(KEY_SOFT_3);
    Ticks(190);
    EXPECT_TRUE(IsKeyboardShown()) << "a key starts the time again";
    Ticks(30);
    EXPECT_FALSE(IsKeyboardShown());
    EXPECT_EQ(Shown(), 200);

    Show(kNormal);
    Press(KEY_SOFT_4);
    static_cast<menuScrnClass*>(Navigation().getCurrentScreen())->reset();
    EXPECT_FALSE(IsKeyboardShown());

    Press(KEY_SOFT_3, 2);
    Press(KEY_SOFT_4);
    navigationHandlerClass::postNavigateTo(4);
    Pump();
    EXPECT_EQ(keyboardWin::getInstance().Parent(), nullptr);
    Show(kNormal);
    EXPECT_TRUE(IsMenuAsBefore());
}

}  // namespace
