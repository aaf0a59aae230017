#include "simulator/meter/wire/layouts.h"

#include <algorithm>
#include <array>

#include "rda/records.h"

namespace meter {
namespace {

/// What kind of field a member's type makes.
template <typename Member>
struct Kind {
    static constexpr FieldType kType = FieldType::Record;
    static constexpr std::size_t kCount = 1;
    using Element = Member;
};
template <FieldType type, typename Member>
struct NumberKind {
    static constexpr FieldType kType = type;
    static constexpr std::size_t kCount = 1;
    using Element = Member;
};
// clang-format off
template <> struct Kind<std::uint8_t> : NumberKind<FieldType::U8, std::uint8_t> {};
template <> struct Kind<WireU8> : NumberKind<FieldType::U8, WireU8> {};
template <> struct Kind<WireU16> : NumberKind<FieldType::U16, WireU16> {};
template <> struct Kind<WireU32> : NumberKind<FieldType::U32, WireU32> {};
template <> struct Kind<WireI32> : NumberKind<FieldType::I32, WireI32> {};
template <> struct Kind<WireU64> : NumberKind<FieldType::U64, WireU64> {};
template <> struct Kind<WireF32> : NumberKind<FieldType::F32, WireF32> {};
template <> struct Kind<WireF64> : NumberKind<FieldType::F64, WireF64> {};
template <std::size_t Size> struct Kind<std::array<char, Size>> : NumberKind<FieldType::Text, std::array<char, Size>> {};
// clang-format on
template <typename Item, std::size_t Size>
struct Kind<std::array<Item, Size>> : Kind<Item> {
    static constexpr std::size_t kCount = Size;
};

template <typename Member>
constexpr Field Describe(std::string_view name, std::size_t offset, const RecordLayout* record = nullptr) {
    using Its = Kind<Member>;
    return {name, Its::kType, offset, sizeof(typename Its::Element), Its::kCount, record};
}

/// Whether the fields cover a record of that size from its first byte to its last.
constexpr bool Covers(std::span<const Field> fields, std::size_t size) {
    std::size_t end = 0;
    for (const Field& field : fields) {
        if (field.offset != end || (field.type == FieldType::Record) != (field.record != nullptr)) return false;
        end = field.End();
    }
    return end == size;
}

// A field is described by its own member; what a macro alone can do is to name it once.
#define FIELD(record, member) Describe<decltype(record::member)>(#member, offsetof(record, member))
#define NESTED(record, member, layout) Describe<decltype(record::member)>(#member, offsetof(record, member), &(layout))
#define LAYOUT(record)                                                                                    \
    static_assert(Covers(fields::k##record, sizeof(::record)), #record " is not described byte by byte"); \
    constexpr RecordLayout layout::k##record = {#record, sizeof(::record), fields::k##record}

namespace fields {
// clang-format off
constexpr std::array kDateTimeStrings = {FIELD(DateTimeStrings, date), FIELD(DateTimeStrings, time)};
constexpr std::array kEnumerationValue = {FIELD(EnumerationValue, result), FIELD(EnumerationValue, text),
    FIELD(EnumerationValue, current)};
constexpr std::array kEnumerationData = {FIELD(EnumerationData, result), FIELD(EnumerationData, text),
    FIELD(EnumerationData, count), FIELD(EnumerationData, current), FIELD(EnumerationData, items)};
constexpr std::array kRegisterValue = {FIELD(RegisterValue, description), FIELD(RegisterValue, label),
    FIELD(RegisterValue, value), FIELD(RegisterValue, unit), FIELD(RegisterValue, date), FIELD(RegisterValue, time)};
constexpr std::array kRegisterWriteResult = {FIELD(RegisterWriteResult, result), FIELD(RegisterWriteResult, text)};
constexpr std::array kAlarmStats = {FIELD(AlarmStats, count), FIELD(AlarmStats, unacknowledged)};
constexpr std::array kAlarmEntry = {FIELD(AlarmEntry, name), FIELD(AlarmEntry, qualifier), FIELD(AlarmEntry, startDate),
    FIELD(AlarmEntry, startTime), FIELD(AlarmEntry, endDate), FIELD(AlarmEntry, endTime), FIELD(AlarmEntry, value),
    FIELD(AlarmEntry, hasEnded), FIELD(AlarmEntry, unused), FIELD(AlarmEntry, priority),
    FIELD(AlarmEntry, startSeconds), FIELD(AlarmEntry, endSeconds)};
constexpr std::array kSettableAlarmEntry = {FIELD(SettableAlarmEntry, registerId), FIELD(SettableAlarmEntry, kind),
    FIELD(SettableAlarmEntry, unused), FIELD(SettableAlarmEntry, enabled), FIELD(SettableAlarmEntry, icon),
    FIELD(SettableAlarmEntry, name)};
constexpr std::array kAccessRights = {FIELD(AccessRights, unused), FIELD(AccessRights, frontPanel)};
constexpr std::array kPhasorEntry = {FIELD(PhasorEntry, magnitudeLabel), FIELD(PhasorEntry, magnitudeText),
    FIELD(PhasorEntry, magnitude), FIELD(PhasorEntry, angleLabel), FIELD(PhasorEntry, angleText),
    FIELD(PhasorEntry, angle), FIELD(PhasorEntry, shown)};
constexpr std::array kHarmonicData = {FIELD(HarmonicData, magnitudes), FIELD(HarmonicData, unused),
    FIELD(HarmonicData, fullScale), FIELD(HarmonicData, labelChoice), FIELD(HarmonicData, texts),
    FIELD(HarmonicData, reserved)};
constexpr std::array kMinMaxValue = {FIELD(MinMaxValue, valid), FIELD(MinMaxValue, unused), FIELD(MinMaxValue, value)};
constexpr std::array kMinMaxBarData = {NESTED(MinMaxBarData, minimum, layout::kMinMaxValue),
    FIELD(MinMaxBarData, minimumText), NESTED(MinMaxBarData, maximum, layout::kMinMaxValue),
    FIELD(MinMaxBarData, maximumText), NESTED(MinMaxBarData, present, layout::kMinMaxValue),
    FIELD(MinMaxBarData, presentText), FIELD(MinMaxBarData, label)};
constexpr std::array kCustomScreenData = {FIELD(CustomScreenData, status), FIELD(CustomScreenData, isFirstPage),
    FIELD(CustomScreenData, isLastPage), FIELD(CustomScreenData, title), FIELD(CustomScreenData, count),
    NESTED(CustomScreenData, parameters, layout::kRegisterValue)};
constexpr std::array kIoPointEntry = {FIELD(IoPointEntry, label), FIELD(IoPointEntry, state),
    FIELD(IoPointEntry, secondState)};
constexpr std::array kNameplateData = {FIELD(NameplateData, fields)};
constexpr std::array kEventLogEntry = {FIELD(EventLogEntry, unused), FIELD(EventLogEntry, date),
    FIELD(EventLogEntry, time), FIELD(EventLogEntry, source), FIELD(EventLogEntry, description)};
// clang-format on
}  // namespace fields

}  // namespace

LAYOUT(DateTimeStrings);
LAYOUT(EnumerationValue);
LAYOUT(EnumerationData);
LAYOUT(RegisterValue);
LAYOUT(RegisterWriteResult);
LAYOUT(AlarmStats);
LAYOUT(AlarmEntry);
LAYOUT(SettableAlarmEntry);
LAYOUT(AccessRights);
LAYOUT(PhasorEntry);
LAYOUT(HarmonicData);
LAYOUT(MinMaxValue);
LAYOUT(MinMaxBarData);
LAYOUT(CustomScreenData);
LAYOUT(IoPointEntry);
LAYOUT(NameplateData);
LAYOUT(EventLogEntry);

#undef LAYOUT
#undef NESTED
#undef FIELD

namespace {

constexpr auto kLayouts = std::to_array<const RecordLayout*>({
    &layout::kDateTimeStrings,
    &layout::kEnumerationValue,
    &layout::kEnumerationData,
    &layout::kRegisterValue,
    &layout::kRegisterWriteResult,
    &layout::kAlarmStats,
    &layout::kAlarmEntry,
    &layout::kSettableAlarmEntry,
    &layout::kAccessRights,
    &layout::kPhasorEntry,
    &layout::kHarmonicData,
    &layout::kMinMaxValue,
    &layout::kMinMaxBarData,
    &layout::kCustomScreenData,
    &layout::kIoPointEntry,
    &layout::kNameplateData,
    &layout::kEventLogEntry,
});

constexpr auto kTypeNames =
    std::to_array<std::string_view>({"u8", "u16", "u32", "i32", "u64", "f32", "f64", "text", "record"});
static_assert(kTypeNames.size() == static_cast<std::size_t>(FieldType::Record) + 1);

}  // namespace

std::span<const RecordLayout* const> RecordLayouts() { return kLayouts; }

const RecordLayout* FindRecordLayout(std::string_view name) {
    const auto found = std::ranges::find(kLayouts, name, &RecordLayout::name);
    return found != kLayouts.end() ? *found : nullptr;
}

std::string_view FieldTypeName(FieldType type) { return kTypeNames[static_cast<std::size_t>(type)]; }

}  // namespace meter
