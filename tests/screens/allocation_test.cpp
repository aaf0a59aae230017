#include "tests/bench/allocation_count.h"

#include "localization/display_config.h"
#include "screens/alarms/alarm_screens.h"
#include "screens/events/event_screens.h"
#include "screens/extremes/minmax_bar_screen.h"
#include "screens/extremes/minmax_screen.h"
#include "screens/harmonics/harmonic_screen.h"
#include "screens/io/io_screen.h"
#include "screens/metrological/metrological_screen.h"
#include "screens/nameplate/nameplate_screen.h"
#include "screens/parameters/custom_screen.h"
#include "screens/parameters/parameter_screen.h"
#include "screens/phasor/phasor_screen.h"
#include "tests/bench/panel_bench.h"

namespace {

class Allocations : public PanelBench {};

TEST_F(Allocations, NeverHappenWhileAScreenIsRefreshed) {
    CreateParameterScreens();
    CreateMinMaxScreens();
    CreatePhasorScreen();
    CreateHarmonicScreens();
    CreateActiveAlarmScreens();
    CreateHistoricalAlarmScreens();
    CreateMinMaxBarScreens();
    CreateEventScreens();
    CreateNameplateScreens();
    CreateMetrologicalScreens();
    CreateCustomScreens();
    CreateIoScreens();
    for (const ScreenInfoRow& row : kScreenInfoRows) {
        if (Navigation().getScreenKind(row.screen) != SCREEN_KIND_DATA) continue;
        Show(row.screen);
        for (const bool silent : {false, true, false}) {
            if (silent) {
                meter().FallSilent();
            } else {
                meter().Recover();
            }
            {
                const AllocationPause theMetersOwn;
                meter().Model().Advance(10'000);
            }
            const long before = AllocationCount::taken;
            Ticks(2 * kTicksPerSecond);
            EXPECT_EQ(AllocationCount::taken, before) << "screen " << row.screen << (silent ? ", silent meter" : "");
        }
    }
}

/// What changes most at a time: everything comes back at once, in another language.
TEST_F(Allocations, NeverHappenWhileEverythingOnAScreenChanges) {
    CreateNameplateScreens();
    CreateMetrologicalScreens();
    CreateCustomScreens();
    CreateIoScreens();
    for (const std::int32_t screen : {46, 94, 95, 98}) {
        meter().FallSilent();
        Show(screen);
        Ticks(1);
        meter().Recover();
        DISPCFG_setLanguage(screen % 6);
        const long before = AllocationCount::taken;
        Ticks(2 * kTicksPerSecond);
        EXPECT_EQ(AllocationCount::taken, before) << "screen " << screen;
    }
}

}  // namespace
