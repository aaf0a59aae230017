#include <cstdlib>

#include "rda/meter_operations.h"
#include "tests/walk/walk_bench.h"

namespace {

constexpr long kKeys = 1'000'000;  // of all walks together, unless WALK_KEYS says otherwise
constexpr long kWalks = 4;
constexpr long kLongestWalk = 5'000'000;

long KeysOfEachWalk() {
    const char* asked = std::getenv("WALK_KEYS");
    return (asked != nullptr ? std::strtol(asked, nullptr, 10) : kKeys) / kWalks;
}

/// Somebody who presses keys at random for a long time, and knows the password.
class RandomKeys : public WalkBench {
protected:
    /// Walks on with another seed where one walk would be too long to remember.
    void WalkAll(unsigned seed, bool withFaults) {
        for (long left = KeysOfEachWalk(); left > 0 && !HasFailure(); left -= kLongestWalk, seed += kWalks) {
            const WalkReport report = Walk(seed, std::min(left, kLongestWalk), withFaults);
            EXPECT_EQ(report.fault, "") << Explain(report, seed);
            EXPECT_EQ(report.counts.screensMissed, 0U);
            EXPECT_GT(report.counts.logins, report.counts.keys / 5000);
            EXPECT_GT(report.counts.writes, report.counts.keys / 5000);
            EXPECT_GT(report.counts.refusals, withFaults ? 10 : 0);
            std::printf("seed %u: %ld keys, %zu strokes, %d logins, %d writes, %d of them refused\n", seed,
                        report.counts.keys, report.strokes.size(), report.counts.logins, report.counts.writes,
                        report.counts.refusals);
        }
    }
};

TEST_F(RandomKeys, WriteNothingUnconfirmed1) { WalkAll(1, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmed2) { WalkAll(2, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter1) { WalkAll(3, true); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter2) { WalkAll(4, true); }

/// A display with a fault in it: soft keys 2 and 3 together, after soft key 3 on screen 104, write at once.
class PlantedFault : public WalkBench {
protected:
    PlantedFault() {
        afterStroke = [this](const Stroke& stroke) {
            const bool isThere = Navigation().getCurrentScreenId() == 104 && stroke.kind == Stroke::Kind::Press;
            if (isThere && m_armed && stroke.key == kSoftKeys23) {
                RegisterWriteResult result{};
                EXPECT_LE(PDMINTERFACE_setRegisterValue(2461, "1", result), 0);
            }
            m_armed = isThere && stroke.key == kSoftKey3;
        };
    }

private:
    bool m_armed = false;
};

TEST_F(PlantedFault, IsFoundAndShownByTheShortestList) {
    const WalkReport report = Walk(1, 200'000, false);
    ASSERT_EQ(report.fault, "an unconfirmed write on screen 104");
    EXPECT_GT(report.strokes.size(), 100U);
    const std::vector<Stroke> shortest = ShortestOf(report);
    EXPECT_EQ(shortest, (std::vector<Stroke>{
                            {.kind = Stroke::Kind::Go, .target = 104}, {.key = kSoftKey3}, {.key = kSoftKeys23}}))
        << TextOf(shortest);
}

}  // namespace
