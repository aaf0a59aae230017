#include "app/panel_hardware.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <memory>

#include "simulator/panel/board.h"

namespace {

/// The display's devices as the emulated board has them.
class PanelHardware : public ::testing::Test {
protected:
    PanelHardware() {
        std::string folder = (std::filesystem::temp_directory_path() / "panel-hardware-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr) std::abort();
        m_folder = folder;
        board = std::make_unique<panel::Board>(m_folder);
        setenv("BOARD_ROOT", folder.c_str(), 1);
    }
    ~PanelHardware() override {
        board.reset();
        std::filesystem::remove_all(m_folder);
    }

    std::unique_ptr<panel::Board> board;

private:
    std::filesystem::path m_folder;
};

TEST_F(PanelHardware, StartsTheBacklightAtAQuarterAndScalesPercentToLevels) {
    EXPECT_EQ(VEKHWIF_init(), 0);
    EXPECT_EQ(board->State().backlight.level, 255 * 25 / 100);
    EXPECT_TRUE(board->State().backlight.on);
    for (const auto& [percent, level] : {std::pair{100, 255}, {25, 63}, {0, 0}}) {
        EXPECT_EQ(VEKHWIF_setBrightness(percent), 0);
        EXPECT_EQ(board->State().backlight.level, level);
    }
    EXPECT_EQ(VEKHWIF_setBacklight(0), 0);
    EXPECT_FALSE(board->State().backlight.on);
}

TEST_F(PanelHardware, DrivesEachOutputLineAloneAndRefusesOthers) {
    for (int line = 0; line < 3; ++line) EXPECT_EQ(VEKHWIF_setGpio(line, 0), 0);
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(VEKHWIF_setGpio(line, 7), 0);
        for (int other = 0; other < 3; ++other) {
            EXPECT_EQ(board->State().lineHigh[static_cast<std::size_t>(other)], other <= line);
        }
    }
    EXPECT_EQ(VEKHWIF_setGpio(3, 1), -1);
    EXPECT_EQ(VEKHWIF_setGpio(-1, 1), -1);
}

TEST_F(PanelHardware, TurnsKeyRecordsIntoEvents) {
    struct Expectation {
        panel::KeyRecord record;
        std::uint32_t index;
        std::uint32_t pressed;
    };
    for (const Expectation& expected : {Expectation{{1, 0}, 1, 1}, {{4, 2}, 4, 1}, {{5, 1}, 0, 0}, {{6, 9}, 5, 0}}) {
        ASSERT_TRUE(board->Send(expected.record));
        ButtonEvent event{};
        ASSERT_EQ(VEKHWIF_readButton(event, -1), 0);
        EXPECT_EQ(event.kind, kPanelKey);
        EXPECT_EQ(event.value, expected.index);
        EXPECT_EQ(event.pressed, expected.pressed);
    }
    for (const std::int32_t code : {0, 7, -1}) {
        ASSERT_TRUE(board->Send({code, 0}));
        ButtonEvent event{};
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

TEST_F(PanelHardware, KnowsItsFactsAndNothingElse) {
    EXPECT_EQ(VEKHWIF_getScreenWidth(), 320);
    EXPECT_EQ(VEKHWIF_getScreenHeight(), 240);
    EXPECT_EQ(VEKHWIF_getHwId(), 3U);
    std::int32_t temperature = 42;
    std::uint32_t version = 42;
    std::array<char, 4> text{'x'};
    EXPECT_EQ(VEKHWIF_getTemperature(temperature), -1);
    EXPECT_EQ(VEKHWIF_getKernelVersion(&version), -1);
    EXPECT_EQ(VEKHWIF_getOsPkgVersion(&version), -1);
    EXPECT_EQ(VEKHWIF_getSerialNumber(text), -1);
    EXPECT_EQ(temperature, 42);
    EXPECT_EQ(version, 42U);
    EXPECT_EQ(text[0], 'x');
}

}  // namespace
