#include "screens/alarms/alarm_screens.h"

#include "localization/display_config.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

AlarmEntry Alarm(std::string_view name, unsigned priority, std::uint32_t seconds = 0, bool ended = false) {
    AlarmEntry entry{};
    Write(entry.name, name);
    Write(entry.qualifier, "High");
    Write(entry.startDate, "2025-06-15");
    Write(entry.startTime, "17:06:40.123");
    Write(entry.endDate, "2025-06-16");
    Write(entry.endTime, "18:07:41");
    Write(entry.value, "251.3 V");
    entry.hasEnded.Set(ended ? 1 : 0);
    entry.priority.Set(static_cast<std::uint16_t>(priority));
    entry.startSeconds.Set(0xFFFFFF00);
    entry.endSeconds.Set(std::uint64_t{0xFFFFFF00} + seconds);
    return entry;
}

/// A meter with the alarms that the test puts into `alarms`, for both lists. They are called by their index.
class AlarmScreens : public PanelTest {
protected:
    AlarmScreens() {
        for (const std::string_view kind : {"Active", "Historical"}) {
            const std::string get = "ALARMSINTERFACE_get" + std::string(kind);
            meter().AnswerFrom(get + "AlarmStats", [this](auto&) {
                AlarmStats stats{};
                stats.count.Set(static_cast<std::uint32_t>(alarms.size()));
                stats.unacknowledged.Set(unacknowledged);
                return stats;
            });
            meter().AnswerFrom(get + "Alarms", [this](const auto& range) {
                asked = {range[0], range[1]};
                return std::vector(alarms.begin() + std::min<std::ptrdiff_t>(asked[0], std::ssize(alarms)),
                                   alarms.end());
            });
        }
        CreateCustomScreens();  // the screen to start from is among them
        CreateActiveAlarmScreens();
        CreateHistoricalAlarmScreens();
    }
    void Fill(std::size_t count) {
        alarms.clear();
        for (std::size_t i = 0; i < count; ++i) {
            alarms.push_back(Alarm("Overvoltage L" + std::to_string(i), static_cast<unsigned>(i % 5), 60, i % 2 != 0));
        }
    }

    std::vector<AlarmEntry> alarms;
    std::uint32_t unacknowledged = 0;
    std::array<std::uint32_t, 2> asked{};  // first and count of the last page
};

using Range = std::array<std::uint32_t, 2>;

TEST_F(AlarmScreens, ListActiveAlarmsAndScrollWhenTheSelectionIsAtTheEndOfThePage) {
    Show(7);
    EXPECT_TRUE(PanelShows("alarms/active_empty"));
    Fill(2);
    unacknowledged = 2;
    Ticks(21);
    EXPECT_TRUE(PanelShows("alarms/active_two"));
    DISPCFG_setLanguage(1);
    Ticks(40);
    EXPECT_TRUE(PanelShows("alarms/active_two_german"));
    DISPCFG_setLanguage(0);
    Fill(10);
    Ticks(41);
    EXPECT_TRUE(PanelShows("alarms/active_ten"));
    Press(KEY_SOFT_3);
    EXPECT_TRUE(PanelShows("alarms/active_second_selected"));
    Press(KEY_SOFT_2);
    EXPECT_TRUE(PanelShows("alarms/active_ten"));
    Press(KEY_SOFT_3, 3);
    EXPECT_EQ(asked, (Range{0, 4})) << "the selection moves first";
    unacknowledged = 0;
    Press(KEY_SOFT_3, 6);
    EXPECT_EQ(asked, (Range{6, 4}));
    EXPECT_TRUE(PanelShows("alarms/active_at_the_bottom"));
    meter().ForgetCalls();
    Press(KEY_SOFT_3);
    EXPECT_EQ(meter().Calls("ALARMSINTERFACE_getActiveAlarms"), 0) << "there is nothing further down";
    Press(KEY_SOFT_2, 3);
    EXPECT_EQ(meter().Calls("ALARMSINTERFACE_getActiveAlarms"), 0);
    Press(KEY_SOFT_2);
    EXPECT_EQ(asked, (Range{5, 4}));
    Press(KEY_SOFT_2, 20);
    EXPECT_EQ(asked, (Range{0, 4}));
}

TEST_F(AlarmScreens, KeepTheirPlaceAndThePageFullAndRecoverFromAFailedCall) {
    Fill(10);
    Show(7);
    Press(KEY_SOFT_3, 5);
    // Without entries the position stays; without their count it is lost.
    for (const auto& [operation, first] :
         {std::pair{"ALARMSINTERFACE_getActiveAlarms", 2U}, {"ALARMSINTERFACE_getActiveAlarmStats", 0U}}) {
        meter().Fail(operation);
        Ticks(21);
        EXPECT_TRUE(PanelShows("alarms/active_empty")) << operation;
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), 7) << "nothing is selected";
        meter().Recover();
        Ticks(20);
        EXPECT_EQ(asked, (Range{first, 4})) << "the next refresh recovers";
    }
    Press(KEY_SOFT_3, 9);
    Show(9);
    EXPECT_EQ(asked, (Range{0, 4})) << "each list has a position of its own";
    Show(7);
    Ticks(kTicksPerSecond);
    EXPECT_EQ(asked, (Range{6, 4}));
    for (const auto& [count, page] : {std::pair{7U, Range{3, 4}}, {4U, Range{0, 4}}, {2U, Range{0, 2}}}) {
        Fill(count);
        Ticks(20);
        EXPECT_EQ(asked, page);
    }
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("alarms/detail_of_the_last_of_two")) << "the selection has moved up to what is there";
    AlarmStats stats{};
    stats.count.Set(0xFFFFFFFF);
    meter().Answer("ALARMSINTERFACE_getActiveAlarmStats", stats);
    Show(7);
    Press(KEY_SOFT_3, 4);
    EXPECT_EQ(asked, (Range{2, 4})) << "whatever is counted";
}

TEST_F(AlarmScreens, ShowOneAlarmInFullAndReturn) {
    Show(8);
    EXPECT_TRUE(PanelShows("alarms/detail_of_none"));
    Fill(10);
    Show(9);
    EXPECT_TRUE(PanelShows("alarms/past_ten"));
    for (const auto& [list, steps, acknowledge, name] : {std::tuple{7, 0, "ALARMSINTERFACE_ackActiveAlarms", "active"},
                                                         {9, 3, "ALARMSINTERFACE_ackHistoricalAlarms", "past"}}) {
        Show(list);
        meter().ForgetCalls();
        Press(KEY_SOFT_2_3);
        EXPECT_EQ(meter().Calls(acknowledge), 1);
        Press(KEY_SOFT_3, steps);
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), list + 1);
        meter().ForgetCalls();
        Ticks(41);
        EXPECT_EQ(meter().Calls("ALARMSINTERFACE_getActiveAlarms"), 0) << "a detail screen asks for nothing";
        EXPECT_TRUE(PanelShows(std::string("alarms/detail_") + name));
        Press(KEY_SOFT_1);
        EXPECT_EQ(Shown(), list);
    }
}

TEST_F(AlarmScreens, CountDurationsInDaysAndWrapAround) {
    for (const auto& [seconds, name] : {std::pair{86399U, "just_below_a_day"},
                                        {86400U, "a_day"},
                                        {0U - 1U, "a_second_less_than_nothing"},
                                        {0U - 90061U, "a_day_less_than_nothing"}}) {
        alarms = {Alarm("Overvoltage L1", 3, seconds, true)};
        Show(9);
        Press(KEY_SOFT_4);
        EXPECT_TRUE(PanelShows(std::string("alarms/duration_") + name));
    }
}

TEST_F(AlarmScreens, CutTextsWithoutEndInTheDetails) {
    AlarmEntry endless = Alarm("", 0xFFFF, 0xFFFFFFFF, true);
    endless.name.fill('W');
    endless.qualifier.fill('W');
    endless.startDate.fill('8');
    endless.endDate.fill('8');
    endless.endTime.fill('8');
    endless.startTime.fill('8');
    endless.value.fill('8');
    alarms.assign(500, endless);
    for (const std::int32_t screen : {7, 9}) {
        Show(screen);
        Press(KEY_SOFT_4);
        EXPECT_TRUE(PanelShows("alarms/endless_texts_" + std::to_string(screen + 1)));
    }
}

TEST_F(AlarmScreens, AreOnlyCreatedForTheirOwnNumbers) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(CreateActiveAlarmList(100), nullptr);
    EXPECT_EQ(CreateAlarmDetail(100), nullptr);
    EXPECT_EQ(CreateAlarmDetail(7), nullptr);
    ASSERT_NE(CreateActiveAlarmList(7), nullptr);
    Fill(1);
    Show(7);
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 7);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\nFailed to add active alarm list screen\n"
              "\nFailed to add alarm detail screen\n"
              "\nInvalid detail screen ID\n"
              "No detail screen has been associated to the current screen.");
}

}  // namespace
