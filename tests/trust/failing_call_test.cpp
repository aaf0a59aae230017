#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <sstream>

#include "peg/resources/resources.h"
#include "tests/bench/trial.h"
#include "tests/trust/visit.h"

// Of the display's calls to its operating system, the k-th one fails: while it comes up, while a screen is entered and
// refreshes itself twice, and while a command is answered. And all calls of one kind fail for a while.

namespace {

constexpr std::uint16_t kFirstResourceFont = 32;
constexpr std::size_t kSampledCalls = 3;  // of a screen, unless EVERY_CASE is in the environment
constexpr int kGroups = 4;                // of screens
constexpr unsigned kTimeLimit = 600;      // seconds, for all calls of a screen
constexpr unsigned kShortLimit = 20;      // for a kind, or for those of a command
constexpr std::string_view kQuestion = "hardware-id";

/// What the display cannot do for good after a call failed while it came up.
enum Loss : unsigned {
    Nothing = 0,
    Everything = 1,  // there is no toolkit
    HandOver = 2,    // the splash stays
    Server = 4,
    Keys = 8,
    Lamp = 16,
    Lines = 32,  // that the hand-over drives
    Resources = 64,
    Texts = 128,
};

struct LossRow {
    std::string_view call;
    unsigned loss;
    std::string_view console;  // the line that tells of it
};
// What is lost is lost with its line on the console; a call without a row loses nothing.
// clang-format off
constexpr auto kLosses = std::to_array<LossRow>({
    {"msgQCreate",                   HandOver,   "PegInitialize: PegQueue msgQCreate failed\n"},
    {"sigaction USR1",               HandOver,   "Display timers: error creating timer! id=0\n"},
    {"sigaction PIPE",               Nothing,    "\nvuneip: failed to set broken pipe signal\n"},
    {"timer_create",                 HandOver,   "Display timers: error creating timer! id=0\n"},
    {"timer_settime",                HandOver,   "PegMessageQueue:Pop:  pegTimer start failed\n"},
    {"taskCreate tDispTimers",       HandOver,   "DISPTIMERS_init: Spawn of display timers task failed!\n"},
    {"taskActivate tDispTimers",     HandOver,   "PegMessageQueue:Pop:  pegTimer start failed\n"},
    {"taskCreate tPegThread",        Everything, "PegInitialize: Spawn of PegTaskMain failed\n"},
    {"taskActivate tPegThread",      Everything, "PegInitialize: Spawn of PegTaskMain failed\n"},
    {"taskCreate tDispRdaServer",    Server,     "PEG Command Server: Failed to create task: tDispRdaServerd\n"},
    {"taskActivate tDispRdaServer",  Server,     ""},
    {"taskCreate tDispButtons",      Keys,       ""},
    {"taskActivate tDispButtons",    Keys,       ""},
    {"taskCreate tDispOneSecond",    Lamp,       ""},
    {"taskActivate tDispOneSecond",  Lamp,       ""},
    {"open /rasGpio1/0",             Lines,      ""},
    {"ioctl /rasGpio1/0",            Lines,      ""},
    {"open /romfs/resources.pbr",    Resources,  "Failed to open file /romfs/resources.pbr\n"},
    {"read /romfs/resources.pbr",    Resources,  "Failed to load resource file /romfs/resources.pbr\n"},
    {"open /romfs/localization.dat", Texts,      ""},
    {"read /romfs/localization.dat", Texts,      ""},
    {"new",                          Texts,      ""},
    {"msgQSend",                     Nothing,    "EnqueueTaskMessage: msgQSend failed\n"},
});
// clang-format on

LossRow LossRowOf(std::string_view call) {
    const auto found = std::ranges::find(kLosses, call, &LossRow::call);
    return found != kLosses.end() ? *found : LossRow{call, Nothing, ""};
}

/// A stage that counts the display's calls, and fails the one of a number.
class FailingStage : public Stage {
public:
    using Stage::Stage;

    /// Does something with a call failing, if any. @return its calls
    std::vector<std::string> Fail(std::optional<std::size_t> number, const std::function<void()>& something) {
        std::vector<std::string> calls;
        fails = [&calls, number](session::OsCall, const std::string& call) {
            calls.push_back(call);
            return number == calls.size() - 1;
        };
        something();
        fails = nullptr;
        return calls;
    }
};

unsigned LossOf(Stage& stage) {
    if (stage.frames == 0) return Everything;
    if (!Stage::HasHandedOver()) return HandOver;
    unsigned loss = Nothing;
    if (!Stage::IsServing()) loss |= Server;
    const int lamp = stage.lampRequests;
    stage.Execute("press home");
    stage.Run(2 * kSecond);
    const bool isLit = stage.backlight.on && stage.backlight.level == panel::kBrightest;
    if (Stage::ShownScreen() != kCurrentMenu || !isLit) loss |= Keys;
    if (stage.lampRequests == lamp) loss |= Lamp;
    if (stage.ports[0].high != kLine1) loss |= Lines;
    if (PegResources::GetFont(kFirstResourceFont) == nullptr) loss |= Resources;
    if (!Stage::IsGerman()) loss |= Texts;
    return loss;
}

/// Starts the display with a call failing, and looks at what it can do.
/// @return pictures of one screen, where there are some, and what is wrong
std::string StartUp(FailingStage& stage, std::optional<std::size_t> failing, const LossRow& row) {
    const auto calls = stage.Fail(failing, [&stage] { stage.StartDisplay(); });
    stage.Run(3 * kSecond);
    const unsigned loss = LossOf(stage);
    std::string wrong = loss == row.loss ? "" : "; it lost " + std::to_string(loss);
    if (failing && calls.at(*failing) != row.call) wrong += "; this time it is " + calls[*failing];
    if (Console().find(row.console) == std::string::npos) wrong += "; it does not say: " + std::string(row.console);
    if ((loss & (Everything | HandOver)) != 0) return wrong;
    if (Stage::IsServing()) stage.Execute("send-language 1");  // the question for it may have failed
    stage.GoTo(kComparedScreen);
    return ((loss & Lamp) == 0 ? stage.FlashingPicture() : "") + wrong;
}

TEST(FailingCall, OfTheStartUpLosesWhatItIsForAndNothingElse) {
    FailingStage stage("de");
    stage.RaiseAnAlarm();
    std::istringstream calls(Try([&stage] {
        std::string lines;
        for (const std::string& call : stage.Fail({}, [&stage] { stage.StartDisplay(); })) lines += call + '\n';
        return lines;
    }));
    std::map<unsigned, std::string> pictures;  // by what of Resources and Texts is lost
    pictures[Nothing] = Try([&stage] { return StartUp(stage, {}, {}); });
    std::map<std::string, int> kinds;
    std::size_t number = 0;
    for (std::string call; std::getline(calls, call); ++number) {
        ++kinds[call];
        const LossRow row = LossRowOf(call);
        const std::string seen = Try([&] { return StartUp(stage, number, row); });
        EXPECT_EQ(seen.find(';'), std::string::npos) << "call " << number << ", " << call << seen;
        std::string& expected = pictures[row.loss & (Resources | Texts)];
        if (expected.empty()) expected = seen;
        EXPECT_TRUE(seen.empty() || seen == expected) << number << ", " << call;
    }
    for (const LossRow& row : kLosses) EXPECT_EQ(kinds.count(std::string(row.call)), 1U) << "nobody calls " << row.call;
    std::printf("%zu calls of %zu kinds\n", number, kinds.size());
}

/// Which calls of a screen are to fail: one of each of some kinds, with other kinds for other screens; or every call.
std::vector<std::size_t> Chosen(const std::vector<std::string>& calls, int screen) {
    const bool every = std::getenv("EVERY_CASE") != nullptr;
    std::map<std::string, std::vector<std::size_t>> kinds;
    for (std::size_t number = 0; number < calls.size(); ++number)
        kinds[every ? std::to_string(number) : calls[number]].push_back(number);
    std::mt19937 random(static_cast<unsigned>(screen));
    std::vector<std::size_t> chosen;
    for (const auto& [kind, numbers] : kinds) chosen.push_back(numbers[random() % numbers.size()]);
    std::ranges::shuffle(chosen, random);
    if (!every) chosen.resize(std::min(chosen.size(), kSampledCalls));
    return chosen;
}

/// @return how many calls failed, and what is wrong two refreshes later
std::string FailCallsOfScreen(FailingStage& stage, int screen) {
    stage.StartDisplay();
    Visit visit(stage, screen);
    if (!visit.IsThere()) return "0";
    const auto enter = [&](std::optional<std::size_t> failing) {
        visit.Leave();
        return stage.Fail(failing, [&visit] { visit.Enter(); });
    };
    const auto calls = enter({});
    const auto numbers = Chosen(calls, screen);
    std::string wrong;
    for (const std::size_t number : numbers) {
        enter(number);
        stage.Run(kTwoRefreshes);
        wrong += visit.ComplaintAfter(std::to_string(number) + ", " + calls[number]);
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
        const std::string report = Try([&] { return FailCallsOfScreen(stage, screen); }, kTimeLimit);
        EXPECT_EQ(report.find(';'), std::string::npos) << "screen " << screen << ": " << report;
        const unsigned long failed = std::strtoul(report.c_str(), nullptr, 10);
        screens += failed > 0 ? 1 : 0;
        calls += failed;
    }
    EXPECT_GT(screens, 40);
    std::printf("%lu calls of %d screens\n", calls, screens);
}

INSTANTIATE_TEST_SUITE_P(Group, FailingCallOfScreen, testing::Range(0, kGroups));

std::string FailCallsOfCommand(FailingStage& stage) {
    stage.StartDisplay();
    std::string answer;
    const auto calls = stage.Fail({}, [&] { answer = stage.Execute(kQuestion); });
    std::string wrong = calls.size() > 10 && answer.starts_with("ok") ? "" : "no command";
    for (std::size_t number = 0; number < calls.size(); ++number) {
        stage.Fail(number, [&stage] { stage.Execute(kQuestion); });
        stage.Run(kTwoRefreshes);
        if (stage.Execute(kQuestion) != answer) wrong += "; after " + std::to_string(number);
    }
    return wrong;
}

TEST(FailingCallOfCommand, IsForgottenWithTheNextCommand) {
    FailingStage stage;
    EXPECT_EQ(Try([&stage] { return FailCallsOfCommand(stage); }, kShortLimit), "");
}

/// Nothing spins while a kind of call fails, or time would stand still here, and afterwards all is well.
std::string FailAllOf(Stage& stage, session::OsCall kind) {
    constexpr session::Instant kFailing = 30'000;
    constexpr int kScreen = 68;
    stage.StartDisplay();
    Visit visit(stage, kScreen);
    stage.fails = [kind](session::OsCall call, const std::string&) { return call == kind; };
    stage.Execute(kQuestion);
    stage.Execute("press home");
    stage.Run(kFailing / 2);
    visit.Leave();
    stage.Run(kFailing / 2);
    stage.fails = nullptr;
    stage.Run(kHoldOff + kTwoRefreshes);
    if (!stage.Execute(kQuestion).starts_with("ok")) return "a command is not answered";
    if (const std::string complaint = visit.ComplaintAfter("failing"); !complaint.empty()) return complaint;
    stage.Execute("press home");
    stage.Run(kTwoRefreshes);
    return Stage::ShownScreen() == kCurrentMenu ? "" : "a key is not answered";
}

class FailingKind : public testing::TestWithParam<std::size_t> {};

TEST_P(FailingKind, IsSurvivedAndOver) {
    Stage stage;
    const auto kind = static_cast<session::OsCall>(GetParam());
    EXPECT_EQ(Try([&] { return FailAllOf(stage, kind); }, kShortLimit), "") << NameOf(kind);
}

INSTANTIATE_TEST_SUITE_P(Call, FailingKind, testing::Range(std::size_t{0}, session::kOsCallNames.size()));

}  // namespace
