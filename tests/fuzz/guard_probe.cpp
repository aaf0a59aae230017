#include <ctime>
#include <vector>

#include "tests/fuzz/target.h"

// A target that breaks what targets promise, as its input says: the guard has to notice.

namespace {

constexpr std::size_t kBound = 100'000;

void TakeTime() {
    const std::clock_t end = std::clock() + CLOCKS_PER_SEC;
    while (std::clock() < end) continue;
}

/// In pieces each of which would be well.
void TakeMemory() {
    std::vector<std::vector<char>> pieces;
    for (int i = 0; i < 3; ++i) pieces.emplace_back(kBound / 2);
}

}  // namespace

const MemoryBound kMemoryBound = {.bytes = kBound, .perByte = 0};

void Prepare() {}

void Take(std::span<const std::uint8_t> input) {
    if (input.front() == 't') TakeTime();
    if (input.front() == 'm') TakeMemory();
}
