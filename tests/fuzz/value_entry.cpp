#include <algorithm>
#include <array>
#include <cstdlib>

#include "navigation/entry/masked_value.h"
#include "tests/fuzz/target.h"

namespace {

constexpr std::array<std::string_view, 6> kMasks = {"?????#.#?", "??#.??#.??#.??#", "???#", "?#.#??", "S?#:?#:?#", "#"};

/// The cursor stays in the value, and with a mask of the display what is composed reads as itself.
void Check(const MaskedValue& value) {
    if (value.Size() > MaskedValue::kLongest || value.Cursor() >= MaskedValue::kLongest) std::abort();
    const bool isOfDisplay = std::ranges::find(kMasks, value.Mask()) != kMasks.end();
    if (!isOfDisplay || value.validate() != EntryResult::Accepted) return;
    MaskedValue copy;
    if (copy.setMask(value.Mask()) != EntryResult::Accepted) std::abort();
    if (copy.setValue(value.getValue().data()) != EntryResult::Accepted) std::abort();
    if (!copy.IsSameNumber(value)) std::abort();
}

}  // namespace

const MemoryBound kMemoryBound = {.bytes = 0, .perByte = 0};

void Prepare() {}

/// First byte: a mask of the table, or the length of one of its own; then a text of that many bytes as the next byte
/// says, then keys.
void Take(std::span<const std::uint8_t> input) {
    std::string_view rest(reinterpret_cast<const char*>(input.data()), input.size());
    const auto take = [&rest](std::size_t count) {
        const std::string_view taken = rest.substr(0, count);
        rest.remove_prefix(taken.size());
        return taken;
    };
    const auto byte = [&] {
        const std::string_view taken = take(1);
        return taken.empty() ? 0U : static_cast<unsigned char>(taken.front());
    };
    const unsigned choice = byte();
    MaskedValue value;
    const std::string_view mask = choice < kMasks.size() ? kMasks[choice] : take(choice % 24);
    if (value.setMask(mask) != EntryResult::Accepted) return;
    static_cast<void>(value.setValue(take(byte() % 32)));
    Check(value);
    for (const char key : rest) {
        switch (key & 3) {
            case 0: value.cursorLeft(); break;
            case 1: value.clear(); break;
            default: value.step();
        }
        Check(value);
    }
}
