#include <set>

#include "app/application.h"
#include "localization/display_config.h"
#include "peg/resources/resources.h"
#include "screens/base/screen_info_table.h"
#include "setup/view/setup_view_table.h"
#include "simulator/bench/meter_texts.h"
#include "tests/bench/test_on.h"

namespace {

/// What all screens that show values have in common.
class EveryDataScreen : public PanelTest {
protected:
    EveryDataScreen() { BuildApplication(Manager()); }

    ::testing::AssertionResult Looks(const std::string& state, std::int32_t screen) {
        return PanelShows("every/" + state + "_" + std::to_string(screen));
    }
    /// How each is when it is entered while the meter is in one state for all of them.
    void LooksAsItShould(const std::string& state) {
        for (const ScreenInfoRow& row : kScreenInfoRows) {
            Show(row.screen);
            EXPECT_TRUE(Looks(state, row.screen));
        }
    }
    /// The data screens, and the pages of settings.
    static std::vector<std::int32_t> ScreensOfValues() {
        std::vector<std::int32_t> screens;
        for (const ScreenInfoRow& row : kScreenInfoRows) screens.push_back(row.screen);
        for (const SetupViewRow& row : kSetupViewRows) screens.push_back(row.screen);
        return screens;
    }
};

TEST_F(EveryDataScreen, ShowsAMeterThatDoesNotAnswer) {
    meter().FallSilent();
    LooksAsItShould("failed");
}

TEST_F(EveryDataScreen, ShowsAMeterThatHasNothing) {
    EmptyEveryReply();
    LooksAsItShould("empty");
}

TEST_F(EveryDataScreen, ShowsTextsThatFillTheirFields) {
    meter().Model().Play(*meter::FindScenario("500-alarms"));
    meter().Model().Advance(1000);
    FillEveryText();
    LooksAsItShould("widest");
}

TEST_F(EveryDataScreen, IsEmptiedByAMeterThatFallsSilentAndRecovers) {
    for (const ScreenInfoRow& row : kScreenInfoRows) {
        Show(row.screen);
        EXPECT_TRUE(Looks("normal", row.screen));
        Ticks(1);
        meter().FallSilent();
        Ticks(kTicksPerSecond);
        EXPECT_TRUE(Looks("failed", row.screen));
        meter().Recover();
        Ticks(kTicksPerSecond);
        EXPECT_TRUE(Looks("normal", row.screen));
    }
}

using EveryScreenOfValues = EveryDataScreen;

TEST_F(EveryScreenOfValues, AsksForNothingTwiceInASecondAndDrawsOnlyWhatChanged) {
    std::multiset<std::string> asked;
    meter().Model().Play(*meter::FindScenario("500-alarms"));
    meter().Model().Advance(1000);
    meter().TakeEveryCall([&asked](std::string_view operation, auto payload, auto response) {
        asked.insert(std::string(operation).append(reinterpret_cast<const char*>(payload.data()), payload.size()));
        return meter().Model().Answer(operation, payload, response);
    });
    for (const std::int32_t screen : ScreensOfValues()) {
        Show(screen);
        Ticks(1);
        asked.clear();
        Screen().flushes = 0;
        Ticks(kTicksPerSecond);
        EXPECT_EQ(Screen().flushes, 0) << "screen " << screen;
        for (const std::string& call : asked) EXPECT_EQ(asked.count(call), 1U) << call << ", screen " << screen;
    }
}

TEST_F(EveryScreenOfValues, FollowsTheLanguageAsIfItHadJustBeenEntered) {
    constexpr std::uint32_t kLastLanguage = 5;
    constexpr std::uint32_t kLastLabels = 2;
    for (const std::int32_t screen : ScreensOfValues()) {
        Show(screen);
        DISPCFG_setLanguage(1 + static_cast<std::uint32_t>(screen) % kLastLanguage);
        DISPCFG_setPhaseLabels(kLastLabels);
        Ticks(2 * kTicksPerSecond);
        const auto followed = Frame();
        Show(SCREEN_ID_FACTORY_TEST);
        Show(screen);
        EXPECT_EQ(Frame(), followed) << "screen " << screen;
        DISPCFG_setLanguage(0);
        DISPCFG_setPhaseLabels(0);
    }
}

/// The same on a panel whose resource file is missing.
class WithoutResources : public PanelTest {};

TEST_F(WithoutResources, EveryDataScreenIsStillThere) {
    PegResources::Reset();
    BuildApplication(Manager());
    for (const bool silent : {false, true}) {
        if (silent) meter().FallSilent();
        for (const ScreenInfoRow& row : kScreenInfoRows) {
            Show(row.screen);
            EXPECT_EQ(Navigation().getCurrentScreenId(), row.screen);
        }
    }
}

}  // namespace
