#include "rda/records.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/rda/loopback.h"

namespace {

/// A record over the bytes 0, 1, 2..., so that each field shows where it begins.
template <typename Record>
Record Counting() {
    Record record{};
    const std::string bytes = CountingBytes(sizeof record);
    std::memcpy(&record, bytes.data(), bytes.size());
    return record;
}

/// The little-endian word at an offset of such a record.
constexpr std::uint32_t WordAt(std::uint32_t offset) {
    std::uint32_t value = 0;
    for (std::uint32_t i = 4; i-- > 0;) value = value << 8 | ((offset + i) & 0xFF);
    return value;
}

/// Where a text field of such a record begins, which its first byte tells up to a multiple of 256.
template <std::size_t Size>
unsigned Begin(const std::array<char, Size>& field) {
    return static_cast<unsigned char>(field[0]);
}

TEST(Wire, NumbersAreLittleEndianBitPatterns) {
    EXPECT_EQ((WireU16{{0x34, 0x12}}).Get(), 0x1234);
    EXPECT_EQ((WireU32{{0x25, 0x25, 0x52, 0x52}}).Get(), 0x52522525U);
    EXPECT_EQ((WireI32{{0xFE, 0xFF, 0xFF, 0xFF}}).Get(), -2);
    EXPECT_EQ((WireU64{{1, 0, 0, 0, 0, 0, 0, 0x80}}).Get(), 0x8000000000000001ULL);
    EXPECT_EQ((WireF32{{0x00, 0x00, 0xC0, 0xBF}}).Get(), -1.5F);
    EXPECT_EQ((WireF64{{0, 0, 0, 0, 0, 0, 0x04, 0x40}}).Get(), 2.5);

    WireF32 temperature{};
    temperature.Set(-500.0F);
    EXPECT_EQ(temperature.bytes, (std::array<std::uint8_t, 4>{0x00, 0x00, 0xFA, 0xC3}));
    WireI32 negative{};
    negative.Set(-3600);
    EXPECT_EQ(negative.Get(), -3600);
}

TEST(Wire, TextsEndAtTheirTerminatorOrAtTheEndOfTheirField) {
    EXPECT_EQ(TextIn(std::array<char, 6>{'a', 'b', '\0', 'c', 'd', 'e'}), "ab");
    EXPECT_EQ(TextIn(std::array<char, 3>{'a', 'b', 'c'}), "abc");
    EXPECT_EQ(TextIn(std::array<char, 2>{'\0', 'x'}), "");
}

TEST(Records, OfRegistersHaveTheirFieldsInPlace) {
    const auto value = Counting<RegisterValue>();
    EXPECT_EQ(Begin(value.label), 132U);
    EXPECT_EQ(Begin(value.value), 172U);
    EXPECT_EQ(Begin(value.unit), 217U);
    EXPECT_EQ(Begin(value.date), 227U);
    EXPECT_EQ(Begin(value.time), 238U);
    EXPECT_EQ(Counting<EnumerationValue>().current.Get(), WordAt(132));
    const auto choice = Counting<EnumerationData>();
    EXPECT_EQ(choice.count.Get(), WordAt(132));
    EXPECT_EQ(choice.current.Get(), WordAt(136));
    EXPECT_EQ(Begin(choice.items[39]), (140U + 39 * 40) % 256);
    EXPECT_EQ(Begin(Counting<RegisterWriteResult>().text), 4U);
    const auto page = Counting<CustomScreenData>();
    EXPECT_EQ(page.isLastPage.Get(), WordAt(8));
    EXPECT_EQ(Begin(page.title), 12U);
    EXPECT_EQ(page.count.Get(), WordAt(44));
    EXPECT_EQ(Begin(page.parameters[5].unit), (48U + 5 * 264 + 217) % 256);
}

TEST(Records, OfAlarmsHaveTheirFieldsInPlace) {
    EXPECT_EQ(Counting<AlarmStats>().unacknowledged.Get(), WordAt(4));
    const auto alarm = Counting<AlarmEntry>();
    EXPECT_EQ(Begin(alarm.qualifier), 30U);
    EXPECT_EQ(Begin(alarm.startDate), 50U);
    EXPECT_EQ(Begin(alarm.startTime), 61U);
    EXPECT_EQ(Begin(alarm.endDate), 96U);
    EXPECT_EQ(Begin(alarm.endTime), 107U);
    EXPECT_EQ(Begin(alarm.value), 119U);
    EXPECT_EQ(alarm.hasEnded.Get(), 164);
    EXPECT_EQ(alarm.priority.Get(), 0xA7A6);
    EXPECT_EQ(alarm.startSeconds.Get() & 0xFFFFFFFF, WordAt(168));
    EXPECT_EQ(alarm.endSeconds.Get() & 0xFFFFFFFF, WordAt(176));
    const auto settable = Counting<SettableAlarmEntry>();
    EXPECT_EQ(settable.kind.Get(), 0x0504);
    EXPECT_EQ(settable.enabled.Get(), WordAt(8));
    EXPECT_EQ(settable.icon.Get(), WordAt(12));
    EXPECT_EQ(Begin(settable.name), 16U);
}

TEST(Records, OfPowerQualityHaveTheirFieldsInPlace) {
    const auto phasor = Counting<PhasorEntry>();
    EXPECT_EQ(Begin(phasor.magnitudeText), 40U);
    EXPECT_EQ(phasor.magnitude.Get(), static_cast<std::int32_t>(WordAt(80)));
    EXPECT_EQ(Begin(phasor.angleLabel), 84U);
    EXPECT_EQ(Begin(phasor.angleText), 124U);
    EXPECT_EQ(phasor.angle.Get(), static_cast<std::int32_t>(WordAt(164)));
    EXPECT_EQ(phasor.shown.Get(), WordAt(168));
    const auto harmonics = Counting<HarmonicData>();
    EXPECT_EQ(harmonics.magnitudes[62].Get(), WordAt(248));
    EXPECT_EQ(harmonics.fullScale.Get(), WordAt(256));
    EXPECT_EQ(harmonics.labelChoice.Get(), WordAt(260));
    EXPECT_EQ(static_cast<unsigned char>(harmonics.Text(HarmonicText::AxisBottom)[0]), (264U + 8 * 40) % 256);
    const auto bar = Counting<MinMaxBarData>();
    EXPECT_EQ(Begin(bar.minimumText), 16U);
    EXPECT_EQ(Begin(bar.maximumText), 80U);
    EXPECT_EQ(bar.present.valid.Get(), WordAt(128));
    EXPECT_EQ(bar.present.value.bytes[0], 136);
    EXPECT_EQ(Begin(bar.presentText), 144U);
    EXPECT_EQ(Begin(bar.label), 189U);
}

TEST(Records, OfTheOtherKindsHaveTheirFieldsInPlace) {
    EXPECT_EQ(Begin(Counting<DateTimeStrings>().time), 11U);
    EXPECT_EQ(Begin(Counting<NameplateData>().fields[22]), (22U * 40) % 256);
    EXPECT_EQ(Counting<AccessRights>().frontPanel.Get(), WordAt(4));
    const auto point = Counting<IoPointEntry>();
    EXPECT_EQ(Begin(point.state), 40U);
    EXPECT_EQ(Begin(point.secondState), 85U);
    const auto event = Counting<EventLogEntry>();
    EXPECT_EQ(Begin(event.date), 4U);
    EXPECT_EQ(Begin(event.time), 15U);
    EXPECT_EQ(Begin(event.source), 27U);
    EXPECT_EQ(Begin(event.description), 77U);
}

}  // namespace
