#include <cstdlib>

#include "app/display_resources.h"
#include "app/one_second_task.h"
#include "app/startup_screen.h"
#include "peg/core/timer_list.h"
#include "simulator/bench/allocation_count.h"
#include "simulator/bench/hardware_double.h"
#include "tests/bench/test_on.h"

namespace {

constexpr long kHours = 48;  // unless LONG_RUN_HOURS says otherwise
constexpr int kSecondsPerHour = 3600;
constexpr int kMinutesPerHour = 60;
constexpr int kSilentMinute = 30;  // of each hour
constexpr std::uint32_t kJustBeforeTheWrap = 0xFFFFFFFF - 20;
constexpr std::int64_t kMillisecondsPerSecond = 1000;
constexpr std::int32_t kEventLog = 69;

/// The display for a long time, from a second before its tick counter wraps: it comes up, and then shows a screen for a
/// minute each and sees its keys pressed. For a minute of each hour the meter is silent. Time is ticks.
class LongRun : public PanelTest {
protected:
    LongRun() {
        delete toolkit.timers;
        toolkit.timers = new PegTimerList(kJustBeforeTheWrap);
        Hardware().brightness.reserve(kSecondsPerHour);  // what the double notes is not the display's
    }

    void ComeUp() {
        loadDisplayResources(reinterpret_cast<std::intptr_t>(&Manager()));
        Pump();
        Ticks(2 * kTicksPerSecond - 1);
        EXPECT_EQ(Manager().FirstChild(), &startupScreen::getInstance()) << "the wrap has shortened the two seconds";
        Ticks(1);
        ASSERT_EQ(Manager().FirstChild(), Navigation().getStartScreen());
        EXPECT_LT(timerTickCount(), kJustBeforeTheWrap);
        for (std::int32_t id = 1; id <= kLastCommandedScreen; ++id) {
            if (Navigation().getScreenKind(id) != SCREEN_KIND_MENU) m_screens.push_back(id);
        }
    }

    void PassAnHour() {
        for (int minute = 0; minute < kMinutesPerHour; ++minute) {
            if (minute == kSilentMinute) meter().FallSilent();
            Show(m_screens[m_next++ % m_screens.size()]);
            Ticks(kTicksPerSecond);  // the screen begins its seconds
            for (int second = 1; second < kSecondsPerHour / kMinutesPerHour; ++second) PassASecond();
            for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2, KEY_SOFT_4, KEY_SOFT_1}) Press(key);
            meter().Recover();
            Hardware().brightness.clear();
        }
    }

    const char* const asked = std::getenv("LONG_RUN_HOURS");
    const long hours = asked != nullptr ? std::strtol(asked, nullptr, 10) : kHours;
    long missed = 0;   // seconds in which a screen did not refresh itself
    long tooMany = 0;  // or more than once

private:
    void PassASecond() {
        {
            const AllocationPause theMetersOwn;
            meter().ForgetCalls();
            meter().Model().Advance(kMillisecondsPerSecond);
        }
        const std::int32_t shown = Navigation().getCurrentScreenId();
        oneSecondUpdate();
        Ticks(kTicksPerSecond);
        const bool stayed = shown == Navigation().getCurrentScreenId();
        if (!stayed || Navigation().getScreenKind(shown) != SCREEN_KIND_DATA) return;
        const int refreshes = meter().Calls("DATETIMEINTERFACE_getLocalDateTimeStrings");
        const bool isAlive = meter().Calls("DISPTASK_nop") != 0;  // what a screen does under its open options menu
        missed += refreshes == 0 && !isAlive ? 1 : 0;
        tooMany += refreshes > 1 ? 1 : 0;
    }

    std::vector<std::int32_t> m_screens;
    std::size_t m_next = 0;
};

TEST_F(LongRun, NeitherGrowsNorDriftsNorMissesARefresh) {
    Screen().blind = true;
    ComeUp();
    for (int hour = 0; hour < 4; ++hour) PassAnHour();  // every screen has been there
    EXPECT_EQ(missed, 0);
    missed = tooMany = 0;
    const long before = AllocationCount::taken;
    for (long hour = 0; hour < hours && !HasFailure(); ++hour) {
        PassAnHour();
        EXPECT_EQ(missed, 0) << "in hour " << hour;
        EXPECT_EQ(tooMany, 0) << "in hour " << hour;
        EXPECT_EQ(AllocationCount::taken, before) << "in hour " << hour;
    }
    std::printf("%ld hours, %.0f days\n", hours, static_cast<double>(hours) / 24.0);
}

TEST_F(LongRun, KnowsTheYears2038And2106) {
    ComeUp();
    for (const auto& [year, lastSecond] : {std::pair{"2038", 0x7FFFFFFFLL}, {"2106", 0xFFFFFFFFLL}}) {
        meter().Model() = meter::Meter(1, (lastSecond - 5) * kMillisecondsPerSecond);
        for (int second = 0; second < 10; ++second) meter().Model().Advance(kMillisecondsPerSecond);
        Show(kEventLog);
        Ticks(kTicksPerSecond);
        EXPECT_TRUE(PanelShows(std::string("clock/events_") + year));
    }
}

}  // namespace
