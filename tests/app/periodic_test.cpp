#include "app/alarm_indicator.h"
#include "app/backlight.h"
#include "app/button_task.h"
#include "app/one_second_task.h"
#include "simulator/bench/hardware_double.h"
#include "tests/bench/test_on.h"
#include "tests/peg/recorder.h"

namespace {

using Levels = std::vector<int>;

/// The work of the one-second task and the button task, a second at a time.
class Periodic : public PanelTest {
protected:
    Periodic() {
        Navigation().addScreen(200, screen, SCREEN_KIND_DATA);
        Manager().AddChild(screen);
        Pump();
    }
    ~Periodic() override { Manager().RemoveChild(screen); }

    static void AlarmStatus(std::uint32_t status) { meter().Answer("ALARMSINTERFACE_getGlobalAlarmStatus", status); }
    void Seconds(int count) {
        for (int i = 0; i < count; ++i) {
            oneSecondUpdate();
            Pump();
        }
    }
    Levels TakeBrightness() { return std::exchange(Hardware().brightness, {}); }
    std::vector<int> Phases() const {
        std::vector<int> phases;
        for (const PegMessage& message : screen.received) {
            if (message.type == MSG_ALARM_STATUS) phases.push_back(message.param);
        }
        return phases;
    }

    Recorder screen{RectOf(0, 0, 319, 239)};
};

TEST_F(Periodic, BacklightDimsAfterTheTimeoutAndAKeyBringsItBack) {
    AlarmStatus(12);
    backlightSetTimeout(5);
    Seconds(4);
    EXPECT_EQ(TakeBrightness(), (Levels{100, 100}));
    Seconds(1);
    EXPECT_EQ(TakeBrightness(), Levels{25});
    Seconds(10);
    EXPECT_EQ(TakeBrightness(), Levels{});
    handleButtonEvent({kPanelKey, 0, 1, 0});
    EXPECT_EQ(TakeBrightness(), Levels{}) << "a release leaves it alone";
    handleButtonEvent({kPanelKey, 1, 1, 0});
    Seconds(5);
    EXPECT_EQ(TakeBrightness(), (Levels{100, 100, 25}));
}

TEST_F(Periodic, BacklightFlashesAfterTheTimeoutWhileTheStatusAsksForItAndStaysBrightWithoutOne) {
    AlarmStatus(0);
    backlightSetTimeout(2);
    Seconds(6);
    EXPECT_EQ(TakeBrightness(), (Levels{100, 100, 25, 100, 25, 100, 25}));
    AlarmStatus(12);
    backlightSetTimeout(0);
    Seconds(20);
    EXPECT_EQ(TakeBrightness(), Levels{100});
    AlarmStatus(0);
    for (const std::uint32_t timeout : {5U, 0U}) {
        backlightSetTimeout(timeout);
        Seconds(3);
    }
    EXPECT_EQ(TakeBrightness(), (Levels{100, 100, 100, 25})) << "a time that is taken away while it runs";
}

TEST_F(Periodic, BacklightStartsWithTheMetersTimeoutOrFiveMinutes) {
    meter().Answer("BACKLIGHTINTERFACE_getTimeout", std::uint32_t{3});
    AlarmStatus(12);
    backlightTimeoutInit();
    EXPECT_EQ(Hardware().backlight, 1);
    Seconds(3);
    EXPECT_EQ(TakeBrightness().back(), 25);
    meter().FallSilent();
    backlightTimeoutInit();
    meter().Recover();
    Seconds(299);
    EXPECT_EQ(TakeBrightness().back(), 100);
    Seconds(1);
    EXPECT_EQ(TakeBrightness().back(), 25);
}

TEST_F(Periodic, LampAndIconFollowTheAlarmStatus) {
    struct Expectation {
        std::vector<std::uint32_t> statuses;
        Levels lamp;
        std::vector<int> phases;  // of the icon
        bool flash = false;       // of the backlight
    };
    const Expectation expectations[] = {
        {{1, 4, 5, 6}, {1, 0, 1, 0}, {0, 1, 0, 1}},
        {{2, 3, 7}, {0, 0, 0, 0}, {1}},
        {{8, 9, 10, 11, 12}, {1, 1, 1, 1}, {1}},
        {{0, 77}, {1, 0, 1, 0}, {0, 1, 0, 1}, true},
    };
    for (const Expectation& expected : expectations) {
        for (const std::uint32_t status : expected.statuses) {
            backlightSetTimeout(1);
            AlarmStatus(status == 1 ? 2 : 1);
            Seconds(1);
            screen.received.clear();
            TakeBrightness();
            AlarmStatus(status);
            Levels lamp;
            for (int i = 0; i < 4; ++i) {
                Seconds(1);
                lamp.push_back(Hardware().lines[2]);
            }
            EXPECT_EQ(lamp, expected.lamp) << "status " << status;
            EXPECT_EQ(Phases(), expected.phases) << "status " << status;
            EXPECT_EQ(TakeBrightness().size() > 1, expected.flash) << "status " << status;
        }
    }
}

TEST_F(Periodic, EachNewScreenIsToldASteadyStatusAndASilentMeterIsAnUnacknowledgedAlarm) {
    AlarmStatus(2);
    Seconds(3);
    EXPECT_EQ(meter().Calls("DISPTSK_setVekTemperature"), 0) << "there is none to be reported";
    Recorder other(RectOf(0, 0, 319, 239));
    Navigation().addScreen(4, other, SCREEN_KIND_DATA);
    Navigation().navigateFromCurrent(4);
    Seconds(3);
    EXPECT_EQ(other.Count(MSG_ALARM_STATUS), 1);
    EXPECT_EQ(other.received.back().data[0], 2U);
    Navigation().navigateFromCurrent(200);
    Manager().RemoveChild(other);
    Seconds(1);
    meter().FallSilent();
    screen.received.clear();
    Seconds(2);
    EXPECT_EQ(Phases(), (std::vector{0, 1}));
    EXPECT_EQ(screen.received.back().data[0], 4U);
}

TEST_F(Periodic, KeysBecomeMessagesForTheShownScreen) {
    const std::pair<std::uint32_t, int> codes[] = {{0, 5004}, {1, 5000}, {2, 5001}, {3, 5002}, {4, 5003}, {5, 5005}};
    for (const auto& [index, code] : codes) {
        EXPECT_EQ(handleButtonEvent({kPanelKey, 1, index, 0}), 1);
        Pump();
        EXPECT_EQ(screen.received.back().type, MSG_KEY_DOWN);
        EXPECT_EQ(screen.received.back().param, code);
    }
    handleButtonEvent({kSimulatedInput, 0, 11, 22});
    Pump();
    EXPECT_EQ(screen.received.back().type, MSG_KEY_UP);
    EXPECT_EQ(screen.received.back().param, KEY_SIMULATED);
    EXPECT_EQ(screen.received.back().data[1], 22U);
    const std::size_t before = screen.received.size();
    EXPECT_EQ(handleButtonEvent({kPanelKey, 1, 6, 0}), 0);
    EXPECT_EQ(handleButtonEvent({7, 1, 1, 0}), 0);
    Pump();
    EXPECT_EQ(screen.received.size(), before);
}

}  // namespace
