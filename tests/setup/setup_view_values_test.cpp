#include "setup/view/duration_text.h"
#include "tests/setup/setup_view_bench.h"

namespace {

class SetupViewValues : public SetupViewBench {
protected:
    /// The registers that a screen reads in a second, in their order.
    std::vector<std::uint32_t> RegistersOf(std::int32_t screen) {
        std::vector<std::uint32_t> read;
        meter().AnswerFrom(kReadRegister, [&read](const auto& asked) {
            read.push_back(asked[0]);
            return RegisterValue{};
        });
        Open(screen);
        meter().Answer(kReadRegister, RegisterValue{});
        return read;
    }

    /// Checks what a page reads, and what soft key 4 opens after each press of soft key 1.
    void Expect(std::int32_t screen, std::span<const SettingRow> page) {
        std::vector<std::uint32_t> registers;
        for (const SettingRow& setting : page) registers.push_back(setting.registerId);
        EXPECT_EQ(RegistersOf(screen), registers) << screen;
        for (std::size_t i = 0; i <= page.size(); ++i) {
            const std::int32_t expected = page[i % page.size()].editScreen;
            Press(KEY_SOFT_4);
            EXPECT_EQ(Shown(), expected < 0 ? screen : expected) << screen << ", line " << i;
            Show(screen);
            Press(KEY_SOFT_1);
        }
    }
};

TEST_F(SetupViewValues, ComeFromTheirRegistersAndLeadToTheirEditScreens) {
    Open(100);
    LogIn();
    for (const SettingLinesRow& row : kSettingLinesRows) Expect(row.screen, row.Lines());
    // The grid is read row by row, and begins at the row that was added last.
    std::vector<std::uint32_t> registers;
    std::vector<std::int32_t> editScreens;
    for (const SettingGrid::Row& row : kSettingGrid.rows) {
        for (const SettingRow& value : row.values) {
            registers.push_back(value.registerId);
            editScreens.push_back(value.editScreen);
        }
    }
    std::rotate(editScreens.begin(), editScreens.end() - kGridColumns, editScreens.end());
    EXPECT_EQ(RegistersOf(kSettingGrid.screen), registers);
    for (const std::int32_t editScreen : editScreens) {
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), editScreen);
        Show(kSettingGrid.screen);
        Press(KEY_SOFT_1);
    }
}

TEST_F(SetupViewValues, StandAloneOrInPairsOnTheLargePages) {
    Open(100);
    LogIn();
    for (const LargeSettingsRow& row : kLargeSettingsRows) {
        EXPECT_EQ(RegistersOf(row.screen), std::vector(row.registers.begin(), row.registers.begin() + row.Count()));
        Press(KEY_SOFT_1);
        EXPECT_EQ(Shown(), row.screen) << "soft key 1 means nothing here";
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), row.editScreen < 0 ? row.screen : row.editScreen);
    }
}

TEST_F(SetupViewValues, ShowEveryPage) {
    for (const SetupViewRow& row : kSetupViewRows) {
        Open(row.screen);
        EXPECT_TRUE(PanelShows(std::string("setup/view_") + std::to_string(row.screen)));
    }
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
    EXPECT_EQ(DurationText("-3600").View(), "-01:00:00");
    EXPECT_EQ(DurationText("-3725").View(), "-01:02:05");
    EXPECT_EQ(DurationText("360000").View(), "100:00:00");
    EXPECT_EQ(DurationText("-2147483648").View(), "-596523:14:08");
    for (const std::string_view none : {"", " ", "-", "x", "99999999999"}) {
        EXPECT_EQ(DurationText(none).View(), "00:00:00") << none;
    }
}

TEST_F(SetupViewValues, AreEmptyWhileTheMeterIsSilent) {
    meter().FallSilent();
    for (const std::int32_t screen : {181, 103, 140, 190, 198}) {
        Open(screen);
        EXPECT_TRUE(PanelShows(std::string("setup/view_silent_") + std::to_string(screen)));
    }
    meter().Recover();
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_198"));
}

TEST_F(SetupViewValues, StayInTheirFieldsHoweverLongTheTextsAre) {
    meter().AnswerBytes(kReadRegister, ScriptedMeter::Bytes(sizeof(RegisterValue), std::byte{'W'}));
    for (const std::int32_t screen : {144, 103, 140, 198}) {
        Open(screen);
        EXPECT_TRUE(PanelShows(std::string("setup/view_long_") + std::to_string(screen)));
    }
}

}  // namespace
