#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using enum Quantity;

class SettingsOfAMeter : public bench::MeterAlone {};

TEST_F(SettingsOfAMeter, EveryKindOfValueIsChecked) {
    ASSERT_EQ(LogIn("USER", "0"), 0U);
    struct Kind {
        std::uint32_t id;
        std::vector<std::string_view> accepted;
        std::vector<std::string_view> refused;
    };
    for (const Kind& kind : {
             Kind{reg::kWiring, {"DELTA"}, {"delta"}},
             {reg::kCtPrimary, {"600.5"}, {"0", "", "6e2", "nan"}},
             {reg::kStoredIpAddress, {"10.0.0.255", "None"}, {"10.0.0.256", "10.0.0", "none"}},
             {reg::kHarmonicsShown, {"63"}, {"40"}},
             {reg::kTimeZone, {"-3600"}, {"99999"}},
             {180, {"No"}, {"no"}},
             {3705, {}, {"230"}},
             {4001, {"Disabled"}, {"Off"}},
             {178, {"1"}, {"2"}},
             {65000, {}, {"1"}},
         }) {
        for (const std::string_view text : kind.accepted)
            EXPECT_EQ(Set(kind.id, text).result.Get(), 0U) << kind.id << " " << text;
        for (const std::string_view text : kind.refused)
            EXPECT_NE(Set(kind.id, text).result.Get(), 0U) << kind.id << " " << text;
    }
}

TEST_F(SettingsOfAMeter, TransformersScaleWhatIsMeasured) {
    Meter reference{bench::kSeed, bench::kStart};
    EXPECT_EQ(TextIn(Get(3681).unit), "V");
    ASSERT_EQ(m_meter.Write(reg::kCtPrimary, "800", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kPtPrimary, "20000", kMeterModule), std::nullopt);
    for (Meter* meter : {&m_meter, &reference}) meter->Advance(1000);
    EXPECT_NEAR(m_meter.Value(CurrentL1) / reference.Value(CurrentL1), 2.0, 1e-9);
    EXPECT_NEAR(m_meter.Value(VoltageL1) / reference.Value(VoltageL1), 50.0, 1e-9);
    EXPECT_NEAR(m_meter.Value(ActiveTotal) / reference.Value(ActiveTotal), 100.0, 1e-9);
    EXPECT_EQ(TextIn(Get(3681).unit), "kV");
}

TEST_F(SettingsOfAMeter, FormatsChangeTheTexts) {
    ASSERT_EQ(m_meter.Write(reg::kDateFormat, "DD.MM.YYYY", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kTimeFormat, "12 h", kMeterModule), std::nullopt);
    const auto strings = Ask<DateTimeStrings>("DATETIMEINTERFACE_getLocalDateTimeStrings");
    EXPECT_EQ(TextIn(strings.date), "16.09.2026");
    EXPECT_EQ(TextIn(strings.time), "12:00:00 PM");
    ASSERT_EQ(m_meter.Write(reg::kDigitGrouping, "1.000,0", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kVoltageDecimals, "2", kMeterModule), std::nullopt);
    EXPECT_EQ(TextIn(Get(3705).value).substr(3, 1), ",");
    EXPECT_EQ(TextIn(Get(3705).value).size(), 6U);
    EXPECT_EQ(Grouped(-1234567.891, 1, Grouping::Spaces), "-1 234 567.9");
    EXPECT_EQ(Grouped(-0.04, 1, Grouping::Plain), "0.0");
    EXPECT_EQ(Grouped(123456.0, 0, Grouping::Commas), "123,456");
}

TEST_F(SettingsOfAMeter, ChangesAreLoggedAndPassedToTheDisplay) {
    ASSERT_EQ(LogIn("USER", "0"), 0U);
    Set(reg::kLanguage, "Russian");
    const auto logged = Ask<EventLogEntry>("EVLIF_getEventLogData", bench::Words({0, 1}));
    EXPECT_EQ(TextIn(logged.source), "Front panel");
    EXPECT_EQ(TextIn(logged.description), "Language: Russian");
    Set(reg::kBacklightTimeout, "45");
    const auto commands = m_meter.TakeCommands();
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0].operation, "DISPCFG_setLanguage");
    EXPECT_EQ(commands[0].value, 5U);
    EXPECT_EQ(commands[1].operation, "BACKLIGHT_setTimeout");
    EXPECT_EQ(commands[1].value, 45U);
    EXPECT_TRUE(m_meter.TakeCommands().empty());
    EXPECT_EQ(AskWord("BACKLIGHTINTERFACE_getTimeout"), 45U);
}

TEST_F(SettingsOfAMeter, ResetsClearWhatTheyName) {
    ASSERT_EQ(LogIn("USER", "0"), 0U);
    const double peak = m_meter.GetStatistics().Of(BlockActive).maximum.value;
    Set(2031, "1");
    EXPECT_EQ(m_meter.GetStatistics().Of(BlockActive).previousMaximum.value, peak);
    EXPECT_GT(m_meter.Value(ActiveEnergyIn), 0.0);
    Set(178, "1");
    EXPECT_EQ(m_meter.Value(ActiveEnergyIn), 0.0);
    EXPECT_TRUE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
    Set(1922, "1");
    EXPECT_FALSE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
    EXPECT_TRUE(m_meter.GetStatistics().Of(ThdVoltageL1).IsKnown());
    m_meter.Advance(1000);
    EXPECT_TRUE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
}

}  // namespace
