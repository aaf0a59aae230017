#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// What the records of the link are made of, for those who show them: the trace of calls and the command line.
namespace meter {

enum class FieldType : std::uint8_t { U8, U16, U32, I32, U64, F32, F64, Text, Record };

struct RecordLayout;

/// One field. An array of elements has a count above 1; a text is one element of `size` bytes.
struct Field {
    std::string_view name;
    FieldType type;
    std::size_t offset;          // in its record
    std::size_t size;            // of one element
    std::size_t count;           // elements
    const RecordLayout* record;  // of the elements, or null

    constexpr std::size_t End() const { return offset + size * count; }
    /// Whether it only keeps a place.
    constexpr bool IsUnused() const { return name == "unused" || name == "reserved"; }
};

struct RecordLayout {
    std::string_view name;
    std::size_t size;
    std::span<const Field> fields;  // in their order, without gaps
};

/// Every record that the meter answers with.
std::span<const RecordLayout* const> RecordLayouts();

/// @return the layout, or null when there is no record of that name
const RecordLayout* FindRecordLayout(std::string_view name);

/// @return the name of a type as it is shown, "u32"
std::string_view FieldTypeName(FieldType type);

namespace layout {
extern const RecordLayout kDateTimeStrings, kEnumerationValue, kEnumerationData, kRegisterValue, kRegisterWriteResult;
extern const RecordLayout kAlarmStats, kAlarmEntry, kSettableAlarmEntry, kAccessRights;
extern const RecordLayout kPhasorEntry, kHarmonicData, kMinMaxValue, kMinMaxBarData;
extern const RecordLayout kCustomScreenData, kIoPointEntry, kNameplateData, kEventLogEntry;
}  // namespace layout

}  // namespace meter
