#include <ctime>
#include <vector>

#include "tests/fuzz/target.h"

// A target that breaks what targets promise, as its input says: the guard has to notice.

constexpr std::size_t kBound = 100'000;
const MemoryBound kMemoryBound = {.bytes = kBound, .perByte = 0};

void Prepare() {}

/// "t" takes time; "m" takes memory, in pieces each of which would be well.
void Take(std::span<const std::uint8_t> input) {
    const std::clock_t end = std::clock() + CLOCKS_PER_SEC;
    while (input.front() == 't' && std::clock() < end) continue;
    std::vector<std::vector<char>> pieces;
    while (input.front() == 'm' && pieces.size() < 3) pieces.emplace_back(kBound / 2);
}
