#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>

#include "platform/task.h"
#include "rda/meter_operations.h"
#include "tests/bench/trial.h"
#include "tests/trust/visit.h"

namespace {

/// What a meter may do to the display.
struct Misdeed {
    std::string_view name;
    std::string_view fault;         // of the simulator, while it lasts
    session::Instant grace;         // at most, from its end until a call succeeds again
    bool restarts = false;          // with another connection id when it begins
    bool swallowsConnects = false;  // attempts to connect come to nothing after their time
    bool spoilsReplies = false;     // with the right length
};

constexpr session::Instant kReceiveTime = 3000;  // what the display waits for a piece of a reply
constexpr session::Instant kReplyTime = 12'000;  // and for all pieces

// clang-format off
constexpr auto kMisdeeds = std::to_array<Misdeed>({
    {.name = "refused",          .fault = "absent",   .grace = kHoldOff},
    {.name = "silent",           .fault = "silent",   .grace = kReceiveTime},
    {.name = "half-open",        .fault = "silent",   .grace = kHoldOff,     .swallowsConnects = true},
    {.name = "slow",             .fault = "slow",     .grace = kReceiveTime},
    {.name = "late",             .fault = "late",     .grace = kReceiveTime},
    {.name = "byte by byte",     .fault = "drip",     .grace = kReplyTime},
    {.name = "half",             .fault = "half",     .grace = kReceiveTime},
    {.name = "cut",              .fault = "cut",      .grace = 0},
    {.name = "reset",            .fault = "reset",    .grace = 0},
    {.name = "garbage",          .fault = "garbage",  .grace = 0,            .spoilsReplies = true},
    {.name = "flood",            .fault = "flood",    .grace = 0},
    {.name = "restart",          .fault = "absent",   .grace = kHoldOff,     .restarts = true},
    {.name = "changed identity", .fault = "none",     .grace = 0,            .restarts = true},
    {.name = "not a number",     .fault = "infinite", .grace = 0,            .spoilsReplies = true},
    {.name = "endless texts",    .fault = "endless",  .grace = 0,            .spoilsReplies = true},
    {.name = "huge counts",      .fault = "huge",     .grace = 0,            .spoilsReplies = true},
});
// clang-format on

/// A stage whose meter misbehaves from Begin to End.
class BadMeterStage : public Stage {
public:
    void Begin(const Misdeed& misdeed) {
        m_swallowsConnects = misdeed.swallowsConnects;
        if (misdeed.restarts) Execute("restart");
        Execute("fault " + std::string(misdeed.fault));
    }
    void End() {
        m_swallowsConnects = false;
        Execute("fault none");
    }
    bool Fails(session::OsCall call, std::string_view) override {
        constexpr int kConnectTicks = 2000;  // what the display waits for a connection
        if (call != session::OsCall::Connect || !m_swallowsConnects) return false;
        os::taskDelay(kConnectTicks);
        return true;
    }

private:
    bool m_swallowsConnects = false;
};

// Every misdeed while every screen is entered, stays, is worked on with keys, and is left. With EVERY_CASE in the
// environment all cells of that table, without, a choice of the screens, another one for each misdeed.

constexpr session::Instant kEnteringAndStaying = 15'000;
constexpr session::Instant kBetweenKeys = 300;
constexpr int kSampledScreens = 16;
constexpr unsigned kTimeLimit = 60;  // seconds of a screen

/// Two refreshes after the misdeed the screen is as it was before; and whatever keys did, the next one is a live one.
/// @return "none" where there is no such screen, or what is wrong
std::string Suffer(BadMeterStage& stage, int screen, const Misdeed& misdeed) {
    stage.StartDisplay();
    Visit visit(stage, screen);
    if (!visit.IsThere()) return "none";
    Visit elsewhere(stage, visit.Elsewhere());
    visit.Leave();
    stage.Begin(misdeed);
    visit.Enter();
    stage.Run(kEnteringAndStaying);
    stage.End();
    stage.Run(misdeed.grace + kTwoRefreshes);
    const std::string wrong = visit.ComplaintAfter("it was entered");

    stage.Begin(misdeed);
    for (const char* key : {"soft3", "soft4", "soft1", "soft2", "soft23", "soft4", "home", "soft4", "home"}) {
        stage.Execute("press " + std::string(key));
        stage.Run(kBetweenKeys);
    }
    visit.Leave();
    stage.End();
    stage.Run(misdeed.grace + kTwoRefreshes);
    return wrong + elsewhere.ComplaintAfter("the one before was left");
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
        const std::string report = Try([&] { return Suffer(stage, screen, misdeed); }, kTimeLimit);
        if (report == "none") continue;
        EXPECT_EQ(report, "") << misdeed.name << ", screen " << screen;
        ++count;
    }
    EXPECT_GT(count, kSampledScreens / 2);
    std::printf("%s: %d screens\n", misdeed.name.data(), count);
}

INSTANTIATE_TEST_SUITE_P(Misdeed, BadMeter, testing::Range(std::size_t{0}, kMisdeeds.size()));

// A task of its own asks for one register after another, beside the display's own tasks and whatever the meter does.
// Each register's record is another, so that a reply which was meant for another call shows.

constexpr session::Instant kMisbehaving = 120'000;
constexpr int kAsking = 194;  // the priority of the display's own
constexpr std::size_t kStack = 4096;
constexpr int kPauseTicks = 70;

struct Asked {
    std::uint32_t id;
    RegisterValue truth;
};
std::vector<Asked> registers;
int answered = 0;
int foreign = 0;

int AskForEver(os::TaskArgument) {
    for (std::size_t next = 0;; next = (next + 1) % registers.size()) {
        RegisterValue value{};
        if (PDMINTERFACE_getRegisterValue(registers[next].id, value) == 0) {
            ++answered;
            if (std::memcmp(&value, &registers[next].truth, sizeof value) != 0) ++foreign;
        }
        os::taskDelay(kPauseTicks);
    }
}

/// The registers whose records are unlike all others.
void Prepare(meter::Meter& meter) {
    std::set<std::string> known;
    for (std::uint32_t id = 1; id < 5000; ++id) {
        Asked asked{id, {}};
        if (!meter.Answer("PDMINTERFACE_getRegisterValue", std::as_bytes(std::span(&id, 1)),
                          std::as_writable_bytes(std::span(&asked.truth, 1))))
            continue;
        const std::string record(reinterpret_cast<const char*>(&asked.truth), sizeof asked.truth);
        if (known.insert(record).second) registers.push_back(asked);
    }
}

std::string AskBeside(BadMeterStage& stage, const Misdeed& misdeed) {
    stage.StartDisplay();
    os::taskActivate(os::taskCreate("tAsking", kAsking, 0, kStack, AskForEver, 0));
    stage.Run(kTwoRefreshes);
    const int before = answered;
    stage.Begin(misdeed);
    stage.Run(kMisbehaving);
    if (misdeed.spoilsReplies) foreign = 0;
    stage.End();
    stage.Run(misdeed.grace);
    const int during = answered;
    stage.Run(kTwoRefreshes);
    if (before == 0 || answered == during) return "nothing is answered";
    return foreign == 0 ? "" : std::to_string(foreign) + " of " + std::to_string(answered) + " replies are another's";
}

class ForeignReply : public testing::TestWithParam<std::size_t> {};

TEST_P(ForeignReply, IsNeverTakenForTheOneThatWasAskedFor) {
    const Misdeed& misdeed = kMisdeeds[GetParam()];
    BadMeterStage stage;
    Prepare(stage.Model());
    ASSERT_GT(registers.size(), 100U);
    EXPECT_EQ(Try([&] { return AskBeside(stage, misdeed); }), "") << misdeed.name;
}

INSTANTIATE_TEST_SUITE_P(Misdeed, ForeignReply, testing::Range(std::size_t{0}, kMisdeeds.size()));

// The meter restarts again and again at random moments; each time the display finds it.

constexpr int kRestarts = 1000;
constexpr int kScreens[] = {25, 68, 7, 11, 180, 200, 1, 28};
constexpr session::Instant kLongestAbsence = 40'000;
constexpr session::Instant kBetween = 5000;
constexpr unsigned kRestartLimit = 600;  // seconds

std::size_t OpenDescriptors() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

/// @return what is wrong after the first restart from which the display did not recover
std::string Restart(Stage& stage) {
    std::mt19937 random(1);
    const auto anyOf = [&random](session::Instant most) { return static_cast<session::Instant>(random()) % most; };
    stage.StartDisplay();
    std::vector<Visit> visits;
    for (const int screen : kScreens) visits.emplace_back(stage, screen);
    const std::size_t descriptors = OpenDescriptors();
    for (int i = 0; i < kRestarts; ++i) {
        stage.Run(anyOf(kBetween));
        stage.Execute("fault absent");
        if (random() % 2 == 0) stage.GoTo(kScreens[random() % std::size(kScreens)]);
        stage.Run(anyOf(kLongestAbsence));
        stage.Execute("restart");
        stage.Execute("fault none");
        stage.Run(kHoldOff + kTwoRefreshes);
        const std::string wrong = visits[random() % visits.size()].ComplaintAfter("restart " + std::to_string(i));
        if (!wrong.empty()) return wrong;
    }
    return OpenDescriptors() == descriptors ? "" : "descriptors are left open";
}

TEST(MeterRestart, IsFoundAgainEachTime) {
    Stage stage;
    EXPECT_EQ(Try([&stage] { return Restart(stage); }, kRestartLimit), "");
}

}  // namespace
