#include "tests/bench/allocation_count.h"
#include "tests/setup/setup_view_bench.h"

namespace {

constexpr std::int32_t kAlarmScreen = 190;
constexpr std::int32_t kResetScreen = 194;
constexpr std::int32_t kYesNoScreen = 198;
constexpr std::uint32_t kOneTooMany = 151;

class SetupViewLists : public SetupViewBench {
protected:
    /// The meter lists that many alarms, of all kinds in turn, every other one enabled or all.
    static void Alarms(std::uint32_t count, bool allEnabled = false) {
        meter().Answer("ALARMSINTERFACE_getSettableAlarmsCount", count);
        std::vector<SettableAlarmEntry> list;
        for (std::size_t i = 0; i < std::min(count, kOneTooMany); ++i) list.push_back(Alarm(i, allEnabled));
        meter().AnswerFrom("ALARMSINTERFACE_getSettableAlarms", [list](auto&) { return list; });
    }
    static SettableAlarmEntry Alarm(std::size_t index, bool isEnabled) {
        SettableAlarmEntry alarm{};
        std::string name = "Alarm number ";
        name += std::to_string(index);
        if (index == 3) name.assign(alarm.name.size(), 'W');
        Write(alarm.name, name);
        alarm.kind.Set(static_cast<std::uint16_t>(1 + index % 4));  // 4 is a kind without an icon
        alarm.enabled.Set(isEnabled || index % 2 == 1 ? 1 : 0);
        alarm.icon.Set(static_cast<std::uint32_t>(index % 3));
        return alarm;
    }

    /// Presses of a key that change the panel, until one does not.
    int Steps(KeyCode key) {
        constexpr int kMost = 200;
        for (int steps = 0; steps < kMost; ++steps) {
            const auto before = Frame();
            Press(key);
            if (Frame() == before) return steps;
        }
        return kMost;
    }
};

TEST_F(SetupViewLists, ScrollByOneLineFromEndToEnd) {
    struct Case {
        std::int32_t screen;
        std::uint32_t alarms;
        int steps;
    };
    for (const Case& list :
         {Case{kResetScreen, 0, 3}, Case{kYesNoScreen, 0, 8}, Case{kAlarmScreen, 6, 1}, Case{kAlarmScreen, 150, 145},
          Case{kAlarmScreen, 5, 0}, Case{kAlarmScreen, 2, 0}, Case{kAlarmScreen, 0, 0}}) {
        Alarms(list.alarms);
        Open(179);
        Open(list.screen);
        EXPECT_EQ(Steps(KEY_SOFT_2), 0);
        EXPECT_EQ(Steps(KEY_SOFT_3), list.steps) << list.screen << ", " << list.alarms;
        EXPECT_EQ(Steps(KEY_SOFT_2), list.steps);
        EXPECT_EQ(Steps(KEY_SOFT_3), list.steps);
    }
}

TEST_F(SetupViewLists, ShowTheirFirstAndLastLines) {
    Alarms(9);
    Open(kAlarmScreen);
    EXPECT_TRUE(PanelShows("setup/view_alarms_first"));
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("setup/view_alarms_second"));
    Steps(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("setup/view_alarms_last"));
    Open(kResetScreen);
    Steps(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("setup/view_resets_last"));
    Open(kYesNoScreen);
    Steps(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("setup/view_services_last"));
}

TEST_F(SetupViewLists, KeepTheirPlaceWhileTheyAreReadAgain) {
    Alarms(9);
    for (const std::int32_t screen : {kAlarmScreen, kResetScreen, kYesNoScreen}) {
        Open(screen);
        Press(KEY_SOFT_3, 2);
        const auto before = Frame();
        EXPECT_EQ(FramesIn(60), 0) << screen;
        EXPECT_EQ(Frame(), before);
        Open(179);
        Open(screen);
        EXPECT_EQ(Frame(), before) << "also while another screen is shown";
        Press(KEY_SOFT_2, 2);
    }
}

TEST_F(SetupViewLists, KeepTheirPlaceWhenAnAlarmIsSwitched) {
    Alarms(9);
    Open(kAlarmScreen);
    Press(KEY_SOFT_3);
    Alarms(9, true);
    EXPECT_EQ(FramesIn(20), 1);
    EXPECT_TRUE(PanelShows("setup/view_alarms_switched"));
    EXPECT_EQ(Steps(KEY_SOFT_2), 1);
}

TEST_F(SetupViewLists, BeginAnewWhenTheNumberOfAlarmsChanges) {
    Alarms(9);
    Open(kAlarmScreen);
    Press(KEY_SOFT_3, 2);
    Alarms(8);
    Ticks(20);
    EXPECT_EQ(Steps(KEY_SOFT_2), 0);
    EXPECT_EQ(Steps(KEY_SOFT_3), 3);
    Alarms(2);
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_alarms_two"));
    Alarms(9);
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_alarms_first"));
    meter().Fail("ALARMSINTERFACE_getSettableAlarmsCount");
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_silent_list"));
    meter().Recover();
    meter().Fail("ALARMSINTERFACE_getSettableAlarms");
    Ticks(20);
    EXPECT_TRUE(PanelShows("setup/view_silent_list"));
}

TEST_F(SetupViewLists, TakeTheFirstOfMoreThan150Alarms) {
    Alarms(kOneTooMany);
    ::testing::internal::CaptureStdout();
    Open(kAlarmScreen);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "ERROR: Alarms buffer is too small!\n");
    Alarms(0xFFFFFFFF);
    ::testing::internal::CaptureStdout();
    Ticks(20);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "ERROR: Alarms buffer is too small!\n");
    Alarms(150);
    EXPECT_EQ(Steps(KEY_SOFT_3), 145);
}

TEST_F(SetupViewLists, TakeNothingFromTheHeapHoweverManyAlarmsComeAndGo) {
    Open(kAlarmScreen);
    for (const std::uint32_t count : {150U, 0U, 6U, 150U}) {
        Alarms(count);
        const long before = AllocationCount::taken;
        Ticks(20);
        EXPECT_EQ(AllocationCount::taken, before) << count;
    }
    EXPECT_EQ(Steps(KEY_SOFT_3), 145);
}

TEST_F(SetupViewLists, CheckExactlyWhatReadsYes) {
    int asked = 0;
    meter().AnswerFrom(kReadRegister, [&asked](auto&) {
        constexpr auto kValues = std::to_array<std::string_view>({"Yes", "yes", "Yes ", "", "No"});
        RegisterValue value{};
        Write(value.label, "Web server");
        Write(value.value, kValues[static_cast<std::size_t>(asked++) % kValues.size()]);
        return value;
    });
    Open(kYesNoScreen);
    EXPECT_EQ(asked, 13);
    EXPECT_TRUE(PanelShows("setup/view_services_yes"));
}

}  // namespace
