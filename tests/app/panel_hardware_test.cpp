#include "app/panel_hardware.h"

#include <gtest/gtest.h>

#include "simulator/own_folder.h"
#include "simulator/panel/board.h"

namespace {

/// The display's devices as the emulated board has them.
class PanelHardware : public ::testing::Test {
protected:
    const OwnBoard folder{"panel-hardware"};
    panel::Board board{folder.Path()};
};

TEST_F(PanelHardware, StartsTheBacklightAtAQuarterAndScalesPercentToLevels) {
    EXPECT_EQ(VEKHWIF_setBacklight(0), 0);
    EXPECT_EQ(VEKHWIF_init(), 0);
    EXPECT_EQ(board.State().backlight.level, 255 * 25 / 100);
    EXPECT_TRUE(board.State().backlight.on);
    for (const auto& [percent, level] : {std::pair{100, 255}, {25, 63}, {0, 0}}) {
        EXPECT_EQ(VEKHWIF_setBrightness(percent), 0);
        EXPECT_EQ(board.State().backlight.level, level);
    }
    EXPECT_EQ(VEKHWIF_setBacklight(0), 0);
    EXPECT_FALSE(board.State().backlight.on);
}

TEST_F(PanelHardware, DrivesEachOutputLineAloneAndRefusesOthers) {
    for (int line = 0; line < 3; ++line) EXPECT_EQ(VEKHWIF_setGpio(line, 0), 0);
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(VEKHWIF_setGpio(line, 7), 0);
        for (int other = 0; other < 3; ++other) {
            EXPECT_EQ(board.State().lineHigh[static_cast<std::size_t>(other)], other <= line);
        }
    }
    EXPECT_EQ(VEKHWIF_setGpio(3, 1), -1);
    EXPECT_EQ(VEKHWIF_setGpio(-1, 1), -1);
}

TEST_F(PanelHardware, TurnsKeyRecordsIntoEvents) {
    ButtonEvent event{};
    for (const auto& [code, state, index, pressed] :
         {std::tuple{1, 0, 1U, 1U}, {4, 2, 4U, 1U}, {5, 1, 0U, 0U}, {6, 9, 5U, 0U}}) {
        ASSERT_TRUE(board.Send({code, state}));
        ASSERT_EQ(VEKHWIF_readButton(event, -1), 0);
        EXPECT_EQ(event.kind, kPanelKey);
        EXPECT_EQ(event.value, index);
        EXPECT_EQ(event.pressed, pressed);
    }
    for (const std::int32_t code : {0, 7, -1}) {
        ASSERT_TRUE(board.Send({code, 0}));
        EXPECT_EQ(VEKHWIF_readButton(event, 1), -1) << "code " << code << " is no key";
    }
}

TEST_F(PanelHardware, FailsWithoutItsDevices) {
    setenv("BOARD_ROOT", "/nonexistent", 1);
    EXPECT_EQ(VEKHWIF_init(), -1);
    EXPECT_EQ(VEKHWIF_setBacklight(1), -1);
    EXPECT_EQ(VEKHWIF_setBrightness(50), -1);
    EXPECT_EQ(VEKHWIF_setGpio(0, 1), -1);
    ButtonEvent event{};
    EXPECT_EQ(VEKHWIF_readButton(event, 1), -1);
}

}  // namespace
