#include <map>
#include <vector>

#include "setup/edit/signed_time.h"
#include "tests/setup/setup_edit_bench.h"

namespace {

constexpr std::int32_t kDecimal = 106;
constexpr std::int32_t kAddress = 133;
constexpr std::int32_t kWhole = 148;
constexpr std::int32_t kDelay = 147;
constexpr std::int32_t kTimeZone = 185;

class ValueScreen : public SetupEditBench {};

TEST_F(ValueScreen, WritesEveryRegisterAndReadsItBack) {
    for (const ValueRow& row : kValueRows) {
        const std::string before = HeldText(row.registerId);
        Open(row.screen);
        Press(KEY_SOFT_4);
        EXPECT_EQ(Shown(), kView) << "unchanged: no question";

        Open(row.screen);
        if (row.mask == kDecimalMask) Press(KEY_SOFT_2);  // to the decimal that the meter keeps
        Press(KEY_SOFT_3);
        Press(KEY_SOFT_4, 2);
        const std::string after = HeldText(row.registerId);
        EXPECT_EQ(Shown(), kView) << "screen " << row.screen << " wrote " << Written();
        EXPECT_EQ(meter().LastArgument(kWrite), row.registerId);
        EXPECT_NE(after, before) << row.screen;
        EXPECT_EQ(Written().substr(0, after.size()), after) << row.screen;
    }
}

TEST_F(ValueScreen, SendsWhatThePersonComposed) {
    const std::map<std::int32_t, std::vector<std::pair<std::string, std::string>>> cases = {
        {kDecimal, {{"400.0", "400.01"}, {"0.99", "0.90"}, {"", "0.01"}, {"much too long for it", "0.01"}}},
        {kAddress, {{"192.168.1.40", "192.168.1.41"}, {"None", "0.0.0.1"}, {"0.0.0.9", "None"}}},
        {kWhole, {{"42", "43"}, {"9999", "9990"}, {"x", "1"}}},
        {kDelay, {{"0.010", "0.011"}, {"12.5", "12.501"}}},
        {kTimeZone,
         {{"-3600", "-3601"},
          {"3600", "3601"},
          {"0", "1"},
          {"+50400", "50401"},
          {"359999", "359990"},
          {"360000", "1"},
          {"-2147483648", "1"},
          {"1.5", "1"}}},
    };
    for (const auto& [screen, texts] : cases) {
        for (const auto& [held, written] : texts) {
            Holds(held);
            Open(screen);
            Press(KEY_SOFT_3);
            Press(KEY_SOFT_4);
            EXPECT_EQ(meter().Calls(kWrite), 0) << "nothing is written unconfirmed";
            Press(KEY_SOFT_4);
            EXPECT_EQ(Written(), written) << held;
        }
    }
}

TEST_F(ValueScreen, TakesWhatReadsAsBeforeForNoChange) {
    Open(kAddress);
    Press(KEY_SOFT_2, 11);
    EXPECT_TRUE(PanelShows("setup/edit_address_passed"));
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kView) << "the cursor only passed";
    Holds("-3600");
    for (const int steps : {1, 2}) {
        Open(kTimeZone);
        Press(KEY_SOFT_2, 6);
        Press(KEY_SOFT_3, steps);
        Press(KEY_SOFT_4, 2);
        EXPECT_EQ(Written(), steps == 1 ? "3600" : "") << "the sign there, and there and back";
    }
}

TEST_F(ValueScreen, ShowsEveryMask) {
    for (const auto& [screen, name] :
         {std::pair{kDecimal, "decimal"}, {kAddress, "address"}, {kWhole, "whole"}, {kDelay, "delay"}}) {
        Open(screen);
        EXPECT_TRUE(PanelShows(std::string("setup/edit_") + name));
    }
    Holds("-3600");
    Open(kTimeZone);
    EXPECT_TRUE(PanelShows("setup/edit_time"));
    Holds("123456.78");
    Open(104);
    Press(KEY_SOFT_2, 4);
    EXPECT_TRUE(PanelShows("setup/edit_decimal_full"));
    Press(KEY_SOFT_3);
    Press(KEY_SOFT_4);
    EXPECT_TRUE(PanelShows("setup/edit_decimal_confirmation"));
}

TEST_F(ValueScreen, BeginsWithZeroAndAsksWhenTheValueIsNotKnown) {
    meter().Fail(kRead);
    Open(kDecimal);
    EXPECT_TRUE(PanelShows("setup/edit_decimal_unknown")) << "nothing of an earlier value";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Shown(), kDecimal) << "zero is not what the meter holds";
    Press(KEY_SOFT_4);
    EXPECT_EQ(Written(), "0.00");
    EXPECT_EQ(Shown(), kDecimal) << "and the meter refuses it";
}

TEST(SignedTime, IsTheSameThereAndBack) {
    for (const std::int32_t seconds : {0, 1, -1, 59, 60, 3599, -3600, 86399, -50400, 359999, INT32_MAX, -INT32_MAX}) {
        EXPECT_EQ(SecondsOf(TimeOf(seconds).data()), seconds) << TimeOf(seconds).data();
    }
    EXPECT_EQ(SecondsOf("+99:99:99"), 99 * 3600 + 99 * 60 + 99);
    EXPECT_EQ(SecondsIn("x"), std::nullopt);
}

}  // namespace
