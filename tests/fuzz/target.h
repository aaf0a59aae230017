#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// What a fuzz target brings along. The guard gives it one input after the other and watches the time and the memory
// that each takes: see guard.cpp.

/// The memory that one input may occupy at a time beside what was there before.
struct MemoryBound {
    std::size_t bytes;    // whatever the input
    std::size_t perByte;  // and for each byte of it
};
extern const MemoryBound kMemoryBound;

/// Makes ready what all inputs share.
void Prepare();

/// Reads one input as the target's reader would from outside.
void Take(std::span<const std::uint8_t> input);
