#include <set>
#include <vector>

#include "localization/display_config.h"
#include "setup/edit/signed_time.h"
#include "tests/setup/setup_edit_bench.h"

namespace {

constexpr std::int32_t kWhole = 148;
constexpr std::string_view kLogOut = "SECURITYINTERFACE_clearFrontPanelPassword";

/// The dialog that all screens which edit have in common, on one that composes a number.
class EditDialog : public SetupEditBench {
protected:
    void OpenQuestion() {
        Open(kWhole);
        Press(KEY_SOFT_3);
        Press(KEY_SOFT_4);
        ASSERT_TRUE(PanelShows("setup/edit_question"));
    }
};

TEST_F(EditDialog, IsCancelledByLeavingTheScreen) {
    for (const KeyCode key : {KEY_SOFT_1, KEY_HOME}) {
        OpenQuestion();
        for (const KeyCode other : {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(other);
        EXPECT_TRUE(PanelShows("setup/edit_question")) << "these mean nothing here";
        Press(key);
        EXPECT_EQ(Shown() == kView, key == KEY_SOFT_1);
        Show(kView);
        EXPECT_EQ(meter().Calls(kWrite), 0);
        Open(kWhole);
        EXPECT_TRUE(PanelShows("setup/edit_whole")) << "read again, and no dialog";
        Show(kView);
    }
}

TEST_F(EditDialog, StoresWhatTheQuestionWasAboutWhateverKeysFollow) {
    Refuse("no");
    for (const std::int32_t screen : {101, kWhole, 199}) {
        std::vector<ScriptedMeter::Bytes> written;
        for (const bool withOtherKeys : {false, true}) {
            Show(kView);
            Open(screen);
            Press(KEY_SOFT_3);
            Press(KEY_SOFT_2_3);
            Press(KEY_SOFT_4);
            if (withOtherKeys) {
                for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);
            }
            Press(KEY_SOFT_4);
            EXPECT_EQ(meter().Calls(kWrite), 1) << screen;
            written.push_back(meter().LastPayload(kWrite));
            for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);  // a message is open now
            Press(KEY_SOFT_4, 3);
            EXPECT_EQ(meter().Calls(kWrite), 2) << screen;
            written.push_back(meter().LastPayload(kWrite));
        }
        for (const auto& payload : written) EXPECT_EQ(payload, written.front()) << screen;
    }
}

TEST_F(EditDialog, SaysWhyTheMeterRefusedAndKeepsWhatWasComposed) {
    OpenQuestion();
    Refuse("Value out of range");
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_refused"));
    for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);
    EXPECT_TRUE(PanelShows("setup/edit_refused")) << "only soft key 4 closes it";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kWhole);
    EXPECT_TRUE(PanelShows("setup/edit_whole_changed"));
    EXPECT_EQ(meter().Calls(kWrite), 1);
    Press(KEY_SOFT_4, 2);
    EXPECT_EQ(meter().Calls(kWrite), 2) << "and can be tried again";
    EXPECT_TRUE(PanelShows("setup/edit_refused"));
}

TEST_F(EditDialog, ShowsWhatTheMeterSaysWhateverItIs) {
    OpenQuestion();
    Refuse(std::string(128, 'W'));
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_refused_at_length")) << "127 characters, no terminator needed";
    Press(KEY_SOFT_4);
    Refuse("");
    Press(KEY_SOFT_4, 2);
    EXPECT_TRUE(PanelShows("setup/edit_refused_without_a_word"));
    Press(KEY_SOFT_4);
    meter().Fail(kWrite);
    Press(KEY_SOFT_4, 2);
    EXPECT_TRUE(PanelShows("setup/edit_no_answer"));
    Press(KEY_SOFT_4);
    DISPCFG_setLanguage(1);
    Press(KEY_SOFT_4, 2);
    EXPECT_TRUE(PanelShows("setup/edit_no_answer_german"));
}

TEST_F(EditDialog, ClosesAfterTenSecondsWithoutAKeyAndTheScreenStays) {
    OpenQuestion();
    Ticks(199);
    PanelBench::Press(KEY_SOFT_2);
    Ticks(199);
    EXPECT_TRUE(PanelShows("setup/edit_question")) << "a key starts the time again";
    Ticks(21);
    EXPECT_EQ(Shown(), kWhole);
    EXPECT_EQ(meter().Calls(kWrite) + meter().Calls(kLogOut), 0);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_question")) << "what was composed is still there";
    Refuse("no");
    Press(KEY_SOFT_4);
    Ticks(240);
    Press(KEY_SOFT_1);
    EXPECT_EQ(Shown(), kView) << "the message has closed as well";
}

TEST_F(EditDialog, LeavesTheScreenAfterThirtySecondsWithoutAKey) {
    for (const std::int32_t screen : {101, kWhole, 199}) {
        LogIn();
        Open(screen);
        Ticks(500);
        Press(KEY_SOFT_3);
        Ticks(590);
        EXPECT_EQ(Shown(), screen);
        EXPECT_EQ(meter().Calls(kLogOut), 0);
        Ticks(40);
        EXPECT_EQ(Shown(), kView);
        EXPECT_EQ(meter().Calls(kLogOut), 1);
        EXPECT_EQ(meter().Calls(kWrite), 0);
    }
}

TEST_F(EditDialog, IsGoneWhenTheMeterLeadsAway) {
    OpenQuestion();
    Show(101);
    Show(kView);
    Open(kWhole);
    EXPECT_TRUE(PanelShows("setup/edit_whole"));
}

TEST_F(EditDialog, BelongsToScreensThatAllHaveATitle) {
    std::set<std::int32_t> missing;
    for (const SetupEditRow& row : kSetupEditRows) {
        if (Navigation().getScreenKind(row.screen) != SCREEN_KIND_SETUP_EDIT) missing.insert(row.screen);
    }
    EXPECT_EQ(missing, (std::set<std::int32_t>{161, 162, 163, 164, 165, 166}));

    testing::internal::CaptureStdout();
    CreateEditScreens<setupEdit1ScrnClass>(std::array{ChoiceRow{.screen = 90, .registerId = 1}});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n\nERROR: Derived screen not added to Setup Base class!!\n\n");
    EXPECT_NE(Navigation().getScreenKind(90), SCREEN_KIND_SETUP_EDIT);
}

TEST(SignedTime, IsTheSameThereAndBack) {
    for (const std::int32_t seconds : {0, 1, -1, 59, 60, 3599, -3600, 86399, -50400, 359999, INT32_MAX, -INT32_MAX}) {
        EXPECT_EQ(SecondsOf(TimeOf(seconds).data()), seconds) << TimeOf(seconds).data();
    }
    EXPECT_STREQ(TimeOf(-3661).data(), "-01:01:01");
    EXPECT_STREQ(TimeOf(INT32_MIN).data(), "-596523:14:08");
    EXPECT_EQ(SecondsOf("+99:99:99"), 99 * 3600 + 99 * 60 + 99);
    EXPECT_EQ(SecondsIn("x"), std::nullopt);
}

}  // namespace
