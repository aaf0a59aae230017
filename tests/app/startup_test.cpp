#include "app/display_resources.h"
#include "app/startup_screen.h"
#include "simulator/bench/hardware_double.h"
#include "simulator/bench/task_double.h"
#include "tests/bench/test_on.h"

namespace {

/// The start-up screen on the panel, with a meter that may not be there.
class Startup : public PanelTest {
protected:
    void Start() {
        loadDisplayResources(reinterpret_cast<std::intptr_t>(&Manager()));
        Pump();
    }
    static bool IsSplashShown() { return Manager().FirstChild() == &startupScreen::getInstance(); }
    void Release(KeyCode key) {
        startupScreen::getInstance().Message(MessageOf(MSG_KEY_UP, key));
        Pump();
    }
};

TEST_F(Startup, ShowsTheSplashFortyTicksAndHandsOver) {
    Start();
    EXPECT_TRUE(PanelShows("startup/splash"));
    EXPECT_EQ(meter().ConnectionAttempts(), 1);
    Ticks(39);
    EXPECT_TRUE(IsSplashShown());
    EXPECT_TRUE(Tasks().asked.empty());
    Ticks(1);
    EXPECT_EQ(Manager().FirstChild(), Navigation().getStartScreen());
    EXPECT_EQ(Manager().FirstChild()->Next(), nullptr);
    EXPECT_EQ(Hardware().backlight, 1);
    EXPECT_EQ(Hardware().lines[0], 0);
    EXPECT_EQ(Hardware().lines[1], 1);
    EXPECT_TRUE(PanelShows("startup/first_screen"));
    constexpr int kFloatingPoint = 0x1000000;
    EXPECT_EQ(Tasks().asked, (std::vector<AskedTask>{{"tDispRdaServer", 194, kFloatingPoint, 4096, true},
                                                     {"tDispButtons", 80, kFloatingPoint, 4096, true},
                                                     {"tDispOneSecond", 194, kFloatingPoint, 4096, true}}));
}

TEST_F(Startup, BuildsTheApplicationEvenWhenNoTaskCanBeCreated) {
    Tasks().refuse = true;
    testing::internal::CaptureStdout();
    Start();
    Ticks(40);
    const std::string console = testing::internal::GetCapturedStdout();
    EXPECT_NE(console.find("PEG Command Server: Failed to create task: tDispRdaServerd\n"), std::string::npos);
    EXPECT_EQ(console.find("Task activate"), std::string::npos);
    EXPECT_EQ(Manager().FirstChild(), Navigation().getStartScreen());
}

TEST_F(Startup, HandsOverAtOnceWhenTheMeterComesLate) {
    meter().RefuseConnections(true);
    Start();
    Ticks(100);
    EXPECT_EQ(meter().ConnectionAttempts(), 6);
    meter().RefuseConnections(false);
    Release(KEY_SOFT_1);
    EXPECT_TRUE(IsSplashShown()) << "a key does nothing while connecting";
    Ticks(20);
    EXPECT_FALSE(IsSplashShown());
}

TEST_F(Startup, IsCutShortBySoftKey1OnceConnected) {
    Start();
    Release(KEY_SOFT_2);
    EXPECT_TRUE(IsSplashShown());
    Release(KEY_SOFT_1);
    EXPECT_FALSE(IsSplashShown());
}

TEST_F(Startup, GivesUpAfterSixtyTwoAttempts) {
    meter().RefuseConnections(true);
    testing::internal::CaptureStdout();
    Start();
    Ticks(61 * 20);
    EXPECT_EQ(meter().ConnectionAttempts(), 62);
    Ticks(1000);
    EXPECT_EQ(meter().ConnectionAttempts(), 62);
    const std::string console = testing::internal::GetCapturedStdout();
    const std::string line =
        "\nstartupScreen::Message - could not connect to meterbase. Integrated unit so do nothing.\n";
    EXPECT_NE(console.find(line), std::string::npos);
    EXPECT_EQ(console.find(line), console.rfind(line));
    EXPECT_TRUE(IsSplashShown());
}

}  // namespace
