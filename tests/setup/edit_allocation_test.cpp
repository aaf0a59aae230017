#include "localization/display_config.h"
#include "tests/bench/allocation_count.h"
#include "tests/setup/setup_edit_bench.h"

namespace {

class EditAllocations : public SetupEditBench {
protected:
    /// What is taken while a screen is shown: every key, a question, a refusal, another language.
    long TakenBy(std::int32_t screen) {
        {
            const AllocationPause theTestsOwn;
            Refuse("Value out of range");
            DISPCFG_setLanguage(static_cast<std::uint32_t>(screen) % 6);
        }
        Show(screen);
        const long before = AllocationCount::taken;
        Ticks(2 * kTicksPerSecond);
        for (const KeyCode key : {KEY_SOFT_3, KEY_SOFT_2_3, KEY_SOFT_3, KEY_SOFT_2, KEY_SOFT_4, KEY_SOFT_4, KEY_SOFT_4,
                                  KEY_SOFT_4, KEY_SOFT_1}) {
            Press(key);
        }
        const long taken = AllocationCount::taken - before;
        Show(kView);
        return taken;
    }
};

TEST_F(EditAllocations, NeverHappenOnAScreenThatEdits) {
    TakenBy(191);  // the longest list: the toolkit's pool of areas grows to what screens need
    for (const SetupEditRow& row : kSetupEditRows) {
        if (Navigation().getScreenKind(row.screen) != SCREEN_KIND_SETUP_EDIT) continue;
        EXPECT_EQ(TakenBy(row.screen), 0) << "screen " << row.screen;
    }
}

}  // namespace
