#include <vector>

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
    for (const KeyCode key : {KEY_SOFT_1, KEY_HOME, KEY_SIMULATED}) {
        OpenQuestion();
        for (const KeyCode other : {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(other);
        EXPECT_TRUE(PanelShows("setup/edit_question")) << "these mean nothing here";
        Press(key);
        EXPECT_EQ(Shown() == kView, key == KEY_SOFT_1);
        if (key == KEY_SIMULATED) Show(101);  // as when the meter leads away
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
        for (const int others : {0, 1}) {
            Open(screen);
            for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_4}) Press(key);
            for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_3}) Press(key, others);
            Press(KEY_SOFT_4);
            written.push_back(meter().LastPayload(kWrite));
            for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3}) Press(key, others);  // a message is open now
            Press(KEY_SOFT_4, 3);
            EXPECT_EQ(meter().Calls(kWrite), 2) << screen;
            written.push_back(meter().LastPayload(kWrite));
        }
        for (const auto& payload : written) EXPECT_EQ(payload, written.front()) << screen;
    }
}

TEST_F(EditDialog, ShowsWhatTheMeterSaysAndKeepsWhatWasComposed) {
    OpenQuestion();
    for (const auto& [reason, name] : {std::pair{std::string("Value out of range"), "refused"},
                                       {std::string(128, 'W'), "refused_at_length"},  // no terminator needed
                                       {std::string(), "refused_without_a_word"}}) {
        Refuse(reason);
        Press(KEY_SOFT_4);
        for (const KeyCode key : {KEY_SOFT_1, KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_2_3}) Press(key);
        EXPECT_TRUE(PanelShows(std::string("setup/edit_") + name)) << "only soft key 4 closes it";
        Press(KEY_SOFT_4);
        EXPECT_TRUE(PanelShows("setup/edit_whole_changed"));
        Press(KEY_SOFT_4);
    }
    EXPECT_EQ(meter().Calls(kWrite), 3) << "and can be tried again";
    meter().Fail(kWrite);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_no_answer"));
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

}  // namespace
