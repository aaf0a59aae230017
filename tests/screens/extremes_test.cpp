#include <cstring>

#include "localization/display_config.h"
#include "screens/extremes/minmax_bar_screen.h"
#include "screens/extremes/minmax_screen.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/panel_bench.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr auto kRegister = "PDMINTERFACE_getRegisterValue";
constexpr auto kBar = "PQINTERFACE_getMinMaxBarData";

using Ids = std::vector<std::uint32_t>;

RegisterValue Register(std::string_view value) {
    RegisterValue record{};
    Write(record.label, "Voltage L1-N");
    Write(record.value, value);
    Write(record.unit, "V");
    Write(record.date, "2025-06-15");
    Write(record.time, "17:06:40");
    return record;
}

struct BarValues {
    double minimum;
    double maximum;
    double present;
    std::uint32_t minimumValid = 1;
    std::uint32_t presentValid = 1;
};

MinMaxBarData Bar(const BarValues& values) {
    MinMaxBarData data{};
    data.minimum.valid.Set(values.minimumValid);
    data.minimum.value.Set(values.minimum);
    data.maximum.value.Set(values.maximum);
    data.present.valid.Set(values.presentValid);
    data.present.value.Set(values.present);
    Write(data.minimumText, "min");
    Write(data.maximumText, "max");
    Write(data.presentText, "now");
    Write(data.label, "U1");
    return data;
}

class ExtremesBench : public PanelBench {
protected:
    ExtremesBench() {
        CreateCustomScreens();
        CreateMinMaxScreens();
        CreateMinMaxBarScreens();
        meter().Model().Advance(3'600'000);
    }
};

class ExtremesLists : public ExtremesBench {};

TEST_F(ExtremesLists, LookAsTheyShould) {
    for (const ExtremesRow& row : kExtremesRows) {
        Show(row.screen);
        EXPECT_TRUE(PanelShows("extremes/screen_" + std::to_string(row.screen)));
    }
}

TEST_F(ExtremesLists, AreEmptyWhileTheMeterIsSilentAndRecover) {
    for (const auto& [screen, count] : {std::pair{31, "one"}, {43, "two"}, {15, "three"}}) {
        meter().FallSilent();
        Show(screen);
        EXPECT_TRUE(PanelShows(std::string("extremes/silent_meter_") + count));
        meter().Recover();
        Ticks(21);
        EXPECT_TRUE(PanelShows("extremes/screen_" + std::to_string(screen)));
    }
}

TEST_F(ExtremesLists, ReadEachRegisterOnceARefreshAndDrawOnlyWhatChanged) {
    Ids read;
    meter().AnswerBy(kRegister, [&](auto payload, auto response) {
        std::uint32_t id = 0;
        std::memcpy(&id, payload.data(), sizeof id);
        read.push_back(id);
        const RegisterValue record = Register("230.1");
        std::memcpy(response.data(), &record, sizeof record);
        return true;
    });
    for (const auto& [screen, registers] :
         {std::pair{15, Ids{3685, 3697, 3703}}, {42, Ids{2050, 2041}}, {30, Ids{1345}}}) {
        Show(screen);
        Ticks(1);
        read.clear();
        Screen().flushes = 0;
        Ticks(20);
        EXPECT_EQ(read, registers);
        EXPECT_EQ(Screen().flushes, 0);
    }
}

TEST_F(ExtremesLists, CutTextsWithoutEnd) {
    RegisterValue endless{};
    endless.label.fill('W');
    endless.value.fill('8');
    endless.unit.fill('k');
    endless.date.fill('0');
    endless.time.fill('0');
    meter().Answer(kRegister, endless);
    for (const auto& [screen, count] : {std::pair{31, "one"}, {43, "two"}, {15, "three"}}) {
        Show(screen);
        EXPECT_TRUE(PanelShows(std::string("extremes/endless_texts_") + count));
    }
}

/// Bars whose values a test composes, by the register of the present value.
class ExtremesBars : public ExtremesBench {
protected:
    void Compose() {
        meter().AnswerBy(kBar, [this](auto payload, auto response) {
            std::array<std::uint32_t, 3> ids{};
            std::memcpy(ids.data(), payload.data(), sizeof ids);
            asked.insert(asked.end(), ids.begin(), ids.end());
            const auto bar = bars.find(ids[2]);
            if (bar == bars.end()) return false;
            std::memcpy(response.data(), &bar->second, sizeof bar->second);
            return true;
        });
    }
    void Wire(std::string_view wiring) { meter().Answer(kRegister, Register(wiring)); }

    std::map<std::uint32_t, MinMaxBarData> bars;
    Ids asked;
};

TEST_F(ExtremesBars, LookAsTheyShould) {
    for (const BarScreenRow& row : kBarScreenRows) {
        Show(row.screen);
        EXPECT_TRUE(PanelShows("extremes/bars_" + std::to_string(row.screen)));
    }
    DISPCFG_setLanguage(5);
    DISPCFG_setPhaseLabels(2);
    Ticks(41);
    EXPECT_TRUE(PanelShows("extremes/bars_russian_rst"));
}

TEST_F(ExtremesBars, SayThatNothingIsKnownWhileTheMeterIsSilentAndRecover) {
    for (const std::int32_t screen : {6, 17}) {
        meter().FallSilent();
        Show(screen);
        EXPECT_TRUE(PanelShows("extremes/bars_silent_meter_" + std::to_string(screen)));
        meter().Recover();
        Ticks(21);
        EXPECT_TRUE(PanelShows("extremes/bars_" + std::to_string(screen)));
    }
}

TEST_F(ExtremesBars, ShareOneScale) {
    Compose();
    bars = {{3681, Bar({0, 50, 25})}, {3693, Bar({50, 100, 100})}, {3699, Bar({25, 75, 0})}};
    Show(17);
    EXPECT_TRUE(PanelShows("extremes/bars_one_scale"));
    bars = {{3681, Bar({-100, -50, -75})}, {3693, Bar({-50, -1, -1})}, {3699, Bar({-75, -25, -100})}};
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bars_negative"));
}

TEST_F(ExtremesBars, LeaveTheScaleToTheValidOnes) {
    Compose();
    const auto notOne = Bar({-1000, 1000, 0, 2});
    const auto noPresent = Bar({-1000, 1000, 0, 1, 0});
    bars = {{3681, Bar({0, 50, 25, 1, 7})}, {3693, notOne}, {3699, noPresent}};
    Show(17);
    EXPECT_TRUE(PanelShows("extremes/bars_two_not_valid"));
    bars.erase(3693);
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bars_two_not_valid")) << "a failed call says the same";
}

TEST_F(ExtremesBars, StayOnThePanelWhateverTheValues) {
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    Compose();
    bars[298] = Bar({5, 5, 5});
    Show(6);
    EXPECT_TRUE(PanelShows("extremes/bar_without_extent"));
    bars[298] = Bar({0, 100, 103});
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bar_beyond"));
    bars[298] = Bar({0, 100, -50});
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bar_below"));
    for (const double nowhere : {kNotANumber, -kEndless}) {
        bars[298] = Bar({0, 100, nowhere});
        Ticks(20);
        EXPECT_TRUE(PanelShows("extremes/bar_below"));
    }
    bars[298] = Bar({100, 0, 50});
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bar_turned_round"));
    for (const double odd : {kEndless, -kEndless, kNotANumber, 1e308, -1e308}) {
        for (const BarValues& values : {BarValues{odd, 1, 0}, {0, odd, 0}, {0, 1, odd}, {odd, odd, odd}}) {
            bars[298] = Bar(values);
            Ticks(20);
        }
    }
    bars[298] = Bar({0, 100, 103});
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bar_beyond"));
}

TEST_F(ExtremesBars, CutTextsWithoutEnd) {
    Compose();
    MinMaxBarData endless = Bar({0, 100, 50});
    endless.minimumText.fill('8');
    endless.maximumText.fill('8');
    endless.presentText.fill('8');
    endless.label.fill('W');
    bars = {{3681, endless}, {3693, endless}, {3699, Bar({0, 100, 50})}};
    Show(17);
    EXPECT_TRUE(PanelShows("extremes/bars_endless_texts"));
}

TEST_F(ExtremesBars, FollowTheWiringOnTheirFirstScreenOnly) {
    Compose();
    for (const auto& [wiring, registers] : {std::pair{"DELTA", Ids{3691, 3692, 3687}},
                                            {"DELTA 3W", Ids{3691, 3692, 3687}},
                                            {"4W-WYE", Ids{3709, 3710, 3708}},
                                            {"delta", Ids{3709, 3710, 3708}}}) {
        Wire(wiring);
        Show(6);
        asked.clear();
        Show(5);
        EXPECT_EQ(Ids(asked.begin(), asked.begin() + 3), registers) << wiring;
    }
    meter().Fail(kRegister);
    asked.clear();
    Ticks(20);
    EXPECT_EQ(Ids(asked.begin(), asked.begin() + 3), (Ids{3709, 3710, 3708}));
    Show(18);
    meter().ForgetCalls();
    asked.clear();
    Ticks(20);
    EXPECT_EQ(meter().Calls(kRegister), 0) << "the wiring is asked for where it matters";
    EXPECT_EQ(Ids(asked.begin(), asked.begin() + 3), (Ids{3691, 3692, 3687}));
}

TEST_F(ExtremesBars, ReadEachQuantityOnceARefreshAndDrawOnlyWhatChanged) {
    Show(29);
    Ticks(1);
    meter().ForgetCalls();
    Screen().flushes = 0;
    Ticks(20);
    EXPECT_EQ(meter().Calls(kBar), 3);
    EXPECT_EQ(Screen().flushes, 0);
}

}  // namespace
