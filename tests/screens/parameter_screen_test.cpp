#include "screens/parameters/parameter_screen.h"

#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

RegisterValue Register(std::string_view label, std::string_view value, std::string_view unit) {
    RegisterValue record{};
    Write(record.label, label);
    Write(record.value, value);
    Write(record.unit, unit);
    return record;
}

class ParameterScreens : public PanelTest {
protected:
    ParameterScreens() {
        CreateParameterScreens();
        CreateCustomScreens();
    }
};

TEST_F(ParameterScreens, ChooseTheVoltageByTheWiring) {
    std::string wiring;
    std::vector<std::uint32_t> read;
    meter().AnswerFrom("PDMINTERFACE_getRegisterValue", [&](const auto& asked) {
        read.push_back(asked[0]);
        return Register("x", asked[0] == 3717 ? wiring : "1", "V");
    });
    for (const auto& [name, voltage] : {std::pair{"DELTA 3W", 3687U}, {"delta", 3708U}}) {
        wiring = name;
        Show(11);
        read.clear();
        Show(4);
        EXPECT_EQ(read.at(1), voltage) << name;
    }
}

/// Custom pages that a test composes, on screen 200.
class CustomPages : public ParameterScreens {
protected:
    CustomPages() {
        meter().AnswerFrom("CUSTOMSCREENINTERFACE_getNormalModeScreenData", [this](const auto& asked) {
            commands.push_back(asked[0]);
            return page;
        });
        SetScroll("0");
    }
    void Compose(std::uint32_t count, bool alone = false) {
        page = {};
        page.isFirstPage.Set(alone ? 1 : 0);
        page.isLastPage.Set(alone ? 1 : 0);
        page.count.Set(count);
        Write(page.title, "Custom page");
        for (std::size_t i = 0; i < page.parameters.size(); ++i) {
            page.parameters[i] = Register("Voltage L1-N", std::to_string(230 + i) + ".4", "V");
        }
    }
    void SetScroll(std::string_view seconds) {
        meter().Answer("PDMINTERFACE_getRegisterValue", Register("Normal scroll", seconds, ""));
    }
    std::vector<std::uint32_t> TakeCommands() { return std::exchange(commands, {}); }

    CustomScreenData page{};
    std::vector<std::uint32_t> commands;
};

using Commands = std::vector<std::uint32_t>;

TEST_F(CustomPages, LookAsTheyShouldWithOneToSixQuantitiesAndKeepTheirRowsWithAnyOtherCount) {
    Show(200);
    for (std::uint32_t count = 1; count <= 6; ++count) {
        Compose(count);
        Ticks(20);
        EXPECT_TRUE(PanelShows("custom/rows_" + std::to_string(count)));
    }
    Compose(4);
    for (std::size_t i = 0; i < 4; ++i) Write(page.parameters[i].unit, std::string_view("kVARhhhhh").substr(0, 4 + i));
    Ticks(20);
    EXPECT_TRUE(PanelShows("custom/long_units"));
    Compose(2, true);
    Ticks(20);
    EXPECT_TRUE(PanelShows("custom/first_and_last"));
    for (const std::uint32_t count : {0U, 7U, 0xFFFFFFFFU}) {
        page.count.Set(count);
        page.parameters[0] = Register("x", "1", "y");
        Ticks(20);
    }
    Compose(3, true);
    Ticks(20);
    Compose(2, true);
    Ticks(20);
    EXPECT_TRUE(PanelShows("custom/first_and_last"));
    page.status.Set(1);
    Ticks(20);
    EXPECT_TRUE(PanelShows("custom/no_data"));
    meter().FallSilent();
    Ticks(20);
    meter().Recover();
    Compose(2, true);
    Ticks(20);
    EXPECT_TRUE(PanelShows("custom/first_and_last"));
}

TEST_F(CustomPages, TurnByKeysAndAsOftenAsTheMeterSays) {
    Compose(4);
    Show(200);
    commands.clear();
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_2);
    EXPECT_EQ(TakeCommands(), (Commands{2, 0}));
    Ticks(20 * 20);
    meter().Fail("PDMINTERFACE_getRegisterValue");
    Ticks(10 * 20);
    EXPECT_EQ(std::ranges::count(commands, 2U), 0) << "not without a setting; a failed read leaves it as it was";
    meter().Recover();
    SetScroll("3");
    Show(201);
    Show(200);
    TakeCommands();
    Ticks(1 + 4 * 20);
    EXPECT_EQ(std::ranges::count(TakeCommands(), 2U), 0 + 1) << "five refreshes after it was shown";
    Ticks(3 * 20);
    EXPECT_EQ(std::ranges::count(TakeCommands(), 2U), 1);
    page.isLastPage.Set(1);
    Ticks(3 * 20);
    EXPECT_EQ(std::ranges::count(TakeCommands(), 3U), 1) << "the last page is followed by the first";
    Press(KEY_SOFT_2);
    TakeCommands();
    Ticks(9 * 20);
    EXPECT_EQ(std::ranges::count(TakeCommands(), 3U), 0) << "a key delays the next page by ten refreshes";
    Ticks(20);
    EXPECT_EQ(std::ranges::count(TakeCommands(), 3U), 1);
}

}  // namespace
