#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "platform/task.h"
#include "rda/meter_operations.h"
#include "tests/trust/bad_meter.h"
#include "tests/trust/trial.h"
#include "tests/trust/visit.h"

// A task of its own asks for one register after another, beside the display's own tasks and whatever the meter does.
// Each register's record is another, so that a reply which was meant for another call shows.

namespace {

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
    const Verdict verdict = Try([&] { return AskBeside(stage, misdeed); });
    EXPECT_EQ(verdict.death + verdict.report, "") << misdeed.name;
}

INSTANTIATE_TEST_SUITE_P(Misdeed, ForeignReply, testing::Range(std::size_t{0}, kMisdeeds.size()));

}  // namespace
