#include "setup/view/duration_text.h"
#include "tests/setup/setup_view_bench.h"

namespace {

class SetupViewValues : public SetupViewBench {
protected:
    void ShowsAs(const std::string& state, std::initializer_list<std::int32_t> screens) {
        for (const std::int32_t screen : screens) {
            Open(screen);
            EXPECT_TRUE(PanelShows("setup/view_" + state + std::to_string(screen)));
        }
    }
};

TEST_F(SetupViewValues, LeadToTheirEditScreens) {
    // The targets of soft key 4 after each press of soft key 1.
    const std::pair<std::int32_t, std::vector<std::int32_t>> pages[] = {
        {132, {133, 134, 135, 132, 133}},
        {169, {172, 172}},
        {103, {108, 109, 104, 105, 106, 107, 108}},  // the grid begins at the row that was added last
        {130, {131, 131}},                           // soft key 1 means nothing on a page in large type
        {140, {140, 140}},
        {179, {180}},
    };
    Open(100);
    LogIn();
    for (const auto& [screen, targets] : pages) {
        Open(screen);
        for (const std::int32_t target : targets) {
            Press(KEY_SOFT_4);
            EXPECT_EQ(Shown(), target) << screen;
            Show(screen);
            Press(KEY_SOFT_1);
        }
    }
}

TEST_F(SetupViewValues, ShowEveryPage) {
    for (const SetupViewRow& row : kSetupViewRows) ShowsAs("", {row.screen});
}

TEST_F(SetupViewValues, ShowWhatIsSelected) {
    Open(132);
    Press(KEY_SOFT_1, 3);
    EXPECT_TRUE(PanelShows("setup/view_fourth_line")) << "without an edit screen";
    Open(103);
    Press(KEY_SOFT_1);
    EXPECT_TRUE(PanelShows("setup/view_next_value"));
    KeyDown(KEY_SOFT_1);
    EXPECT_TRUE(PanelShows("setup/view_held_key"));
}

TEST_F(SetupViewValues, GiveSecondsAsHoursMinutesAndSeconds) {
    EXPECT_EQ(DurationText("3725").View(), "01:02:05");
    EXPECT_EQ(DurationText("-3725").View(), "-01:02:05");
    EXPECT_EQ(DurationText("360000").View(), "100:00:00");
    EXPECT_EQ(DurationText("-2147483648").View(), "-596523:14:08");
    for (const std::string_view none : {"", " ", "-", "x", "99999999999"}) {
        EXPECT_EQ(DurationText(none).View(), "00:00:00") << none;
    }
}

TEST_F(SetupViewValues, AreEmptyWhileTheMeterIsSilent) {
    meter().FallSilent();
    ShowsAs("silent_", {181, 103, 140, 190, 198});
    meter().Recover();
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_198"));
}

TEST_F(SetupViewValues, StayInTheirFieldsHoweverLongTheTextsAre) {
    meter().AnswerBytes(kReadRegister, ScriptedMeter::Bytes(sizeof(RegisterValue), std::byte{'W'}));
    ShowsAs("long_", {144, 103, 140, 198});
}

}  // namespace
