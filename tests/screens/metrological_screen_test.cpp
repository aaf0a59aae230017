#include "screens/metrological/metrological_screen.h"

#include <cstring>

#include "rda/records.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/panel_bench.h"

namespace {

class MetrologicalScreens : public PanelBench {
protected:
    MetrologicalScreens() {
        CreateMetrologicalScreens();
        CreateCustomScreens();
    }

    /// From now on the meter tells this value and unit for every register, and the test what was asked.
    void AnswerAll(std::string_view value, std::string_view unit) {
        meter().AnswerBy("PDMINTERFACE_getRegisterValue", [this, value, unit](auto payload, auto response) {
            std::uint32_t id = 0;
            std::memcpy(&id, payload.data(), sizeof id);
            asked.push_back(id);
            RegisterValue record{};
            std::copy_n(value.begin(), std::min(value.size(), record.value.size()), record.value.begin());
            std::copy_n(unit.begin(), std::min(unit.size(), record.unit.size()), record.unit.begin());
            std::memcpy(response.data(), &record, sizeof record);
            return true;
        });
    }

    std::vector<std::uint32_t> asked;
};

TEST_F(MetrologicalScreens, LookAsTheyShould) {
    for (const std::int32_t screen : {46, 47, 48, 51, 52}) {
        Show(screen);
        EXPECT_TRUE(PanelShows("metrological/screen_" + std::to_string(screen)));
    }
}

TEST_F(MetrologicalScreens, ReadTheirThreeRegistersOnceARefreshFromTheTopDown) {
    const std::vector<std::pair<std::int32_t, std::vector<std::uint32_t>>> registers = {
        {46, {1890, 1725, 1560}}, {47, {1878, 1713, 1548}}, {48, {1900, 1735, 1570}},
        {51, {1780, 1615, 1450}}, {52, {1842, 1677, 1512}},
    };
    AnswerAll("1.0", "kW");
    for (const auto& [screen, expected] : registers) {
        Show(screen);
        Ticks(1);
        asked.clear();
        Screen().flushes = 0;
        Ticks(20);
        EXPECT_EQ(asked, expected) << "screen " << screen;
        EXPECT_EQ(Screen().flushes, 0) << "the same values, the same date: nothing to draw";
    }
}

TEST_F(MetrologicalScreens, ShowEmptyTextsForARegisterThatFailsAndRecover) {
    Show(46);
    meter().AnswerBy("PDMINTERFACE_getRegisterValue", [](auto payload, auto response) {
        std::uint32_t id = 0;
        std::memcpy(&id, payload.data(), sizeof id);
        return id != 1725 && meter().Model().Answer("PDMINTERFACE_getRegisterValue", payload, response);
    });
    Ticks(20);
    EXPECT_TRUE(PanelShows("metrological/one_fails"));
    meter().FallSilent();
    Ticks(20);
    EXPECT_TRUE(PanelShows("metrological/silent_meter"));
    meter().Recover();
    meter().AnswerBy("PDMINTERFACE_getRegisterValue", [](auto payload, auto response) {
        return meter().Model().Answer("PDMINTERFACE_getRegisterValue", payload, response);
    });
    Ticks(20);
    EXPECT_TRUE(PanelShows("metrological/screen_46"));
}

TEST_F(MetrologicalScreens, TakeASmallerFontForALongerValueAndAFrameForTheWidest) {
    Show(46);
    for (const auto& [name, value, unit] :
         {std::tuple{"long", "-1 234 567 890.123", "Mvarh"}, {"longer", "1234567890123456789012345", "W"}}) {
        AnswerAll(value, unit);
        Ticks(20);
        EXPECT_TRUE(PanelShows(std::string("metrological/") + name));
    }
    RegisterValue endless{};
    endless.label.fill('W');
    endless.value.fill('8');
    endless.unit.fill('W');
    meter().Answer("PDMINTERFACE_getRegisterValue", endless);
    Ticks(20);
    EXPECT_TRUE(PanelShows("metrological/endless_texts"));
}

}  // namespace
