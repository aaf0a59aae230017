#include "app/application.h"
#include "peg/resources/resources.h"
#include "screens/base/screen_info_table.h"
#include "tests/bench/meter_texts.h"
#include "tests/bench/panel_bench.h"

namespace {

/// Each of the 98 data screens, entered while the meter is in one state for all of them.
class EveryDataScreen : public PanelBench {
protected:
    EveryDataScreen() { BuildApplication(Manager()); }

    void LooksAsItShould(const std::string& state) {
        for (const ScreenInfoRow& row : kScreenInfoRows) {
            Show(row.screen);
            EXPECT_TRUE(PanelShows("every/" + state + "_" + std::to_string(row.screen)));
        }
    }
};

TEST_F(EveryDataScreen, ShowsTheRunningMeter) { LooksAsItShould("normal"); }

TEST_F(EveryDataScreen, ShowsAMeterThatDoesNotAnswer) {
    meter().FallSilent();
    LooksAsItShould("failed");
}

TEST_F(EveryDataScreen, ShowsAMeterThatHasNothing) {
    EmptyEveryReply();
    LooksAsItShould("empty");
}

TEST_F(EveryDataScreen, ShowsTextsThatFillTheirFields) {
    meter().Model().Play(*meter::FindScenario("500-alarms"));
    meter().Model().Advance(1000);
    FillEveryText();
    LooksAsItShould("widest");
}

/// The same on a panel whose resource file is missing.
class WithoutResources : public PanelBench {};

TEST_F(WithoutResources, EveryDataScreenIsStillThere) {
    PegResources::Reset();
    BuildApplication(Manager());
    for (const bool silent : {false, true}) {
        if (silent) meter().FallSilent();
        for (const ScreenInfoRow& row : kScreenInfoRows) {
            Show(row.screen);
            EXPECT_EQ(Navigation().getCurrentScreenId(), row.screen);
        }
    }
}

}  // namespace
