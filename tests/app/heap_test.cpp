#include "app/application.h"
#include "localization/display_config.h"
#include "simulator/bench/allocation_count.h"
#include "simulator/bench/keyboard_bench.h"
#include "tests/bench/test_on.h"

namespace {

/// The application after the hand-over, with everything in it that a person can reach.
class Heap : public TestOn<KeyboardBench> {
protected:
    static constexpr std::int32_t kLongestList = 191;

    Heap() { BuildApplication(Manager()); }

    /// Works on a screen with every key, before and after everything on it has changed.
    void WorkOn(std::int32_t id) {
        Show(id);
        PressAllKeys();
        if (IsKeyboardShown()) {
            Enter("");
            Enter("0");
        }
        {
            const AllocationPause theMetersOwn;
            meter().Model().Advance(10'000);
        }
        DISPCFG_setLanguage(static_cast<std::uint32_t>(id) % 6);
        Ticks(2 * kTicksPerSecond);
        PressAllKeys();
    }

private:
    void PressAllKeys() {
        for (const KeyCode key :
             {KEY_SOFT_2, KEY_SOFT_3, KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_4, KEY_SOFT_4, KEY_SOFT_1}) {
            Press(key);
            Ticks(2);
        }
    }
};

TEST_F(Heap, IsLeftAloneAfterTheHandOver) {
    meter().Model().Play(*meter::FindScenario("refused-writes"));
    WorkOn(kLongestList);  // the toolkit's pool of areas grows to what screens need
    for (const std::string_view meterIs : {"normal", "refused-writes", "silent"}) {
        if (meterIs == "silent") meter().FallSilent();
        meter().Model().Play(*meter::FindScenario(meterIs));
        for (std::int32_t id = SCREEN_ID_FACTORY_TEST; id <= kLastCommandedScreen; ++id) {
            const long before = AllocationCount::taken;
            WorkOn(id);
            EXPECT_EQ(AllocationCount::taken, before) << "screen " << id << ", " << meterIs << " meter";
        }
    }
}

}  // namespace
