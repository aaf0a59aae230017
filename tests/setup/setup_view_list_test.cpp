#include "simulator/bench/allocation_count.h"
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
        std::vector<SettableAlarmEntry> list(std::min(count, kOneTooMany));
        for (std::size_t i = 0; i < list.size(); ++i) {
            Write(list[i].name, i == 3 ? std::string(list[i].name.size(), 'W') : "Alarm number " + std::to_string(i));
            list[i].kind.Set(static_cast<std::uint16_t>(1 + i % 4));  // 4 is a kind without an icon
            list[i].enabled.Set(allEnabled || i % 2 == 1 ? 1 : 0);
            list[i].icon.Set(static_cast<std::uint32_t>(i % 3));
        }
        meter().Answer("ALARMSINTERFACE_getSettableAlarmsCount", count);
        meter().AnswerFrom("ALARMSINTERFACE_getSettableAlarms", [list](auto&) { return list; });
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
    for (const auto& [screen, alarms, steps, last] : {std::tuple{kResetScreen, 0U, 3, "resets_last"},
                                                      {kYesNoScreen, 0U, 8, "services_last"},
                                                      {kAlarmScreen, 9U, 4, "alarms_last"},
                                                      {kAlarmScreen, 150U, 145, nullptr},
                                                      {kAlarmScreen, 5U, 0, nullptr},
                                                      {kAlarmScreen, 0U, 0, nullptr}}) {
        Alarms(alarms);
        Open(179);
        Open(screen);
        EXPECT_EQ(Steps(KEY_SOFT_2), 0);
        EXPECT_EQ(Steps(KEY_SOFT_3), steps) << screen << ", " << alarms;
        EXPECT_EQ(Steps(KEY_SOFT_2), steps);
        EXPECT_EQ(Steps(KEY_SOFT_3), steps);
        if (last == nullptr) continue;
        EXPECT_TRUE(PanelShows(std::string("setup/view_") + last));
    }
}

TEST_F(SetupViewLists, KeepTheirPlaceWhileTheyAreReadAgain) {
    Alarms(9);
    for (const std::int32_t screen : {kAlarmScreen, kResetScreen, kYesNoScreen}) {
        Open(screen);
        Press(KEY_SOFT_3, 2);
        const auto before = Frame();
        Ticks(60);
        EXPECT_EQ(Frame(), before) << screen;
        Open(179);
        Open(screen);
        EXPECT_EQ(Frame(), before) << "also while another screen is shown";
    }
    Open(kAlarmScreen);
    Press(KEY_SOFT_2);
    Alarms(9, true);
    Ticks(20);
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
    for (const char* failing : {"ALARMSINTERFACE_getSettableAlarmsCount", "ALARMSINTERFACE_getSettableAlarms"}) {
        meter().Recover();
        meter().Fail(failing);
        Ticks(20);
        EXPECT_TRUE(PanelShows("setup/view_silent_list")) << failing;
    }
}

TEST_F(SetupViewLists, TakeNothingFromTheHeapHoweverManyAlarmsComeAndGo) {
    Open(kAlarmScreen);
    for (const std::uint32_t count : {150U, 0U, 6U, kOneTooMany, 0xFFFFFFFFU}) {
        Alarms(count);
        ::testing::internal::CaptureStdout();
        const long before = AllocationCount::taken;
        Ticks(20);
        EXPECT_EQ(AllocationCount::taken, before) << count;
        EXPECT_EQ(::testing::internal::GetCapturedStdout(), count > 150 ? "ERROR: Alarms buffer is too small!\n" : "");
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
