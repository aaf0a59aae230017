#include "rda/records.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Offsets = std::vector<std::ptrdiff_t>;

/// Where fields of a record begin.
template <typename Record, typename... Fields>
Offsets OffsetsOf(Fields Record::*... fields) {
    const Record record{};
    const auto* begin = reinterpret_cast<const char*>(&record);
    return {reinterpret_cast<const char*>(&(record.*fields)) - begin...};
}

TEST(Wire, NumbersAreLittleEndianBitPatterns) {
    EXPECT_EQ((WireU16{{0x34, 0x12}}).Get(), 0x1234);
    EXPECT_EQ((WireU32{{0x25, 0x25, 0x52, 0x52}}).Get(), 0x52522525U);
    EXPECT_EQ((WireI32{{0xFE, 0xFF, 0xFF, 0xFF}}).Get(), -2);
    EXPECT_EQ((WireU64{{1, 0, 0, 0, 0, 0, 0, 0x80}}).Get(), 0x8000000000000001ULL);
    EXPECT_EQ((WireF64{{0, 0, 0, 0, 0, 0, 0x04, 0x40}}).Get(), 2.5);
    WireF32 temperature{};
    temperature.Set(-500.0F);
    EXPECT_EQ(temperature.bytes, (std::array<std::uint8_t, 4>{0x00, 0x00, 0xFA, 0xC3}));
    EXPECT_EQ(temperature.Get(), -500.0F);
}

TEST(Wire, TextsEndAtTheirTerminatorOrAtTheEndOfTheirField) {
    EXPECT_EQ(TextIn(std::array<char, 6>{'a', 'b', '\0', 'c', 'd', 'e'}), "ab");
    EXPECT_EQ(TextIn(std::array<char, 3>{'a', 'b', 'c'}), "abc");
    EXPECT_EQ(TextIn(std::array<char, 2>{'\0', 'x'}), "");
}

TEST(Records, HaveTheirFieldsInPlace) {
    using Value = RegisterValue;
    EXPECT_EQ(OffsetsOf(&Value::label, &Value::value, &Value::unit, &Value::date, &Value::time),
              (Offsets{132, 172, 217, 227, 238}));
    EXPECT_EQ(OffsetsOf(&EnumerationValue::current), Offsets{132});
    using Choice = EnumerationData;
    EXPECT_EQ(OffsetsOf(&Choice::count, &Choice::current, &Choice::items), (Offsets{132, 136, 140}));
    EXPECT_EQ(OffsetsOf(&RegisterWriteResult::text), Offsets{4});
    using Page = CustomScreenData;
    EXPECT_EQ(OffsetsOf(&Page::isLastPage, &Page::title, &Page::count, &Page::parameters), (Offsets{8, 12, 44, 48}));
    using Alarm = AlarmEntry;
    EXPECT_EQ(OffsetsOf(&AlarmStats::unacknowledged), Offsets{4});
    EXPECT_EQ(OffsetsOf(&Alarm::qualifier, &Alarm::startDate, &Alarm::startTime, &Alarm::endDate, &Alarm::endTime,
                        &Alarm::value, &Alarm::hasEnded, &Alarm::priority, &Alarm::startSeconds, &Alarm::endSeconds),
              (Offsets{30, 50, 61, 96, 107, 119, 164, 166, 168, 176}));
    using Settable = SettableAlarmEntry;
    EXPECT_EQ(OffsetsOf(&Settable::kind, &Settable::enabled, &Settable::icon, &Settable::name),
              (Offsets{4, 8, 12, 16}));
    using Phasor = PhasorEntry;
    EXPECT_EQ(OffsetsOf(&Phasor::magnitudeText, &Phasor::magnitude, &Phasor::angleLabel, &Phasor::angleText,
                        &Phasor::angle, &Phasor::shown),
              (Offsets{40, 80, 84, 124, 164, 168}));
    using Harmonics = HarmonicData;
    EXPECT_EQ(OffsetsOf(&Harmonics::fullScale, &Harmonics::labelChoice, &Harmonics::texts), (Offsets{256, 260, 264}));
    EXPECT_EQ(std::size_t{8}, static_cast<std::size_t>(HarmonicText::AxisBottom));
    using Bar = MinMaxBarData;
    EXPECT_EQ(OffsetsOf(&MinMaxValue::valid, &MinMaxValue::value), (Offsets{0, 8}));
    EXPECT_EQ(OffsetsOf(&Bar::minimumText, &Bar::maximumText, &Bar::present, &Bar::presentText, &Bar::label),
              (Offsets{16, 80, 128, 144, 189}));
    EXPECT_EQ(OffsetsOf(&DateTimeStrings::time), Offsets{11});
    EXPECT_EQ(OffsetsOf(&AccessRights::frontPanel), Offsets{4});
    EXPECT_EQ(OffsetsOf(&IoPointEntry::state, &IoPointEntry::secondState), (Offsets{40, 85}));
    using Event = EventLogEntry;
    EXPECT_EQ(OffsetsOf(&Event::date, &Event::time, &Event::source, &Event::description), (Offsets{4, 15, 27, 77}));
}

}  // namespace
