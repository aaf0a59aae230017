#include "simulator/panel/keys.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

struct KeyRow {
    std::string_view name;
    Key key;
};

// clang-format off
constexpr auto kKeys = std::to_array<KeyRow>({
    {.name = "soft1",  .key = Key::Soft1},
    {.name = "soft2",  .key = Key::Soft2},
    {.name = "soft3",  .key = Key::Soft3},
    {.name = "soft4",  .key = Key::Soft4},
    {.name = "home",   .key = Key::Home},
    {.name = "soft23", .key = Key::Soft23},
});
// clang-format on
static_assert(kKeys.size() == kKeyCodes);

}  // namespace

std::optional<Key> FindKey(std::string_view name) {
    const auto row = std::ranges::find(kKeys, name, &KeyRow::name);
    return row != kKeys.end() ? std::optional(row->key) : std::nullopt;
}

}  // namespace panel
