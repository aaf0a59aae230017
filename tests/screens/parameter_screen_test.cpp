#include "screens/parameters/parameter_screen.h"

#include "screens/parameters/custom_screen.h"
#include "screens/parameters/parameter_tables.h"
#include "tests/bench/panel_bench.h"

namespace {

class ParameterScreens : public PanelBench {
protected:
    ParameterScreens() {
        CreateParameterScreens();
        CreateCustomScreens();
    }
};

TEST_F(ParameterScreens, LookAsTheyShould) {
    for (const ParamScreenRow& row : kParamScreenRows) {
        Show(row.screen);
        EXPECT_TRUE(PanelShows("parameters/screen_" + std::to_string(row.screen)));
    }
}

}  // namespace
