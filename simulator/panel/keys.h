#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace panel {

/// The keys by the codes that the board reports.
enum class Key : std::int32_t { Soft1 = 1, Soft2, Soft3, Soft4, Home, Soft23 };
inline constexpr int kKeyCodes = 6;

/// What a read of the keys device gives: eight bytes, little-endian like the processor.
struct KeyRecord {
    std::int32_t code;   // 1 to 6
    std::int32_t state;  // 0 pressed, 1 released

    bool operator==(const KeyRecord&) const = default;
};
static_assert(sizeof(KeyRecord) == 8);

/// @param name  soft1, soft2, soft3, soft4, home or soft23
std::optional<Key> FindKey(std::string_view name);

}  // namespace panel
