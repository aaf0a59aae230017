#include "tests/setup/setup_view_bench.h"

namespace {

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
    void ExpectWayThereAndBack(const Chain& chain) {
        EXPECT_EQ(Walk(chain.front(), KEY_SOFT_3), chain);
        EXPECT_EQ(Walk(chain.back(), KEY_SOFT_2), Chain(chain.rbegin(), chain.rend()));
    }
};

TEST_F(SetupViewChains, LeadForwardAndBack) {
    for (const Chain& chain : {
             Chain{100, 103, 110, 117, 126},
             Chain{169, 170, 171},
             Chain{181, 182},
             Chain{192, 193},
             Chain{179},
             Chain{190},
         }) {
        ExpectWayThereAndBack(chain);
    }
}

TEST_F(SetupViewChains, GoByThePageOfAnAddressThatIsStored) {
    Stored({1409, 1410});
    ExpectWayThereAndBack({130, 132, 139, 137, 140, 142, 143, 144, 151, 157, 167, 168});
    Stored({1409});
    ExpectWayThereAndBack({130, 132, 139, 137, 141, 142, 143, 144, 151, 157, 167, 168});
    Stored({1410});
    ExpectWayThereAndBack({130, 136, 139, 137, 140, 142, 143, 144, 151, 157, 167, 168});
    const Chain neither = {130, 136, 139, 137, 141, 142, 143, 144, 151, 157, 167, 168};
    for (const std::string_view text : {"", "stored", "Stored.", "Stored address, and so on to the field's end"}) {
        Stored({}, text);
        EXPECT_EQ(Walk(130, KEY_SOFT_3), neither) << text;
    }
    meter().Fail(kReadRegister);
    EXPECT_EQ(Walk(130, KEY_SOFT_3), neither);
}

TEST_F(SetupViewChains, StayWhereTheyAreWhileTheKeysAreTheKeyboards) {
    for (const std::int32_t screen : {130, 137}) {
        Open(screen);
        Press(KEY_SOFT_4);
        Press(KEY_SOFT_2);
        Press(KEY_SOFT_3);
        EXPECT_EQ(Shown(), screen);
        EXPECT_TRUE(IsKeyboardShown());
    }
}

TEST_F(SetupViewChains, TakeASwitchPointAlsoFromAMessageAndCloseIt) {
    Access(0);
    Stored({1409});
    Open(130);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_3);
    EXPECT_EQ(Shown(), 132);
    Open(130);
    EXPECT_EQ(FramesIn(40), 0) << "nothing is left of the message that could time out";
    Open(100);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_3);
    EXPECT_EQ(Shown(), 100) << "other pages wait for the message to be closed";
}

TEST_F(SetupViewChains, EndAtTheMenuByTheHomeKey) {
    for (const SetupViewRow& row : kSetupViewRows) {
        Open(row.screen);
        Press(KEY_SOFT_4);
        Press(KEY_HOME);
        EXPECT_EQ(Navigation().getScreenKind(Shown()), SCREEN_KIND_MENU) << row.screen;
        EXPECT_FALSE(IsKeyboardShown());
    }
}

TEST_F(SetupViewChains, HaveNoPlaceForAScreenThatIsNotInTheTable) {
    ::testing::internal::CaptureStdout();
    CreateSetupView<setupView1ScrnClass>(SettingLinesRow{.screen = 202, .lines = {{{54, 172}}}});
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "\n\nERROR: Derived screen not added to Setup Base class!!\n\n");
    Open(100);
    Navigation().navigateFromCurrent(202);
    EXPECT_EQ(Shown(), 100);
}

}  // namespace
