#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/panel.h"

namespace panel {

inline constexpr std::size_t kFrameBytes = std::size_t{2} * kPanelWidth * kPanelHeight;
static_assert(kFrameBytes == 153'600);

/// What is on the glass: rows from top to bottom, a pixel two bytes, the low one first, five bits red, six green, five
/// blue.
using Frame = std::array<std::uint8_t, kFrameBytes>;

/// Turns a frame into a PNG of eight bits a channel, full intensity becoming 255. Every frame gives a PNG.
std::vector<std::uint8_t> EncodePng(const Frame& frame);

}  // namespace panel
