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

using Chain = std::vector<std::int32_t>;

class SetupViewChains : public SetupViewBench {
protected:
    /// The registers read that an address is stored in the meter; all others read another text.
    static void Stored(const std::vector<std::uint32_t>& registers, std::string_view otherwise = "DHCP") {
        meter().AnswerFrom(kReadRegister, [=](const auto& asked) {
            const bool isStored = std::ranges::find(registers, asked[0]) != registers.end();
            RegisterValue value{};
            Write(value.value, isStored ? "Stored" : otherwise);
            return value;
        });
    }

    /// The screens on the way from one on by a key, until it leads no further.
    Chain Walk(std::int32_t from, KeyCode key) {
        constexpr std::size_t kLongest = 20;
        Chain chain;
        Open(from);
        while (chain.size() < kLongest && (chain.empty() || chain.back() != Shown())) {
            chain.push_back(Shown());
            Press(key);
        }
        return chain;
    }
};

const Chain kNothingStored = {130, 136, 139, 137, 141, 142, 143, 144, 151, 157, 167, 168};

TEST_F(SetupViewChains, LeadForwardAndBackByThePageOfAnAddressThatIsStored) {
    const std::pair<std::vector<std::uint32_t>, Chain> ways[] = {
        {{1409, 1410}, {130, 132, 139, 137, 140, 142, 143, 144, 151, 157, 167, 168}},
        {{1409}, {130, 132, 139, 137, 141, 142, 143, 144, 151, 157, 167, 168}},
        {{1410}, {130, 136, 139, 137, 140, 142, 143, 144, 151, 157, 167, 168}},
        {{}, kNothingStored},
        {{}, {100, 103, 110, 117, 126}},
        {{}, {181, 182}},
        {{}, {190}},
    };
    for (const auto& [registers, chain] : ways) {
        Stored(registers);
        EXPECT_EQ(Walk(chain.front(), KEY_SOFT_3), chain);
        EXPECT_EQ(Walk(chain.back(), KEY_SOFT_2), Chain(chain.rbegin(), chain.rend()));
    }
    for (const std::string_view text : {"", "stored", "Stored.", "Stored address, and so on to the field's end"}) {
        Stored({}, text);
        EXPECT_EQ(Walk(130, KEY_SOFT_3), kNothingStored) << text;
    }
    meter().Fail(kReadRegister);
    EXPECT_EQ(Walk(130, KEY_SOFT_3), kNothingStored);
}

TEST_F(SetupViewChains, TakeASwitchPointFromAMessageAndNotFromTheKeyboard) {
    for (const std::int32_t screen : {130, 137}) {
        Open(screen);
        for (const KeyCode key : {KEY_SOFT_4, KEY_SOFT_2, KEY_SOFT_3}) Press(key);
        EXPECT_EQ(Shown(), screen);
        EXPECT_TRUE(IsKeyboardShown());
    }
    Access(0);
    Stored({1409});
    Open(130);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_3);
    EXPECT_EQ(Shown(), 132);
    Open(130);
    Screen().flushes = 0;
    Ticks(40);
    EXPECT_EQ(Screen().flushes, 0) << "nothing is left of the message that could time out";
}

TEST_F(SetupViewChains, HaveNoPlaceForAScreenThatIsNotInTheTable) {
    ::testing::internal::CaptureStdout();
    CreateSetupView<setupView1ScrnClass>(SettingLinesRow{.screen = 202, .lines = {{{54, 172}}}});
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "\n\nERROR: Derived screen not added to Setup Base class!!\n\n");
    EXPECT_NE(Navigation().getScreenKind(202), SCREEN_KIND_SETUP_VIEW);
}

}  // namespace
