#include <gtest/gtest.h>

#include <string>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using enum Quantity;

class SettingsOfAMeter : public testing::Test {
protected:
    void LogIn() { ASSERT_EQ(bench::LogIn(m_meter, "USER", "0"), 0U); }
    std::string Newest() {
        const auto entry = bench::Ask<EventLogEntry>(m_meter, "EVLIF_getEventLogData", bench::Words({0, 1}));
        return std::string(TextIn(entry.source)) + ": " + std::string(TextIn(entry.description));
    }

    Meter m_meter{bench::kSeed, bench::kStart};
};

TEST_F(SettingsOfAMeter, NobodyWritesWithoutAPassword) {
    EXPECT_EQ(bench::Set(m_meter, reg::kLanguage, "German").result.Get(), 1U);
    EXPECT_EQ(bench::LogIn(m_meter, "USER", "1"), 1U);
    EXPECT_EQ(bench::LogIn(m_meter, "GUEST", "0"), 2U);
    EXPECT_EQ(bench::Set(m_meter, reg::kLanguage, "German").result.Get(), 1U);
    LogIn();
    EXPECT_EQ(bench::Set(m_meter, reg::kLanguage, "German").result.Get(), 0U);
    bench::Bytes none;
    ASSERT_TRUE(m_meter.Answer("SECURITYINTERFACE_clearFrontPanelPassword", {}, none));
    EXPECT_EQ(bench::Set(m_meter, reg::kLanguage, "French").result.Get(), 1U);
}

TEST_F(SettingsOfAMeter, EveryKindOfValueIsChecked) {
    LogIn();
    struct Attempt {
        std::uint32_t id;
        std::string_view text;
        bool accepted;
    };
    for (const Attempt& attempt : {
             Attempt{reg::kWiring, "DELTA", true},
             {reg::kWiring, "delta", false},
             {reg::kCtPrimary, "600.5", true},
             {reg::kCtPrimary, "0", false},
             {reg::kCtPrimary, "", false},
             {reg::kCtPrimary, "6e2", false},
             {reg::kCtPrimary, "nan", false},
             {reg::kStoredIpAddress, "10.0.0.255", true},
             {reg::kStoredIpAddress, "10.0.0.256", false},
             {reg::kStoredIpAddress, "None", true},
             {reg::kStoredIpAddress, "none", false},
             {reg::kHarmonicsShown, "63", true},
             {reg::kHarmonicsShown, "40", false},
             {reg::kStoredIpAddress, "10.0.0", false},
             {reg::kTimeZone, "-3600", true},
             {reg::kTimeZone, "99999", false},
             {180, "No", true},
             {180, "no", false},
             {3705, "230", false},
             {1916, "00", false},
             {4001, "Disabled", true},
             {4001, "Off", false},
             {178, "1", true},
             {178, "2", false},
             {65000, "1", false},
         }) {
        const auto result = bench::Set(m_meter, attempt.id, attempt.text);
        EXPECT_EQ(result.result.Get() == 0, attempt.accepted) << attempt.id << " " << attempt.text;
        EXPECT_FALSE(TextIn(result.text).empty());
    }
}

TEST_F(SettingsOfAMeter, TransformersScaleWhatIsMeasured) {
    Meter reference{bench::kSeed, bench::kStart};
    ASSERT_EQ(m_meter.Write(reg::kCtPrimary, "800", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kPtPrimary, "20000", kMeterModule), std::nullopt);
    for (Meter* meter : {&m_meter, &reference}) meter->Advance(1000);
    EXPECT_NEAR(m_meter.Value(CurrentL1) / reference.Value(CurrentL1), 2.0, 1e-9);
    EXPECT_NEAR(m_meter.Value(VoltageL1) / reference.Value(VoltageL1), 50.0, 1e-9);
    EXPECT_NEAR(m_meter.Value(ActiveTotal) / reference.Value(ActiveTotal), 100.0, 1e-9);
    EXPECT_EQ(TextIn(bench::Get(m_meter, 3681).unit), "kV");
    EXPECT_EQ(TextIn(bench::Get(reference, 3681).unit), "V");
}

TEST_F(SettingsOfAMeter, FormatsChangeTheTexts) {
    ASSERT_EQ(m_meter.Write(reg::kDateFormat, "DD.MM.YYYY", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kTimeFormat, "12 h", kMeterModule), std::nullopt);
    const auto strings = bench::Ask<DateTimeStrings>(m_meter, "DATETIMEINTERFACE_getLocalDateTimeStrings");
    EXPECT_EQ(TextIn(strings.date), "16.09.2026");
    EXPECT_EQ(TextIn(strings.time), "12:00:00 PM");
    ASSERT_EQ(m_meter.Write(reg::kDigitGrouping, "1.000,0", kMeterModule), std::nullopt);
    ASSERT_EQ(m_meter.Write(reg::kVoltageDecimals, "2", kMeterModule), std::nullopt);
    EXPECT_EQ(TextIn(bench::Get(m_meter, 3705).value).substr(3, 1), ",");
    EXPECT_EQ(TextIn(bench::Get(m_meter, 3705).value).size(), 6U);
    EXPECT_EQ(Grouped(-1234567.891, 1, Grouping::Spaces), "-1 234 567.9");
    EXPECT_EQ(Grouped(-0.04, 1, Grouping::Plain), "0.0");
    EXPECT_EQ(Grouped(123456.0, 0, Grouping::Commas), "123,456");
}

TEST_F(SettingsOfAMeter, ChangesAreLoggedAndPassedToTheDisplay) {
    LogIn();
    bench::Set(m_meter, reg::kLanguage, "Russian");
    EXPECT_EQ(Newest(), "Front panel: Language: Russian");
    bench::Set(m_meter, reg::kBacklightTimeout, "45");
    const auto commands = m_meter.TakeCommands();
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0].operation, "DISPCFG_setLanguage");
    EXPECT_EQ(commands[0].value, 5U);
    EXPECT_EQ(commands[1].operation, "BACKLIGHT_setTimeout");
    EXPECT_EQ(commands[1].value, 45U);
    EXPECT_TRUE(m_meter.TakeCommands().empty());
    EXPECT_EQ(bench::AskWord(m_meter, "BACKLIGHTINTERFACE_getTimeout"), 45U);
    const auto held =
        bench::Ask<EnumerationValue>(m_meter, "PDMINTERFACE_getEnumerationValue", bench::Words({reg::kLanguage}));
    EXPECT_EQ(held.result.Get(), 0U);
    EXPECT_EQ(held.current.Get(), 5U);
}

TEST_F(SettingsOfAMeter, ResetsClearWhatTheyName) {
    LogIn();
    const double peak = m_meter.GetStatistics().Of(BlockActive).maximum.value;
    bench::Set(m_meter, 2031, "1");
    EXPECT_EQ(m_meter.GetStatistics().Of(BlockActive).previousMaximum.value, peak);
    EXPECT_GT(m_meter.Value(ActiveEnergyIn), 0.0);
    bench::Set(m_meter, 178, "1");
    EXPECT_EQ(m_meter.Value(ActiveEnergyIn), 0.0);
    EXPECT_TRUE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
    bench::Set(m_meter, 1922, "1");
    EXPECT_FALSE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
    EXPECT_TRUE(m_meter.GetStatistics().Of(ThdVoltageL1).IsKnown());
    m_meter.Advance(1000);
    EXPECT_TRUE(m_meter.GetStatistics().Of(VoltageL1).IsKnown());
}

}  // namespace
