#include <cstdlib>

#include "rda/meter_operations.h"
#include "tests/walk/walk_bench.h"

namespace {

constexpr long kKeys = 1'000'000;  // of all walks together, unless WALK_KEYS says otherwise
constexpr long kWalks = 4;

long KeysOfEachWalk() {
    const char* asked = std::getenv("WALK_KEYS");
    return (asked != nullptr ? std::strtol(asked, nullptr, 10) : kKeys) / kWalks;
}

/// Somebody who presses keys at random for a long time, and knows the password.
class RandomKeys : public WalkBench {
protected:
    void WalkFar(unsigned seed, bool withFaults) {
        const WalkReport report = Walk(seed, KeysOfEachWalk(), withFaults);
        EXPECT_EQ(report.fault, "") << "after " << report.keys << " keys";
        EXPECT_EQ(report.screensMissed, 0U);
        EXPECT_GT(watch.Logins(), report.keys / 5000);
        EXPECT_GT(watch.Writes(), report.keys / 5000);
        EXPECT_GT(watch.Refusals(), withFaults ? 10 : 0);
        std::printf("seed %u: %ld keys, %ld strokes, %d logins, %d writes, %d of them refused\n", seed, report.keys,
                    report.strokes, watch.Logins(), watch.Writes(), watch.Refusals());
    }
};

TEST_F(RandomKeys, WriteNothingUnconfirmed1) { WalkFar(1, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmed2) { WalkFar(2, false); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter1) { WalkFar(3, true); }
TEST_F(RandomKeys, WriteNothingUnconfirmedWithABadMeter2) { WalkFar(4, true); }

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

TEST_F(PlantedFault, IsFound) {
    const WalkReport report = Walk(1, 200'000, false);
    EXPECT_EQ(report.fault, "an unconfirmed write on screen 104");
    EXPECT_GT(report.strokes, 100);
}

}  // namespace
