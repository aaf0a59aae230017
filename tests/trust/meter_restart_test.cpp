#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <random>

#include "tests/trust/bad_meter.h"
#include "tests/trust/trial.h"
#include "tests/trust/visit.h"

// The meter restarts again and again at random moments; each time the display finds it.

namespace {

constexpr int kRestarts = 1000;
constexpr int kScreens[] = {25, 68, 7, 11, 180, 200, 1, 28};
constexpr session::Instant kLongestAbsence = 40'000;
constexpr session::Instant kBetween = 5000;

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
        if (random() % 2 == 0) GoTo(stage, kScreens[random() % std::size(kScreens)]);
        stage.Run(anyOf(kLongestAbsence));
        stage.Execute("restart");
        stage.Execute("fault none");
        stage.Run(kHoldOff + kTwoRefreshes);
        const std::string complaint = visits[random() % visits.size()].Complaint();
        if (!complaint.empty()) return "after restart " + std::to_string(i) + " it" + complaint;
    }
    return OpenDescriptors() == descriptors ? "" : "descriptors are left open";
}

TEST(MeterRestart, IsFoundAgainEachTime) {
    Stage stage;
    const Verdict verdict = Try([&] { return Restart(stage); }, 600);
    EXPECT_EQ(verdict.death + verdict.report, "");
}

}  // namespace
