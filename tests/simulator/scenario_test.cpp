#include <cmath>

#include "tests/simulator/bench.h"

namespace {

using namespace meter;
using enum Quantity;

class Scenes : public bench::MeterAlone {
protected:
    void Play(std::string_view name, int seconds = 30) {
        m_meter.Play(*FindScenario(name));
        m_meter.Advance(seconds * 1000);
    }
    std::uint32_t Status() { return AskWord("ALARMSINTERFACE_getGlobalAlarmStatus"); }
};

TEST_F(Scenes, ASagRaisesAlarmsThatWaitForTheirDelayAndEndWithIt) {
    EXPECT_EQ(Status(), 12U);
    Play("sag", 5);
    EXPECT_TRUE(IsActive("Voltage sag L2"));
    EXPECT_FALSE(IsActive("Undervoltage L2"));
    Play("normal", 1);
    Play("sag", 8);
    EXPECT_FALSE(IsActive("Undervoltage L2")) << "the delay starts anew";
    m_meter.Advance(3'000);
    EXPECT_TRUE(IsActive("Undervoltage L2"));
    m_meter.Advance(20'000);
    EXPECT_FALSE(IsActive("Voltage sag L1"));
    EXPECT_NEAR(m_meter.Value(VoltageL2) / m_meter.Value(VoltageL1), 0.71, 0.03);
    EXPECT_EQ(Status(), 0U);
    EXPECT_TRUE(m_meter.Answer("ALARMSINTERFACE_ackActiveAlarms", {}, {}));
    EXPECT_EQ(Status(), 2U);

    Play("normal");
    EXPECT_FALSE(IsActive("Voltage sag L2"));
    EXPECT_EQ(Status(), 12U);
    const auto newest = Ask<AlarmEntry>("ALARMSINTERFACE_getHistoricalAlarms", bench::Words({0, 1}));
    EXPECT_EQ(newest.hasEnded.Get(), 1);
    EXPECT_GE(newest.endSeconds.Get(), newest.startSeconds.Get() + 20);
    EXPECT_FALSE(TextIn(newest.endTime).empty());

    EXPECT_EQ(m_meter.Write(4008, "Disabled", kMeterModule), std::nullopt);
    Play("sag");
    EXPECT_FALSE(IsActive("Voltage sag L2")) << "it is switched off";
    EXPECT_TRUE(IsActive("Undervoltage L2"));
}

TEST_F(Scenes, EachSituationShowsInWhatIsMeasured) {
    Play("swell");
    EXPECT_TRUE(IsActive("Voltage swell L1"));
    Play("unbalance");
    EXPECT_GT(m_meter.Value(Unbalance), 2.0);
    Play("phase-loss");
    EXPECT_EQ(m_meter.Value(VoltageL3), 0.0);
    EXPECT_TRUE(IsActive("Phase loss"));
    EXPECT_FALSE(IsActive("Phase reversal"));
    Play("reversed-phase");
    EXPECT_TRUE(IsActive("Phase reversal"));
    EXPECT_FALSE(IsActive("Phase loss"));
    Play("harmonics");
    EXPECT_GT(m_meter.Value(ThdVoltageL1), 5.0);
    EXPECT_TRUE(IsActive("Voltage THD L1"));
    Play("normal");
    EXPECT_TRUE(m_meter.GetAlarms().Active().empty());
}

TEST_F(Scenes, ADeltaSystemHasNoPhaseVoltagesButLineVoltages) {
    Play("delta");
    EXPECT_TRUE(std::isnan(m_meter.Value(VoltageL1)));
    EXPECT_EQ(TextIn(Get(3705).value), "---");
    EXPECT_EQ(TextIn(Get(reg::kWiring).value), "DELTA");
    EXPECT_NEAR(m_meter.Value(VoltageL12), 400.0, 25.0);
    EXPECT_GT(m_meter.Value(ApparentTotal), 0.0);
    const auto bar = Ask<MinMaxBarData>("PQINTERFACE_getMinMaxBarData", bench::Words({3706, 3707, 3705}));
    EXPECT_EQ(bar.present.valid.Get(), 0U);
    const auto phasor = Ask<PhasorEntry>("PQINTERFACE_getPhasorData", bench::Words({1}));
    EXPECT_EQ(TextIn(phasor.magnitudeLabel), "U12");
}

}  // namespace
