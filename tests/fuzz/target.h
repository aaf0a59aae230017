#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

/// What a fuzz target does with one input. @return 0
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// A board of this process whose file at `path` has these bytes; `path` is as the display names it.
void PutOnBoard(const char* path, const std::uint8_t* data, std::size_t size);
