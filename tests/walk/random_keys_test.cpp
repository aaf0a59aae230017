#include <cstdlib>

#include "rda/meter_operations.h"
#include "tests/walk/walk_bench.h"

namespace {

constexpr long kKeys = 1'000'000;  // of all walks together, unless WALK_KEYS says otherwise
constexpr long kWalks = 4;

/// Somebody who presses keys at random for a long time, and knows the password.
class RandomKeys : public WalkBench {
protected:
    /// Walks on with another seed where one walk would be too long to remember.
    void WalkFar(unsigned seed, bool withFaults) {
        const char* const asked = std::getenv("WALK_KEYS");
        long left = (asked != nullptr ? std::strtol(asked, nullptr, 10) : kKeys) / kWalks;
        for (; left > 0 && !HasFailure(); left -= WalkRecord::kMostKeys, seed += kWalks) {
            const std::string fault = Walk(seed, std::min(left, WalkRecord::kMostKeys), withFaults);
            EXPECT_EQ(fault, "") << "seed " << seed << ", after " << record.keys
                                 << " keys; this is enough to show it:\n"
                                 << TextOf(ShortestThatShows(fault));
            EXPECT_EQ(record.screensMissed, 0U);
            EXPECT_GT(record.logins, record.keys / 5000);
            EXPECT_GT(record.writes, record.keys / 5000);
            EXPECT_GT(record.refusals, withFaults ? 10 : 0);
            std::printf("seed %u: %ld keys, %zu strokes, %d logins, %d writes, %d of them refused\n", seed, record.keys,
                        record.strokes, record.logins, record.writes, record.refusals);
        }
    }
};

TEST_F(RandomKeys, WriteNothingUnconfirmed1) { WalkFar(1, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmed2) { WalkFar(2, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter1) { WalkFar(3, true); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter2) { WalkFar(4, true); }

/// A display with a fault in it: soft keys 2 and 3 together, after soft key 3 on screen 104, write at once.
class PlantedFault : public WalkBench {
    void AfterStroke(const Stroke& stroke) override {
        const bool isThere = Shown() == 104 && stroke.kind == Stroke::Kind::Press;
        if (isThere && m_armed && stroke.key == kSoftKeys23) {
            RegisterWriteResult result{};
            EXPECT_LE(PDMINTERFACE_setRegisterValue(2461, "1", result), 0);
        }
        m_armed = isThere && stroke.key == kSoftKey3;
    }

    bool m_armed = false;
};

TEST_F(PlantedFault, IsFoundAndShownByTheShortestList) {
    const std::string fault = Walk(1, 200'000, false);
    ASSERT_EQ(fault, "an unconfirmed write on screen 104");
    EXPECT_GT(record.strokes, 100U);
    const std::vector<Stroke> shortest = ShortestThatShows(fault);
    EXPECT_EQ(shortest, (std::vector<Stroke>{
                            {.kind = Stroke::Kind::Go, .target = 104}, {.key = kSoftKey3}, {.key = kSoftKeys23}}))
        << TextOf(shortest);
}

}  // namespace
