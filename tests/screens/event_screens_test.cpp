#include "screens/events/event_screens.h"

#include <cstring>
#include <deque>

#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

EventLogEntry Event(std::string_view source, std::string_view description = "Setting changed",
                    std::string_view date = "2025-06-15", std::string_view time = "17:06:40") {
    EventLogEntry entry{};
    Write(entry.date, date);
    Write(entry.time, time);
    Write(entry.source, source);
    Write(entry.description, description);
    return entry;
}

/// A meter whose log holds what the test puts into `log`, newest first.
class EventScreens : public PanelTest {
protected:
    EventScreens() {
        meter().AnswerFrom("EVLIF_getEventLogEntryCount", [this](auto&) { return log.size(); });
        meter().AnswerFrom("EVLIF_getEventLogData", [this](const auto& range) {
            asked = {range[0], range[1]};
            return std::vector(log.begin() + std::min<std::ptrdiff_t>(asked[0], std::ssize(log)), log.end());
        });
        CreateCustomScreens();  // the screen to start from is among them
        CreateEventScreens();
    }
    void Log(int count) {
        for (int i = 0; i < count; ++i) log.push_front(Event("Event " + std::to_string(++logged)));
    }

    std::deque<EventLogEntry> log;
    int logged = 0;
    std::array<std::uint32_t, 2> asked{};  // first and count of the last page
};

using Range = std::array<std::uint32_t, 2>;

TEST_F(EventScreens, ListTheLogAsTheyShould) {
    Show(69);
    EXPECT_TRUE(PanelShows("events/empty"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 69) << "there is no event to show";
    Log(4);
    Ticks(20);
    log.clear();
    logged = 0;
    Log(2);
    Ticks(21);
    EXPECT_TRUE(PanelShows("events/two")) << "nothing of the rows that the log has lost";
    Log(8);
    Ticks(20);
    EXPECT_TRUE(PanelShows("events/ten"));
    for (const char* failing : {"EVLIF_getEventLogEntryCount", "EVLIF_getEventLogData"}) {
        meter().Fail(failing);
        Ticks(20);
        EXPECT_TRUE(PanelShows("events/empty")) << failing;
        meter().Recover();
        Ticks(20);
        EXPECT_TRUE(PanelShows("events/ten")) << failing;
    }
    Press(KEY_SOFT_3, 9);
    EXPECT_EQ(asked, (Range{6, 4}));
    EXPECT_TRUE(PanelShows("events/at_the_bottom"));
    meter().ForgetCalls();
    Press(KEY_SOFT_3);
    EXPECT_EQ(meter().Calls("EVLIF_getEventLogData"), 0);
    Press(KEY_SOFT_2, 4);
    EXPECT_EQ(asked, (Range{5, 4}));
    Press(KEY_SOFT_3, 3);
    meter().Fail("EVLIF_getEventLogData");
    Press(KEY_SOFT_3);
    meter().Recover();
    Ticks(21);
    EXPECT_EQ(asked, (Range{6, 4})) << "a step that failed";
}

TEST_F(EventScreens, FollowNewEventsAtTheTopAndHoldStillFurtherDown) {
    Log(10);
    Show(69);
    Log(1);
    Ticks(21);
    EXPECT_EQ(asked, (Range{0, 4}));
    Press(KEY_SOFT_3, 5);
    EXPECT_EQ(asked, (Range{2, 4}));
    ASSERT_TRUE(PanelShows("events/scrolled_two_down"));
    Log(1);
    Ticks(20);
    EXPECT_EQ(asked, (Range{3, 4}));
    Log(200);
    Ticks(20);
    EXPECT_EQ(asked, (Range{203, 4}));
    log.resize(50);
    Ticks(20);
    EXPECT_EQ(asked, (Range{46, 4})) << "the page stays full";
}

TEST_F(EventScreens, LeadWithTheDescriptionOfWhatThePanelOrTheFactoryLogged) {
    meter().Answer("EVLIF_getFrontPanelModuleName", std::to_array("Front panel"));
    meter().Answer("EVLIF_getFactoryModuleName", std::to_array("Factory"));
    log = {Event("Front panel", "Language: German"), Event("Factory", "Calibrated"), Event("Meter", "Power up"),
           Event("Front panels", "Another")};
    Show(69);
    EXPECT_TRUE(PanelShows("events/modules"));
    meter().AnswerBy("EVLIF_getFactoryModuleName", [](auto, auto response) {
        std::memcpy(response.data(), "Factory", 7);
        return false;  // the reply broke off
    });
    Ticks(21);
    EXPECT_TRUE(PanelShows("events/modules_without_factory"));
    EXPECT_EQ(meter().LastArgument("EVLIF_getFrontPanelModuleName"), 40U);
}

TEST_F(EventScreens, LeaveOutAnInstantWithoutEndAndCutOtherTexts) {
    log.assign(4, Event("Longer than any to come"));
    Show(69);
    log = {Event("Time of 12", "x", "2025-06-15", "05:06:40 PM!"), Event("Date of 11", "x", "2025-06-15!"),
           Event("Time of 11", "x", "2025-06-15", "05:06:40 PM"), Event("No time", "x", "2025-06-15", "")};
    Ticks(21);
    EXPECT_TRUE(PanelShows("events/instants"));
    EventLogEntry endless{};
    endless.date.fill('8');
    endless.time.fill('8');
    endless.source.fill('W');
    endless.description.fill('w');
    log.assign(500, endless);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("events/endless_texts_detail"));
}

TEST_F(EventScreens, StepThroughTheLogAndReturnToTheEventOnView) {
    Log(20);
    Show(69);
    Press(KEY_SOFT_3, 6);
    Press(KEY_SOFT_2);
    EXPECT_EQ(asked, (Range{3, 4}));
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), 70);
    EXPECT_EQ(asked, (Range{5, 1}));
    Press(KEY_SOFT_3, 3);
    Ticks(41);
    EXPECT_EQ(asked, (Range{8, 1}));
    EXPECT_TRUE(PanelShows("events/detail_between"));
    Press(KEY_SOFT_1);
    Ticks(41);
    EXPECT_EQ(asked, (Range{8, 4})) << "once is enough";
    EXPECT_TRUE(PanelShows("events/returned"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(asked, (Range{8, 1})) << "the event last viewed is selected";
    Press(KEY_SOFT_3, 30);
    EXPECT_EQ(asked, (Range{19, 1}));
    EXPECT_TRUE(PanelShows("events/detail_oldest"));
    Press(KEY_SOFT_1);
    EXPECT_EQ(asked, (Range{16, 4}));
    Press(KEY_SOFT_4);
    EXPECT_EQ(asked, (Range{19, 1}));
    Press(KEY_SOFT_2, 30);
    EXPECT_EQ(asked, (Range{0, 1}));

    Press(KEY_SOFT_1);
    Press(KEY_SOFT_4);
    Press(KEY_SOFT_3, 3);
    Press(KEY_SOFT_1);
    EXPECT_EQ(asked, (Range{0, 4})) << "the event is on the page at the top";
    EXPECT_TRUE(PanelShows("events/returned_to_the_top"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(asked, (Range{3, 1}));
    Press(KEY_SOFT_3, 3);
    meter().FallSilent();
    Press(KEY_SOFT_1);
    Ticks(41);
    meter().Recover();
    Ticks(20);
    EXPECT_EQ(asked, (Range{6, 4})) << "when the meter answers again";
}

TEST_F(EventScreens, AreOnlyCreatedForTheirOwnNumbers) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(CreateEventList(100), nullptr);
    EXPECT_EQ(CreateEventDetail(100), nullptr);
    EXPECT_NE(CreateEventDetail(70), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\nFailed to add active alarm list screen\n"
              "\nFailed to add alarm detail screen\n"
              "!!!ERROR!!! eventDetails_listController_p is a static pointer and has already been initialized!!!!\n");
}

}  // namespace
