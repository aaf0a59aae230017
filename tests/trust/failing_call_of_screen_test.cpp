#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <utility>

#include "navigation/navigation_handler.h"
#include "tests/trust/failing_stage.h"
#include "tests/trust/trial.h"

// While a screen is entered and refreshes itself twice, one of the display's calls to its operating system fails. With
// EVERY_CALL in the environment each of them does, one after another; without, a few of each screen, so that each kind
// of call fails on many screens.

namespace {

constexpr session::Instant kTwoRefreshes = 2000;
constexpr session::Instant kGlance = 250;
constexpr session::Instant kAllPages = 120'000;  // of a screen that turns its pages by itself
constexpr int kElsewhere = 25;
constexpr int kElsewhereFromThere = 28;
constexpr std::size_t kSampledCalls = 3;  // of a screen
constexpr unsigned kTimeLimit = 600;      // seconds, for all calls of a screen

void GoTo(Stage& stage, int screen) {
    if (screen == SCREEN_ID_FACTORY_TEST) {
        navigationHandlerClass::postDispTest();
    } else {
        navigationHandlerClass::postNavigateTo(static_cast<std::uint32_t>(screen));
    }
    stage.Run(kTwoRefreshes);
}

/// One screen of a display that is up.
class Entering {
public:
    Entering(FailingStage& stage, int screen) : m_stage(stage), m_screen(screen) {
        m_stage.StartDisplay();
        Enter(std::nullopt);
        m_calls = m_stage.Calls();
        Watch(2 * kTwoRefreshes);
        m_liveliness = Liveliness();
    }

    bool IsThere() const { return Stage::ShownScreen() == m_screen; }
    const std::vector<std::string>& Calls() const { return m_calls; }

    /// @return what is wrong two refreshes after the screen was asked for again; empty: nothing
    std::string Fail(std::size_t number) {
        Enter(number);
        const std::string call = number < m_stage.Calls().size() ? m_stage.Calls()[number] : "none";
        m_stage.FailCall(std::nullopt);
        if (IsReadOnce()) GoTo(m_stage, kElsewhere);
        GoTo(m_stage, m_screen);
        std::string wrong;
        if (!IsThere()) wrong += " is not shown";
        if (!IsKnown(m_stage.Picture())) wrong += " looks different";
        if (Liveliness() < m_liveliness - 1) wrong += " does not ask the meter";
        return wrong.empty() ? wrong : "; after " + std::to_string(number) + ", " + call + ", it" + wrong;
    }

private:
    void Enter(std::optional<std::size_t> failing) {
        GoTo(m_stage, m_screen == kElsewhere ? kElsewhereFromThere : kElsewhere);
        m_stage.FailCall(failing);
        GoTo(m_stage, m_screen);
    }
    /// Collects what the screen looks like.
    void Watch(session::Instant duration) {
        for (session::Instant time = 0; time < duration; time += kGlance) {
            m_pictures.insert(m_stage.Picture());
            m_stage.Run(kGlance);
        }
    }
    bool IsKnown(const std::string& picture) {
        if (!m_pictures.contains(picture)) Watch(std::exchange(m_moreToWatch, 0));
        return m_pictures.contains(picture);
    }
    /// Whether the screen reads the setting that it changes only when it is entered.
    bool IsReadOnce() const {
        return navigationHandlerClass::getInstance().getScreenKind(m_screen) == SCREEN_KIND_SETUP_EDIT;
    }
    /// How often the meter is asked in two refreshes.
    int Liveliness() {
        m_stage.FailCall(std::nullopt);
        m_stage.Run(kTwoRefreshes);
        return static_cast<int>(std::ranges::count(m_stage.Calls(), "send"));
    }

    FailingStage& m_stage;
    int m_screen;
    std::vector<std::string> m_calls;
    std::set<std::string> m_pictures;
    session::Instant m_moreToWatch = kAllPages;
    int m_liveliness = 0;
};

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
    for (std::size_t number = 0; number < count; ++number) all[number] = number;
    return all;
}

/// @return how many calls failed, and what is wrong
std::string FailCallsOf(FailingStage& stage, int screen) {
    Entering entering(stage, screen);
    if (!entering.IsThere()) return "0";
    const bool every = std::getenv("EVERY_CALL") != nullptr;
    const auto numbers = every ? All(entering.Calls().size()) : Chosen(entering.Calls(), screen);
    std::string wrong;
    for (const std::size_t number : numbers) wrong += entering.Fail(number);
    return std::to_string(numbers.size()) + wrong;
}

constexpr int kGroups = 4;

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
