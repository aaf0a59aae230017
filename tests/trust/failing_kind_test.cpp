#include <gtest/gtest.h>

#include "tests/trust/bad_meter.h"
#include "tests/trust/failing_stage.h"
#include "tests/trust/trial.h"
#include "tests/trust/visit.h"

// All calls of one kind fail for a while, on a display that is up: nothing spins, or time would stand still here, and
// afterwards all is well. And each call fails once that a command of the meter needs.

namespace {

constexpr session::Instant kFailing = 30'000;
constexpr int kScreen = 68;
constexpr unsigned kTimeLimit = 20;  // seconds

class FailingKind : public testing::TestWithParam<std::size_t> {};

std::string FailAllOf(FailingStage& stage, session::OsCall kind) {
    stage.StartDisplay();
    Visit visit(stage, kScreen);
    stage.FailKind(kind);
    stage.Execute("hardware-id");
    stage.PressHome();
    stage.Run(kFailing / 2);
    GoTo(stage, visit.Elsewhere());
    stage.Run(kFailing / 2);
    stage.FailKind(std::nullopt);
    stage.Run(kHoldOff + kTwoRefreshes);
    if (!stage.Execute("hardware-id").starts_with("ok")) return "a command is not answered";
    if (const std::string complaint = visit.Complaint(); !complaint.empty()) return "the screen" + complaint;
    stage.PressHome();
    stage.Run(kTwoRefreshes);
    return Stage::ShownScreen() == kCurrentMenu ? "" : "a key is not answered";
}

TEST_P(FailingKind, IsSurvivedAndOver) {
    FailingStage stage;
    const auto kind = static_cast<session::OsCall>(GetParam());
    const Verdict verdict = Try([&] { return FailAllOf(stage, kind); }, kTimeLimit);
    EXPECT_EQ(verdict.death + verdict.report, "") << NameOf(kind);
}

INSTANTIATE_TEST_SUITE_P(Call, FailingKind, testing::Range(std::size_t{0}, session::kOsCallNames.size()));

std::string FailCallsOfCommand(FailingStage& stage) {
    constexpr std::string_view kQuestion = "hardware-id";
    stage.StartDisplay();
    stage.FailCall(std::nullopt);
    const std::string answer = stage.Execute(kQuestion);
    const std::size_t calls = stage.Calls().size();
    std::string wrong = calls > 10 && answer.starts_with("ok") ? "" : "no command";
    for (std::size_t number = 0; number < calls; ++number) {
        stage.FailCall(number);
        stage.Execute(kQuestion);
        stage.FailCall(std::nullopt);
        stage.Run(kTwoRefreshes);
        if (stage.Execute(kQuestion) != answer) wrong += "; after " + std::to_string(number);
    }
    return wrong;
}

TEST(FailingCallOfCommand, IsForgottenWithTheNextCommand) {
    FailingStage stage;
    const Verdict verdict = Try([&] { return FailCallsOfCommand(stage); }, kTimeLimit);
    EXPECT_EQ(verdict.death + verdict.report, "");
}

}  // namespace
