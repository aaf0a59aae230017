#include <limits>
#include <map>

#include "screens/extremes/minmax_bar_screen.h"
#include "screens/parameters/custom_screen.h"
#include "tests/bench/test_on.h"
#include "tests/bench/wire_text.h"

namespace {

constexpr auto kRegister = "PDMINTERFACE_getRegisterValue";
constexpr auto kBar = "PQINTERFACE_getMinMaxBarData";

using Ids = std::vector<std::uint32_t>;

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

/// Bars whose values a test composes, by the register of the present value.
class ExtremesBars : public PanelTest {
protected:
    ExtremesBars() {
        CreateCustomScreens();
        CreateMinMaxBarScreens();
        meter().AnswerFrom(kBar, [this](const auto& ids) {
            asked.insert(asked.end(), ids.begin(), ids.end());
            return bars[ids[2]];
        });
    }

    std::map<std::uint32_t, MinMaxBarData> bars;
    Ids asked;
};

TEST_F(ExtremesBars, ShareOneScaleOfTheValidOnes) {
    bars = {{3681, Bar({0, 50, 25})}, {3693, Bar({50, 100, 100})}, {3699, Bar({25, 75, 0})}};
    Show(17);
    EXPECT_TRUE(PanelShows("extremes/bars_one_scale"));
    bars = {{3681, Bar({-100, -50, -75})}, {3693, Bar({-50, -1, -1})}, {3699, Bar({-75, -25, -100})}};
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bars_negative"));
    bars = {{3681, Bar({0, 50, 25, 1, 7})}, {3693, Bar({-1000, 1000, 0, 2})}, {3699, Bar({-1000, 1000, 0, 1, 0})}};
    Ticks(20);
    EXPECT_TRUE(PanelShows("extremes/bars_two_not_valid"));
}

TEST_F(ExtremesBars, StayOnThePanelWhateverTheValues) {
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    Show(6);
    for (const auto& [name, values] : {std::pair{"without_extent", BarValues{5, 5, 5}},
                                       {"beyond", {0, 100, 103}},
                                       {"below", {0, 100, -50}},
                                       {"below", {0, 100, kNotANumber}},
                                       {"below", {0, 100, -kEndless}},
                                       {"turned_round", {100, 0, 50}}}) {
        bars[298] = Bar(values);
        Ticks(20);
        EXPECT_TRUE(PanelShows(std::string("extremes/bar_") + name));
    }
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

TEST_F(ExtremesBars, FollowTheWiringOnTheirFirstScreenOnly) {
    const Ids betweenLines = {3691, 3692, 3687};
    const Ids toNeutral = {3709, 3710, 3708};
    const auto firstBarOf = [this](std::int32_t screen) {
        Show(6);
        asked.clear();
        Show(screen);
        return Ids(asked.begin(), asked.begin() + 3);
    };
    for (const auto& [wiring, registers] : {std::pair{"DELTA", betweenLines}, {"4W-WYE", toNeutral}}) {
        RegisterValue record{};
        Write(record.value, wiring);
        meter().Answer(kRegister, record);
        EXPECT_EQ(firstBarOf(5), registers) << wiring;
    }
    meter().Fail(kRegister);
    EXPECT_EQ(firstBarOf(5), toNeutral);
    meter().ForgetCalls();
    EXPECT_EQ(firstBarOf(18), betweenLines);
    EXPECT_EQ(meter().Calls(kRegister), 0) << "the wiring is asked for where it matters";
}

}  // namespace
