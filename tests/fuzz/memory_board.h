#pragma once

#include <cstdint>
#include <span>

/// A board that consists of one file. It takes the place of the host's devices.
/// @param path   as the display names it; a literal
/// @param bytes  outlive every use of the board
void PutOnBoard(const char* path, std::span<const std::uint8_t> bytes);
