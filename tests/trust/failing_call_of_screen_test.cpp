#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <random>

#include "tests/trust/failing_stage.h"
#include "tests/trust/trial.h"
#include "tests/trust/visit.h"

// While a screen is entered and refreshes itself twice, one of the display's calls to its operating system fails. With
// EVERY_CASE in the environment each of them does, one after another; without, a few of each screen, so that each kind
// of call fails on many screens.

namespace {

constexpr std::size_t kSampledCalls = 3;  // of a screen
constexpr unsigned kTimeLimit = 600;      // seconds, for all calls of a screen
constexpr int kGroups = 4;

/// Which calls of a screen are to fail: one of each of some kinds, with other kinds for other screens.
std::vector<std::size_t> Chosen(const std::vector<std::string>& calls, int screen) {
    std::map<std::string, std::vector<std::size_t>> kinds;
    for (std::size_t number = 0; number < calls.size(); ++number) kinds[calls[number]].push_back(number);
    std::mt19937 random(static_cast<unsigned>(screen));
    std::vector<std::size_t> chosen;
    for (const auto& [kind, numbers] : kinds) chosen.push_back(numbers[random() % numbers.size()]);
    std::ranges::shuffle(chosen, random);
    chosen.resize(std::min(chosen.size(), kSampledCalls));
    return chosen;
}

std::vector<std::size_t> All(std::size_t count) {
    std::vector<std::size_t> all(count);
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

/// Enters the screen with a call failing. @return the calls
std::vector<std::string> Enter(FailingStage& stage, Visit& visit, std::optional<std::size_t> failing) {
    visit.Leave();
    stage.FailCall(failing);
    GoTo(stage, visit.Screen());
    const auto calls = stage.Calls();
    stage.FailCall(std::nullopt);
    return calls;
}

/// @return how many calls failed, and what is wrong two refreshes later
std::string FailCallsOf(FailingStage& stage, int screen) {
    stage.StartDisplay();
    Visit visit(stage, screen);
    if (!visit.IsThere()) return "0";
    const auto calls = Enter(stage, visit, std::nullopt);
    const bool every = std::getenv("EVERY_CASE") != nullptr;
    const auto numbers = every ? All(calls.size()) : Chosen(calls, screen);
    std::string wrong;
    for (const std::size_t number : numbers) {
        Enter(stage, visit, number);
        stage.Run(kTwoRefreshes);
        const std::string complaint = visit.Complaint();
        if (!complaint.empty())
            wrong += "; after " + std::to_string(number) + ", " + calls[number] + ", it" + complaint;
    }
    return std::to_string(numbers.size()) + wrong;
}

class FailingCallOfScreen : public testing::TestWithParam<int> {};

TEST_P(FailingCallOfScreen, LeavesNothingBehind) {
    FailingStage stage;
    int screens = 0;
    unsigned long calls = 0;
    for (int screen = SCREEN_ID_FACTORY_TEST + GetParam(); screen <= kLastCommandedScreen; screen += kGroups) {
        if (screen < 0 && screen != SCREEN_ID_FACTORY_TEST) continue;
        const Verdict verdict = Try([&] { return FailCallsOf(stage, screen); }, kTimeLimit);
        EXPECT_EQ(verdict.death, "") << "screen " << screen;
        EXPECT_EQ(verdict.report.find(';'), std::string::npos) << "screen " << screen << ": " << verdict.report;
        const unsigned long failed = std::strtoul(verdict.report.c_str(), nullptr, 10);
        screens += failed > 0 ? 1 : 0;
        calls += failed;
    }
    EXPECT_GT(screens, 40);
    std::printf("%lu calls of %d screens\n", calls, screens);
}

INSTANTIATE_TEST_SUITE_P(Group, FailingCallOfScreen, testing::Range(0, kGroups));

}  // namespace
