#include "tests/trust/bad_meter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "tests/trust/trial.h"
#include "tests/trust/visit.h"

// Every misdeed of a meter while every screen is entered, stays, is worked on with keys, and is left. With EVERY_CASE
// in the environment all cells of that table, without, a choice of the screens, another one for each misdeed.

namespace {

constexpr session::Instant kEntering = 5000;
constexpr session::Instant kStaying = 10'000;
constexpr session::Instant kBetweenKeys = 300;
constexpr int kSampledScreens = 16;
constexpr unsigned kTimeLimit = 60;  // seconds of a screen

/// Two refreshes after the misdeed the screen is as it was before.
std::string EnterAndStay(BadMeterStage& stage, Visit& visit, const Misdeed& misdeed) {
    visit.Leave();
    stage.Begin(misdeed);
    GoTo(stage, visit.Screen());
    stage.Run(kEntering + kStaying);
    stage.End();
    stage.Run(misdeed.grace + kTwoRefreshes);
    const std::string complaint = visit.Complaint();
    return complaint.empty() ? complaint : "; after it was entered, it" + complaint;
}

/// Whatever the keys did, the next screen is a live one.
std::string WorkAndLeave(BadMeterStage& stage, Visit& visit, Visit& elsewhere, const Misdeed& misdeed) {
    stage.Begin(misdeed);
    for (const char* key : {"soft3", "soft4", "soft1", "soft2", "soft23", "soft4", "home", "soft4", "home"}) {
        stage.Execute("press " + std::string(key));
        stage.Run(kBetweenKeys);
    }
    visit.Leave();
    stage.End();
    stage.Run(misdeed.grace + kTwoRefreshes);
    const std::string complaint = elsewhere.Complaint();
    return complaint.empty() ? complaint : "; after it was left, the next one" + complaint;
}

/// @return "none" where there is no such screen, or what is wrong
std::string Suffer(BadMeterStage& stage, int screen, const Misdeed& misdeed) {
    stage.StartDisplay();
    Visit visit(stage, screen);
    if (!visit.IsThere()) return "none";
    Visit elsewhere(stage, visit.Elsewhere());
    const std::string entered = EnterAndStay(stage, visit, misdeed);
    return entered + WorkAndLeave(stage, visit, elsewhere, misdeed);
}

class BadMeter : public testing::TestWithParam<std::size_t> {
protected:
    static std::vector<int> Screens() {
        std::vector<int> screens{SCREEN_ID_FACTORY_TEST};
        for (int screen = 0; screen <= kLastCommandedScreen; ++screen) screens.push_back(screen);
        if (std::getenv("EVERY_CASE") != nullptr) return screens;
        std::ranges::shuffle(screens, std::mt19937(static_cast<unsigned>(GetParam())));
        screens.resize(kSampledScreens);
        return screens;
    }
};

TEST_P(BadMeter, LeavesEveryScreenAsItWas) {
    const Misdeed& misdeed = kMisdeeds[GetParam()];
    BadMeterStage stage;
    int count = 0;
    for (const int screen : Screens()) {
        const Verdict verdict = Try([&] { return Suffer(stage, screen, misdeed); }, kTimeLimit);
        EXPECT_EQ(verdict.death, "") << misdeed.name << ", screen " << screen;
        if (verdict.report == "none") continue;
        EXPECT_EQ(verdict.report, "") << misdeed.name << ", screen " << screen;
        ++count;
    }
    EXPECT_GT(count, kSampledScreens / 2);
    std::printf("%s: %d screens\n", misdeed.name.data(), count);
}

INSTANTIATE_TEST_SUITE_P(Misdeed, BadMeter, testing::Range(std::size_t{0}, kMisdeeds.size()));

}  // namespace
